// Printing on a surface. Glyphs are the one thing whose pixels come from the toolkit.
#include "base/Arithmetic.h"
#include "base/RuntimeError.h"
#include "surface/window/Control_native.h"
#include "surface/window/Fonts_native.h"
#include "surface/window/Surface.h"

#include <QFontMetrics>
#include <QImage>
#include <QPainter>

#include <algorithm>

namespace pintalux {

namespace {

constexpr QRgb kPaper = 0xFFFFFFFF;

/// A line of text with the place of its image relative to where the print begins.
struct Glyphs {
    QImage image;
    QPoint offset;
};

Glyphs RenderLine(const QFont& font, const QString& text) {
    const QFontMetrics metrics(font);
    // Slanted and wide letters reach beyond their advance.
    const int margin = metrics.height();
    Glyphs glyphs{QImage(metrics.horizontalAdvance(text) + 2 * margin, 3 * margin, QImage::Format_RGB32),
                  QPoint(-margin, -margin)};
    if (glyphs.image.isNull()) throw RuntimeError(kOutOfMemory);
    glyphs.image.fill(kPaper);
    QPainter painter(&glyphs.image);
    painter.setFont(font);
    painter.setPen(Qt::black);
    painter.drawText(margin, margin + metrics.ascent(), text);
    return glyphs;
}

/// Sets the pixels of the glyphs; gives the box they lie in.
Box Stamp(Bitmap& bits, const Glyphs& glyphs, int x, int y, Pixel ink) {
    const int left = x + glyphs.offset.x();
    const int top = y + glyphs.offset.y();
    const Box box =
        Intersection({left, top, left + glyphs.image.width(), top + glyphs.image.height()}, bits.Bounds());
    for (int row = box.top; row < box.bottom; ++row) {
        for (int column = box.left; column < box.right; ++column) {
            if (glyphs.image.pixel(column - left, row - top) != kPaper) bits.Set(column, row, ink);
        }
    }
    return box;
}

} // namespace

QFont ToQFont(const Font& font) {
    // "Small Fonts" stands for the smallest face that is still read, wherever the desktop's fonts come from.
    const bool small = font.name == "Small Fonts";
    QFont result(small ? QStringLiteral("DejaVu Sans") : ToQString(font.name));
    const int pixels = small && font.size <= 8 ? 7 : ToInt32(font.size * 96 / 72);
    result.setPixelSize(std::max(1, pixels));
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
    const Glyphs glyphs = RenderLine(font, ToQString(text));
    const Box box =
        Stamp(dc_.Bits(), glyphs, ToInt32(currentX_), ToInt32(currentY_), PixelOf(attributes_.ForeColor));
    dc_.Touched(box);
    currentX_ = 0;
    currentY_ += QFontMetrics(font).height();
}

} // namespace pintalux
