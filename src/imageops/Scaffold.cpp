#include "imageops/Scaffold.h"

#include "document/CommandBar.h"
#include "document/frmImage.h"
#include "document/Globals.h"
#include "document/MainMenu.h"
#include "document/Workspace.h"
#include "surface/raster/Arithmetic.h"
#include "surface/raster/Transfer.h"

namespace pintalux {

Target ChooseTarget(const frmImage& image) {
    if (image.PicSelect.Visible()) return Target::Rectangle;
    return image.PicFreeSelect.Visible() ? Target::Freehand : Target::WholeImage;
}

WorkSurfaces SurfacesOf(frmImage& image, Target target) {
    if (target == Target::WholeImage) return {image.picsource, image.PicMerge};
    return {image.PicSelect, image.SelHolder};
}

bool HasPixels(const Surface& surface) {
    return surface.PixelWidth() > 0 && surface.PixelHeight() > 0;
}

ProgressBar& TheProgressBar() {
    return TheWorkspace.bar->Pb;
}

LoadedWork::LoadedWork(frmImage& image, Target target)
    : image_(image), target_(target), viewWidth_(image.PicSelect.Width()),
      viewHeight_(image.PicSelect.Height()) {
    if (target != Target::WholeImage) locked_ = LockWindowUpdate(image.hWnd());
    const auto [work, live] = SurfacesOf(image, target);
    work.AutoSize(true);
    work.Picture(live.Image());
    // The empty picture has no size that the surface could take.
    work.Width(live.Width());
    work.Height(live.Height());
}

LoadedWork::~LoadedWork() {
    ResumeNext([this] { ShowAgain(); },
               [this] {
                   if (locked_) LockWindowUpdate(nullptr);
               });
}

void LoadedWork::ShowAgain() const {
    if (target_ == Target::WholeImage) return;
    image_.PicSelect.Width(viewWidth_);
    image_.PicSelect.Height(viewHeight_);
}

MaskOnlyFreehand::MaskOnlyFreehand(Target target) : target_(target), kept_(FreeSelActive) {
    if (target_ != Target::Freehand) FreeSelActive = 0;
}

MaskOnlyFreehand::~MaskOnlyFreehand() {
    if (target_ != Target::Freehand) FreeSelActive = kept_;
}

void TakePastedPlace(frmImage& image) {
    if (PasteFloating == 0) return;
    image.SelectLeft = image.PicSelect.Left() / image.factor;
    image.SelectTop = image.PicSelect.Top() / image.factor;
    image.Selectwidth = image.PicSelect.Width() / image.factor;
    image.Selectheight = image.PicSelect.Height() / image.factor;
}

namespace {

// Nothing floats any more: nothing can be cut or copied, and the next grab lifts from the image.
void EndSelection() {
    PasteFloating = 0;
    for (const int position : {5, 6})
        TheWorkspace.bar->TB2.Buttons(position).Enabled(false);
    TheWorkspace.menu->mnuEditCut.Enabled(false);
    TheWorkspace.menu->mnuEditCopy.Enabled(false);
}

} // namespace

// Intended: an operation on a selection drops it into the image at once, so that what is seen, recorded and
// saved is the same picture.
void DropRectangle(frmImage& image, double width, double height) {
    image.SelectShape.Visible(false);
    StretchBlt(image.PicMerge.hDC(),
               {ToInt32(image.SelectLeft), ToInt32(image.SelectTop), ToInt32(image.Selectwidth),
                ToInt32(image.Selectheight)},
               image.SelHolder.hDC(), {0, 0, ToInt32(width), ToInt32(height)}, SRCCOPY);
    image.PicSelect.Visible(false);
    EndSelection();
}

void DropFreehand(frmImage& image, const Surface& piece, double width, double height) {
    const Surface& floating = image.PicFreeSelect;
    TransparentBlt(image.Pic1BU.hDC(),
                   {FloorToInt32(floating.Left() / image.factor), FloorToInt32(floating.Top() / image.factor),
                    FloorToInt32(floating.ScaleWidth() / image.factor),
                    FloorToInt32(floating.ScaleHeight() / image.factor)},
                   piece.hDC(), {0, 0, ToInt32(width), ToInt32(height)}, MaskKeyColour);
    image.PicMerge.Picture(image.Pic1BU.Image());
    image.PicFreeSelect.Visible(false);
    TheProgressBar().Value(0);
    FreeSelActive = 0;
    EndSelection();
}

void FinishOperation(frmImage& image) {
    image.Image1.Picture(image.PicMerge.Image());
    image.Backup();
}

} // namespace pintalux
