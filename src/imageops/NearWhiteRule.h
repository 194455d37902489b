// What repairs bright pixels after the channel split.
#pragma once

#include "imageops/ChannelSplit.h"

namespace pintalux {

/// -1 if a channel is at least 241, else 0: all bits of a mask. Branches would keep a loop over pixels from
/// becoming one over vectors. Channels from -32527 on.
constexpr Channel NearFull(Channel channel) {
    return static_cast<Channel>(static_cast<Channel>(240 - channel) >> 15);
}

/// -1 if two of the three channels are at least 241, else 0.
constexpr Channel NearWhite(const Channels& c) {
    const Channel red = NearFull(c.red);
    const Channel green = NearFull(c.green);
    const Channel blue = NearFull(c.blue);
    return static_cast<Channel>((red & green) | (blue & green) | (red & blue));
}

/// `channel` becomes 255 or more, which is cut to 255 at the write, where the mask is -1.
constexpr void FillWhere(int mask, Channel& channel) {
    channel = static_cast<Channel>(channel | (mask & 255));
}

/// `Px` are the split channels of a pixel, `computed` what a routine made of them, 0 or more. A pixel that
/// was near white becomes white; two computed channels of at least 241 bring the third to 255, in this order:
/// green, red, blue.
constexpr void ApplyNearWhiteRule(const Channels& Px, Channels& computed) {
    const Channel white = NearWhite(Px);
    Channel red = NearFull(computed.red);
    Channel green = NearFull(computed.green);
    const Channel blue = NearFull(computed.blue);
    // A channel that is brought to 255 counts as bright for the next one.
    const auto fillGreen = static_cast<Channel>(red & blue);
    green = static_cast<Channel>(green | fillGreen);
    const auto fillRed = static_cast<Channel>(green & blue);
    red = static_cast<Channel>(red | fillRed);
    const auto fillBlue = static_cast<Channel>(red & green);
    FillWhere(white | fillRed, computed.red);
    FillWhere(white | fillGreen, computed.green);
    FillWhere(white | fillBlue, computed.blue);
}

} // namespace pintalux
