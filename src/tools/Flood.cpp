// Flood fill: one press fills the connected area of one colour.
#include "base/Arithmetic.h"
#include "colour/ColourPanel.h"
#include "document/frmImage.h"
#include "surface/raster/FloodFill.h"
#include "tools/PaintingTools.h"

namespace pintalux {

namespace {

void Flood(Surface& surface, Colour fill, Colour colour, int style, int x, int y) {
    surface.FillStyle(style);
    surface.FillColor(fill);
    ExtFloodFill(surface.hDC(), x, y, colour, FLOODFILLSURFACE);
    surface.FillStyle(kFillTransparent);
}

} // namespace

void FloodPress(frmImage& image, double X, double Y) {
    // Intended: the fill starts at the tip of the bucket, 14 pixels left of and 16 below the pointer, so that
    // the picture shows where the paint lands.
    const int x = FloorToInt32((X + kFillTipX) / image.factor);
    const int y = FloorToInt32((Y + kFillTipY) / image.factor);
    FloodFromPoint(image.PicMerge, image.PicMerge.Point(x, y), kFillSolid, x, y);
}

// Intended: the fill takes the panel's colour as it is, without the raise against the background that strokes
// get, so that an area can be filled with exactly the chosen colour.
void FloodFromPoint(Surface& surface, Colour colour, int style, int x, int y) {
    Flood(surface, CurrentColour(), colour, style, x, y);
}

void FloodMaskOutside(Surface& surface, Colour colour, int style, int x, int y) {
    Flood(surface, kBlack, colour, style, x, y);
}

} // namespace pintalux
