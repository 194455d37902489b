#include "selection/Floating.h"

#include "base/Arithmetic.h"
#include "surface/raster/PixelWrite.h"
#include "surface/window/Screen.h"
#include "tools/Image1_Pointer.h"

namespace pintalux {

namespace {

// The pointer's place on the screen, snapped to the grid of image pixels.
CursorPosition SnappedCursor(const frmImage& image) {
    const CursorPosition CursorPoint = GetCursorPos();
    return {ToInt32(Snapped(image, CursorPoint.x)), ToInt32(Snapped(image, CursorPoint.y))};
}

} // namespace

void StampBlank(frmImage& image) {
    const Extent hole = SelectionExtent(image);
    const PixelWrite write(image.PicMerge.hDC(), {hole.x, hole.y, hole.x + hole.width, hole.y + hole.height});
    write.Bits().Fill(write.Area(), PixelOf(image.PicSelect.BackColor()));
    ShowMerge(image);
}

void StartDrag(frmImage& image, Surface& piece, Timer& timer) {
    const CursorPosition CursorPoint = SnappedCursor(image);
    image.SelectpicX = CursorPoint.x - piece.Left();
    image.SelectpicY = CursorPoint.y - piece.Top();
    timer.Enabled(true);
}

void FollowPointer(const frmImage& image, Surface& piece) {
    const CursorPosition CursorPoint = SnappedCursor(image);
    piece.Move(CursorPoint.x - image.SelectpicX, CursorPoint.y - image.SelectpicY, piece.Width(),
               piece.Height());
}

void MoveOverPiece(frmImage& image, Control& under, const Surface& piece, double X, double Y,
                   double toPixels) {
    under.MousePointer(kPointerSizeAll);
    MoveRulerMarks(image, piece.Left() + std::floor(X * toPixels), piece.Top() + std::floor(Y * toPixels));
}

} // namespace pintalux
