// Flood fill over an area of one colour, or up to a border of one colour.
#pragma once

#include "surface/raster/DeviceContext.h"

namespace pintalux {

inline constexpr int FLOODFILLBORDER = 0;
inline constexpr int FLOODFILLSURFACE = 1;

/// Fills the area around x, y, over its four neighbours, with the context's fill colour. The area is, by
/// `kind`, what has exactly `colour` (FLOODFILLSURFACE) or what does not (FLOODFILLBORDER); another kind is
/// error 5. Gives true if the start pixel belongs to it; otherwise, or outside, does nothing and gives false.
/// A transparent fill style changes no pixel.
bool ExtFloodFill(DeviceContext& hdc, int x, int y, Colour colour, int kind);

} // namespace pintalux
