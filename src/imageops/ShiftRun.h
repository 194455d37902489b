// Channels raised or lowered: what the brightness filter and the colour steps share.
#pragma once

#include "imageops/ChannelSplit.h"

namespace pintalux {

/// Adds `shift` to the channels of `count` pixels. A channel that would fall below 0 is reflected: 5 at -30
/// gives
/// 25. The near-white rule follows.
void ShiftRun(const Pixel* pixels, const Channels& shift, Pixel* out, int count);

} // namespace pintalux
