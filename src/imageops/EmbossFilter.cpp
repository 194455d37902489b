#include "imageops/ImgFiltMod.h"
#include "imageops/Landing.h"
#include "imageops/PixelTable.h"
#include "imageops/RowLoop.h"
#include "imageops/VectorClones.h"
#include "surface/window/Surface.h"

#include <algorithm>
#include <cstdlib>

namespace pintalux {

namespace {

/// |p - q + level|, at most 220, for each channel p and its lower right neighbour q.
PINTALUX_VECTOR_CLONES
void EmbossChannel(const Channel* p, const Channel* q, Channel* out, int count, Channel level) {
    constexpr Channel kMost = 220;
    for (int i = 0; i < count; ++i) {
        const auto raised = static_cast<Channel>(p[i] - q[i] + level);
        out[i] = std::min(static_cast<Channel>(std::abs(raised)), kMost);
    }
}

} // namespace

void EmbossFilter(Surface& work, Surface& live, ProgressBar& Pb, std::int16_t level) {
    const Box loop{0, 0, LoopEnd(work.ScaleWidth() - 1), LoopEnd(work.ScaleHeight() - 1)};
    SetProgressMax(Pb, 2 * (work.ScaleWidth() - 1));
    const PixelTable Px = ReadPixels(work);
    // Intended: beyond the right and bottom edge the neighbour is black, which frames them brightly.
    ForChannels(work, Px, loop, Mask::Honoured, Pb,
                [&](int x, int y, int count, const ChannelRuns& p, ChannelRuns& computed) {
                    ChannelRuns q;
                    Px.Split(x + 1, y + 1, count, q);
                    EmbossChannel(p.red.data(), q.red.data(), computed.red.data(), count, level);
                    EmbossChannel(p.green.data(), q.green.data(), computed.green.data(), count, level);
                    EmbossChannel(p.blue.data(), q.blue.data(), computed.blue.data(), count, level);
                });
    Land(work, live, work);
}

} // namespace pintalux
