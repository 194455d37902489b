// The colour wand: shifts the colours of a disc around the pointer, most at its centre, in rings that fall
// off to nothing at the rim.
#pragma once

#include "base/Flag.h"
#include "surface/raster/DeviceContext.h"

#include <cstdint>

namespace pintalux {

class frmImage;
class Surface;

/// Set at the release; a running pass looks at it before each ring. Nothing else runs during a pass, so that
/// it is seen between passes only.
inline Flag WandStopped;

/// What one step of the wand adds to each channel.
struct WandShift {
    std::int32_t red = 0;
    std::int32_t green = 0;
    std::int32_t blue = 0;
};

/// The shift that the settings page asks for.
WandShift ChosenShift();

/// One pass. Ring n of `steps` reaches round(radius / steps * n) pixels far. A pixel belongs to the first
/// ring that covers it and is shifted (steps - n) times: of 5 rings over 10 pixels the first reaches 2 and
/// shifts 4 times. Each channel is kept within 0 to 255. Reads and writes go to `hDC`, the source's; its
/// image becomes the picture of the destination and of the source. X and Y are whole image pixels and may lie
/// off the image. Error 6 for a radius above 181, whose square is no 16-bit number. Costs what the disc has
/// pixels, not the image.
void WandApply(Surface& destination, Surface& source, DeviceContext& hDC, float X, float Y,
               const WandShift& shift, std::int16_t radius, std::int16_t steps);

void WandPress(frmImage& image, double X, double Y);
void WandMove(frmImage& image, double X, double Y);
void WandRelease(frmImage& image, double X, double Y);

} // namespace pintalux
