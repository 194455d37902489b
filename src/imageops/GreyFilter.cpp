#include "imageops/GreyLevel.h"
#include "imageops/ImgFiltMod.h"
#include "imageops/Landing.h"
#include "imageops/PixelTable.h"
#include "imageops/RowLoop.h"
#include "surface/window/Surface.h"

namespace pintalux {

void GreyFilter(Surface& work, Surface& live, ProgressBar& Pb, std::int16_t /*level*/) {
    const Box loop{0, 0, LoopEnd(work.ScaleWidth() - 1), LoopEnd(work.ScaleHeight() - 1)};
    SetProgressMax(Pb, 2 * (work.ScaleWidth() - 1));
    const PixelTable Px = ReadPixels(work);
    ForPixelsOf(Px, work, loop, Mask::Honoured, Pb,
                [](int, int, int count, const Pixel* p, Pixel* out) { GreyRun(p, out, count); });
    Land(work, live, work);
}

} // namespace pintalux
