// Channels raised or lowered: what the brightness filter and the colour steps share.
#pragma once

#include "imageops/ChannelSplit.h"

namespace pintalux {

/// Adds a number to each channel of `count` pixels, reflects what falls below 0 and applies the near-white
/// rule.
void ShiftRun(const Pixel* pixels, const Channels& shift, Pixel* out, int count);

} // namespace pintalux
