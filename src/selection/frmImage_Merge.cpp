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
void LandRectangle(frmImage& image) {
    TakeMembers(image, image.PicSelect);
    image.PicSelect.Visible(false);
    image.SelectShape.Visible(false);
    const Extent place = SelectionExtent(image);
    StretchBlt(image.PicMerge.hDC(), place, image.SelHolder.hDC(), {0, 0, place.width, place.height},
               SRCCOPY);
    ShowMerge(image);
    EnableCutAndCopy(false);
}

// The piece lands on the clean copy, so that the dashes of the path go with what lay on the screen.
void LandFreehand(frmImage& image) {
    const Surface& piece = image.PicFreeSelect;
    const Extent place{ToInt32(piece.Left() / image.factor), ToInt32(piece.Top() / image.factor),
                       ToInt32(piece.ScaleWidth() / image.factor),
                       ToInt32(piece.ScaleHeight() / image.factor)};
    const Extent whole{0, 0, image.SelHolder.PixelWidth(), image.SelHolder.PixelHeight()};
    TransparentBlt(image.Pic1BU.hDC(), place, image.SelHolder.hDC(), whole, MaskKeyColour);
    image.PicMerge.Picture(image.Pic1BU.Image());
    image.PicMerge.Refresh();
    ShowMerge(image);
    image.PicFreeSelect.Visible(false);
    image.PicFreeSelect.Picture(LoadPicture());
    FreeSelActive = false;
}

} // namespace

void MergeRectangleByPress(frmImage& image) {
    LandRectangle(image);
    image.selecting = false;
    PasteFloating = false;
    image.Backup();
}

void MergeFreehandByPress(frmImage& image) {
    LandFreehand(image);
    image.FreeSelDrawing = true;
    PasteFloating = false;
    image.Backup();
}

// Intended: a merge by command takes two undo states, and a call with nothing floating one, so that every
// paste by the tool bar begins at a state to come back to.
void frmImage::NeedtoPaste() {
    if (PicSelect.Visible()) {
        LandRectangle(*this);
        Backup();
        selecting = false;
        PasteFloating = false;
    } else if (PicFreeSelect.Visible()) {
        LandFreehand(*this);
        Backup();
        FreeSelDrawing = true;
        PasteFloating = false;
    } else if (lbltext.Visible() && TheFloatingSteps.commitTextByCommand) {
        TheFloatingSteps.commitTextByCommand(*this);
    }
    ShowMerge(*this);
    Image1.Refresh();
    Backup();
}

} // namespace pintalux
