#include "base/RuntimeError.h"
#include "surface/window/Control_native.h"
#include "surface/window/Display.h"
#include "surface/window/Overlay_native.h"
#include "surface/window/Painting_native.h"

#include <algorithm>

namespace pintalux {

namespace {

enum Outline : int { kRectangle = 0, kSquare = 1, kOval = 2, kCircle = 3 };

bool IsRound(int shape) {
    return shape == kOval || shape == kCircle;
}

/// Squares and circles are as large as fits, in the middle.
QRect OutlineBox(const QRect& place, int shape) {
    if (shape != kSquare && shape != kCircle) return place;
    const int side = std::min(place.width(), place.height());
    return {place.x() + (place.width() - side) / 2, place.y() + (place.height() - side) / 2, side, side};
}

/// The pixels that the outline touches.
QRegion OutlineRegion(const QRect& box, int shape, int width) {
    const QRegion whole(box);
    if (IsRound(shape) || box.width() <= 2 * width || box.height() <= 2 * width) return whole;
    return whole.subtracted(box.adjusted(width, width, -width, -width));
}

/// Each edge once: an inverted corner drawn twice would vanish.
void DrawEdges(QPainter& painter, const QRect& box) {
    painter.drawLine(box.topLeft(), box.topRight());
    if (box.height() == 1) return;
    painter.drawLine(box.bottomLeft(), box.bottomRight());
    if (box.height() == 2) return;
    painter.drawLine(box.left(), box.top() + 1, box.left(), box.bottom() - 1);
    if (box.width() > 1) painter.drawLine(box.right(), box.top() + 1, box.right(), box.bottom() - 1);
}

void DrawOutline(QPainter& painter, const QRect& place, int shape, int logicalWidth) {
    if (place.isEmpty()) return;
    const int dot = DeviceLine(painter);
    const int width = logicalWidth * dot;
    const QRect box = OnDevice(painter, place);
    const DevicePixels device(painter);
    if (IsRound(shape)) {
        const int inset = width / 2;
        painter.drawEllipse(box.adjusted(inset, inset, -inset - 1, -inset - 1));
        return;
    }
    QPen pen = painter.pen();
    pen.setWidth(1);
    // Dots as long as the line is thick, whatever that is in device pixels.
    if (pen.style() == Qt::CustomDashLine) pen.setDashPattern({2.0 * dot, 2.0 * dot});
    painter.setPen(pen);
    for (int ring = 0; ring < width; ++ring) {
        const QRect edges = box.adjusted(ring, ring, -ring, -ring);
        if (!edges.isEmpty()) DrawEdges(painter, edges);
    }
}

} // namespace

ShapeControl::ShapeControl(Container& parent, std::string name) : Control(&parent, std::move(name)) {
    auto* widget = new OverlayWidget(ClientWidgetOf(parent));
    InstallWidget(*this, widget);
    widget->setGeometry(widget->parentWidget()->rect());
    widget->Style(false, borderColor_, borderWidth_);
    widget->paint = [this](QPainter& painter) {
        DrawOutline(painter, OutlineBox(PixelPlace(*this), shape_), shape_, borderWidth_);
    };
}

ShapeControl::~ShapeControl() {
    if (OverlayWidget* widget = Overlay()) widget->paint = nullptr;
}

OverlayWidget* ShapeControl::Overlay() const {
    return static_cast<OverlayWidget*>(WidgetOf(*this));
}

void ShapeControl::Placed() {
    if (OverlayWidget* widget = Overlay())
        widget->Outline(OutlineRegion(OutlineBox(PixelPlace(*this), shape_), shape_, borderWidth_));
}

void ShapeControl::Shape(int value) {
    if (value < kRectangle || value > kCircle) throw RuntimeError(kInvalidPropertyValue);
    shape_ = value;
    Placed();
}

void ShapeControl::BorderWidth(int value) {
    if (value < 1) throw RuntimeError(kInvalidPropertyValue);
    borderWidth_ = value;
    Placed();
    if (OverlayWidget* widget = Overlay()) widget->Style(drawMode_ == kDrawInvert, borderColor_, value);
}

void ShapeControl::BorderColor(Colour value) {
    borderColor_ = value;
    if (OverlayWidget* widget = Overlay()) widget->Style(drawMode_ == kDrawInvert, value, borderWidth_);
}

void ShapeControl::DrawMode(int value) {
    drawMode_ = value;
    if (OverlayWidget* widget = Overlay()) widget->Style(value == kDrawInvert, borderColor_, borderWidth_);
}

} // namespace pintalux
