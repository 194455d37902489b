#include "surface/system/Clipboard.h"

#include "inputs/ByHand.h"
#include "surface/window/Events.h"

#include <QBuffer>
#include <QClipboard>
#include <QImage>
#include <QMimeData>

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
    ForeignData(const char* format, QByteArray bytes) { setData(format, bytes); }
    QStringList formats() const override {
        ++asked;
        return QMimeData::formats();
    }
    static inline int asked = 0;
};

void PutForeign(const char* format, const QByteArray& bytes) {
    QApplication::clipboard()->setMimeData(new ForeignData(format, bytes));
    ForeignData::asked = 0;
}

class ClipboardTest : public testing::Test {
  protected:
    ClipboardTest() {
        Clipboard.Clear();
        SetClipboardViewer([this] { ++changes; });
    }
    ~ClipboardTest() override {
        SetClipboardViewer({});
        Clipboard.Clear();
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
    int seen = 0;
    const auto before =
        std::exchange(OnUntrappedError, [&](const RuntimeError& error) { seen = error.Number(); });
    SetClipboardViewer([] { throw RuntimeError(kDeviceError); });
    QApplication::clipboard()->setText("olá");
    OnUntrappedError = before;
    EXPECT_EQ(seen, kDeviceError);
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

TEST_F(ClipboardTest, BrokenPngFallsBackToTheBmpBesideIt) {
    auto* data = new ForeignData("image/png", "broken");
    data->setData("image/bmp", Encoded(QImage(5, 4, QImage::Format_RGB32), "bmp"));
    QApplication::clipboard()->setMimeData(data);
    EXPECT_EQ(Clipboard.GetData().Width(), 5);
}

} // namespace

} // namespace pintalux
