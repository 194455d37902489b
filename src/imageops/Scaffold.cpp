#include "imageops/Scaffold.h"

#include "base/Arithmetic.h"
#include "document/CommandBar.h"
#include "document/frmImage.h"
#include "document/Globals.h"
#include "document/Selection.h"
#include "document/Workspace.h"
#include "imageops/Sample.h"
#include "surface/window/Events.h"
#include "surface/window/Screen.h"

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
    if (target_ != Target::Freehand) FreeSelActive = false;
}

MaskOnlyFreehand::~MaskOnlyFreehand() {
    if (target_ != Target::Freehand) FreeSelActive = kept_;
}

void TakePastedPlace(frmImage& image) {
    if (!PasteFloating) return;
    TakeMembers(image, image.PicSelect);
}

namespace {

// Nothing floats any more: nothing can be cut or copied, and the next grab lifts from the image.
void EndSelection() {
    PasteFloating = false;
    EnableCutAndCopy(false);
}

} // namespace

// Intended: an operation on a selection drops it into the image at once, so that what is seen, recorded and
// saved is the same picture.
void DropRectangle(frmImage& image, double width, double height) {
    image.SelectShape.Visible(false);
    StretchBlt(image.PicMerge.hDC(), SelectionExtent(image), image.SelHolder.hDC(),
               {0, 0, ToInt32(width), ToInt32(height)}, SRCCOPY);
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
    FreeSelActive = false;
    EndSelection();
}

void PrepareSample(frmImage& image, Target target, SampleParts& sample) {
    const LoadedWork loaded(image, target);
    sample.Startup(SurfacesOf(image, target).work);
}

void RunOperation(frmImage& image, Target target,
                  const std::function<void(Surface& work, Surface& live)>& routine) {
    DoEvents(); // The dialog leaves the screen before the pixels are worked on.
    if (!image.Loaded()) return;
    if (target == Target::Rectangle) TakePastedPlace(image);
    const LoadedWork loaded(image, target);
    const auto [work, live] = SurfacesOf(image, target);
    if (HasPixels(work)) routine(work, live);
    Commit(image, target);
}

void Commit(frmImage& image, Target target) {
    if (target == Target::Rectangle) DropRectangle(image, image.PicSelect.Width(), image.PicSelect.Height());
    if (target == Target::Freehand)
        DropFreehand(image, image.SelHolder, image.SelHolder.ScaleWidth(), image.SelHolder.ScaleHeight());
    FinishOperation(image);
}

void FinishOperation(frmImage& image) {
    ShowMerge(image);
    image.Backup();
}

void FitWindow(frmImage& image) {
    if (image.WindowState() == kMaximised) return;
    const double oldWidth = image.Width();
    const double oldHeight = image.Height();
    const double width = image.PicMerge.ScaleWidth() * Screen.TwipsPerPixelX() + 120;
    const double height = image.PicMerge.ScaleHeight() * Screen.TwipsPerPixelY() + 420;
    image.Width(RulersOn ? image.LeftRuler.Width() + width : width);
    image.Height(RulersOn ? image.TopRuler.Height() + height : height);
    if (image.Width() > oldWidth || image.Height() > oldHeight) StayInWorkspace(image);
}

} // namespace pintalux
