// What the look adds where the windows are dark: the style's own edges, darker than their ground, are not
// seen.
#include "surface/system/Theme_native.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QSlider>
#include <QStyle>
#include <QStyleOption>
#include <vector>

namespace pintalux {

namespace {

constexpr int kSide = 20;

QPalette Theme(bool dark) {
    QPalette desktop{dark ? QColor(0x2B2D30) : QColor(0xEFEFEF)};
    for (const auto role : {QPalette::Window, QPalette::Button})
        desktop.setColor(role, dark ? QColor(0x2B2D30) : QColor(0xEFEFEF));
    desktop.setColor(QPalette::Base, dark ? QColor(0x1E1F22) : QColor(Qt::white));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        desktop.setColor(role, dark ? QColor(0xDFE1E5) : QColor(Qt::black));
    desktop.setColor(QPalette::Highlight, QColor(0x3584E4));
    return PaletteFor(desktop);
}

/// Two fifths of the way from the dark window to white.
const QColor kEdge(0x808183);

template <class Draw>
QImage Drawn(const QPalette& palette, QSize size, Draw draw) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(palette.color(QPalette::Window));
    QPainter painter(&image);
    draw(painter);
    return image;
}

QImage Primitive(QStyle::PrimitiveElement element, bool dark, QStyle::State state = {}) {
    QStyleOptionFrame option;
    option.rect = {0, 0, kSide, kSide};
    option.palette = Theme(dark);
    option.state = state | QStyle::State_Enabled | QStyle::State_Active;
    return Drawn(option.palette, option.rect.size(), [&](QPainter& painter) {
        const QPen pen = painter.pen();
        const QBrush brush = painter.brush();
        QApplication::style()->drawPrimitive(element, &option, &painter, nullptr);
        EXPECT_EQ(painter.pen(), pen);
        EXPECT_EQ(painter.brush(), brush);
        EXPECT_FALSE(painter.testRenderHint(QPainter::Antialiasing));
    });
}

/// The colours of the frame so many pixels inside the edge; of one colour, just that.
std::vector<QRgb> FrameOf(const QImage& image, int inside) {
    std::vector<QRgb> colours;
    for (int y = inside; y < image.height() - inside; ++y) {
        for (int x = inside; x < image.width() - inside; ++x) {
            const bool edge = x == inside || y == inside || x == image.width() - 1 - inside ||
                              y == image.height() - 1 - inside;
            if (edge && std::ranges::find(colours, image.pixel(x, y)) == colours.end())
                colours.push_back(image.pixel(x, y));
        }
    }
    return colours;
}

TEST(DarkTheme, CheckBoxesAndLinesHaveALightEdge) {
    for (const auto element : {QStyle::PE_IndicatorCheckBox, QStyle::PE_FrameLineEdit}) {
        SCOPED_TRACE(element);
        const QImage dark = Primitive(element, true);
        EXPECT_EQ(FrameOf(dark, 0), std::vector{kEdge.rgb()});
        EXPECT_NE(FrameOf(dark, 1), std::vector{kEdge.rgb()});
        const QColor lightEdge = Theme(false).color(QPalette::Dark); // left to the style
        EXPECT_NE(FrameOf(Primitive(element, false), 0), std::vector{lightEdge.rgb()});
    }
}

TEST(DarkTheme, ALineWithTheFocusHasALightFrame) {
    // The highlight 1.6 times as bright, and where that ends paler: 0.77 - (228 * 1.6 - 255) / 255 saturated.
    const QColor frame(0xA9D0FF);
    const QImage dark = Primitive(QStyle::PE_FrameLineEdit, true, QStyle::State_HasFocus);
    EXPECT_EQ(FrameOf(dark, 0), std::vector{frame.rgb()});
    EXPECT_EQ(FrameOf(dark, 1), std::vector{frame.rgb()});
    EXPECT_NE(FrameOf(dark, 2), std::vector{frame.rgb()});
    EXPECT_GT(FrameOf(Primitive(QStyle::PE_FrameLineEdit, false, QStyle::State_HasFocus), 0).size(), 1U);
}

TEST(DarkTheme, RadioButtonsHaveALightCircle) {
    const QImage dark = Primitive(QStyle::PE_IndicatorRadioButton, true);
    const QColor window = Theme(true).color(QPalette::Window);
    const int middle = kSide / 2;
    for (const QPoint place :
         {QPoint(middle, 0), QPoint(0, middle), QPoint(kSide - 1, middle), QPoint(middle, kSide - 1)})
        EXPECT_GE(ContrastOf(dark.pixelColor(place), window), 3) << place.x() << ", " << place.y();
    EXPECT_EQ(dark.pixelColor(0, 0), window); // a circle, not a box
    EXPECT_NE(dark.pixelColor(middle, middle), kEdge);
}

TEST(DarkTheme, TheGrooveOfASliderAndItsTicksAreSeen) {
    QStyleOptionSlider option;
    option.rect = {0, 0, 200, 30};
    option.palette = Theme(true);
    option.state = QStyle::State_Enabled | QStyle::State_Active | QStyle::State_Horizontal;
    option.orientation = Qt::Horizontal;
    option.maximum = 100;
    option.tickInterval = 25;
    option.tickPosition = QSlider::TicksBelow;
    const auto strongest = [&](QStyle::SubControl part) {
        option.subControls = part;
        const QImage image = Drawn(option.palette, option.rect.size(), [&](QPainter& painter) {
            QApplication::style()->drawComplexControl(QStyle::CC_Slider, &option, &painter, nullptr);
        });
        double contrast = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 50; x < image.width(); ++x)
                contrast = std::max(
                    contrast, ContrastOf(image.pixelColor(x, y), option.palette.color(QPalette::Window)));
        return contrast;
    };
    EXPECT_GE(strongest(QStyle::SC_SliderGroove), 3);
    EXPECT_GE(strongest(QStyle::SC_SliderTickmarks), 3);
}

} // namespace

} // namespace pintalux
