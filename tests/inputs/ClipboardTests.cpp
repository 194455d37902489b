#include "surface/system/Clipboard.h"

#include "inputs/ByHand.h"
#include "support/Memory.h"
#include "support/Pictures.h"
#include "support/Waiting.h"
#include "surface/system/Pictures.h"
#include "surface/window/Events.h"

#include <QBuffer>
#include <QClipboard>
#include <QFile>
#include <QImage>
#include <QImageReader>
#include <QMimeData>
#include <QTemporaryDir>
#include <QThread>

namespace pintalux {

namespace {

/// Four pixels: red, green, blue, white.
Picture Four() {
    Picture picture(2, 2, kWhite);
    picture.Set(0, 0, 0x0000FF);
    picture.Set(1, 0, 0x00FF00);
    picture.Set(0, 1, 0xFF0000);
    return picture;
}

QByteArray Encoded(const QImage& image, const char* kind) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, kind);
    return bytes;
}

/// What another program puts on the clipboard; counts how often its formats are asked.
class ForeignData final : public QMimeData {
  public:
    ForeignData(const char* format, const QByteArray& bytes) { setData(format, bytes); }
    QStringList formats() const override {
        ++asked;
        return QMimeData::formats();
    }
    static inline int asked = 0;
};

void PutForeign(const char* format, const QByteArray& bytes) {
    ForeignData::asked = 0;
    QApplication::clipboard()->setMimeData(new ForeignData(format, bytes));
}

/// Another program that offers two formats and takes its time to give neither.
class SilentData final : public QMimeData {
  public:
    QStringList formats() const override { return {"image/png", "image/bmp"}; }
    static inline int asked = 0;

  protected:
    QVariant retrieveData(const QString&, QMetaType) const override {
        ++asked;
        QThread::msleep(2100);
        return {};
    }
};

class ClipboardTest : public testing::Test {
  public:
    ~ClipboardTest() override {
        SetClipboardViewer({});
        Clipboard.Clear();
    }

  protected:
    ClipboardTest() {
        Clipboard.Clear();
        SetClipboardViewer([this] { ++changes; });
    }
    int changes = 0;
};

TEST_F(ClipboardTest, PictureComesBackToThePixel) {
    Clipboard.SetData(Four());
    EXPECT_TRUE(IsClipboardFormatAvailable(CF_BITMAP));
    EXPECT_EQ(Clipboard.GetData(), Four());
}

TEST_F(ClipboardTest, EmptyClipboardIsError521) {
    EXPECT_FALSE(IsClipboardFormatAvailable(CF_BITMAP));
    EXPECT_EQ(ErrorOf([] { Clipboard.GetData(); }), kClipboardUnavailable);
}

TEST_F(ClipboardTest, OtherFormatsAreNotThere) {
    Clipboard.SetData(Four());
    EXPECT_FALSE(IsClipboardFormatAvailable(1));
    EXPECT_EQ(ErrorOf([] { Clipboard.GetData(1); }), kClipboardUnavailable);
}

TEST_F(ClipboardTest, OwnWriteRunsTheViewerNestedOnce) {
    bool present = false;
    SetClipboardViewer([&] {
        ++changes;
        present = IsClipboardFormatAvailable(CF_BITMAP) && Clipboard.GetData() == Four();
    });
    Clipboard.SetData(Four());
    EXPECT_EQ(changes, 1);
    EXPECT_TRUE(present);
    QApplication::processEvents();
    EXPECT_EQ(changes, 1);
}

TEST_F(ClipboardTest, ErrorOfTheViewerPassesToTheWrite) {
    SetClipboardViewer([] { throw RuntimeError(kDeviceError); });
    EXPECT_EQ(ErrorOf([] { Clipboard.SetData(Four()); }), kDeviceError);
    SetClipboardViewer({});
    EXPECT_EQ(Clipboard.GetData(), Four());
}

TEST_F(ClipboardTest, ClearRunsTheViewerAndLeavesNothing) {
    Clipboard.SetData(Four());
    Clipboard.Clear();
    EXPECT_EQ(changes, 2);
    EXPECT_FALSE(IsClipboardFormatAvailable(CF_BITMAP));
}

TEST_F(ClipboardTest, ForeignTextRunsTheViewerAndIsNoBitmap) {
    Clipboard.SetData(Four());
    QApplication::clipboard()->setText("olá");
    EXPECT_EQ(changes, 2);
    EXPECT_FALSE(IsClipboardFormatAvailable(CF_BITMAP));
}

TEST_F(ClipboardTest, ErrorOfTheViewerAtAForeignChangeGoesToTheTop) {
    const UntrappedErrors errors;
    SetClipboardViewer([] { throw RuntimeError(kDeviceError); });
    QApplication::clipboard()->setText("olá");
    EXPECT_EQ(errors.numbers, std::vector<int>{kDeviceError});
}

TEST_F(ClipboardTest, OwnerIsAskedForItsFormatsOnceAChange) {
    PutForeign("image/png", Encoded(QImage(2, 2, QImage::Format_RGB32), "png"));
    for (int i = 0; i < 50; ++i)
        EXPECT_TRUE(IsClipboardFormatAvailable(CF_BITMAP));
    EXPECT_EQ(ForeignData::asked, 1);
    PutForeign("text/plain", "x");
    for (int i = 0; i < 50; ++i)
        EXPECT_FALSE(IsClipboardFormatAvailable(CF_BITMAP));
    EXPECT_EQ(ForeignData::asked, 1);
}

TEST_F(ClipboardTest, OwnerIsNotAskedForItsFormatsAgainByTheReading) {
    PutForeign("image/png", Encoded(QImage(2, 2, QImage::Format_RGB32), "png"));
    Clipboard.GetData();
    Clipboard.GetData();
    EXPECT_EQ(ForeignData::asked, 1);
}

TEST_F(ClipboardTest, EmptyPictureIsNoBitmapAndClears) {
    Clipboard.SetData(Four());
    Clipboard.SetData(Picture());
    EXPECT_EQ(changes, 2);
    EXPECT_FALSE(IsClipboardFormatAvailable(CF_BITMAP));
    EXPECT_EQ(ErrorOf([] { Clipboard.GetData(); }), kClipboardUnavailable);
}

TEST_F(ClipboardTest, TextAfterAClearingRunsTheViewer) {
    Clipboard.Clear();
    QApplication::clipboard()->setText("olá");
    EXPECT_EQ(changes, 2);
}

TEST_F(ClipboardTest, OffersBmpOf24BitsAndPng) {
    Clipboard.SetData(Four());
    const QMimeData* data = QApplication::clipboard()->mimeData();
    EXPECT_EQ(data->formats(), (QStringList{"image/bmp", "image/png"}));
    const QByteArray bmp = data->data("image/bmp");
    ASSERT_GE(bmp.size(), 54);
    EXPECT_TRUE(bmp.startsWith("BM"));
    EXPECT_EQ(bmp[28], 24); // bits a pixel
    EXPECT_EQ(bmp.size(), 54 + 2 * 8);
    for (const char* format : {"image/bmp", "image/png"}) {
        const QImage image = QImage::fromData(data->data(format));
        ASSERT_EQ(image.size(), QSize(2, 2)) << format;
        EXPECT_EQ(image.pixel(0, 0) & 0xFFFFFF, 0xFF0000U);
        EXPECT_EQ(image.pixel(1, 0) & 0xFFFFFF, 0x00FF00U);
        EXPECT_EQ(image.pixel(0, 1) & 0xFFFFFF, 0x0000FFU);
        EXPECT_EQ(image.pixel(1, 1) & 0xFFFFFF, 0xFFFFFFU);
    }
}

TEST_F(ClipboardTest, ReadsBitmapsOfOtherProgramsUnderAllTheirNames) {
    QImage image(3, 1, QImage::Format_RGB32);
    image.setPixel(0, 0, 0xFF102030);
    image.setPixel(1, 0, 0xFF000000);
    image.setPixel(2, 0, 0xFFFFFFFF);
    for (const char* format : {"image/bmp", "image/x-bmp", "image/x-MS-bmp", "image/png"}) {
        PutForeign(format, Encoded(image, QString(format).endsWith("png") ? "png" : "bmp"));
        EXPECT_TRUE(IsClipboardFormatAvailable(CF_BITMAP)) << format;
        const Picture picture = Clipboard.GetData();
        EXPECT_EQ(picture.Width(), 3) << format;
        EXPECT_EQ(picture.At(0, 0), 0x302010U) << format;
        EXPECT_EQ(picture.At(2, 0), 0xFFFFFFU) << format;
    }
}

TEST_F(ClipboardTest, OfferedBmpIsTheFileThatSavingWrites) {
    const QTemporaryDir folder;
    const std::string path = folder.filePath("saved.bmp").toStdString();
    const std::pair<int, int> sizes[] = {{1, 1}, {2, 3}, {3, 2}, {4, 1}, {257, 33}, {300, 70}};
    for (const auto& [width, height] : sizes) {
        const Picture picture = RandomPicture(width, height, 5);
        Clipboard.SetData(picture);
        SavePicture(picture, path);
        QFile file(QString::fromStdString(path));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_TRUE(QApplication::clipboard()->mimeData()->data("image/bmp") == file.readAll())
            << width << " x " << height;
    }
}

TEST_F(ClipboardTest, WidestPictureGoesOutAndComesBackInBothFormats) {
    const Picture widest = RandomPicture(32000, 2, 6);
    for (const char* format : {"image/bmp", "image/png"}) {
        Clipboard.SetData(widest);
        const QByteArray bytes = QApplication::clipboard()->mimeData()->data(format);
        PutForeign(format, bytes);
        ExpectSamePixels(Clipboard.GetData(), widest);
    }
}

/// The header of a BMP file with run lengths of 8 bits, and an end of the picture that comes at once: all
/// pixels have the first colour.
QByteArray EmptyRunLengths(int side) {
    QByteArray bytes;
    const auto add = [&bytes](quint64 value, int length) {
        for (int i = 0; i < length; ++i)
            bytes += static_cast<char>(value >> 8 * i & 0xFF);
    };
    bytes += "BM";
    add(14 + 40 + 4 + 2, 4);
    add(0, 4);
    add(14 + 40 + 4, 4);
    add(40, 4);
    add(static_cast<quint64>(side), 4);
    add(static_cast<quint64>(side), 4);
    add(1, 2);
    add(8, 2);
    add(1, 4); // run lengths
    add(0, 4);
    add(0, 8);
    add(1, 4); // colours
    add(0, 4);
    add(0x123456, 4); // blue, green, red
    add(0x0100, 2);
    return bytes;
}

TEST_F(ClipboardTest, NoLimitOfTheToolkitRefusesALargePng) {
    const int before = QImageReader::allocationLimit();
    QImageReader::setAllocationLimit(1);
    PutForeign("image/png", Encoded(QImage(600, 500, QImage::Format_RGB32), "png"));
    EXPECT_EQ(Clipboard.GetData().Width(), 600);
    EXPECT_EQ(QImageReader::allocationLimit(), 1) << "for what else it decodes";
    QImageReader::setAllocationLimit(before);
}

TEST_F(ClipboardTest, BmpAboveTheSizesOfTheToolkitIsTaken) {
    const SupposedMemory plenty(std::uint64_t{1} << 40);
    PutForeign("image/bmp", EmptyRunLengths(16400));
    const Picture picture = Clipboard.GetData();
    EXPECT_EQ(picture.Width(), 16400);
    EXPECT_EQ(picture.Height(), 16400);
    EXPECT_EQ(picture.At(16399, 0), 0x563412U);
}

TEST_F(ClipboardTest, LargePictureGoesOutAsPngToThePixelToo) {
    const Picture large = RandomPicture(2003, 2001, 8);
    Clipboard.SetData(large);
    PutForeign("image/png", QApplication::clipboard()->mimeData()->data("image/png"));
    ExpectSamePixels(Clipboard.GetData(), large);
}

TEST_F(ClipboardTest, SmallPngIsSmallerThanItsPixels) {
    Clipboard.SetData(Picture(300, 200, 0x123456));
    EXPECT_LT(QApplication::clipboard()->mimeData()->data("image/png").size(), 300 * 200);
}

TEST_F(ClipboardTest, CapturingViewerHearsWhenTheBitmapIsHere) {
    std::vector<Picture> heard;
    SetClipboardViewer([&] { heard.push_back(Clipboard.GetData()); }, [] { return true; });
    QImage image(3, 2, QImage::Format_RGB32);
    image.fill(0xFF102030);
    PutForeign("image/png", Encoded(image, "png"));
    EXPECT_TRUE(heard.empty()) << "nobody waits for the decoder";
    EXPECT_TRUE(IsClipboardFormatAvailable(CF_BITMAP)) << "what is offered is known before";
    ASSERT_TRUE(WaitFor([&] { return !heard.empty(); }));
    EXPECT_EQ(heard[0], Picture(3, 2, 0x302010));
}

TEST_F(ClipboardTest, CaptureThatIsOvertakenIsDropped) {
    std::vector<Picture> heard;
    SetClipboardViewer([&] { heard.push_back(Clipboard.GetData()); }, [] { return true; });
    PutForeign("image/png", Encoded(QImage(300, 200, QImage::Format_RGB32), "png"));
    Clipboard.SetData(Four());
    EXPECT_FALSE(WaitFor([&] { return heard.size() > 1; }, 300));
    EXPECT_EQ(heard, std::vector<Picture>{Four()});
}

TEST_F(ClipboardTest, OwnBitmapThatAManagerTakesOverIsNothingNew) {
    int heard = 0;
    SetClipboardViewer([&] { ++heard; }, [] { return true; });
    Clipboard.SetData(Four());
    const QByteArray bytes = QApplication::clipboard()->mimeData()->data("image/png");
    PutForeign("image/png", bytes);
    EXPECT_FALSE(WaitFor([&] { return heard > 1; }, 300));
    EXPECT_EQ(Clipboard.GetData(), Four());
    PutForeign("image/png", Encoded(QImage(2, 2, QImage::Format_RGB32), "png"));
    EXPECT_TRUE(WaitFor([&] { return heard > 1; })) << "another one is";
}

TEST_F(ClipboardTest, CaptureFallsBackToTheFormatBesideABrokenOne) {
    int width = 0;
    SetClipboardViewer([&] { width = Clipboard.GetData().Width(); }, [] { return true; });
    auto* data = new ForeignData("image/png", "broken");
    data->setData("image/bmp", Encoded(QImage(5, 4, QImage::Format_RGB32), "bmp"));
    QApplication::clipboard()->setMimeData(data);
    EXPECT_TRUE(WaitFor([&] { return width == 5; }));
}

TEST_F(ClipboardTest, SinglePixelGoesOutAndComesBack) {
    Clipboard.SetData(Picture(1, 1, 0x123456));
    const QByteArray bytes = QApplication::clipboard()->mimeData()->data("image/png");
    PutForeign("image/png", bytes);
    EXPECT_EQ(Clipboard.GetData(), Picture(1, 1, 0x123456));
}

TEST_F(ClipboardTest, JpegAndGifAreBitmaps) {
    QImage grey(8, 8, QImage::Format_RGB32);
    grey.fill(0xFF808080);
    PutForeign("image/jpeg", Encoded(grey, "jpg"));
    EXPECT_TRUE(IsClipboardFormatAvailable(CF_BITMAP));
    EXPECT_EQ(Clipboard.GetData().At(4, 4), 0x808080U);
    // One black pixel in a palette of two colours.
    const QByteArray gif =
        QByteArray::fromHex("47494638396101000100800000000000ffffff2c00000000010001000002024401003b");
    PutForeign("image/gif", gif);
    EXPECT_TRUE(IsClipboardFormatAvailable(CF_BITMAP));
    EXPECT_EQ(Clipboard.GetData(), Picture(1, 1, kBlack));
}

TEST_F(ClipboardTest, TransparentPixelsShowWhite) {
    QImage image(2, 1, QImage::Format_ARGB32);
    image.setPixel(0, 0, 0x00000000);
    image.setPixel(1, 0, 0x80000000); // black, 128 of 255: 255 * 127 / 255
    PutForeign("image/png", Encoded(image, "png"));
    const Picture picture = Clipboard.GetData();
    EXPECT_EQ(picture.At(0, 0), 0xFFFFFFU);
    EXPECT_EQ(picture.At(1, 0), 0x7F7F7FU);
}

TEST_F(ClipboardTest, BrokenAndOversizedDataIsError521) {
    PutForeign("image/png", "no picture at all");
    EXPECT_EQ(ErrorOf([] { Clipboard.GetData(); }), kClipboardUnavailable);
    QByteArray bmp = Encoded(QImage(2, 2, QImage::Format_RGB32), "bmp");
    bmp[18] = '\x01'; // the header announces 32001 pixels a row
    bmp[19] = '\x7D';
    PutForeign("image/bmp", bmp);
    EXPECT_EQ(ErrorOf([] { Clipboard.GetData(); }), kClipboardUnavailable);
}

TEST_F(ClipboardTest, PictureWithoutRoomIsRefusedBeforeItIsDecoded) {
    for (const char* kind : {"png", "bmp", "jpeg"}) {
        // A PNG comes by the toolkit's image; the whole may take half of what is free.
        const std::uint64_t needed = 2 * PictureBytes(40, 30) * (kind == std::string("png") ? 2 : 1);
        const QByteArray bytes = Encoded(QImage(40, 30, QImage::Format_RGB32), kind);
        {
            const SupposedMemory little(needed - 1);
            PutForeign(("image/" + std::string(kind)).c_str(), bytes);
            EXPECT_EQ(ErrorOf([] { Clipboard.GetData(); }), kClipboardUnavailable) << kind;
        }
        const SupposedMemory enough(needed);
        PutForeign(("image/" + std::string(kind)).c_str(), bytes);
        EXPECT_EQ(Clipboard.GetData().Width(), 40) << kind;
    }
}

TEST_F(ClipboardTest, BitmapThatCannotBeReadCountsAsNoneUntilTheNextChange) {
    PutForeign("image/png", "no picture at all");
    EXPECT_TRUE(IsClipboardFormatAvailable(CF_BITMAP)) << "nobody has looked yet";
    EXPECT_EQ(ErrorOf([] { Clipboard.GetData(); }), kClipboardUnavailable);
    EXPECT_FALSE(IsClipboardFormatAvailable(CF_BITMAP));
    EXPECT_EQ(ErrorOf([] { Clipboard.GetData(); }), kClipboardUnavailable);
    PutForeign("image/png", Encoded(QImage(2, 2, QImage::Format_RGB32), "png"));
    EXPECT_TRUE(IsClipboardFormatAvailable(CF_BITMAP));
    EXPECT_EQ(Clipboard.GetData().Width(), 2);
    EXPECT_TRUE(IsClipboardFormatAvailable(CF_BITMAP));
}

TEST_F(ClipboardTest, SilentOwnerIsWaitedForOnce) {
    SilentData::asked = 0;
    QApplication::clipboard()->setMimeData(new SilentData);
    EXPECT_EQ(ErrorOf([] { Clipboard.GetData(); }), kClipboardUnavailable);
    EXPECT_EQ(SilentData::asked, 1) << "the second format is not tried";
    EXPECT_FALSE(IsClipboardFormatAvailable(CF_BITMAP));
    EXPECT_EQ(ErrorOf([] { Clipboard.GetData(); }), kClipboardUnavailable);
    EXPECT_EQ(SilentData::asked, 1);
}

TEST_F(ClipboardTest, DrawingThatClaimsToBeAPngIsError521) {
    PutForeign("image/png", "<svg xmlns='http://www.w3.org/2000/svg' width='2' height='2'/>");
    EXPECT_EQ(ErrorOf([] { Clipboard.GetData(); }), kClipboardUnavailable);
}

TEST_F(ClipboardTest, PngThatBreaksOffIsNoCrash) {
    const QByteArray whole = Encoded(QImage(40, 40, QImage::Format_RGB32), "png");
    for (const qsizetype length : {qsizetype{0}, qsizetype{8}, qsizetype{33}, whole.size() / 2}) {
        PutForeign("image/png", whole.left(length));
        const int number = ErrorOf([] { Clipboard.GetData(); });
        EXPECT_EQ(IsClipboardFormatAvailable(CF_BITMAP), number == 0) << length;
    }
}

TEST_F(ClipboardTest, BrokenPngFallsBackToTheBmpBesideIt) {
    auto* data = new ForeignData("image/png", "broken");
    data->setData("image/bmp", Encoded(QImage(5, 4, QImage::Format_RGB32), "bmp"));
    QApplication::clipboard()->setMimeData(data);
    EXPECT_EQ(Clipboard.GetData().Width(), 5);
}

} // namespace

} // namespace pintalux
