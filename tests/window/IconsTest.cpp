// A drawn icon: in the colours of the theme, sharp at every scale.
#include "surface/window/Icons_native.h"

#include <gtest/gtest.h>
#include <QApplication>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QTemporaryDir>

namespace pintalux {
namespace {

/// Four bands in the three outlines of the icons and a red that is a colour, and a thin black line at the
/// left.
class IconTest : public testing::Test {
  protected:
    IconTest() {
        QFile file(folder.filePath("icon.svg"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 32 32" width="32" height="32">
<rect x="0" y="0" width="8" height="32" fill="#3a4d63"/><rect x="8" y="0" width="8" height="32" fill="#54687f"/>
<rect x="16" y="0" width="8" height="32" fill="#1c2734"/><rect x="24" y="0" width="8" height="32" fill="#ff0000"/>
<rect x="0" y="0" width="0.5" height="32" fill="#000000"/></svg>)");
    }
    ~IconTest() override { QApplication::setPalette(before); }

    static void Theme(QRgb window) {
        QPalette palette = QApplication::palette();
        palette.setColor(QPalette::Window, QColor(window));
        QApplication::setPalette(palette);
    }
    QIcon Icon() const { return IconOf(folder.filePath("icon.svg").toStdString()); }

    const QPalette before = QApplication::palette();
    QTemporaryDir folder;
};

/// In the middle of each band.
std::vector<QRgb> Bands(const QImage& image) {
    std::vector<QRgb> bands;
    for (int band = 0; band < 4; ++band)
        bands.push_back(image.pixel((2 * band + 1) * image.width() / 8, image.height() / 2));
    return bands;
}

const std::vector<QRgb> kOnLight = {0xFF3A4D63, 0xFF54687F, 0xFF1C2734, 0xFFFF0000};
const std::vector<QRgb> kOnDark = {0xFFC9D6E3, 0xFFA9BCCF, 0xFFDFE8F1, 0xFFFF0000};

TEST_F(IconTest, OutlinesAreLightOnADarkThemeFromNowOn) {
    const QIcon icon = Icon();
    const auto shown = [&] { return Bands(icon.pixmap(QSize(32, 32), 1.0).toImage()); };
    Theme(0xEFEFEF);
    EXPECT_EQ(shown(), kOnLight);
    Theme(0x7F7F7F);
    EXPECT_EQ(shown(), kOnDark);
    Theme(0x808080);
    EXPECT_EQ(shown(), kOnLight);
}

TEST_F(IconTest, IsDrawnInThePixelsOfTheDevice) {
    Theme(0xEFEFEF);
    QImage image(128, 128, QImage::Format_RGB32);
    image.fill(Qt::white);
    image.setDevicePixelRatio(2);
    QPainter painter(&image);
    Icon().paint(&painter, QRect(16, 16, 32, 32));
    painter.end();
    EXPECT_EQ(Bands(image.copy(32, 32, 64, 64)), kOnLight);
    EXPECT_EQ(image.pixel(31, 64), 0xFFFFFFFFU);
    EXPECT_EQ(image.pixel(32, 64), 0xFF000000U); // half a logical pixel wide
    EXPECT_EQ(image.pixel(33, 64), 0xFF3A4D63U);
    EXPECT_EQ(image.pixel(95, 95), 0xFFFF0000U);
    EXPECT_EQ(image.pixel(96, 96), 0xFFFFFFFFU);
}

TEST_F(IconTest, ACopyThatGoesItsOwnWayShowsTheSame) {
    Theme(0xEFEFEF);
    const QIcon icon = Icon();
    QIcon copy = icon;
    copy.setIsMask(true);
    EXPECT_NE(copy.cacheKey(), icon.cacheKey());
    EXPECT_EQ(Bands(copy.pixmap(QSize(32, 32), 1.0).toImage()), kOnLight);
}

TEST_F(IconTest, AMissingFileIsNoIcon) {
    EXPECT_TRUE(IconOf(folder.filePath("none.svg").toStdString()).isNull());
    EXPECT_TRUE(IconOf("").isNull());
}

} // namespace
} // namespace pintalux
