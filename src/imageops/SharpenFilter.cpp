#include "base/VectorClones.h"
#include "imageops/ImgFiltMod.h"
#include "imageops/Landing.h"
#include "imageops/PixelTable.h"
#include "imageops/RowLoop.h"
#include "surface/window/Surface.h"

namespace pintalux {

namespace {

/// round(p + level * 0.5 * (p - q)), half to even, from a multiple of one half.
// Intended: what comes out above 200 becomes 240, so that bright places glow evenly and never burn to white.
inline Channel Sharpened(Channel p, Channel q, Channel level) {
    const auto difference = static_cast<Channel>(p - q);
    const auto halves = static_cast<Channel>(2 * p + level * difference);
    const auto even = static_cast<Channel>(halves + (halves >> 1 & 1));
    const auto v = static_cast<Channel>(even >> 1);
    return v > 200 ? Channel{240} : v < 0 ? Channel{0} : v;
}

/// `before` are the upper left neighbours.
PINTALUX_VECTOR_CLONES
void SharpenRun(const Pixel* pixels, const Pixel* before, Pixel* out, int count, Channel level) {
    for (int i = 0; i < count; ++i) {
        const Channels p = SplitChannels(pixels[i]);
        const Channels q = SplitChannels(before[i]);
        out[i] = ComposePixel({Sharpened(p.red, q.red, level), Sharpened(p.green, q.green, level),
                               Sharpened(p.blue, q.blue, level)});
    }
}

} // namespace

void SharpenFilter(Surface& work, Surface& live, ProgressBar& Pb, std::int16_t level) {
    const Box loop{1, 1, LoopEnd(work.ScaleWidth() - 1), LoopEnd(work.ScaleHeight() - 1)};
    SetProgressMax(Pb, 2 * (work.ScaleWidth() - 1));
    const PixelTable Px = ReadPixels(work);
    ForPixelsOf(Px, work, loop, Mask::Honoured, Pb, [&](int x, int y, int count, const Pixel* p, Pixel* out) {
        PixelTable::Room room;
        SharpenRun(p, Px.Run(x - 1, y - 1, count, room.data()), out, count, level);
    });
    Land(work, live, work);
}

} // namespace pintalux
