// Bytes that another program gives for a bitmap: read as files are, with their limits.
#include "surface/system/ClipboardData_native.h"

#include "support/Memory.h"
#include "surface/system/Pictures.h"
#include "system/GifBytes.h"

#include <QBuffer>
#include <QImage>

namespace pintalux {
namespace {

FetchedBitmap Decoded(const std::string& bytes, std::uint64_t limit = kAnySize,
                      const std::stop_token& stop = {}) {
    File file = File::InMemory("");
    file.Write(std::as_bytes(std::span(bytes)));
    return DecodeBitmap(file, limit, stop);
}

/// 70 by 40 blue pixels.
std::string Blue(const char* format) {
    QImage image(70, 40, QImage::Format_RGB32);
    image.fill(Qt::blue);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(image.save(&buffer, format));
    return bytes.toStdString();
}

/// A green point on a large screen.
std::string SmallImageOnScreen(int width, int height) {
    return GifScreen(width, height) + GifImage(2, 1, 1, 1, {1}) + ";";
}

TEST(ClipboardData, EachFormatGivesItsPixels) {
    for (const char* format : {"bmp", "png", "jpeg"}) {
        const FetchedBitmap found = Decoded(Blue(format));
        ASSERT_EQ(found.outcome, Fetch::Taken) << format;
        EXPECT_EQ(found.picture.Bounds(), (Box{0, 0, 70, 40}));
        // A JPEG's colours are a step off.
        EXPECT_GE(found.picture.At(69, 39), 0xFE0000U) << format;
        EXPECT_LE(found.picture.At(69, 39), 0xFF0000U) << format;
    }
}

TEST(ClipboardData, AGifIsAsLargeAsItsScreen) {
    const FetchedBitmap found = Decoded(SmallImageOnScreen(5, 3));
    ASSERT_EQ(found.outcome, Fetch::Taken);
    EXPECT_EQ(found.picture.Bounds(), (Box{0, 0, 5, 3}));
    EXPECT_EQ(found.picture.At(2, 1), 0x00FF00U);
    EXPECT_EQ(found.picture.At(3, 1), kWhite);
}

TEST(ClipboardData, WhatTakesMoreThanTheLimitIsTooLarge) {
    for (const std::string& bytes : {Blue("bmp"), Blue("png"), Blue("jpeg"), SmallImageOnScreen(70, 40)}) {
        EXPECT_EQ(Decoded(bytes, PictureBytes(70, 40)).outcome, Fetch::Taken) << bytes.substr(0, 4);
        EXPECT_EQ(Decoded(bytes, PictureBytes(70, 40) - 1).outcome, Fetch::TooLarge) << bytes.substr(0, 4);
    }
}

TEST(ClipboardData, AboveTheLegalSizesItIsNoBitmap) {
    const SupposedMemory plenty(std::uint64_t{64} << 30);
    EXPECT_EQ(Decoded(SmallImageOnScreen(32000, 32000), 1).outcome, Fetch::TooLarge);
    EXPECT_EQ(Decoded(SmallImageOnScreen(32000, 32000)).outcome, Fetch::Taken);
    EXPECT_EQ(Decoded(SmallImageOnScreen(32001, 1), 1).outcome, Fetch::Unreadable);
    EXPECT_EQ(Decoded(SmallImageOnScreen(1, 32001), 1).outcome, Fetch::Unreadable);
    EXPECT_EQ(Decoded(SmallImageOnScreen(0, 1)).outcome, Fetch::Unreadable);
}

TEST(ClipboardData, WhatHasNoRoomInMemoryIsNotDecoded) {
    for (const std::string& bytes : {Blue("bmp"), Blue("png"), Blue("jpeg"), SmallImageOnScreen(70, 40)}) {
        const SupposedMemory little(PictureBytes(70, 40));
        EXPECT_EQ(Decoded(bytes).outcome, Fetch::Unreadable) << bytes.substr(0, 4);
    }
}

TEST(ClipboardData, WhatIsNoPictureOrABrokenOneIsUnreadable) {
    for (const std::string& bytes :
         {std::string(), std::string("B"), std::string("BM"), std::string("GIF89a"), std::string("texto"),
          std::string("<svg width='5' height='5'/>"), std::string("\xFF\xD8\xFF"), Blue("png").substr(0, 60),
          Blue("bmp").substr(0, 60), Blue("ico")})
        EXPECT_EQ(Decoded(bytes).outcome, Fetch::Unreadable) << bytes.substr(0, 4);
}

TEST(ClipboardData, AStopIsAnErrorAndNoAnswer) {
    std::stop_source source;
    source.request_stop();
    for (const std::string& bytes : {Blue("bmp"), Blue("png"), Blue("jpeg"), SmallImageOnScreen(70, 40)})
        EXPECT_EQ(ErrorOf([&] { Decoded(bytes, kAnySize, source.get_token()); }), 18) << bytes.substr(0, 4);
}

// PNG alone keeps what is transparent; names are told in any case.
TEST(ClipboardData, OfWhatIsOfferedTheBestComesFirst) {
    EXPECT_EQ(
        ReadableFormats({"text/plain", "image/gif", "image/jpeg", "IMAGE/BMP", "image/x-MS-bmp",
                         "image/x-bmp", "image/svg+xml", "image/png"}),
        QStringList({"image/png", "IMAGE/BMP", "image/x-bmp", "image/x-MS-bmp", "image/jpeg", "image/gif"}));
    EXPECT_EQ(ReadableFormats({"text/plain"}), QStringList());
}

TEST(ClipboardData, OurPictureIsOfferedInBothFormats) {
    const Picture picture = Pattern(7, 5);
    const PictureData data(picture);
    EXPECT_EQ(data.formats(), QStringList({"image/bmp", "image/png"}));
    for (const QString& format : data.formats()) {
        EXPECT_TRUE(data.hasFormat(format));
        const FetchedBitmap back = Decoded(data.data(format).toStdString());
        EXPECT_TRUE(back.picture == picture) << format.toStdString();
    }
    EXPECT_FALSE(data.hasFormat("image/jpeg"));
    EXPECT_TRUE(data.data("image/jpeg").isEmpty());
}

// The toolkit asks from the middle of its own work, where no exception may arrive.
TEST(ClipboardData, APictureWithoutRoomOffersNothing) {
    const PictureData data{Picture()};
    EXPECT_TRUE(data.data("image/bmp").isEmpty());
}

TEST(ClipboardData, TheToolkitIsAskedForBytes) {
    QMimeData offer;
    offer.setData("image/bmp", QByteArray::fromStdString(Blue("bmp")));
    bool silent = true;
    std::optional<File> given = AskToolkit(offer, "image/bmp", silent);
    ASSERT_TRUE(given);
    EXPECT_FALSE(silent);
    EXPECT_EQ(DecodeBitmap(*given, kAnySize, {}).outcome, Fetch::Taken);
    EXPECT_FALSE(AskToolkit(offer, "image/png", silent));
    EXPECT_FALSE(silent); // it answered at once that there is none
}

} // namespace
} // namespace pintalux
