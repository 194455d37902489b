#include "document/Selection.h"

#include "base/Arithmetic.h"
#include "document/BarPositions.h"
#include "document/CommandBar.h"
#include "document/Globals.h"
#include "document/MainMenu.h"
#include "document/Workspace.h"
#include "surface/raster/PixelWrite.h"

#include <utility>

namespace pintalux {

namespace {

void Merge(frmImage& image) {
    if (TheWorkspace.MergeByCommand) TheWorkspace.MergeByCommand(image);
}

} // namespace

void TakeMembers(frmImage& image, const Control& place) {
    image.SelectLeft = place.Left() / image.factor;
    image.SelectTop = place.Top() / image.factor;
    image.Selectwidth = place.Width() / image.factor;
    image.Selectheight = place.Height() / image.factor;
}

Extent SelectionExtent(const frmImage& image) {
    return {ToInt32(image.SelectLeft), ToInt32(image.SelectTop), ToInt32(image.Selectwidth),
            ToInt32(image.Selectheight)};
}

void EnableCutAndCopy(bool value) {
    TheWorkspace.bar->TB2.Buttons(kCutButton).Enabled(value);
    TheWorkspace.bar->TB2.Buttons(kCopyButton).Enabled(value);
    TheWorkspace.menu->mnuEditCut.Enabled(value);
    TheWorkspace.menu->mnuEditCopy.Enabled(value);
}

void ShowMerge(frmImage& image) {
    image.Image1.Picture(image.PicMerge.Image());
}

bool PieceFloats(const frmImage& image) {
    return image.PicSelect.Visible() || image.PicFreeSelect.Visible();
}

bool PieceIsPlaced(const frmImage& image) {
    return PieceFloats(image) && image.piece != PieceState::Lifted;
}

void MergePlacedPiece(frmImage& image) {
    AbandonPath(image);
    if (PieceIsPlaced(image)) Merge(image);
}

void MergeFloating(frmImage& image) {
    MergePlacedPiece(image);
    if (image.lbltext.Visible()) Merge(image);
    RecordText(image);
}

void RecordText(frmImage& image) {
    if (image.unrecorded) image.Backup();
}

void MakeRoomForPiece(frmImage& image) {
    MergeFloating(image);
    if (PieceFloats(image)) DiscardPiece(image);
}

void MergePlacedFreehand(frmImage& image) {
    AbandonPath(image);
    if (image.PicFreeSelect.Visible()) MergePlacedPiece(image);
}

void EndFreehandPiece(frmImage& image) {
    MergePlacedFreehand(image);
    if (image.PicFreeSelect.Visible()) DiscardPiece(image);
}

ImagePlace FreehandPlace(const frmImage& image) {
    const double factor = image.liftedAt > 0 ? image.liftedAt : image.factor;
    return {image.PicFreeSelect.Left() / factor, image.PicFreeSelect.Top() / factor};
}

void DiscardPiece(frmImage& image) {
    // The hole of a piece that was only lifted is in the clean copy, and goes with it.
    const bool holeInCopyAlone = image.piece == PieceState::Lifted && image.hole;
    if (image.PicFreeSelect.Visible() && !holeInCopyAlone) image.PicMerge.Picture(image.Pic1BU.Image());
    image.PicSelect.Visible(false);
    image.PicFreeSelect.Visible(false);
    EndPiece(image);
    ShowMerge(image);
}

void EndPiece(frmImage& image) {
    // A command may come in the middle of a drag; the release would then never reach the hidden piece.
    image.Timer1.Enabled(false);
    image.TimerFS.Enabled(false);
    image.PicSelect.ScaleMode(kScalePixels);
    image.PicFreeSelect.ScaleMode(kScalePixels);
    image.piece = PieceState::Lifted;
    image.hole = false;
    image.liftedAt = 0;
    PasteFloating = false;
}

void FollowWithCleanCopy(frmImage& image) {
    image.pathOpen = false;
    if (!image.PicFreeSelect.Visible()) return;
    image.Pic1BU.Picture(image.PicMerge.Image());
    if (image.piece == PieceState::Lifted && image.hole) StampShape(image, image.Pic1BU);
}

void StampShape(const frmImage& image, Surface& copy) {
    const Bitmap shape = image.SelHolder.Image();
    const ImagePlace place = FreehandPlace(image);
    const int left = ToInt32(place.x);
    const int top = ToInt32(place.y);
    const Pixel blank = PixelOf(image.PicMerge.BackColor());
    const PixelWrite write(copy.hDC());
    Bitmap& under = write.Bits();
    for (int y = 0; y < shape.Height(); ++y) {
        for (int x = 0; x < shape.Width(); ++x)
            if (shape.At(x, y) != PixelOf(MaskKeyColour) && under.Holds(left + x, top + y))
                under.Set(left + x, top + y, blank);
    }
}

void AbandonPath(frmImage& image) {
    if (!std::exchange(image.pathOpen, false)) return;
    image.PicMerge.DrawMode(kDrawCopyPen);
    image.PicMerge.DrawStyle(kDrawSolid);
    image.PicMerge.Picture(image.Pic1BU.Image());
    ShowMerge(image);
}

void TakePieceFlags(const frmImage& image) {
    const bool pasted = PieceFloats(image) && image.piece == PieceState::Pasted;
    PasteFloating = pasted;
    FreePasteActive = pasted && image.PicFreeSelect.Visible();
}

namespace {

Picture WithRectangle(const frmImage& image) {
    Picture seen = image.PicMerge.Image();
    const Picture piece = image.SelHolder.Image();
    seen.Copy(ToInt32(image.PicSelect.Left() / image.factor), ToInt32(image.PicSelect.Top() / image.factor),
              piece, piece.Bounds());
    return seen;
}

Picture WithShape(const frmImage& image) {
    Picture seen = image.Pic1BU.Image();
    const Picture piece = image.SelHolder.Image();
    const ImagePlace place = FreehandPlace(image);
    const int left = ToInt32(place.x);
    const int top = ToInt32(place.y);
    for (int y = 0; y < piece.Height(); ++y) {
        for (int x = 0; x < piece.Width(); ++x)
            if (piece.At(x, y) != PixelOf(MaskKeyColour) && seen.Holds(left + x, top + y))
                seen.Set(left + x, top + y, piece.At(x, y));
    }
    return seen;
}

} // namespace

Picture ImageAsSeen(const frmImage& image) {
    if (image.pathOpen) return image.Pic1BU.Image();
    if (!PieceIsPlaced(image)) return image.PicMerge.Image();
    return image.PicSelect.Visible() ? WithRectangle(image) : WithShape(image);
}

} // namespace pintalux
