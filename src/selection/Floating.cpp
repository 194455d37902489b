#include "selection/Floating.h"

#include "document/CommandBar.h"
#include "document/MainMenu.h"
#include "document/Workspace.h"
#include "surface/raster/Arithmetic.h"
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

Extent SelectionExtent(const frmImage& image) {
    return {ToInt32(image.SelectLeft), ToInt32(image.SelectTop), ToInt32(image.Selectwidth),
            ToInt32(image.Selectheight)};
}

void TakePieceMembers(frmImage& image) {
    image.SelectLeft = image.PicSelect.Left() / image.factor;
    image.SelectTop = image.PicSelect.Top() / image.factor;
    image.Selectwidth = image.PicSelect.Width() / image.factor;
    image.Selectheight = image.PicSelect.Height() / image.factor;
}

void EnableCutAndCopy(bool value) {
    TheWorkspace.bar->TB2.Buttons(5).Enabled(value);
    TheWorkspace.bar->TB2.Buttons(6).Enabled(value);
    TheWorkspace.menu->mnuEditCut.Enabled(value);
    TheWorkspace.menu->mnuEditCopy.Enabled(value);
}

void StartDrag(frmImage& image, Surface& piece, Timer& timer) {
    const CursorPosition CursorPoint = SnappedCursor(image);
    image.SelectpicX = ToInt16(CursorPoint.x - piece.Left());
    image.SelectpicY = ToInt16(CursorPoint.y - piece.Top());
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
