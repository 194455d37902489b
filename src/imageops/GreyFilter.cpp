#include "imageops/GreyLevel.h"
#include "imageops/ImgFiltMod.h"
#include "imageops/Landing.h"
#include "imageops/PixelTable.h"
#include "imageops/RowLoop.h"
#include "imageops/VectorClones.h"
#include "surface/window/Surface.h"

namespace pintalux {

namespace {

/// The level, 0 to 255, in all three channels.
PINTALUX_VECTOR_CLONES
void ComposeGreys(const Channel* levels, int count, Pixel* out) {
    for (int i = 0; i < count; ++i)
        out[i] = static_cast<Pixel>(levels[i]) * 0x010101;
}

} // namespace

void GreyFilter(Surface& work, Surface& live, ProgressBar& Pb, std::int16_t /*level*/) {
    const Box loop{0, 0, LoopEnd(work.ScaleWidth() - 1), LoopEnd(work.ScaleHeight() - 1)};
    SetProgressMax(Pb, 2 * (work.ScaleWidth() - 1));
    const PixelTable Px = ReadPixels(work);
    const bool masked = MaskIsUp();
    ForPixels(work, loop, Pb, [&](int x, int y, int count, Pixel* out) {
        ChannelRuns p;
        ChannelRuns::Values levels;
        Px.Split(x, y, count, p);
        GreyRun(p.red.data(), p.green.data(), p.blue.data(), levels.data(), count);
        ComposeGreys(levels.data(), count, out);
        if (masked) KeepMasked(Px, x, y, count, out);
    });
    Land(work, live, work);
}

} // namespace pintalux
