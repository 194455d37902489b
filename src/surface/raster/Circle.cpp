#include "surface/raster/Drawing.h"
#include "surface/raster/Outlines.h"

#include <cstdlib>

namespace pintalux {

void DrawCircle(DeviceContext& hdc, int x, int y, int radius, Colour colour) {
    if (radius == 0) return DrawDot(hdc, x, y, colour);
    const std::int64_t r = std::abs(std::int64_t{radius});
    DrawEllipseIn(hdc, {x - r, y - r, x + r + 1, y + r + 1}, colour);
}

} // namespace pintalux
