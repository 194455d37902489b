// BMP files: what is written, byte by byte, and what is read back or refused.
#include "surface/system/BmpWriter.h"
#include "surface/system/Pictures.h"
#include "system/Sandbox.h"

#include <cerrno>

namespace pintalux {
namespace {

/// The headers of an uncompressed BMP file, as told field by field.
struct Head {
    std::int64_t width = 1;
    std::int64_t height = 1;
    std::int64_t bits = 24;
    std::int64_t planes = 1;
    std::int64_t compression = 0;
    std::int64_t offset = 54;
    std::int64_t headerLength = 40;

    std::string Bytes() const {
        return "BM" + LittleEndian(0, 4) + LittleEndian(0, 4) + LittleEndian(offset, 4) +
               LittleEndian(headerLength, 4) + LittleEndian(width, 4) + LittleEndian(height, 4) +
               LittleEndian(planes, 2) + LittleEndian(bits, 2) + LittleEndian(compression, 4) +
               LittleEndian(0, 20);
    }
};

/// A row as it stands in a file, pixel by pixel.
std::string PlainRow(const Picture& picture, int y) {
    std::string row;
    for (int x = 0; x < picture.Width(); ++x) {
        const Pixel pixel = picture.At(x, y);
        row += LittleEndian(pixel >> 16, 1) + LittleEndian(pixel >> 8, 1) + LittleEndian(pixel, 1);
    }
    while (row.size() % 4 != 0)
        row += '\0';
    return row;
}

/// The whole file of a picture.
std::string PlainBmp(const Picture& picture) {
    std::string rows;
    for (int y = picture.Height() - 1; y >= 0; --y)
        rows += PlainRow(picture, y);
    const auto length = static_cast<std::int64_t>(rows.size());
    return "BM" + LittleEndian(54 + length, 4) + LittleEndian(0, 4) + LittleEndian(54, 4) +
           LittleEndian(40, 4) + LittleEndian(picture.Width(), 4) + LittleEndian(picture.Height(), 4) +
           LittleEndian(1, 2) + LittleEndian(24, 2) + LittleEndian(0, 4) + LittleEndian(length, 4) +
           LittleEndian(3780, 4) + LittleEndian(3780, 4) + LittleEndian(0, 8) + rows;
}

int ErrorOfLoading(const Sandbox& box, const std::string& bytes) {
    PutBytes(box / "a.bmp", bytes);
    return ErrorOf([&] { LoadPicture(box / "a.bmp"); });
}

TEST(SavePicture, TwoByTwoByHand) {
    const Sandbox box;
    Picture picture(2, 2, kWhite);
    picture.Set(0, 0, 0x0000FF); // red
    picture.Set(1, 0, 0x00FF00); // green
    picture.Set(0, 1, 0xFF0000); // blue
    picture.Set(1, 1, 0x102030); // 0x30 red, 0x20 green, 0x10 blue
    SavePicture(picture, box / "a.bmp");
    const unsigned char expected[] = {
        'B', 'M', 70,  0,    0,    0,    0, 0, 0,    0,    54, 0, 0, 0, // length 54 + 2 rows of 8
        40,  0,   0,   0,    2,    0,    0, 0, 2,    0,    0,  0, 1, 0,
        24,  0,   0,   0,    0,    0, // 2 by 2, 1 plane, 24 bits
        16,  0,   0,   0,    0xC4, 0x0E, 0, 0, 0xC4, 0x0E, 0,  0, 0, 0,
        0,   0,   0,   0,    0,    0,          // 16 bytes of rows, 96 dots an inch
        255, 0,   0,   0x10, 0x20, 0x30, 0, 0, // the lower row first
        0,   0,   255, 0,    255,  0,    0, 0};
    EXPECT_EQ(BytesOf(box / "a.bmp"), std::string(std::begin(expected), std::end(expected)));
}

class BmpSizes : public testing::TestWithParam<std::pair<int, int>> {};

TEST_P(BmpSizes, WrittenFileIsThatOfThePlainModelAndReadsBack) {
    const auto [width, height] = GetParam();
    const Sandbox box;
    const Picture picture = Pattern(width, height);
    SavePicture(picture, box / "a.bmp");
    EXPECT_EQ(BytesOf(box / "a.bmp").size(), BmpFileLength(width, height));
    EXPECT_TRUE(BytesOf(box / "a.bmp") == PlainBmp(picture));
    EXPECT_TRUE(LoadPicture(box / "a.bmp") == picture);
}

// Each padding, tile borders on either side, and the longest row.
INSTANTIATE_TEST_SUITE_P(Sizes, BmpSizes,
                         testing::Values(std::pair{1, 1}, std::pair{2, 3}, std::pair{3, 2}, std::pair{4, 1},
                                         std::pair{5, 5}, std::pair{6, 2}, std::pair{7, 2}, std::pair{8, 3},
                                         std::pair{9, 2}, std::pair{255, 31}, std::pair{256, 32},
                                         std::pair{257, 33}, std::pair{1000, 700}, std::pair{32000, 1},
                                         std::pair{1, 32000}));

TEST(NextBmpPiece, PiecesMakeTheFile) {
    for (const auto& [width, height] : {std::pair{1, 1}, {5, 5}, {7, 33}, {256, 64}, {300, 100}}) {
        const Picture picture = Pattern(width, height);
        const std::size_t row = PlainRow(picture, 0).size();
        for (const std::size_t length : {std::size_t{1}, row, 3 * row + 1, std::size_t{1} << 20}) {
            SCOPED_TRACE(testing::Message() << width << " by " << height << " in " << length);
            std::string whole;
            int bottom = height;
            for (int pieces = 0; pieces <= height; ++pieces) {
                const std::string piece = NextBmpPiece(picture, length, bottom);
                EXPECT_LE(piece.size(), std::max(length, 32 * row) + (pieces == 0 ? 54U : 0U));
                EXPECT_EQ(piece.empty(), whole.size() == PlainBmp(picture).size());
                whole += piece;
                if (piece.empty()) break;
            }
            EXPECT_TRUE(whole == PlainBmp(picture));
            EXPECT_EQ(bottom, 0);
        }
    }
    int bottom = 0;
    EXPECT_EQ(ErrorOf([&] { NextBmpPiece({}, 100, bottom); }), 481);
}

TEST(SavePicture, EmptyPictureIsRefusedAndMakesNoFile) {
    const Sandbox box;
    EXPECT_EQ(ErrorOf([&] { SavePicture({}, box / "a.bmp"); }), 481);
    EXPECT_EQ(ErrorOf([&] { SavePictureAside({}, box / "a.bmp"); }), 481);
    EXPECT_TRUE(box.Names().empty());
}

TEST(SavePicture, OverlongSideIsRefused) {
    const Sandbox box;
    EXPECT_EQ(ErrorOf([&] { SavePicture(Picture(32001, 1, kWhite), box / "a.bmp"); }), 481);
}

TEST(SavePicture, FullDiskIsError61) {
    if (::access("/dev/full", W_OK) != 0) GTEST_SKIP() << "no /dev/full here";
    EXPECT_EQ(ErrorOf([] { SavePicture(Pattern(100, 100), "/dev/full"); }), 61);
}

TEST(SavePicture, EveryFailingStepIsReported) {
    const Sandbox box;
    const Picture picture = Pattern(700, 600); // more than one buffer
    const int count = FailEachOperation(
        EDQUOT, [&] { SavePicture(picture, box / "a.bmp"); },
        [](int n, int error) { EXPECT_EQ(error, 61) << "operation " << n; });
    EXPECT_EQ(count, 5); // open, header, two buffers, close
}

TEST(SavePictureAside, EveryFailingStepLeavesTheOldFileAndNothingElse) {
    const Sandbox box;
    const Picture before = Pattern(10, 10, 1);
    const Picture after = Pattern(700, 600, 2);
    const int count = FailEachOperation(
        EIO,
        [&] {
            PutBytes(box / "a.bmp", PlainBmp(before));
            SavePictureAside(after, box / "a.bmp");
        },
        [&](int n, int error) {
            const bool written = n == kModeOperation;
            EXPECT_EQ(error, written ? 0 : 57) << "operation " << n;
            EXPECT_TRUE(LoadPicture(box / "a.bmp") == (written ? after : before)) << "operation " << n;
            EXPECT_EQ(box.Names(), std::vector<std::string>{"a.bmp"}) << "operation " << n;
        });
    EXPECT_EQ(count, 9); // stat, open, mode, header, two buffers, sync, close, rename
}

TEST(LoadBmp, RowsFromTheTopDown) {
    const Sandbox box;
    PutBytes(box / "a.bmp",
             Head{.width = 1, .height = -2}.Bytes() + std::string("\x01\x02\x03\0\x04\x05\x06\0", 8));
    const Picture picture = LoadPicture(box / "a.bmp");
    ASSERT_EQ(picture.Bounds(), (Box{0, 0, 1, 2}));
    EXPECT_EQ(picture.At(0, 0), 0x010203U);
    EXPECT_EQ(picture.At(0, 1), 0x040506U);
}

TEST(LoadBmp, AFileLargerThanTheBufferFromTheTopDown) {
    const Sandbox box;
    const Picture picture = Pattern(1001, 701);
    std::string bytes = Head{.width = 1001, .height = -701}.Bytes();
    for (int y = 0; y < picture.Height(); ++y)
        bytes += PlainRow(picture, y);
    PutBytes(box / "a.bmp", bytes);
    EXPECT_TRUE(LoadPicture(box / "a.bmp") == picture);
}

TEST(LoadBmp, RowsMayBeginLater) {
    const Sandbox box;
    PutBytes(box / "a.bmp", Head{.offset = 60}.Bytes() + "gap..." + std::string("\x01\x02\x03\0", 4));
    EXPECT_EQ(LoadPicture(box / "a.bmp").At(0, 0), 0x010203U);
}

TEST(LoadBmp, HeaderWithSixteenBitSides) {
    const Sandbox box;
    PutBytes(box / "a.bmp", "BM" + LittleEndian(0, 8) + LittleEndian(26, 4) + LittleEndian(12, 4) +
                                LittleEndian(1, 2) + LittleEndian(1, 2) + LittleEndian(1, 2) +
                                LittleEndian(24, 2) + std::string("\x01\x02\x03\0", 4));
    EXPECT_EQ(LoadPicture(box / "a.bmp").At(0, 0), 0x010203U);
}

TEST(LoadBmp, OneBitPixelsLeftmostFirst) {
    const Sandbox box;
    PutBytes(box / "a.bmp", Head{.width = 3, .bits = 1, .offset = 62}.Bytes() + LittleEndian(0x102030, 4) +
                                LittleEndian(0xFFFFFF, 4) + std::string("\xA0\0\0\0", 4)); // 1, 0, 1
    const Picture picture = LoadPicture(box / "a.bmp");
    EXPECT_EQ(picture.At(0, 0), 0xFFFFFFU);
    EXPECT_EQ(picture.At(1, 0), 0x302010U);
    EXPECT_EQ(picture.At(2, 0), 0xFFFFFFU);
}

TEST(LoadBmp, FourBitPixelsLeftmostFirst) {
    const Sandbox box;
    // Two colours only: number 15 has none and is black.
    PutBytes(box / "a.bmp", Head{.width = 3, .bits = 4, .offset = 62}.Bytes() + LittleEndian(0x0000FF, 4) +
                                LittleEndian(0x00FF00, 4) + std::string("\x10\xF0\0\0", 4));
    const Picture picture = LoadPicture(box / "a.bmp");
    EXPECT_EQ(picture.At(0, 0), 0x00FF00U);
    EXPECT_EQ(picture.At(1, 0), 0xFF0000U);
    EXPECT_EQ(picture.At(2, 0), 0x000000U);
}

TEST(LoadBmp, SixteenBitsReachFullWhite) {
    const Sandbox box;
    // Five bits a channel: 31 is 255, 16 is 131.6.
    PutBytes(box / "a.bmp",
             Head{.width = 2, .bits = 16}.Bytes() + LittleEndian(0x7FFF, 2) + LittleEndian(16 << 10 | 31, 2));
    const Picture picture = LoadPicture(box / "a.bmp");
    EXPECT_EQ(picture.At(0, 0), 0xFFFFFFU);
    EXPECT_EQ(picture.At(1, 0), 0xFF0084U);
}

TEST(LoadBmp, MasksPlaceTheChannels) {
    const Sandbox box;
    PutBytes(box / "a.bmp", Head{.bits = 32, .compression = 3, .offset = 66}.Bytes() + LittleEndian(0xFF, 4) +
                                LittleEndian(0xFF000000, 4) + LittleEndian(0, 4) +
                                LittleEndian(0x40FFFF30, 4));
    EXPECT_EQ(LoadPicture(box / "a.bmp").At(0, 0), 0x004030U);
}

TEST(LoadBmp, FourthByteOfPlainPixelsIsNoTransparency) {
    const Sandbox box;
    PutBytes(box / "a.bmp", Head{.bits = 32}.Bytes() + LittleEndian(0x00102030, 4));
    EXPECT_EQ(LoadPicture(box / "a.bmp").At(0, 0), 0x302010U);
}

TEST(LoadBmp, LastRowMayLackItsPadding) {
    const Sandbox box;
    PutBytes(box / "a.bmp", Head{}.Bytes() + "\x01\x02\x03");
    EXPECT_EQ(LoadPicture(box / "a.bmp").At(0, 0), 0x010203U);
}

TEST(LoadBmp, TruncatedFileIsRefused) {
    const Sandbox box;
    const std::string whole = PlainBmp(Pattern(8, 8));
    EXPECT_EQ(ErrorOfLoading(box, whole), 0);
    for (std::size_t length = 2; length < whole.size(); length += 7)
        EXPECT_EQ(ErrorOfLoading(box, whole.substr(0, length)), 481) << length;
    EXPECT_EQ(ErrorOfLoading(box, whole.substr(0, whole.size() - 1)), 481);
}

struct LyingHead {
    Head head;
    const char* name;
};

class LyingHeads : public testing::TestWithParam<LyingHead> {};

TEST_P(LyingHeads, AreRefused) {
    const Sandbox box;
    EXPECT_EQ(ErrorOfLoading(box, GetParam().head.Bytes() + std::string(4, '\0')), 481);
}

INSTANTIATE_TEST_SUITE_P(
    All, LyingHeads,
    testing::Values(LyingHead{{.width = 0}, "NoWidth"}, LyingHead{{.height = 0}, "NoHeight"},
                    LyingHead{{.width = -1}, "NegativeWidth"}, LyingHead{{.width = 32001}, "Overwide"},
                    LyingHead{{.height = 32001}, "Overhigh"},
                    LyingHead{{.height = -32001}, "OverhighTopDown"},
                    LyingHead{{.height = -2147483648LL}, "HeightWithoutOpposite"},
                    LyingHead{{.width = 0x7FFFFFFF, .height = 0x7FFFFFFF}, "Enormous"},
                    LyingHead{{.width = 32000, .height = 32000}, "LegalButNotThere"},
                    LyingHead{{.width = 32000, .height = 32000, .bits = 8}, "LegalPaletteButNotThere"},
                    LyingHead{{.bits = 23}, "OddBits"}, LyingHead{{.planes = 0}, "NoPlane"},
                    LyingHead{{.planes = 2}, "TwoPlanes"}, LyingHead{{.offset = 53}, "RowsInsideHeader"},
                    LyingHead{{.offset = 0}, "RowsAtStart"}, LyingHead{{.offset = 0xFFFFFFFF}, "RowsFarAway"},
                    LyingHead{{.headerLength = 39}, "ShortHeader"},
                    LyingHead{{.headerLength = 0x10000}, "LongHeader"},
                    LyingHead{{.compression = 77}, "UnknownCompression"},
                    LyingHead{{.bits = 24, .compression = 3}, "MasksForTriples"},
                    LyingHead{{.bits = 4, .compression = 1}, "RunsOfOtherDepth"}),
    [](const auto& row) { return row.param.name; });

TEST(LoadBmp, UnreadableDiskPassesUp) {
    const Sandbox box;
    SavePicture(Pattern(700, 600), box / "a.bmp");
    FailEachOperation(
        EIO, [&] { LoadPicture(box / "a.bmp"); },
        [](int n, int error) { EXPECT_EQ(error, 57) << "operation " << n; });
}

} // namespace
} // namespace pintalux
