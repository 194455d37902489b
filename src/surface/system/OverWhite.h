// Transparent pixels on the way in: a surface knows no transparency, so they are laid over white.
#pragma once

#include "surface/raster/Colour.h"

namespace pintalux {

/// One channel of a pixel laid over white, rounded to nearest; both 0 to 255.
constexpr Pixel OverWhite(Pixel channel, Pixel alpha) {
    return (channel * alpha + 255 * (255 - alpha) + 127) / 255;
}

} // namespace pintalux
