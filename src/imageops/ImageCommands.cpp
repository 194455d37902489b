#include "imageops/ImageCommands.h"

#include "base/Arithmetic.h"
#include "document/frmImage.h"
#include "document/Globals.h"
#include "document/Workspace.h"
#include "document/Zoom.h"
#include "imageops/frmFiltBrow.h"
#include "imageops/ImgFiltMod.h"
#include "imageops/Scaffold.h"
#include "surface/raster/PixelWrite.h"
#include "surface/window/ProgressBar.h"

#include <algorithm>
#include <span>
#include <vector>

namespace pintalux {

namespace {

constexpr std::int16_t kLeftRight = -1;
constexpr std::int16_t kTopBottom = 0;

// The copy that a flip or turn reads.
void TakeSource(frmImage& image) {
    image.picsource.Picture(image.PicMerge.Image());
}

void Turn(double angle) {
    frmImage& image = ActiveImage();
    TakeSource(image);
    RotateImage(image.picsource, image.PicMerge, angle);
    // The image is shown pixel for pixel, so that the whole of it is seen in its new shape.
    image.factorlevel = kActualLevel;
    ApplyZoomLevel();
    image.Image1.Height(image.PicMerge.ScaleHeight());
    image.Image1.Width(image.PicMerge.ScaleWidth());
    image.PicBG.Height(image.PicMerge.ScaleHeight());
    image.PicBG.Width(image.PicMerge.ScaleWidth());
    FitWindow(image);
    image.Image1.Picture(image.PicMerge.Image());
    image.Picsize();
    image.drawrulers();
    image.Backup();
}

void StepColour(Surface& work, Surface& live, std::int16_t mode) {
    if (HasPixels(work)) ColourStep(work, live, TheProgressBar(), mode);
}

void StepRectangle(frmImage& image, std::int16_t mode) {
    TakePastedPlace(image);
    const LoadedWork loaded(image, Target::Rectangle);
    StepColour(image.SelHolder, image.PicSelect, mode);
    DropRectangle(image, image.Selectwidth, image.Selectheight);
    FinishOperation(image);
}

void StepWholeImage(frmImage& image, std::int16_t mode) {
    const LoadedWork loaded(image, Target::WholeImage);
    StepColour(image.picsource, image.PicMerge, mode);
    FinishOperation(image);
}

// Takes the pixels of the piece over to the inside of the outline. Where the piece has no pixel the colour
// is that of "outside", which draws as white.
void TakeInside(Surface& outlined, const Surface& piece) {
    const Bitmap from = piece.Image();
    const PixelWrite write(outlined.hDC());
    Bitmap& to = write.Bits();
    std::vector<Pixel> inside(static_cast<std::size_t>(to.Width()));
    std::vector<Pixel> stepped(inside.size(), PixelOf(kWhite));
    const auto shared = static_cast<std::size_t>(std::min(to.Width(), from.Width()));
    for (int y = 0; y < to.Height(); ++y) {
        if (y < from.Height()) {
            from.ReadRow(0, y, std::span(stepped).first(shared));
        } else {
            std::fill(stepped.begin(), stepped.end(), PixelOf(kWhite));
        }
        to.ReadRow(0, y, inside);
        for (std::size_t x = 0; x < inside.size(); ++x)
            inside[x] = inside[x] == PixelOf(MaskKeyColour) ? inside[x] : stepped[x];
        to.WriteRow(0, y, inside);
        TheProgressBar().Value(outlined.Width() * (y + 1) / to.Height());
    }
}

// Intended: a colour step on a freehand piece lands what floats on the view, pixel for pixel, so that the
// outline is exactly the one that was drawn. At another zoom than 1:1 the piece and its view differ in size,
// and it comes out stretched.
void StepFreehand(frmImage& image, std::int16_t mode) {
    const LoadedWork loaded(image, Target::Freehand);
    StepColour(image.SelHolder, image.PicSelect, mode);
    TheProgressBar().Max(image.PicFreeSelect.Width());
    TakeInside(image.PicFreeSelect, image.SelHolder);
    DropFreehand(image, image.PicFreeSelect, image.PicFreeSelect.ScaleWidth(), image.SelHolder.ScaleHeight());
    FinishOperation(image);
}

void StepActive(std::int16_t mode) {
    frmImage& image = ActiveImage();
    if (FreeSelActive && ChooseTarget(image) == Target::Freehand) {
        StepFreehand(image, mode);
    } else if (image.PicSelect.Visible()) {
        StepRectangle(image, mode);
    } else {
        StepWholeImage(image, mode);
    }
}

} // namespace

void mnuFlipH_Click() {
    frmImage& image = ActiveImage();
    TakeSource(image);
    FlipImage(image.PicMerge, image.picsource, kLeftRight);
    FinishOperation(image);
}

void mnuFlipV_Click() {
    frmImage& image = ActiveImage();
    TakeSource(image);
    FlipImage(image.PicMerge, image.picsource, kTopBottom);
    FinishOperation(image);
}

void mnuRotate180_Click() {
    frmImage& image = ActiveImage();
    TakeSource(image);
    FlipImage(image.PicMerge, image.picsource, kTopBottom);
    TakeSource(image);
    FlipImage(image.PicMerge, image.picsource, kLeftRight);
    FinishOperation(image);
}

void mnuRotate90_Click() {
    Turn(90.0);
}

void mnuRotate270_Click() {
    Turn(270.0);
}

void mnuColInc_Click(int Index) {
    StepActive(ToInt16(Index));
}

void mnuColRed_Click(int Index) {
    constexpr int kFirstReduction = 3;
    StepActive(AddInt16(Index, kFirstReduction));
}

void mnuFiltBrow_Click() {
    frmImage& image = ActiveImage();
    const Target target = ChooseTarget(image);
    const MaskOnlyFreehand masked(target);
    PrepareSample(image, target, *frmFiltBrow);
    frmFiltBrow->FiltList.ListIndex(0);
    frmFiltBrow->ShowModal();
    if (FiltCancelled) {
        FiltCancelled = false;
        return;
    }
    RunOperation(image, target, [](Surface& work, Surface& live) {
        RunFilter(FiltIndex, work, live, FiltLevel, TheProgressBar());
    });
}

} // namespace pintalux
