// The channels of a run of pixels, each in an array of its own: what loops over vectors of 16-bit numbers
// want.
#pragma once

#include "imageops/ChannelSplit.h"
#include "surface/raster/Bitmap.h"

#include <array>

namespace pintalux {

/// The channels of one tile's row at most.
struct ChannelRuns {
    using Values = std::array<Channel, Bitmap::kTileWidth>;
    alignas(64) Values red;
    alignas(64) Values green;
    alignas(64) Values blue;
};

/// `SplitChannels` for `count` pixels.
void SplitRun(const Pixel* pixels, int count, Channel* red, Channel* green, Channel* blue);
inline void SplitRun(const Pixel* pixels, int count, ChannelRuns& out) {
    SplitRun(pixels, count, out.red.data(), out.green.data(), out.blue.data());
}

/// The pixels of `count` channels of 0 or more, each cut to 255.
void ComposeRun(const ChannelRuns& channels, int count, Pixel* out);

} // namespace pintalux
