// Printing on a surface. Glyphs are the one thing whose pixels come from the toolkit.
#include "base/Arithmetic.h"
#include "base/RuntimeError.h"
#include "surface/window/Control_native.h"
#include "surface/window/Fonts_native.h"
#include "surface/window/Surface.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cstdint>

namespace pintalux {

namespace {

constexpr QRgb kPaper = 0xFFFFFFFF;

/// The rectangle that a line of text may cover, relative to where the print begins. Slanted and wide letters
/// reach beyond their advance.
QRect ReachOf(const QFont& font, const QString& text) {
    const QFontMetrics metrics(font);
    const int margin = metrics.height();
    return {-margin, -margin, metrics.horizontalAdvance(text) + 2 * margin, 3 * margin};
}

/// The part of a rectangle that lies on the bitmap once it is moved by x, y; still relative.
QRect PartOn(const QRect& reach, int x, int y, const Bitmap& bits) {
    const auto cut = [](int edge, int offset, int limit) {
        return static_cast<int>(std::clamp<std::int64_t>(std::int64_t{edge} + offset, 0, limit) - offset);
    };
    const int left = cut(reach.left(), x, bits.Width());
    const int top = cut(reach.top(), y, bits.Height());
    return {left, top, cut(reach.left() + reach.width(), x, bits.Width()) - left,
            cut(reach.top() + reach.height(), y, bits.Height()) - top};
}

/// A part of a line of text, black on paper. Of a text that is much larger than the image only what falls on
/// it takes memory.
QImage RenderPart(const QFont& font, const QString& text, const QRect& part) {
    QImage image(part.size(), QImage::Format_RGB32);
    if (image.isNull()) throw RuntimeError(kOutOfMemory);
    image.fill(kPaper);
    QPainter painter(&image);
    painter.setFont(font);
    painter.setPen(Qt::black);
    painter.drawText(-part.left(), QFontMetrics(font).ascent() - part.top(), text);
    return image;
}

/// Sets the pixels of the glyphs; gives the box they lie in. The glyphs' image lies on the bitmap whole.
Box Stamp(Bitmap& bits, const QImage& glyphs, int left, int top, Pixel ink) {
    for (int row = 0; row < glyphs.height(); ++row) {
        for (int column = 0; column < glyphs.width(); ++column) {
            if (glyphs.pixel(column, row) != kPaper) bits.Set(left + column, top + row, ink);
        }
    }
    return {left, top, left + glyphs.width(), top + glyphs.height()};
}

} // namespace

QFont SmallFont() {
    constexpr int kSmallest = 8; // pixels: still read, and three digits fit a ruler
    QFont result = QGuiApplication::font();
    result.setPixelSize(kSmallest);
    return result;
}

QFont ToQFont(const Font& font) {
    if (font.name == "Small Fonts") return SmallFont();
    QFont result(ToQString(font.name));
    result.setPixelSize(std::max(1, ToInt32(font.size * 96 / 72)));
    result.setBold(font.bold);
    result.setItalic(font.italic);
    result.setUnderline(font.underline);
    result.setStrikeOut(font.strikethru);
    result.setStyleStrategy(QFont::NoAntialias);
    result.setHintingPreference(QFont::PreferFullHinting);
    return result;
}

void Surface::Print(const std::string& text) {
    const QFont font = ToQFont(font_);
    const QString line = ToQString(text);
    const int x = ToInt32(currentX_);
    const int y = ToInt32(currentY_);
    if (printsOver_) {
        texts_.push_back({x, y, text, attributes_.ForeColor});
        Changed(persistent_.Bounds());
        currentX_ = 0;
        currentY_ += QFontMetrics(font).height();
        return;
    }
    const QRect part = PartOn(ReachOf(font, line), x, y, hDC().Bits());
    if (!part.isEmpty()) {
        hDC().Touched(Stamp(hDC().Bits(), RenderPart(font, line, part), x + part.left(), y + part.top(),
                            PixelOf(attributes_.ForeColor)));
    }
    currentX_ = 0;
    currentY_ += QFontMetrics(font).height();
}

} // namespace pintalux
