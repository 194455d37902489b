#include "imageops/Scaffold.h"

#include "base/Arithmetic.h"
#include "document/CommandBar.h"
#include "document/frmImage.h"
#include "document/Globals.h"
#include "document/Selection.h"
#include "document/Workspace.h"
#include "document/Zoom.h"
#include "imageops/Sample.h"
#include "surface/raster/PixelWrite.h"
#include "surface/window/Events.h"
#include "surface/window/Screen.h"

#include <vector>

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

frmImage& ImageForOperation() {
    frmImage& image = ActiveImage();
    AbandonPath(image);
    return image;
}

frmImage& WholeImageForOperation() {
    frmImage& image = ActiveImage();
    MergePlacedPiece(image);
    return image;
}

void BringBack(frmImage& image) {
    if (&ActiveImage() != &image) image.Show();
}

MaskOnlyFreehand::MaskOnlyFreehand(Target target) : kept_(FreeSelActive) {
    FreeSelActive = target == Target::Freehand;
}

MaskOnlyFreehand::~MaskOnlyFreehand() {
    FreeSelActive = kept_;
}

void TakePastedPlace(frmImage& image) {
    if (!PasteFloating) return;
    TakeMembers(image, image.PicSelect);
}

namespace {

void EndSelection(frmImage& image) {
    EndPiece(image);
    EnableCutAndCopy(false);
}

// A whole number that a division by the zoom factor left a hair below itself does not fall to the next one.
int WholePixel(double place) {
    constexpr double kHair = 1e-6;
    return FloorToInt32(place + kHair);
}

} // namespace

// Intended: an operation on a selection drops it into the image at once, so that what is seen, recorded and
// saved is the same picture.
void DropRectangle(frmImage& image, double width, double height) {
    image.SelectShape.Visible(false);
    StretchBlt(image.PicMerge.hDC(), SelectionExtent(image), image.SelHolder.hDC(),
               {0, 0, ToInt32(width), ToInt32(height)}, SRCCOPY);
    image.PicSelect.Visible(false);
    EndSelection(image);
}

void DropFreehand(frmImage& image) {
    const ImagePlace place = FreehandPlace(image);
    const Extent piece{0, 0, image.SelHolder.PixelWidth(), image.SelHolder.PixelHeight()};
    TransparentBlt(image.Pic1BU.hDC(), {WholePixel(place.x), WholePixel(place.y), piece.width, piece.height},
                   image.SelHolder.hDC(), piece, MaskKeyColour);
    image.PicMerge.Picture(image.Pic1BU.Image());
    image.PicFreeSelect.Visible(false);
    TheProgressBar().Value(0);
    EndSelection(image);
}

namespace {

// What lay outside the outline becomes outside again.
void RestoreOutside(Surface& stepped, const Bitmap& piece) {
    const PixelWrite write(stepped.hDC());
    Bitmap& bits = write.Bits();
    std::vector<Pixel> before(static_cast<std::size_t>(piece.Width()));
    std::vector<Pixel> after(before.size());
    for (int y = 0; y < piece.Height(); ++y) {
        piece.ReadRow(0, y, before);
        bits.ReadRow(0, y, after);
        for (std::size_t x = 0; x < after.size(); ++x)
            if (before[x] == PixelOf(MaskKeyColour)) after[x] = before[x];
        bits.WriteRow(0, y, after);
        TheProgressBar().Value(stepped.Width() * (y + 1) / piece.Height());
    }
}

using Routine = std::function<void(Surface& work, Surface& live)>;

void StepRectangle(frmImage& image, const Routine& routine) {
    TakePastedPlace(image);
    const LoadedWork loaded(image, Target::Rectangle);
    if (HasPixels(image.SelHolder)) routine(image.SelHolder, image.PicSelect);
    DropRectangle(image, image.Selectwidth, image.Selectheight);
}

void StepFreehand(frmImage& image, const Routine& routine) {
    const LoadedWork loaded(image, Target::Freehand);
    const Bitmap piece = image.SelHolder.Image();
    if (HasPixels(image.SelHolder)) routine(image.SelHolder, image.PicSelect);
    TheProgressBar().Max(image.SelHolder.Width());
    RestoreOutside(image.SelHolder, piece);
    DropFreehand(image);
}

void StepWholeImage(frmImage& image, const Routine& routine) {
    const LoadedWork loaded(image, Target::WholeImage);
    if (HasPixels(image.picsource)) routine(image.picsource, image.PicMerge);
}

} // namespace

void RunMasklessStep(frmImage& image, const Routine& routine) {
    switch (ChooseTarget(image)) {
    case Target::Rectangle:
        StepRectangle(image, routine);
        break;
    case Target::Freehand:
        StepFreehand(image, routine);
        break;
    case Target::WholeImage:
        StepWholeImage(image, routine);
    }
    FinishOperation(image);
}

void PrepareSample(frmImage& image, Target target, SampleParts& sample) {
    const LoadedWork loaded(image, target);
    sample.Startup(SurfacesOf(image, target).work);
}

void RunOperation(frmImage& image, Target target,
                  const std::function<void(Surface& work, Surface& live)>& routine) {
    DoEvents(); // The dialog leaves the screen before the pixels are worked on.
    if (!image.Loaded()) return;
    BringBack(image);
    if (target == Target::Rectangle) TakePastedPlace(image);
    const LoadedWork loaded(image, target);
    const auto [work, live] = SurfacesOf(image, target);
    if (HasPixels(work)) routine(work, live);
    Commit(image, target);
}

void Commit(frmImage& image, Target target) {
    if (target == Target::Rectangle) DropRectangle(image, image.PicSelect.Width(), image.PicSelect.Height());
    if (target == Target::Freehand) DropFreehand(image);
    FinishOperation(image);
}

void FinishOperation(frmImage& image) {
    image.picsource.Picture({}); // Once an undo has left the result, nothing else would hold its memory.
    ShowMerge(image);
    image.Backup();
}

void ShowNewSize(frmImage& image, double factor) {
    image.PicBG.Width(image.PicMerge.Width() * factor);
    image.PicBG.Height(image.PicMerge.Height() * factor);
    image.Image1.Width(image.PicMerge.ScaleWidth() * factor);
    image.Image1.Height(image.PicMerge.ScaleHeight() * factor);
    ShowMerge(image);
}

void GrowCanvas(frmImage& image, const Margins& margins, Colour colour) {
    image.SelectLeft = margins.left;
    image.SelectTop = margins.top;
    image.Selectwidth = image.PicMerge.Width();
    image.Selectheight = image.PicMerge.Height();
    image.picsource.Picture(image.PicMerge.Image());
    image.PicMerge.Picture({});
    image.PicMerge.Width(image.PicMerge.Width() + margins.left + margins.right);
    image.PicMerge.Height(image.PicMerge.Height() + margins.top + margins.bottom);
    image.Pic1BU.Picture({});
    image.Pic1BU.Width(image.PicMerge.Width());
    image.Pic1BU.Height(image.PicMerge.Height());
    image.Pic1BU.BackColor(colour);
    const Extent old = SelectionExtent(image);
    StretchBlt(image.Pic1BU.hDC(), old, image.picsource.hDC(), {0, 0, old.width, old.height}, SRCCOPY);
    image.PicMerge.Picture(image.Pic1BU.Image());
    ShowNewSize(image, image.factor);
    if (image.PicSelect.Visible()) TakeMembers(image, image.PicSelect);
}

void ShowActualSize(frmImage& image) {
    const double factor = image.factor;
    image.factorlevel = kActualLevel;
    ApplyZoomLevel();
    ScaleRectangle(image, image.factor / factor);
    ShowNewSize(image, 1);
    FitWindow(image);
    image.Picsize();
    image.drawrulers();
}

void FitWindow(frmImage& image) {
    if (image.WindowState() == kMaximised) return;
    const double oldWidth = image.Width();
    const double oldHeight = image.Height();
    const double width = image.PicMerge.ScaleWidth() * Screen.TwipsPerPixelX() + kChildFrameWidth;
    const double height = image.PicMerge.ScaleHeight() * Screen.TwipsPerPixelY() + kChildFrameHeight;
    image.Width(RulersOn ? image.LeftRuler.Width() + width : width);
    image.Height(RulersOn ? image.TopRuler.Height() + height : height);
    if (image.Width() > oldWidth || image.Height() > oldHeight) StayInWorkspace(image);
}

} // namespace pintalux
