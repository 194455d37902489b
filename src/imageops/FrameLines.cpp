// The lines that a frame ends with.
#include "imageops/Frames.h"
#include "surface/raster/Bitmap.h"
#include "surface/window/Surface.h"

namespace pintalux {

namespace {

void FillBoxes(Surface& surface, std::initializer_list<Box> boxes, Colour colour) {
    for (const Box& box : boxes) {
        if (box.Empty()) continue;
        surface.hDC().Bits().Fill(box, PixelOf(colour));
        surface.hDC().Touched(Intersection(box, surface.hDC().Bits().Bounds()));
    }
}

} // namespace

void DrawOuterLine(Surface& surface) {
    const int W = surface.PixelWidth();
    const int H = surface.PixelHeight();
    FillBoxes(surface, {{0, 0, W, 1}, {0, H - 1, W, H}, {0, 0, 1, H}, {W - 1, 0, W, H}}, kBlack);
}

// Intended: all four lines stand at the inset itself, counted from 0 on the left and from the width on the
// right, so that those on the right and at the bottom lie one pixel further out than the band's edge.
void DrawInsetRect(Surface& surface, int inset, Colour colour) {
    const int k = inset;
    const int right = surface.PixelWidth() - k;
    const int bottom = surface.PixelHeight() - k;
    FillBoxes(surface,
              {{k, k, right + 1, k + 1},
               {k, bottom, right + 1, bottom + 1},
               {k, k, k + 1, bottom + 1},
               {right, k, right + 1, bottom + 1}},
              colour);
}

} // namespace pintalux
