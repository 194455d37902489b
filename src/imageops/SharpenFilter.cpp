#include "imageops/ImgFiltMod.h"
#include "imageops/Landing.h"
#include "imageops/PixelTable.h"
#include "imageops/RowLoop.h"
#include "imageops/VectorClones.h"
#include "surface/window/Surface.h"

namespace pintalux {

namespace {

/// round(p + level * 0.5 * (p - q)), half to even, from a multiple of one half, for each channel p and its
/// upper left neighbour q.
// Intended: what comes out above 200 becomes 240, so that bright places glow evenly and never burn to white.
PINTALUX_VECTOR_CLONES
void SharpenChannel(const Channel* p, const Channel* q, Channel* out, int count, Channel level) {
    for (int i = 0; i < count; ++i) {
        const auto difference = static_cast<Channel>(p[i] - q[i]);
        const auto halves = static_cast<Channel>(2 * p[i] + level * difference);
        const auto even = static_cast<Channel>(halves + (halves >> 1 & 1));
        const auto v = static_cast<Channel>(even >> 1);
        out[i] = v > 200 ? Channel{240} : v < 0 ? Channel{0} : v;
    }
}

} // namespace

void SharpenFilter(Surface& work, Surface& live, ProgressBar& Pb, std::int16_t level) {
    const Box loop{1, 1, LoopEnd(work.ScaleWidth() - 1), LoopEnd(work.ScaleHeight() - 1)};
    SetProgressMax(Pb, 2 * (work.ScaleWidth() - 1));
    const PixelTable Px = ReadPixels(work);
    ForChannels(work, Px, loop, Mask::Honoured, Pb,
                [&](int x, int y, int count, const ChannelRuns& p, ChannelRuns& computed) {
                    ChannelRuns q;
                    Px.Split(x - 1, y - 1, count, q);
                    SharpenChannel(p.red.data(), q.red.data(), computed.red.data(), count, level);
                    SharpenChannel(p.green.data(), q.green.data(), computed.green.data(), count, level);
                    SharpenChannel(p.blue.data(), q.blue.data(), computed.blue.data(), count, level);
                });
    Land(work, live, work);
}

} // namespace pintalux
