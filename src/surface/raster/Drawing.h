// Lines, dots, boxes, circles and ellipses, to the pixel. Coordinates are whole pixels of the context's
// bitmap; what lies outside is cut off and changes nothing inside. `kDrawNone` draws no line: only the
// filling of a box, a circle or an ellipse is left.
#pragma once

#include "surface/raster/DeviceContext.h"

namespace pintalux {

/// Colour at x, y; -1 outside.
Colour GetPixel(const DeviceContext& hdc, int x, int y);

/// Sets one pixel, or inverts it in draw mode 6; outside nothing happens.
void SetPixel(DeviceContext& hdc, int x, int y, Colour colour);

/// The pen's line, with draw width, style and mode of the context. A pen 1 wide leaves its last point out:
/// from (0, 0) to (3, 0) it paints columns 0 to 2.
void PenLine(DeviceContext& hdc, int x1, int y1, int x2, int y2, Colour colour);

/// The surface's line: like `PenLine`, with both ends. From a point to itself it is one dot.
void DrawLine(DeviceContext& hdc, int x1, int y1, int x2, int y2, Colour colour);

/// One dot of the draw width.
void DrawDot(DeviceContext& hdc, int x, int y, Colour colour);

/// The box with both corners in it: outlined by the pen, filled as `FillStyle` and `FillColor` say.
void DrawBox(DeviceContext& hdc, int x1, int y1, int x2, int y2, Colour colour);

/// Every pixel of the box with both corners in it, in one colour; the draw mode applies.
void DrawFilledBox(DeviceContext& hdc, int x1, int y1, int x2, int y2, Colour colour);

/// The circle around x, y; the radius is whole pixels, 0 gives one dot. Filled as `FillStyle` says.
void DrawCircle(DeviceContext& hdc, int x, int y, int radius, Colour colour);

/// The ellipse inside the box (right and bottom exclusive, corners in any order) with a pen of `ForeColor`
/// and `DrawWidth`, filled as `FillStyle` and `FillColor` say. A box without extent draws nothing.
void Ellipse(DeviceContext& hdc, int left, int top, int right, int bottom);

/// The rectangle inside the box, pen and fill as for `Ellipse`.
void Rectangle(DeviceContext& hdc, int left, int top, int right, int bottom);

} // namespace pintalux
