#include "surface/raster/Drawing.h"
#include "surface/raster/ThinLine.h"
#include "surface/raster/WidePen.h"

namespace pintalux {

namespace {

void PaintLine(DeviceContext& hdc, LongPoint from, LongPoint to, LastPoint last, Colour colour) {
    const DrawAttributes& attributes = hdc.Attributes();
    if (attributes.DrawStyle == kDrawNone) return;
    if (attributes.DrawWidth <= 1) {
        hdc.Touched(PaintThinLine(hdc, ThinLine(from, to), last, colour));
        return;
    }
    const LongBox reach = Sorted({from.x, from.y, to.x, to.y}).Grown(std::int64_t{attributes.DrawWidth} + 2);
    Figure figure(Cut(reach, hdc.Bits().Bounds()));
    WidePen(attributes.DrawWidth).AddLine(figure, from, to);
    PaintFigure(hdc, figure, colour);
}

} // namespace

void PenLine(DeviceContext& hdc, int x1, int y1, int x2, int y2, Colour colour) {
    PaintLine(hdc, {x1, y1}, {x2, y2}, LastPoint::LeftOut, colour);
}

void DrawLine(DeviceContext& hdc, int x1, int y1, int x2, int y2, Colour colour) {
    PaintLine(hdc, {x1, y1}, {x2, y2}, LastPoint::Painted, colour);
}

} // namespace pintalux
