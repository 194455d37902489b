// What repairs bright pixels after the channel split.
//
// The split takes white apart as 255, 0, 256 (`SplitChannels`): a routine that went on with that would turn
// white places magenta. So a colour with two channels of 241 or more counts as white.
//
// Conditions are numbers here, all bits set for true and none for false, which are combined by & and |. With
// branches the compiler could not take several pixels at a time.
#pragma once

#include "imageops/ChannelSplit.h"

namespace pintalux {

/// All bits if a channel is 241 or more, else none: 240 - 241 is negative, and a shift by 15 spreads the
/// sign. For channels of -32527 or more.
constexpr Channel NearFull(Channel channel) {
    return static_cast<Channel>(static_cast<Channel>(240 - channel) >> 15);
}

/// All bits if two of the three channels are 241 or more, else none.
constexpr Channel NearWhite(const Channels& c) {
    const Channel red = NearFull(c.red);
    const Channel green = NearFull(c.green);
    const Channel blue = NearFull(c.blue);
    return static_cast<Channel>((red & green) | (blue & green) | (red & blue));
}

/// Brings a channel of 0 or more to 255 or more where the mask has all bits: 70 | 255 is 255, 300 | 255 is
/// 511. The write cuts what is above 255.
constexpr void FillWhere(int mask, Channel& channel) {
    channel = static_cast<Channel>(channel | (mask & 255));
}

/// Repairs what a routine made of a pixel. `Px` are the split channels of the pixel, `computed` the channels
/// that the routine made of them, 0 or more. A pixel that was near white becomes white: 245, 11, 245 at -50
/// gives 195, 39, 195 and then 255, 255, 255. Two computed channels of 241 or more bring the third to 255, in
/// this order: green, red, blue; 250, 130, 250 gives 255 for green, then for red and for blue.
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
