#include "selection/EditCommands.h"

#include "base/Arithmetic.h"
#include "document/Globals.h"
#include "document/Workspace.h"
#include "selection/ClipTray.h"
#include "selection/Floating.h"
#include "surface/system/Clipboard.h"
#include "surface/system/Pictures.h"
#include "surface/window/MDIForm.h"

namespace pintalux {

namespace {

// `SelHolder` takes the selected rectangle of the image, in image pixels whatever the zoom, and goes on the
// clipboard.
void HoldRectangle(frmImage& image) {
    image.SelHolder.Height(image.Selectheight);
    image.SelHolder.Width(image.Selectwidth);
    const Extent from = SelectionExtent(image);
    StretchBlt(image.SelHolder.hDC(), {0, 0, from.width, from.height}, image.PicMerge.hDC(), from, SRCCOPY);
    Clipboard.SetData(image.SelHolder.Image());
}

void EndRectangle(frmImage& image) {
    image.PicSelect.Visible(false);
    image.SelectShape.Visible(false);
    EnableCutAndCopy(false);
}

void EndFreehand(frmImage& image) {
    PutCleanCopyBack(image);
    image.PicMerge.Refresh();
    EnableCutAndCopy(false);
}

void CutRectangle(frmImage& image) {
    image.PicSelect.Picture(LoadPicture());
    image.SelHolder.Picture(LoadPicture());
    image.PicSelect.Width(image.Selectwidth * image.factor);
    image.PicSelect.Height(image.Selectheight * image.factor);
    HoldRectangle(image);
    StampBlank(image);
    EndRectangle(image);
}

void LandRectangle(frmImage& image) {
    image.PicSelect.Left(0);
    image.PicSelect.Top(0);
    image.SelHolder.Picture(Clipboard.GetData(CF_BITMAP));
    const double width = image.factor * image.SelHolder.Width();
    const double height = image.factor * image.SelHolder.Height();
    image.PicSelect.Width(width);
    image.PicSelect.Height(height);
    image.SelectImage.Move(0, 0, image.PicSelect.Width(), image.PicSelect.Height());
    image.SelectImage.Picture(image.SelHolder.Image());
    image.PicSelectShape.Move(0, 0, image.PicSelect.Width(), image.PicSelect.Height());
}

// At 1:1 the bitmap itself is clipped; at other zooms its enlarged or reduced copy.
void FillFreehand(frmImage& image, const Picture& bitmap) {
    Surface& shown = image.PicFreeSelect;
    shown.Picture(LoadPicture());
    image.SelHolder.Picture(bitmap);
    if (image.factor == 1) {
        shown.Picture(bitmap);
        return;
    }
    shown.Width(image.factor * image.SelHolder.Width());
    shown.Height(image.factor * image.SelHolder.Height());
    StretchBlt(shown.hDC(), {0, 0, shown.PixelWidth(), shown.PixelHeight()}, image.SelHolder.hDC(),
               {0, 0, image.SelHolder.PixelWidth(), image.SelHolder.PixelHeight()}, SRCCOPY);
}

// Intended: the outline is found again by its mask colour, so that a shape survives the clipboard, which
// knows rectangles only.
void LandFreehand(frmImage& image) {
    FreePasteActive = true;
    FillFreehand(image, Clipboard.GetData(CF_BITMAP));
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

void Land(frmImage& image) {
    const Busy busy(image);
    PasteFloating = true;
    // Intended: the slot that is read is the one after the newest entry, unless one was clicked; a shape that
    // stands already is kept by a slot without one.
    if (TheClipTray->PicClip(TheClipTray->SelectedClip).Tag() == "free") FreeSelActive = true;
    if (!FreeSelActive) {
        LandRectangle(image);
    } else {
        LandFreehand(image);
    }
}

bool SomethingFloats(const frmImage& image) {
    return image.PicSelect.Visible() || image.PicFreeSelect.Visible();
}

// A click in the tray may have changed the flag over the head of what floats; the clean copy of a path that
// is long gone must not come back then.
bool FreehandFloats(const frmImage& image) {
    return image.PicFreeSelect.Visible() && (FreeSelActive || !image.PicSelect.Visible());
}

} // namespace

// The commands may be on for another document, or after a path that enclosed nothing: what the clipboard
// holds must not be lost to an empty piece.
void mnuEditCopy_Click() {
    frmImage& image = ActiveImage();
    if (!SomethingFloats(image)) return EnableCutAndCopy(false);
    if (FreehandFloats(image)) {
        Clipboard.SetData(image.SelHolder.Image());
        EndFreehand(image);
        return;
    }
    image.SelHolder.Picture(LoadPicture());
    HoldRectangle(image);
    EndRectangle(image);
}

void mnuEditCut_Click() {
    frmImage& image = ActiveImage();
    if (!SomethingFloats(image)) return EnableCutAndCopy(false);
    if (FreehandFloats(image)) {
        // Intended: the piece goes as it is seen, at the size of the zoom, where a copy has the image's own
        // pixels; what is cut can so be enlarged.
        Clipboard.SetData(image.PicFreeSelect.Image());
        EndFreehand(image);
        return;
    }
    CutRectangle(image);
}

void mnuEditPaste_Click() {
    frmImage& image = ActiveImage();
    Land(image);
    // Shown when the window takes input again, so that the piece has its own pointer shape at once.
    (!FreeSelActive ? image.PicSelect : image.PicFreeSelect).Visible(true);
}

void mnuEditPasteNew_Click() {
    LockWindowUpdate(TheWorkspace.window);
    NewImageWindow();
    frmImage& image = ActiveImage();
    image.PicMerge.Picture(Clipboard.GetData(CF_BITMAP));
    FitImageWindow();
    image.Picsize();
    image.Backup();
    LockWindowUpdate(nullptr);
}

void PasteFromBar() {
    frmImage& image = ActiveImage();
    if (SomethingFloats(image) || image.lbltext.Visible()) image.NeedtoPaste();
    mnuEditPaste_Click();
}

} // namespace pintalux
