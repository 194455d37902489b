// The grey of a colour.
#pragma once

#include "imageops/NearWhiteRule.h"

namespace pintalux {

/// 0.59 green + 0.3 red + 0.11 blue, added in this order and rounded half to even; 255 where two channels are
/// at least 241.
constexpr Channel GreyLevel(const Channels& Px) {
    // Doubles of this size have no bits behind the point, so that the addition itself rounds half to even.
    constexpr double kWhole = 4503599627370496.0;
    const double sum = 0.59 * Px.green + 0.3 * Px.red + 0.11 * Px.blue;
    auto v = static_cast<Channel>(static_cast<int>((sum + kWhole) - kWhole));
    FillWhere(NearWhite(Px), v);
    return v;
}

/// The greys of `count` pixels, at most a tile's row, in all three channels. In whole numbers: 59 green + 30
/// red + 11 blue, in hundredths. One sum in a hundred ends on an exact half, 29.50 for green 50. There the
/// small errors of doubles decide, and only those pixels are computed with doubles.
void GreyRun(const Pixel* pixels, Pixel* out, int count);

} // namespace pintalux
