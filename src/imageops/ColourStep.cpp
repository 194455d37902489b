#include "imageops/ImgFiltMod.h"
#include "imageops/Landing.h"
#include "imageops/PixelTable.h"
#include "imageops/RowLoop.h"
#include "imageops/ShiftRun.h"
#include "surface/window/Surface.h"

namespace pintalux {

namespace {

Channels StepOf(int mode) {
    const Channel step = mode < 3 ? 20 : -20;
    const Channel none = 0;
    return {mode % 3 == 0 ? step : none, mode % 3 == 1 ? step : none, mode % 3 == 2 ? step : none};
}

} // namespace

// Intended: the channels without a step also keep the lift of the channel split, so that a run of steps
// drifts the picture towards light.
void ColourStep(Surface& work, Surface& live, ProgressBar& Pb, std::int16_t mode) {
    const Box loop{0, 0, LoopEnd(work.ScaleWidth() - 1), LoopEnd(work.ScaleHeight() - 1)};
    SetProgressMax(Pb, 2 * (work.ScaleWidth() - 1));
    const PixelTable Px = ReadPixels(work);
    const Channels step = StepOf(mode);
    ForPixelsOf(Px, work, loop, Mask::Ignored, Pb,
                [&](int, int, int count, const Pixel* p, Pixel* out) { ShiftRun(p, step, out, count); });
    Land(work, live, work);
}

} // namespace pintalux
