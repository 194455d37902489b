// Channels raised or lowered: what the brightness filter and the colour steps share.
#pragma once

#include "imageops/ChannelRuns.h"

namespace pintalux {

/// Adds a number to each channel of `count` pixels, reflects what falls below 0 and applies the near-white
/// rule.
void ShiftRun(const ChannelRuns& Px, const Channels& shift, int count, ChannelRuns& computed);

} // namespace pintalux
