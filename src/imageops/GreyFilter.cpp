#include "imageops/GreyLevel.h"
#include "imageops/ImgFiltMod.h"
#include "imageops/Landing.h"
#include "imageops/PixelTable.h"
#include "imageops/RowLoop.h"
#include "imageops/VectorClones.h"
#include "surface/window/Surface.h"

namespace pintalux {

namespace {

PINTALUX_VECTOR_CLONES
void GreyRun(const Channel* red, const Channel* green, const Channel* blue, Channel* out, int count) {
    for (int i = 0; i < count; ++i)
        out[i] = GreyLevel({red[i], green[i], blue[i]});
}

} // namespace

void GreyFilter(Surface& work, Surface& live, ProgressBar& Pb) {
    const Box loop{0, 0, LoopEnd(work.ScaleWidth() - 1), LoopEnd(work.ScaleHeight() - 1)};
    SetProgressMax(Pb, 2 * (work.ScaleWidth() - 1));
    const PixelTable Px = ReadPixels(work);
    ForChannels(work, Px, loop, Mask::Honoured, Pb,
                [](int, int, int count, const ChannelRuns& p, ChannelRuns& computed) {
                    GreyRun(p.red.data(), p.green.data(), p.blue.data(), computed.red.data(), count);
                    computed.green = computed.red;
                    computed.blue = computed.red;
                });
    Land(work, live, work);
}

} // namespace pintalux
