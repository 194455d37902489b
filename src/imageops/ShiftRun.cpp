#include "imageops/ShiftRun.h"

#include "base/VectorClones.h"
#include "imageops/NearWhiteRule.h"

#include <cstdlib>

namespace pintalux {

namespace {

// Intended: a channel that would fall below 0 is reflected, so that dark places stay alive when an image gets
// darker.
constexpr Channel Reflected(Channel channel, Channel shift) {
    return static_cast<Channel>(std::abs(static_cast<Channel>(channel + shift)));
}

} // namespace

PINTALUX_VECTOR_CLONES
void ShiftRun(const Pixel* pixels, const Channels& shift, Pixel* out, int count) {
    const auto [red, green, blue] = shift;
    for (int i = 0; i < count; ++i) {
        const Channels p = SplitChannels(pixels[i]);
        Channels c{Reflected(p.red, red), Reflected(p.green, green), Reflected(p.blue, blue)};
        ApplyNearWhiteRule(p, c);
        out[i] = ComposePixel(c);
    }
}

} // namespace pintalux
