#include "surface/window/Control_native.h"
#include "surface/window/Display.h"
#include "surface/window/Overlay_native.h"
#include "surface/window/Painting_native.h"

namespace pintalux {

LineControl::LineControl(Container& parent, std::string name) : Control(&parent, std::move(name)) {
    auto* widget = new OverlayWidget(ClientWidgetOf(parent));
    InstallWidget(*this, widget);
    widget->setGeometry(widget->parentWidget()->rect());
    widget->Style(false, borderColor_, 1);
    widget->paint = [this](QPainter& painter) {
        // The pointer's marks in the rulers wait without length until the pointer comes.
        if (x1_ == x2_ && y1_ == y2_) return;
        const QRect from = OnDevice(painter, {PixelsAround(*this, x1_), PixelsAround(*this, y1_), 1, 1});
        const QRect to = OnDevice(painter, {PixelsAround(*this, x2_), PixelsAround(*this, y2_), 1, 1});
        const DevicePixels device(painter);
        painter.drawLine(from.center(), to.center());
    };
}

LineControl::~LineControl() {
    if (OverlayWidget* widget = Overlay()) widget->paint = nullptr;
}

OverlayWidget* LineControl::Overlay() const {
    return static_cast<OverlayWidget*>(WidgetOf(*this));
}

void LineControl::MarkLine() {
    OverlayWidget* widget = Overlay();
    if (!widget || !widget->isVisible()) return;
    const QPointF from(PixelsAround(*this, x1_), PixelsAround(*this, y1_));
    const QPointF to(PixelsAround(*this, x2_), PixelsAround(*this, y2_));
    widget->Mark(LineRegion(from, to, 1, VisibleRect(*widget)));
}

/// Only the old and the new place are painted again.
void LineControl::MoveEnd(double& end, double value) {
    PixelsAround(*this, value); // Error 6 before anything changes.
    if (value == end) return;
    MarkLine();
    end = value;
    MarkLine();
}

void LineControl::X1(double value) {
    MoveEnd(x1_, value);
}

void LineControl::Y1(double value) {
    MoveEnd(y1_, value);
}

void LineControl::X2(double value) {
    MoveEnd(x2_, value);
}

void LineControl::Y2(double value) {
    MoveEnd(y2_, value);
}

void LineControl::BorderColor(Colour value) {
    borderColor_ = value;
    if (OverlayWidget* widget = Overlay()) widget->Style(drawMode_ == kDrawInvert, value, 1);
}

void LineControl::DrawMode(int value) {
    drawMode_ = value;
    if (OverlayWidget* widget = Overlay()) widget->Style(value == kDrawInvert, borderColor_, 1);
}

} // namespace pintalux
