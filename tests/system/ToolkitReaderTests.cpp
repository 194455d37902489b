// PNG, WebP and TIFF: written by the toolkit's encoders, without loss, and read back to the pixel.
#include "support/Memory.h"
#include "surface/system/Pictures.h"
#include "surface/system/ToolkitImages_native.h"
#include "system/Sandbox.h"

#include <cerrno>
#include <QColor>
#include <QImage>
#include <QImageReader>

namespace pintalux {
namespace {

constexpr const char* kFormats[] = {"png", "webp", "tiff"};

/// Every pixel another; the highest byte is the alpha channel.
QImage Sample(int width, int height, QImage::Format format) {
    QImage image(width, height, format);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.setPixelColor(x, y, QColor(x * 7 % 256, y * 11 % 256, (x + 3 * y) % 256, 255));
    return image;
}

/// The file's path; no loss in any of the formats.
std::string Written(const Sandbox& box, const QImage& image, const char* format) {
    const std::string path = box / (std::string("a.") + format);
    EXPECT_TRUE(image.save(QString::fromStdString(path), format, 100)) << format;
    return path;
}

Picture Loaded(const QImage& image, const char* format) {
    const Sandbox box;
    return LoadPicture(Written(box, image, format));
}

TEST(ToolkitImages, EveryPixelGoesThereAndBack) {
    for (const auto& [width, height] : {std::pair{1, 1}, {7, 1}, {1, 7}, {70, 65}, {300, 33}}) {
        Picture picture(width, height, 0);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                picture.Set(x, y, static_cast<Pixel>(x * 0x1F3 + y * 0x10B57 + 1) & 0xFFFFFF);
        const QImage image = ImageOf(picture);
        ASSERT_EQ(image.size(), QSize(width, height));
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                const Pixel pixel = picture.At(x, y);
                ASSERT_EQ(image.pixelColor(x, y),
                          QColor(static_cast<int>(pixel & 0xFF), static_cast<int>(pixel >> 8 & 0xFF),
                                 static_cast<int>(pixel >> 16)))
                    << x << ", " << y;
            }
        }
        EXPECT_TRUE(PictureOfImage(image) == picture);
        EXPECT_TRUE(PictureOfImage(image.convertToFormat(QImage::Format_ARGB32)) == picture);
    }
    EXPECT_TRUE(ImageOf({}).isNull());
}

class ToolkitFormat : public ::testing::TestWithParam<const char*> {
  protected:
    /// 60 by 50 pixels are read if twice as many bytes are free, and no fewer.
    static void ExpectNeeded(QImage::Format kind, std::uint64_t bytes) {
        const Sandbox box;
        const std::string path = Written(box, Sample(60, 50, kind), GetParam());
        {
            const SupposedMemory justEnough(bytes * 2);
            EXPECT_EQ(ErrorOf([&] { LoadPicture(path); }), 0) << kind;
        }
        const SupposedMemory tooLittle(bytes * 2 - 2);
        EXPECT_EQ(ErrorOf([&] { LoadPicture(path); }), 7) << kind;
    }
};

TEST_P(ToolkitFormat, ShowsItsPixels) {
    const Picture picture = Loaded(Sample(70, 40, QImage::Format_RGB32), GetParam());
    ASSERT_EQ(picture.Bounds(), (Box{0, 0, 70, 40}));
    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 70; ++x)
            ASSERT_EQ(picture.At(x, y),
                      static_cast<Pixel>((x + 3 * y) % 256 << 16 | y * 11 % 256 << 8 | x * 7 % 256))
                << x << ", " << y;
}

TEST_P(ToolkitFormat, IsLaidOverWhitePaper) {
    QImage image(3, 1, QImage::Format_ARGB32);
    image.setPixelColor(0, 0, QColor(200, 0, 0, 0));
    // Of alpha 128 a white of 127 stays; red adds 200 * 128 / 255 = 100.4, so 227 in all.
    image.setPixelColor(1, 0, QColor(200, 0, 0, 128));
    image.setPixelColor(2, 0, QColor(200, 0, 0, 255));
    const Picture picture = Loaded(image, GetParam());
    ASSERT_EQ(picture.Bounds(), (Box{0, 0, 3, 1}));
    EXPECT_EQ(picture.At(0, 0), 0xFFFFFFU);
    EXPECT_EQ(picture.At(1, 0), 0x7F7FE3U);
    EXPECT_EQ(picture.At(2, 0), 0x0000C8U);
}

TEST_P(ToolkitFormat, NameDoesNotMatter) {
    const Sandbox box;
    const std::string path = Written(box, Sample(5, 4, QImage::Format_RGB32), GetParam());
    std::filesystem::rename(path, box / "a.bmp");
    EXPECT_EQ(LoadPicture(box / "a.bmp").Bounds(), (Box{0, 0, 5, 4}));
}

TEST_P(ToolkitFormat, EveryCutIsAPictureOrRefused) {
    const Sandbox box;
    const std::string whole = BytesOf(Written(box, Sample(9, 7, QImage::Format_RGB32), GetParam()));
    for (std::size_t length = 0; length < whole.size(); length += 1 + length / 16) {
        PutBytes(box / "cut", whole.substr(0, length));
        const int error = ErrorOf([&] { EXPECT_EQ(LoadPicture(box / "cut").Width(), 9); });
        EXPECT_TRUE(error == 0 || error == 481) << length << " " << error;
    }
}

TEST_P(ToolkitFormat, UnreadableDiskPassesUpThroughTheDecoder) {
    const Sandbox box;
    const std::string path = Written(box, Sample(9, 7, QImage::Format_RGB32), GetParam());
    int reported = 0;
    const int count = FailEachOperation(
        EIO, [&] { LoadPicture(path); }, [&](int, int error) { reported += error == 57 ? 1 : 0; });
    EXPECT_GT(count, 0);
    EXPECT_EQ(reported, count);
}

TEST_P(ToolkitFormat, TakesNoMoreThanHalfOfTheFreeMemoryWithItsDecoder) {
    const bool png = std::string(GetParam()) == "png";
    // The picture and the decoder's image; the other decoders hold more.
    ExpectNeeded(QImage::Format_RGB32, (png ? 2 : 4) * PictureBytes(60, 50));
    ExpectNeeded(QImage::Format_Grayscale8, (png ? 2 : 4) * PictureBytes(60, 50));
    // Of 16 bits a channel the image is twice as large.
    ExpectNeeded(QImage::Format_RGBA64, (png ? 3 : 4) * PictureBytes(60, 50));
}

TEST_P(ToolkitFormat, EndsWhenItIsGivenUp) {
    const Sandbox box;
    const std::string path = Written(box, Sample(60, 50, QImage::Format_RGB32), GetParam());
    std::stop_source source;
    source.request_stop();
    EXPECT_EQ(ErrorOf([&] { LoadPicture(path, source.get_token()); }), 18);
}

INSTANTIATE_TEST_SUITE_P(Each, ToolkitFormat, ::testing::ValuesIn(kFormats),
                         [](const auto& tested) { return std::string(tested.param); });

TEST(ToolkitReader, OverlongSidesAreRefused) {
    for (const char* format : {"png", "tiff"}) { // A WebP has no such sides.
        QImage image(32001, 1, QImage::Format_RGB32);
        image.fill(0);
        EXPECT_EQ(ErrorOf([&] { Loaded(image, format); }), 481) << format;
        EXPECT_EQ(Loaded(image.copy(0, 0, 32000, 1), format).Width(), 32000) << format;
    }
}

TEST(ToolkitReader, PalettesGreysAndSixteenBitsShow) {
    QImage palette(2, 1, QImage::Format_Indexed8);
    palette.setColorTable({qRgba(10, 20, 30, 255), qRgba(0, 0, 0, 0)});
    palette.setPixel(0, 0, 0);
    palette.setPixel(1, 0, 1);
    const Picture coloured = Loaded(palette, "png");
    EXPECT_EQ(coloured.At(0, 0), 0x1E140AU);
    EXPECT_EQ(coloured.At(1, 0), 0xFFFFFFU);

    QImage grey(1, 1, QImage::Format_Grayscale8);
    grey.fill(0x77);
    QImage deep(1, 1, QImage::Format_RGBX64);
    deep.setPixelColor(0, 0, QColor::fromRgba64(0x8080, 0x4040, 0x2020));
    for (const char* format : {"png", "tiff"}) {
        EXPECT_EQ(Loaded(grey, format).At(0, 0), 0x777777U) << format;
        EXPECT_EQ(Loaded(deep, format).At(0, 0), 0x204080U) << format;
    }
}

// The limit that the toolkit has for all of its images comes back.
TEST(ToolkitReader, APictureBeyondTheToolkitsOwnLimitOpens) {
    const int limit = QImageReader::allocationLimit();
    QImageReader::setAllocationLimit(1); // A megabyte: half of what this picture takes.
    QImage image(1024, 512, QImage::Format_RGB32);
    image.fill(0x123456);
    EXPECT_EQ(Loaded(image, "png").At(1023, 511), 0x563412U);
    EXPECT_EQ(QImageReader::allocationLimit(), 1);
    QImageReader::setAllocationLimit(limit);
}

} // namespace
} // namespace pintalux
