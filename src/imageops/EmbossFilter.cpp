#include "base/VectorClones.h"
#include "imageops/ImgFiltMod.h"
#include "imageops/Landing.h"
#include "imageops/PixelTable.h"
#include "imageops/RowLoop.h"
#include "surface/window/Surface.h"

#include <algorithm>
#include <cstdlib>

namespace pintalux {

namespace {

/// |p - q + level|, at most 220.
inline Channel Embossed(Channel p, Channel q, Channel level) {
    constexpr Channel kMost = 220;
    const auto raised = static_cast<Channel>(p - q + level);
    return std::min(static_cast<Channel>(std::abs(raised)), kMost);
}

/// `behind` are the lower right neighbours.
PINTALUX_VECTOR_CLONES
void EmbossRun(const Pixel* pixels, const Pixel* behind, Pixel* out, int count, Channel level) {
    for (int i = 0; i < count; ++i) {
        const Channels p = SplitChannels(pixels[i]);
        const Channels q = SplitChannels(behind[i]);
        out[i] = ComposePixel({Embossed(p.red, q.red, level), Embossed(p.green, q.green, level),
                               Embossed(p.blue, q.blue, level)});
    }
}

} // namespace

void EmbossFilter(Surface& work, Surface& live, ProgressBar& Pb, std::int16_t level) {
    const Box loop{0, 0, LoopEnd(work.ScaleWidth() - 1), LoopEnd(work.ScaleHeight() - 1)};
    SetProgressMax(Pb, 2 * (work.ScaleWidth() - 1));
    const PixelTable Px = ReadPixels(work);
    // Intended: beyond the right and bottom edge the neighbour is black, which frames them brightly.
    ForPixelsOf(Px, work, loop, Mask::Honoured, Pb, [&](int x, int y, int count, const Pixel* p, Pixel* out) {
        PixelTable::Room room;
        EmbossRun(p, Px.Run(x + 1, y + 1, count, room.data()), out, count, level);
    });
    Land(work, live, work);
}

} // namespace pintalux
