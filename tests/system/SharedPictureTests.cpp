// A collection of real, odd and broken pictures, where it is at hand.
#include "support/Folders.h"
#include "surface/system/Pictures.h"
#include "system/Sandbox.h"

#include <algorithm>
#include <QImage>

namespace pintalux {
namespace {

std::string Collection(const std::string& folder) {
    return SharedPictures() + "/" + folder;
}

std::vector<std::filesystem::path> FilesOf(const std::string& folder) {
    std::vector<std::filesystem::path> files;
    std::error_code none;
    for (const auto& entry : std::filesystem::directory_iterator(Collection(folder), none))
        files.push_back(entry);
    std::ranges::sort(files);
    return files;
}

/// The references were made with other roundings of the same colours: one step a channel is allowed.
bool Near(Pixel pixel, QRgb reference) {
    const auto channel = [&](int shift) { return static_cast<int>(pixel >> shift & 0xFF); };
    return std::abs(channel(0) - qRed(reference)) <= 1 && std::abs(channel(8) - qGreen(reference)) <= 1 &&
           std::abs(channel(16) - qBlue(reference)) <= 1;
}

void ExpectReference(const Picture& picture, const QImage& reference, const std::string& name) {
    ASSERT_EQ(picture.Width(), reference.width()) << name;
    ASSERT_EQ(picture.Height(), reference.height()) << name;
    for (int y = 0; y < picture.Height(); ++y)
        for (int x = 0; x < picture.Width(); ++x)
            ASSERT_TRUE(Near(picture.At(x, y), reference.pixel(x, y)))
                << name << " at " << x << ", " << y << ": " << std::hex << picture.At(x, y) << " for "
                << reference.pixel(x, y);
}

/// The reference picture of a well-formed bitmap: variants of one picture share one.
QImage ReferenceOf(const std::string& name) {
    std::string shown = name;
    for (const auto& [start, reference] :
         {std::pair{"pal8w", ""}, std::pair{"pal8nonsquare", "none"}, std::pair{"pal8", "pal8"},
          std::pair{"pal4", "pal4"}, std::pair{"rgb16-565", "rgb16-565"}, std::pair{"rgb24", "rgb24"},
          std::pair{"rgb32", "rgb24"}, std::pair{"pal1wb", "pal1"}}) {
        if (!name.starts_with(start)) continue;
        if (*reference != '\0') shown = reference;
        break;
    }
    return QImage(QString::fromStdString(Collection("bmp/html/") + shown + ".png"));
}

TEST(SharedPictures, WellFormedBitmapsShowTheirReference) {
    const auto files = FilesOf("bmp/g");
    if (files.empty()) GTEST_SKIP() << "the collection is not here";
    int compared = 0;
    for (const auto& file : files) {
        const Picture picture = LoadPicture(file.string());
        EXPECT_FALSE(picture.Empty()) << file;
        const QImage reference = ReferenceOf(file.stem().string());
        if (reference.isNull()) continue;
        ++compared;
        ExpectReference(picture, reference, file.string());
    }
    EXPECT_GE(compared, 20);
}

TEST(SharedPictures, BrokenFilesArePicturesOrRefused) {
    const auto broken = FilesOf("bmp/b");
    if (broken.empty()) GTEST_SKIP() << "the collection is not here";
    for (const auto& file : broken) {
        const int error = ErrorOf([&] { EXPECT_FALSE(LoadPicture(file.string()).Empty()); });
        EXPECT_TRUE(error == 0 || error == 481) << file << " " << error;
    }
}

TEST(SharedPictures, ImpossibleBitmapsAreRefused) {
    if (FilesOf("bmp/b").empty()) GTEST_SKIP() << "the collection is not here";
    for (const char* name : {"badbitcount", "badplanes", "badwidth", "reallybig", "shortfile"})
        EXPECT_EQ(ErrorOf([&] { LoadPicture(Collection("bmp/b/") + name + ".bmp"); }), 481) << name;
}

TEST(SharedPictures, OddFilesArePicturesOrRefused) {
    const auto odd = FilesOf("odd");
    if (odd.empty()) GTEST_SKIP() << "the collection is not here";
    for (const auto& file : odd) {
        const int error = ErrorOf([&] { EXPECT_FALSE(LoadPicture(file.string()).Empty()); });
        EXPECT_TRUE(error == 0 || error == 481) << file << " " << error;
    }
    EXPECT_EQ(LoadPicture(Collection("odd/no-frames.gif")).At(0, 0), 0xFFFFFFU); // its empty screen
    EXPECT_EQ(ErrorOf([] { LoadPicture(Collection("odd/peacock.progressive.truncated.jpeg")); }), 0);
    EXPECT_EQ(ErrorOf([] { LoadPicture(Collection("odd/hippopotamus.interlaced.gif")); }), 0);
}

TEST(SharedPictures, RealPicturesOpen) {
    const auto real = FilesOf("real");
    if (real.empty()) GTEST_SKIP() << "the collection is not here";
    for (const auto& file : real)
        EXPECT_GE(LoadPicture(file.string()).Width(), 16) << file;
    EXPECT_EQ(LoadPicture(Collection("real/harvesters.jpeg")).Bounds(), (Box{0, 0, 1165, 859}));
}

TEST(SharedPictures, PhotoIsTheSameAsBitmapAndNearlySoAsJpeg) {
    if (FilesOf("real").empty()) GTEST_SKIP() << "the collection is not here";
    const Picture bitmap = LoadPicture(Collection("real/bricks-color.bmp"));
    const Picture jpeg = LoadPicture(Collection("real/bricks-color.jpeg"));
    ASSERT_EQ(bitmap.Bounds(), jpeg.Bounds());
    std::int64_t difference = 0;
    for (int y = 0; y < bitmap.Height(); ++y)
        for (int x = 0; x < bitmap.Width(); ++x)
            difference +=
                std::abs(static_cast<int>(bitmap.At(x, y) & 0xFF) - static_cast<int>(jpeg.At(x, y) & 0xFF));
    EXPECT_LT(difference, std::int64_t{10} * bitmap.Width() * bitmap.Height());
}

TEST(SharedPictures, SavedAgainTheyStayAsTheyAre) {
    if (FilesOf("real").empty()) GTEST_SKIP() << "the collection is not here";
    const Sandbox box;
    for (const auto& file : FilesOf("real")) {
        const Picture picture = LoadPicture(file.string());
        SavePictureAside(picture, box / "a.bmp");
        EXPECT_TRUE(LoadPicture(box / "a.bmp") == picture) << file;
    }
}

} // namespace
} // namespace pintalux
