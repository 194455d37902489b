#include "surface/raster/Drawing.h"
#include "surface/raster/WidePen.h"

namespace pintalux {

Colour GetPixel(const DeviceContext& hdc, int x, int y) {
    return hdc.Bits().Holds(x, y) ? static_cast<Colour>(hdc.Bits().At(x, y)) : -1;
}

void SetPixel(DeviceContext& hdc, int x, int y, Colour colour) {
    if (!hdc.Bits().Holds(x, y)) return;
    PaintSpan(hdc.Bits(), y, x, x + 1, PixelOf(colour), hdc.Attributes().DrawMode);
    hdc.Touched({x, y, x + 1, y + 1});
}

void DrawDot(DeviceContext& hdc, int x, int y, Colour colour) {
    const DrawAttributes& attributes = hdc.Attributes();
    if (attributes.DrawStyle == kDrawNone) return;
    if (attributes.DrawWidth <= 1) return SetPixel(hdc, x, y, colour);
    const LongBox reach = LongBox{x, y, std::int64_t{x} + 1, std::int64_t{y} + 1}.Grown(attributes.DrawWidth);
    Figure figure(Cut(reach, hdc.Bits().Bounds()));
    WidePen(attributes.DrawWidth).AddDot(figure, {x, y});
    PaintFigure(hdc, figure, colour);
}

} // namespace pintalux
