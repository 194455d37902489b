// A BMP file that grows row by row.
#include "surface/system/BmpRows.h"
#include "surface/system/Pictures.h"
#include "system/Sandbox.h"

#include <cerrno>

namespace pintalux {
namespace {

void WriteRows(const Picture& picture, const std::string& path) {
    BmpRows file(path, picture.Width());
    for (int y = 0; y < picture.Height(); ++y) {
        std::vector<std::uint8_t> row;
        for (int x = 0; x < picture.Width(); ++x)
            for (const int shift : {0, 8, 16})
                row.push_back(static_cast<std::uint8_t>(picture.At(x, y) >> shift));
        file.Add(row);
    }
    file.Finish();
}

TEST(BmpRows, EveryWidthComesBackAsItWas) {
    const Sandbox folder;
    for (int width = 1; width <= 20; ++width) {
        const std::string path = folder / (std::to_string(width) + ".bmp");
        const Picture picture = Pattern(width, 7);
        WriteRows(picture, path);
        EXPECT_TRUE(LoadPicture(path) == picture) << width;
        EXPECT_EQ(BytesOf(path).size(), BmpFileLength(width, 7));
    }
}

TEST(BmpRows, AFileLargerThanTheBufferIsWholeAndItsRowsAreFilledUpWithZeros) {
    const Sandbox folder;
    const Picture picture = Pattern(1001, 800);
    WriteRows(picture, folder / "large.bmp");
    EXPECT_TRUE(LoadPicture(folder / "large.bmp") == picture);
    const std::string bytes = BytesOf(folder / "large.bmp");
    for (std::size_t row = 1; row <= 800; ++row)
        ASSERT_EQ(bytes[54 + row * 3004 - 1], '\0') << row;
}

TEST(BmpRows, AnUnfinishedFileGoes) {
    const Sandbox folder;
    {
        BmpRows file(folder / "page.bmp", 2);
        file.Add(std::vector<std::uint8_t>(6, 1));
        EXPECT_EQ(folder.Names().size(), 1U);
    }
    EXPECT_TRUE(folder.Names().empty());
}

TEST(BmpRows, AFileThatIsThereStays) {
    const Sandbox folder;
    PutBytes(folder / "page.bmp", "mine");
    EXPECT_EQ(ErrorOf([&] { BmpRows(folder / "page.bmp", 2); }), kPathFileAccess);
    EXPECT_EQ(BytesOf(folder / "page.bmp"), "mine");
}

TEST(BmpRows, WhateverFailsNoPieceIsLeft) {
    const Sandbox folder;
    const Picture picture = Pattern(700, 600); // more than the buffer holds
    const auto write = [&] {
        ResumeNext([&] { DeleteFile(folder / "page.bmp"); });
        WriteRows(picture, folder / "page.bmp");
    };
    FailEachOperation(EIO, write, [&](int n, int error) {
        if (n == 1) return; // the test's own deletion
        EXPECT_NE(error, 0) << n;
        EXPECT_TRUE(folder.Names().empty()) << n;
    });
}

} // namespace
} // namespace pintalux
