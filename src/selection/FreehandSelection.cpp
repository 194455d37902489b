#include "selection/FreehandSelection.h"

#include "document/Globals.h"
#include "selection/Floating.h"
#include "tools/ImagePoint.h"

#include <algorithm>
#include <utility>

namespace pintalux {

namespace {

// Neither the mask's background nor the black of what lies outside: pixels on the path count as inside.
constexpr Colour kPathOnMask = 0x808080;

// A piece of the path: inverted dashes for the user, a solid line for the mask.
void DrawPath(frmImage& image, double x1, double y1, double x2, double y2) {
    image.PicMerge.Line(x1, y1, x2, y2, kBlack);
    image.PicMask.Line(x1, y1, x2, y2, kPathOnMask);
}

void UseDashes(Surface& surface) {
    surface.DrawMode(kDrawInvert);
    surface.DrawStyle(kDrawDash);
    surface.DrawWidth(1);
}

} // namespace

void FreeSelectPress(frmImage& image, double X, double Y) {
    image.FreeSelDrawing = false;
    image.pathOpen = true;
    image.PicMask.Width(image.PicMerge.Width());
    image.PicMask.Height(image.PicMerge.Height());
    image.Pic1BU.Picture(image.PicMerge.Image());
    TakeAnchor(image, X, Y);
    image.FreeMinX = image.FreeMaxX = image.sx;
    image.FreeMinY = image.FreeMaxY = image.sy;
    UseDashes(image.PicMerge);
    image.PicMask.Cls();
    DrawPath(image, image.sx, image.sy, image.sx, image.sy);
    image.FreeStartX = image.sx;
    image.FreeStartY = image.sy;
}

void FreeSelectMove(frmImage& image, double X, double Y) {
    if (image.FreeSelDrawing || !image.pathOpen) return;
    const ImagePoint to = ImagePointAt(image, X, Y);
    image.FreeMinX = std::min(image.FreeMinX, to.x);
    image.FreeMinY = std::min(image.FreeMinY, to.y);
    image.FreeMaxX = std::max(image.FreeMaxX, to.x);
    image.FreeMaxY = std::max(image.FreeMaxY, to.y);
    DrawPath(image, image.sx, image.sy, to.x, to.y);
    image.sx = to.x;
    image.sy = to.y;
}

void FreeSelectRelease(frmImage& image, double /*X*/, double /*Y*/) {
    // A merge stopped the path of this drag; the next press starts a new one.
    if (image.FreeSelDrawing) {
        image.FreeSelDrawing = false;
        return;
    }
    // A drag that began with another tool has no path; the clean copy is not its own.
    if (!std::exchange(image.pathOpen, false)) return;
    EndPiece(image);
    FreePasteActive = false;
    DrawPath(image, image.sx, image.sy, image.FreeStartX, image.FreeStartY);
    image.MakeSelection();
    image.PicMerge.DrawMode(kDrawCopyPen);
    image.PicMerge.DrawStyle(kDrawSolid);
    EnableCutAndCopy(true);
    FreeSelActive = true;
}

void PicFreeSelect_MouseDown(frmImage& image) {
    if (image.piece == PieceState::Lifted) image.piece = PieceState::Grabbed;
    image.liftedAt = 0;
    // The hole shows as soon as the piece is taken.
    if (!FreePasteActive) {
        image.PicMerge.Picture(image.Pic1BU.Image());
        ShowMerge(image);
    }
    image.PicFreeSelect.ScaleMode(kScalePoints);
    StartDrag(image, image.PicFreeSelect, image.TimerFS);
}

void PicFreeSelect_MouseUp(frmImage& image) {
    image.TimerFS.Enabled(false);
    image.PicFreeSelect.ScaleMode(kScalePixels);
    image.Pic1BU.Picture(image.PicMerge.Image());
}

} // namespace pintalux
