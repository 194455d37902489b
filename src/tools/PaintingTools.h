// The painting tools: their rows, and the press, drag and release steps that stand in them. X and Y are view
// pixels; drawing goes to `PicMerge` in image pixels. Error 6 where a point leaves the 16-bit range.
#pragma once

#include "surface/raster/Colour.h"
#include "tools/ToolTable.h"

#include <span>

namespace pintalux {

class Surface;

extern const std::span<const Tool> PaintingTools;

// Pen.cpp
void PenPress(frmImage& image, double X, double Y);
void PenMove(frmImage& image, double X, double Y);
// Eraser.cpp
void EraserPress(frmImage& image, double X, double Y);
void EraserMove(frmImage& image, double X, double Y);
// Line.cpp: lines, and polylines, whose next segment starts where the last one ended
void LinePress(frmImage& image, double X, double Y);
void LineMove(frmImage& image, double X, double Y);
void LineRelease(frmImage& image, double X, double Y);
void PolyLineChosen();
void PolyLinePress(frmImage& image, double X, double Y);
void PolyLineRelease(frmImage& image, double X, double Y);
// Shapes.cpp
void ShapesPress(frmImage& image, double X, double Y);
void ShapesMove(frmImage& image, double X, double Y);
void ShapesRelease(frmImage& image, double X, double Y);
// Flood.cpp
inline constexpr int kFillTipX = -14; ///< The tip of the bucket, from the pointer, in view pixels.
inline constexpr int kFillTipY = 16;
void FloodPress(frmImage& image, double X, double Y);
/// Fills the area of `colour` around x, y with the current colour; `style` 0 is a solid fill.
void FloodFromPoint(Surface& surface, Colour colour, int style, int x, int y);
/// The same with black, for masks.
void FloodMaskOutside(Surface& surface, Colour colour, int style, int x, int y);
// ColorPick.cpp
inline constexpr int kEyeTipX = -16; ///< The tip of the dropper, likewise.
inline constexpr int kEyeTipY = 14;
void PickColour(frmImage& image, double X, double Y);
void PickRelease(frmImage& image, double X, double Y);
// Magnifier.cpp
void MagnifierPress(frmImage& image, double X, double Y);
void MagnifierRightPress(frmImage& image, double X, double Y);

} // namespace pintalux
