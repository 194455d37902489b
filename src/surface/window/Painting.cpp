#include "surface/raster/Transfer.h"
#include "surface/window/Painting_native.h"

#include <QImage>
#include <QPainter>

#include <cstdint>
#include <vector>

namespace pintalux {

namespace {

/// Above so many rectangles one picture of their frame is cheaper than a picture of each.
constexpr int kManyRectangles = 100;

void PaintPart(QPainter& painter, const QRect& part, const Bitmap& source, const QSize& size) {
    // Kept from one repaint to the next: fresh memory for a view costs more than the pixels in it. Painting
    // happens on the interface thread only.
    static std::vector<std::uint32_t> pixels;
    const auto count = static_cast<std::size_t>(part.width()) * static_cast<std::size_t>(part.height());
    if (pixels.size() < count) pixels.resize(count);
    StretchForScreen(source, size.width(), size.height(), ToBox(part), pixels.data(), part.width());
    const QImage image(static_cast<const uchar*>(static_cast<const void*>(pixels.data())), part.width(),
                       part.height(), part.width() * 4, QImage::Format_RGB32);
    painter.drawImage(part.topLeft(), image);
}

} // namespace

void PaintBitmap(QWidget& widget, const QRegion& exposed, const Bitmap& source, const QSize& size,
                 const QColor& around) {
    QPainter painter(&widget);
    const QRect picture = source.Empty() ? QRect() : QRect(QPoint(0, 0), size);
    const QRegion region = exposed.rectCount() > kManyRectangles ? QRegion(exposed.boundingRect()) : exposed;
    for (const QRect& rect : region) {
        const QRect part = rect.intersected(picture);
        if (part != rect) painter.fillRect(rect, around);
        if (!part.isEmpty()) PaintPart(painter, part, source, size);
    }
}

QRect VisibleRect(const QWidget& widget) {
    QRect visible = widget.rect();
    QPoint offset;
    for (const QWidget* at = &widget; !at->isWindow() && at->parentWidget(); at = at->parentWidget()) {
        offset += at->pos();
        visible &= at->parentWidget()->rect().translated(-offset);
    }
    return visible;
}

} // namespace pintalux
