// What floats becomes part of the image: by a command, or by a press on the image. The two orders differ in
// small ways, which the undo history shows.
#include "base/Arithmetic.h"
#include "document/Globals.h"
#include "selection/Floating.h"
#include "selection/Merge.h"
#include "surface/system/Pictures.h"
#include "tools/Image1_Pointer.h"

namespace pintalux {

namespace {

// Intended: a rectangle covers all of its place, also where it holds the mask colour; only a freehand piece
// has pixels to see through.
void MergeRectangle(frmImage& image) {
    TakeMembers(image, image.PicSelect);
    image.PicSelect.Visible(false);
    image.SelectShape.Visible(false);
    const Extent place = SelectionExtent(image);
    StretchBlt(image.PicMerge.hDC(), place, image.SelHolder.hDC(), {0, 0, place.width, place.height},
               SRCCOPY);
    ShowMerge(image);
    EnableCutAndCopy(false);
    EndPiece(image);
}

// The piece goes into the clean copy, so that the dashes of the path go with what lay on the screen. It has
// its own size there, whatever whole pixels the view has for it: 45 pixels at 1:2 show as 22.
void MergeFreehand(frmImage& image) {
    const ImagePlace at = FreehandPlace(image);
    const Extent piece{0, 0, image.SelHolder.PixelWidth(), image.SelHolder.PixelHeight()};
    const Extent place{ToInt32(at.x), ToInt32(at.y), piece.width, piece.height};
    TransparentBlt(image.Pic1BU.hDC(), place, image.SelHolder.hDC(), piece, MaskKeyColour);
    image.PicMerge.Picture(image.Pic1BU.Image());
    ShowMerge(image);
    image.PicFreeSelect.Visible(false);
    image.PicFreeSelect.Picture(LoadPicture());
    FreeSelActive = false;
    EndPiece(image);
}

} // namespace

void MergeRectangleByPress(frmImage& image) {
    MergeRectangle(image);
    image.selecting = false;
    image.Backup();
}

void MergeFreehandByPress(frmImage& image) {
    MergeFreehand(image);
    image.FreeSelDrawing = true;
    image.Backup();
}

// Intended: a merge by command takes two undo states, and a call with nothing floating one, so that every
// paste by the tool bar begins at a state to come back to.
void frmImage::NeedtoPaste() {
    if (PicSelect.Visible()) {
        MergeRectangle(*this);
        Backup();
        selecting = false;
    } else if (PicFreeSelect.Visible()) {
        MergeFreehand(*this);
        Backup();
        FreeSelDrawing = true;
    } else if (lbltext.Visible() && TheFloatingSteps.commitTextByCommand) {
        TheFloatingSteps.commitTextByCommand(*this);
    }
    ShowMerge(*this);
    Image1.Refresh();
    Backup();
}

} // namespace pintalux
