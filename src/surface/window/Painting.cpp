#include "surface/raster/Transfer.h"
#include "surface/window/Painting_native.h"

#include <QImage>
#include <QPaintEngine>
#include <QPainter>

#include <cstdint>
#include <vector>

namespace pintalux {

namespace {

/// Above so many rectangles one picture of their frame is cheaper than a picture of each.
constexpr int kManyRectangles = 100;

/// The picture in memory that a painter draws on, if its pixels are those of the widget, one to one.
struct Canvas {
    QImage* image = nullptr;
    QPoint origin; ///< Where the widget's corner lies in it.
};

Canvas CanvasOf(const QPainter& painter) {
    if (!painter.isActive()) return {};
    QPaintDevice* device = painter.paintEngine()->paintDevice();
    const QTransform& place = painter.deviceTransform();
    if (device->devType() != QInternal::Image || place.type() > QTransform::TxTranslate) return {};
    auto* image = static_cast<QImage*>(device);
    if (image->format() != QImage::Format_RGB32 && image->format() != QImage::Format_ARGB32_Premultiplied)
        return {};
    return {image, QPoint(qRound(place.dx()), qRound(place.dy()))};
}

/// Writes the pixels where the display takes them from. The way over a picture of its own and the painter
/// writes and reads each of them once more, which takes longer than all the rest of a repaint.
void PaintInPlace(const Canvas& canvas, const QRect& part, const Bitmap& source, const QSize& size) {
    const QRect shown = part & canvas.image->rect().translated(-canvas.origin);
    if (shown.isEmpty()) return;
    const QPoint corner = shown.topLeft() + canvas.origin;
    auto* line = static_cast<std::uint32_t*>(static_cast<void*>(canvas.image->scanLine(corner.y())));
    StretchForScreen(source, size.width(), size.height(), ToBox(shown), line + corner.x(),
                     static_cast<int>(canvas.image->bytesPerLine() / 4));
}

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
    const bool many = exposed.rectCount() > kManyRectangles;
    const QRegion region = many ? QRegion(exposed.boundingRect()) : exposed;
    // Only the painter keeps to what is exposed by itself.
    const Canvas canvas = many ? Canvas{} : CanvasOf(painter);
    for (const QRect& rect : region) {
        const QRect part = rect.intersected(picture);
        if (part != rect) painter.fillRect(rect, around);
        if (part.isEmpty()) continue;
        canvas.image ? PaintInPlace(canvas, part, source, size) : PaintPart(painter, part, source, size);
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
