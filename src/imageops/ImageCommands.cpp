#include "imageops/ImageCommands.h"

#include "base/Arithmetic.h"
#include "document/frmImage.h"
#include "document/Globals.h"
#include "imageops/frmFiltBrow.h"
#include "imageops/ImgFiltMod.h"
#include "imageops/Scaffold.h"
#include "surface/window/ProgressBar.h"

namespace pintalux {

namespace {

constexpr std::int16_t kLeftRight = -1;
constexpr std::int16_t kTopBottom = 0;

// The copy that a flip or turn reads.
void TakeSource(frmImage& image) {
    image.picsource.Picture(image.PicMerge.Image());
}

void Turn(double angle) {
    frmImage& image = WholeImageForOperation();
    TakeSource(image);
    RotateImage(image.picsource, image.PicMerge, angle);
    ShowActualSize(image);
    image.Backup();
}

void StepActive(std::int16_t mode) {
    RunMasklessStep(ImageForOperation(),
                    [mode](Surface& work, Surface& live) { ColourStep(work, live, TheProgressBar(), mode); });
}

} // namespace

void mnuFlipH_Click() {
    frmImage& image = WholeImageForOperation();
    TakeSource(image);
    FlipImage(image.PicMerge, image.picsource, kLeftRight);
    FinishOperation(image);
}

void mnuFlipV_Click() {
    frmImage& image = WholeImageForOperation();
    TakeSource(image);
    FlipImage(image.PicMerge, image.picsource, kTopBottom);
    FinishOperation(image);
}

void mnuRotate180_Click() {
    frmImage& image = WholeImageForOperation();
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
    frmImage& image = ImageForOperation();
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
