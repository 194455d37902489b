#include "selection/EditCommands.h"

#include "base/Arithmetic.h"
#include "document/Globals.h"
#include "document/Workspace.h"
#include "selection/ClipTray.h"
#include "selection/Floating.h"
#include "surface/system/Clipboard.h"
#include "surface/system/MsgBox.h"
#include "surface/system/Pictures.h"
#include "surface/window/MDIForm.h"
#include "tools/ToolSettings.h"

#include <memory>

namespace pintalux {

namespace {

// `SelHolder` takes the selected rectangle of the image, in image pixels whatever the zoom.
void HoldRectangle(frmImage& image) {
    image.SelHolder.Height(image.Selectheight);
    image.SelHolder.Width(image.Selectwidth);
    const Extent from = SelectionExtent(image);
    StretchBlt(image.SelHolder.hDC(), {0, 0, from.width, from.height}, image.PicMerge.hDC(), from, SRCCOPY);
}

// An empty piece, such as one selected along a line, must not cost what the clipboard holds.
void Offer(const Picture& piece) {
    if (!piece.Empty()) Clipboard.SetData(piece);
}

void EndSelection(frmImage& image) {
    DiscardPiece(image);
    image.SelectShape.Visible(false);
    EnableCutAndCopy(false);
}

// On the clipboard goes a placed piece as it is, also where it lies beyond the image; a lifted one is taken
// from the image anew.
void OfferRectangle(frmImage& image) {
    if (PieceIsPlaced(image)) {
        image.NeedtoPaste();
    } else {
        image.SelHolder.Picture(LoadPicture());
        HoldRectangle(image);
    }
    Offer(image.SelHolder.Image());
}

void CutRectangle(frmImage& image) {
    OfferRectangle(image);
    StampBlank(image);
    EndSelection(image);
}

// A freehand piece may be cut or copied after a click in the tray changed what the next paste would be.
void OfferFreehand(frmImage& image, const Picture& piece) {
    if (PieceIsPlaced(image)) image.NeedtoPaste();
    FreeSelActive = true;
    Offer(piece);
}

// Intended: the piece goes as it is seen, at the size of the zoom, where a copy has the image's own pixels;
// what is cut can so be enlarged.
Picture PieceAsSeen(const frmImage& image) {
    const Picture seen = image.PicFreeSelect.Image();
    return seen.Empty() ? image.SelHolder.Image() : seen;
}

// In cut mode the piece leaves its hole where it lies: where it was lifted, or where it was dropped after
// that.
void CutFreehand(frmImage& image) {
    const bool placed = PieceIsPlaced(image);
    OfferFreehand(image, PieceAsSeen(image));
    if (!placed) image.PicMerge.Picture(image.Pic1BU.Image());
    if (placed && TheToolSettings->Option4.Value()) StampShape(image, image.PicMerge);
    EndSelection(image);
}

void FloatRectangle(frmImage& image, const Picture& bitmap) {
    image.PicSelect.Left(0);
    image.PicSelect.Top(0);
    image.SelHolder.Picture(bitmap);
    image.PicSelect.Width(image.factor * image.SelHolder.Width());
    image.PicSelect.Height(image.factor * image.SelHolder.Height());
    image.SelectImage.Move(0, 0, image.PicSelect.Width(), image.PicSelect.Height());
    image.SelectImage.Picture(image.SelHolder.Image());
    image.PicSelectShape.Move(0, 0, image.PicSelect.Width(), image.PicSelect.Height());
}

void FillFreehand(frmImage& image, const Picture& bitmap) {
    Surface& shown = image.PicFreeSelect;
    shown.Picture(LoadPicture());
    image.SelHolder.Picture(bitmap);
    shown.Width(image.factor * image.SelHolder.Width());
    shown.Height(image.factor * image.SelHolder.Height());
    shown.ShowStretched(bitmap, MaskKeyColour);
}

// Intended: the outline is found again by its mask colour, so that a shape survives the clipboard, which
// knows rectangles only.
void FloatFreehand(frmImage& image, const Picture& bitmap) {
    FreePasteActive = true;
    FillFreehand(image, bitmap);
    image.Pic1BU.Picture(image.PicMerge.Image());
    image.ShapeMe(MaskKeyColour, true, image.PicFreeSelect);
    image.PicFreeSelect.Left(0);
    image.PicFreeSelect.Top(0);
    // Intended: a shape lands at the visible corner of a scrolled image, a rectangle at the image's own
    // corner, where it lies exactly over what it may have been copied from.
    if (image.VS.Visible()) image.PicFreeSelect.Top(image.VS.Value());
    if (image.HS.Visible()) image.PicFreeSelect.Left(image.HS.Value());
}

// The window takes no input meanwhile and shows that it works.
class Busy {
  public:
    explicit Busy(Form& form) : form_(form) {
        form_.Enabled(false);
        form_.MousePointer(kPointerHourglass);
    }
    ~Busy() {
        form_.Enabled(true);
        form_.MousePointer(kPointerDefault);
    }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;

  private:
    Form& form_;
};

// The clipboard's bitmap; the empty picture, after a message, if its owner gives none, and without a word if
// the user would not wait for it. `waiting` shows that an owner may take its time.
Picture BitmapToPaste(Form* waiting) {
    Picture bitmap;
    bool givenUp = false;
    try {
        const auto busy = waiting != nullptr ? std::make_unique<Busy>(*waiting) : nullptr;
        bitmap = Clipboard.GetData(CF_BITMAP);
    } catch (...) {
        givenUp = CurrentError().Number() == kInterrupted;
    }
    if (bitmap.Empty() && !givenUp)
        MsgBox("Não foi possível obter uma imagem da área de transferência. Nada foi colado e a imagem ficou "
               "como estava.",
               BoxButtons::Ok, BoxIcon::Exclamation, kMessageTitle);
    return bitmap;
}

void Float(frmImage& image, const Picture& bitmap) {
    const Busy busy(image);
    PasteFloating = true;
    image.piece = PieceState::Pasted;
    // Intended: the slot that is read is the one after the newest entry, unless one was clicked; a shape that
    // stands already is kept by a slot without one.
    if (TheClipTray->PicClip(TheClipTray->SelectedClip).Tag() == "free") FreeSelActive = true;
    if (!FreeSelActive) {
        FloatRectangle(image, bitmap);
    } else {
        FloatFreehand(image, bitmap);
    }
}

// What floats goes first, by `makeRoom`; a merge does not change what is pasted.
void Paste(void (*makeRoom)(frmImage&)) {
    frmImage& image = ActiveImage();
    const Picture bitmap = BitmapToPaste(&image);
    if (bitmap.Empty()) return;
    const auto freehand = FreeSelActive;
    makeRoom(image);
    FreeSelActive = freehand;
    Float(image, bitmap);
    // Shown when the window takes input again, so that the piece has its own pointer shape at once.
    (!FreeSelActive ? image.PicSelect : image.PicFreeSelect).Visible(true);
}

void MergeAnything(frmImage& image) {
    AbandonPath(image);
    if (PieceFloats(image) || image.lbltext.Visible()) image.NeedtoPaste();
}

} // namespace

// The commands may be on for another document, or after a path that enclosed nothing.
void mnuEditCopy_Click() {
    if (!ADocumentShows()) return;
    frmImage& image = ActiveImage();
    if (!PieceFloats(image)) return EnableCutAndCopy(false);
    if (image.PicSelect.Visible()) {
        OfferRectangle(image);
    } else {
        OfferFreehand(image, image.SelHolder.Image());
    }
    EndSelection(image);
}

void mnuEditCut_Click() {
    if (!ADocumentShows()) return;
    frmImage& image = ActiveImage();
    if (!PieceFloats(image)) return EnableCutAndCopy(false);
    if (image.PicSelect.Visible()) {
        CutRectangle(image);
    } else {
        CutFreehand(image);
    }
}

void mnuEditPaste_Click() {
    Paste(MakeRoomForPiece);
}

void PasteFromBar() {
    Paste(MergeAnything);
}

void mnuEditPasteNew_Click() {
    const Picture bitmap = BitmapToPaste(nullptr);
    if (bitmap.Empty()) return;
    LockWindowUpdate(&*TheWorkspace.window);
    NewImageWindow();
    frmImage& image = ActiveImage();
    image.PicMerge.Picture(bitmap);
    FitImageWindow();
    image.Picsize();
    image.Backup();
    LockWindowUpdate(nullptr);
}

} // namespace pintalux
