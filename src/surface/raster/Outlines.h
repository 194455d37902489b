// Closed outlines, shared by the calls that draw ellipses, circles, rectangles and boxes.
#pragma once

#include "surface/raster/Figure.h"

namespace pintalux {

/// The ellipse inside `box`, right and bottom exclusive, corners in any order: pen of the context's width,
/// style and mode in `penColour`, filling as the context says. A box without extent draws nothing.
void DrawEllipseIn(DeviceContext& hdc, const LongBox& box, Colour penColour);

/// The rectangle inside `box`, likewise.
void DrawRectangleIn(DeviceContext& hdc, const LongBox& box, Colour penColour);

/// How an outline is put together.
struct OutlineWays {
    explicit OutlineWays(const DrawAttributes& attributes)
        : penned(attributes.DrawStyle != kDrawNone), filled(attributes.FillStyle == kFillSolid),
          wide(penned && attributes.DrawWidth > 1), asOne(filled && attributes.DrawMode == kDrawInvert) {}

    bool penned; ///< There is a pen at all.
    bool filled;
    bool wide;
    /// In the invert mode a filled figure is painted as one with its outline, so that each pixel turns once.
    bool asOne;
};

} // namespace pintalux
