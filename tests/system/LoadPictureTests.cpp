// Pictures of every kind, made by hand here: what opens, how it looks, what is refused.
#include "surface/system/Pictures.h"
#include "system/Gates.h"
#include "system/GifBytes.h"

#include <cerrno>
#include <QImage>

namespace pintalux {
namespace {

using namespace std::string_literals;

/// A GIF of one image; `transparent` below 0 for none.
std::string Gif(int width, int height, const std::vector<int>& numbers, int transparent) {
    return GifScreen(width, height) + (transparent >= 0 ? GifControl(0, transparent) : "") +
           GifImage(0, 0, width, height, numbers) + "\x3B";
}

/// One picture of an icon file: blue, green, red, alpha of one colour all over.
std::string IconImage(int side, std::uint32_t colour) {
    std::string image = LittleEndian(40, 4) + LittleEndian(side, 4) + LittleEndian(side * 2, 4) +
                        LittleEndian(1, 2) + LittleEndian(32, 2) + LittleEndian(0, 24);
    for (int i = 0; i < side * side; ++i)
        image += LittleEndian(colour, 4);
    return image + std::string(static_cast<std::size_t>(side) * 4, '\0');
}

std::string IconEntry(int side, std::size_t length, std::size_t offset) {
    return LittleEndian(side, 1) + LittleEndian(side, 1) + LittleEndian(0, 2) + LittleEndian(1, 2) +
           LittleEndian(32, 2) + LittleEndian(static_cast<std::int64_t>(length), 4) +
           LittleEndian(static_cast<std::int64_t>(offset), 4);
}

int ErrorOfLoading(const Sandbox& box, const std::string& bytes) {
    PutBytes(box / "a", bytes);
    return ErrorOf([&] { LoadPicture(box / "a"); });
}

std::string JpegBytes(const Sandbox& box, const QImage& image) {
    const std::string path = box / "made.jpg";
    EXPECT_TRUE(image.save(QString::fromStdString(path), "JPEG", 95));
    return BytesOf(path);
}

/// A bitmap of 32 bits a pixel whose fourth byte is told to be the alpha channel.
std::string BmpWithAlpha(std::uint32_t pixel) {
    return "BM" + LittleEndian(0, 8) + LittleEndian(14 + 108, 4) + LittleEndian(108, 4) + LittleEndian(1, 4) +
           LittleEndian(1, 4) + LittleEndian(1, 2) + LittleEndian(32, 2) + LittleEndian(3, 4) +
           LittleEndian(0, 20) + LittleEndian(0xFF0000, 4) + LittleEndian(0xFF00, 4) + LittleEndian(0xFF, 4) +
           LittleEndian(0xFF000000, 4) + LittleEndian(0, 52) + LittleEndian(pixel, 4);
}

TEST(LoadPicture, NoPathGivesTheEmptyPicture) {
    EXPECT_TRUE(LoadPicture("").Empty());
    EXPECT_TRUE(LoadPicture().Empty());
}

TEST(LoadPicture, MissingFileIsError53) {
    const Sandbox box;
    EXPECT_EQ(ErrorOf([&] { LoadPicture(box / "no.bmp"); }), 53);
}

TEST(LoadPicture, FolderIsError75) {
    const Sandbox box;
    EXPECT_EQ(ErrorOf([&] { LoadPicture(box.Folder()); }), 75);
}

TEST(LoadPicture, UnreadableFileIsError70) {
    const Sandbox box;
    SavePicture(Pattern(2, 2), box / "a.bmp");
    ::chmod((box / "a.bmp").c_str(), 0);
    const OrdinaryUser user;
    EXPECT_EQ(ErrorOf([&] { LoadPicture(box / "a.bmp"); }), 70);
}

TEST(LoadPicture, ForeignFilesAreRefused) {
    const Sandbox box;
    const std::string png = "\x89PNG\r\n\x1A\n\0\0\0\rIHDR"s;
    for (const std::string& bytes : {""s, "B"s, "text"s, png, "GIF88a......"s, "\0\0\2\0\1\0"s, "BA......"s})
        EXPECT_EQ(ErrorOfLoading(box, bytes), 481) << bytes;
}

TEST(LoadPicture, BareMagicIsRefused) {
    const Sandbox box;
    for (const std::string& bytes : {"BM"s, "\xFF\xD8\xFF"s, "GIF89a"s, "\0\0\1\0"s, "\0\0\1\0\xFF\xFF"s})
        EXPECT_EQ(ErrorOfLoading(box, bytes), 481);
}

TEST(LoadPicture, NameDoesNotMatter) {
    const Sandbox box;
    SavePicture(Pattern(3, 3), box / "a.gif");
    EXPECT_TRUE(LoadPicture(box / "a.gif") == Pattern(3, 3));
}

TEST(LoadGif, PaletteColours) {
    const Sandbox box;
    PutBytes(box / "a.gif", Gif(2, 2, {0, 1, 2, 3}, -1));
    const Picture picture = LoadPicture(box / "a.gif");
    ASSERT_EQ(picture.Bounds(), (Box{0, 0, 2, 2}));
    EXPECT_EQ(picture.At(0, 0), 0x0000FFU);
    EXPECT_EQ(picture.At(1, 0), 0x00FF00U);
    EXPECT_EQ(picture.At(0, 1), 0xFF0000U);
    EXPECT_EQ(picture.At(1, 1), 0x000000U);
}

TEST(LoadGif, TransparentPixelsAreWhite) {
    const Sandbox box;
    PutBytes(box / "a.gif", Gif(2, 1, {3, 1}, 3));
    const Picture picture = LoadPicture(box / "a.gif");
    EXPECT_EQ(picture.At(0, 0), 0xFFFFFFU);
    EXPECT_EQ(picture.At(1, 0), 0x00FF00U);
}

TEST(LoadGif, OverlongSideIsRefused) {
    const Sandbox box;
    EXPECT_EQ(ErrorOfLoading(box, Gif(32001, 1, {0}, -1)), 481);
    EXPECT_EQ(ErrorOfLoading(box, Gif(65535, 65535, {0}, -1)), 481);
}

TEST(LoadIcon, LargestPictureCountsAndTransparencyIsWhite) {
    const Sandbox box;
    const std::string small = IconImage(2, 0xFF0000FF);
    const std::string large = IconImage(4, 0xFFFF8000); // red 255, green 128
    const std::string clear = IconImage(3, 0x00000000);
    const std::size_t start = 6 + 3 * 16;
    PutBytes(box / "a.ico", "\0\0\1\0\3\0"s + IconEntry(2, small.size(), start) +
                                IconEntry(4, large.size(), start + small.size()) +
                                IconEntry(3, clear.size(), start + small.size() + large.size()) + small +
                                large + clear);
    const Picture picture = LoadPicture(box / "a.ico");
    ASSERT_EQ(picture.Bounds(), (Box{0, 0, 4, 4}));
    EXPECT_EQ(picture.At(0, 0), 0x0080FFU);
    EXPECT_EQ(picture.At(3, 3), 0x0080FFU);
}

TEST(LoadIcon, TransparentPixelsAreWhite) {
    const Sandbox box;
    const std::string image = IconImage(2, 0x00000000);
    PutBytes(box / "a.ico", "\0\0\1\0\1\0"s + IconEntry(2, image.size(), 22) + image);
    EXPECT_EQ(LoadPicture(box / "a.ico").At(1, 1), 0xFFFFFFU);
}

TEST(LoadBmpWithAlpha, IsLaidOverWhite) {
    const Sandbox box;
    // Half of alpha 128: 255 - 128 of white stays, red adds 200 * 128 / 255 = 100.4, so 227 in all.
    PutBytes(box / "a.bmp", BmpWithAlpha(0x80C80000));
    EXPECT_EQ(LoadPicture(box / "a.bmp").At(0, 0), 0x7F7FE3U);
    PutBytes(box / "b.bmp", BmpWithAlpha(0xFF102030));
    EXPECT_EQ(LoadPicture(box / "b.bmp").At(0, 0), 0x302010U);
}

TEST(LoadJpeg, OneColourComesThrough) {
    const Sandbox box;
    QImage image(20, 10, QImage::Format_RGB32);
    image.fill(qRgb(200, 100, 50));
    PutBytes(box / "a", JpegBytes(box, image));
    const Picture picture = LoadPicture(box / "a");
    ASSERT_EQ(picture.Bounds(), (Box{0, 0, 20, 10}));
    const Pixel pixel = picture.At(10, 5);
    EXPECT_NEAR(static_cast<int>(pixel & 0xFF), 200, 2);
    EXPECT_NEAR(static_cast<int>(pixel >> 8 & 0xFF), 100, 2);
    EXPECT_NEAR(static_cast<int>(pixel >> 16), 50, 2);
}

TEST(LoadJpeg, GreyPictureHasEqualChannels) {
    const Sandbox box;
    QImage image(8, 8, QImage::Format_Grayscale8);
    image.fill(77);
    PutBytes(box / "a", JpegBytes(box, image));
    EXPECT_EQ(LoadPicture(box / "a").At(4, 4), 0x4D4D4DU);
}

TEST(LoadJpeg, OverlongSideIsRefusedBeforeDecoding) {
    const Sandbox box;
    QImage image(8, 8, QImage::Format_RGB32);
    image.fill(0);
    std::string bytes = JpegBytes(box, image);
    const std::size_t frame = bytes.find("\xFF\xC0\x00\x11\x08"s);
    ASSERT_NE(frame, std::string::npos);
    bytes.replace(frame + 5, 4, "\x7D\x01\x7D\x01"); // 32001 by 32001
    EXPECT_EQ(ErrorOfLoading(box, bytes), 481);
}

TEST(LoadJpeg, TruncatedFileShowsWhatIsThere) {
    const Sandbox box;
    QImage image(64, 64, QImage::Format_RGB32);
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 64; ++x)
            image.setPixel(x, y, qRgb(x * 4, y * 4, (x * y) & 255));
    const std::string whole = JpegBytes(box, image);
    PutBytes(box / "a", whole);
    PutBytes(box / "b", whole.substr(0, whole.size() * 3 / 4));
    const Picture complete = LoadPicture(box / "a");
    const Picture part = LoadPicture(box / "b");
    ASSERT_EQ(part.Bounds(), complete.Bounds());
    EXPECT_EQ(part.At(8, 8), complete.At(8, 8));
    EXPECT_EQ(part.At(63, 63), 0x808080U); // the middle grey of blocks that never came
}

TEST(LoadPicture, UnreadableDiskPassesUpThroughTheDecoder) {
    const Sandbox box;
    PutBytes(box / "a.gif", Gif(2, 2, {0, 1, 2, 3}, -1));
    int reported = 0;
    const int count = FailEachOperation(
        EIO, [&] { LoadPicture(box / "a.gif"); }, [&](int, int error) { reported += error == 57 ? 1 : 0; });
    EXPECT_EQ(reported, count);
}

// A double-clicked file is read while the program still starts.
TEST(LoadPictureAhead, FailsOnlyWhenThePictureIsAskedFor) {
    const Sandbox box;
    PutBytes(box / "a.gif", Gif(2, 2, {0, 1, 2, 3}, -1));
    const Picture picture = LoadPicture(box / "a.gif");
    {
        const NoThreads none;
        EXPECT_EQ(ErrorOf([&] { LoadPictureAhead(box / "a.gif"); }), 0);
    }
    EXPECT_TRUE(LoadPictureWaiting(box / "a.gif") == picture);
    LoadPictureAhead(box / "missing.gif");
    EXPECT_EQ(ErrorOf([&] { LoadPictureWaiting(box / "missing.gif"); }), 53);
    LoadPictureAhead(box / "a.gif");
    PutBytes(box / "a.gif", Gif(3, 2, {0, 1, 2, 3, 0, 1}, -1)); // as another program saves it meanwhile
    EXPECT_EQ(LoadPictureWaiting(box / "a.gif").Bounds(), (Box{0, 0, 3, 2}));
}

TEST(LoadPicture, IsReadWithoutAnyThreadBeside) {
    const Sandbox box;
    const Picture large = Pattern(3000, 2500);
    SavePicture(large, box / "a.bmp");
    const NoThreads none;
    EXPECT_TRUE(LoadPicture(box / "a.bmp") == large);
}

TEST(LoadPicture, EveryCutOfAGifIsAPictureOrRefused) {
    const Sandbox box;
    const std::string whole = Gif(2, 2, {0, 1, 2, 3}, 0);
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const int error = ErrorOfLoading(box, whole.substr(0, length));
        EXPECT_TRUE(error == 0 || error == 481) << length;
    }
}

} // namespace
} // namespace pintalux
