#include "selection/RectangleSelection.h"

#include "base/Arithmetic.h"
#include "document/Globals.h"
#include "document/MainMenu.h"
#include "document/Workspace.h"
#include "selection/Floating.h"
#include "surface/system/Pictures.h"
#include "tools/ToolSettings.h"

#include <algorithm>

namespace pintalux {

namespace {

void ShowPiece(frmImage& image) {
    const double width = image.PicSelect.Width();
    const double height = image.PicSelect.Height();
    ResumeNext([&] { image.SelectImage.Move(0, 0, width, height); },
               [&] { image.SelectImage.Picture(image.SelHolder.Image()); },
               [&] { image.PicSelectShape.Move(0, 0, width, height); },
               [&] { image.PicSelect.Visible(true); }, [&] { image.SelectShape.Visible(false); },
               [] { EnableCutAndCopy(true); });
}

// The band may leave the image, its piece may not: there it would have the mask colour.
void CutBand(frmImage& image) {
    ShapeControl& band = image.SelectShape;
    const double left = std::max(band.Left(), 0.0);
    const double top = std::max(band.Top(), 0.0);
    const double right = std::min(band.Left() + band.Width(), image.PicMerge.ScaleWidth() * image.factor);
    const double bottom = std::min(band.Top() + band.Height(), image.PicMerge.ScaleHeight() * image.factor);
    band.Move(left, top, std::max(right - left, 0.0), std::max(bottom - top, 0.0));
}

void PlacePiece(frmImage& image) {
    image.PicSelect.Move(image.SelectShape.Left(), image.SelectShape.Top(), image.SelectShape.Width(),
                         image.SelectShape.Height());
}

void StampHole(frmImage& image) {
    image.SelHolder.Height(image.Selectheight);
    image.SelHolder.Width(image.Selectwidth);
    StampBlank(image);
    image.hole = true;
}

} // namespace

void SelectChosen() {
    ResumeNext([] { MergePlacedPiece(ActiveImage()); }, [] { EndFreehandPiece(ActiveImage()); },
               [] { ShowMerge(ActiveImage()); });
}

void SelectPress(frmImage& image, double X, double Y) {
    image.selecting = true;
    const double x = Snapped(image, X);
    const double y = Snapped(image, Y);
    image.sx = ToInt16(x);
    image.sy = ToInt16(y);
    image.SelX = ToInt32(x);
    image.SelY = ToInt32(y);
    image.SelectShape.Move(x, y, 0, 0);
    image.SelectShape.Visible(true);
}

void SelectMove(frmImage& image, double X, double Y) {
    const double x = Snapped(image, X);
    const double y = Snapped(image, Y);
    const bool toLeft = x < image.SelX;
    const bool toTop = y < image.SelY;
    image.SelectShape.Move(toLeft ? image.Image1.Left() + x : image.sx,
                           toTop ? image.Image1.Top() + y : image.sy, std::abs(x - image.SelX),
                           std::abs(y - image.SelY));
    image.SelectShape.Visible(true); // A merge by command hides the band in the middle of its drag.
}

void SelectRelease(frmImage& image, double X, double Y) {
    bool moved = false;
    ResumeNext([&] {
        moved = ToInt32(Snapped(image, X)) != image.SelX || ToInt32(Snapped(image, Y)) != image.SelY;
    });
    if (!moved) return;
    // A command in the middle of the drag may have pasted.
    MakeRoomForPiece(image);
    EndPiece(image);
    FreeSelActive = false;
    FreePasteActive = false;
    ResumeNext([&] { CutBand(image); }, [&] { PlacePiece(image); },
               [&] { TakeMembers(image, image.SelectShape); }, [&] { SelectionBlit(image); },
               [&] { ShowPiece(image); });
    image.selecting = false;
}

void SelectionBlit(frmImage& image) {
    image.SelHolder.Width(image.Selectwidth);
    image.SelHolder.Height(image.Selectheight);
    image.SelHolder.Picture(LoadPicture()); // Two large pieces need not stand in memory at once.
    const Extent from = SelectionExtent(image);
    StretchBlt(image.SelHolder.hDC(), {0, 0, from.width, from.height}, image.PicMerge.hDC(), from, SRCCOPY);
    image.SelHolder.Picture(image.SelHolder.Image());
}

// Intended: in cut mode every grab of a piece that came out of the image stamps the background at the place
// where the piece lies, the second one too, so that a piece can be used to wipe what lies below it.
void PicSelect_MouseDown(frmImage& image) {
    if (!PasteFloating && TheToolSettings->Option4.Value()) StampHole(image);
    if (image.piece == PieceState::Lifted) image.piece = PieceState::Grabbed;
    image.PicSelect.ScaleMode(kScalePoints);
    StartDrag(image, image.PicSelect, image.Timer1);
}

void PicSelect_MouseUp(frmImage& image) {
    image.Timer1.Enabled(false);
    image.PicSelect.ScaleMode(kScalePixels);
    TakeMembers(image, image.PicSelect);
}

void mnuEditSelectAll_Click() {
    frmImage& image = ActiveImage();
    MakeRoomForPiece(image);
    EndPiece(image);
    FreeSelActive = false;
    FreePasteActive = false;
    const double width = image.PicMerge.ScaleWidth();
    const double height = image.PicMerge.ScaleHeight();
    image.SelectShape.Move(0, 0, width * image.factor, height * image.factor);
    PlacePiece(image);
    image.SelectLeft = 0;
    image.SelectTop = 0;
    image.Selectwidth = width;
    image.Selectheight = height;
    SelectionBlit(image);
    ShowPiece(image);
    image.selecting = true;
}

void mnuEditSelectNone_Click() {
    frmImage& image = ActiveImage();
    const bool holeStays = PieceIsPlaced(image) && image.hole;
    DiscardPiece(image);
    image.selecting = true;
    EnableCutAndCopy(false);
    TheWorkspace.menu->mnuEditSelectNone.Enabled(false);
    // An undo brings back what the piece took along.
    if (holeStays) image.Backup();
}

} // namespace pintalux
