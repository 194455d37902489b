#include "imageops/ChannelRuns.h"

#include "imageops/VectorClones.h"

#include <algorithm>

namespace pintalux {

// The same as in 32 bits: green wraps where 16 bits end, and blue is lifted where the lower half is above
// 0x8000, or at 0x8000 where blue is odd.
PINTALUX_VECTOR_CLONES
void SplitRun(const Pixel* pixels, int count, Channel* red, Channel* green, Channel* blue) {
    for (int i = 0; i < count; ++i) {
        const auto lower = static_cast<std::uint16_t>(pixels[i]);
        const auto upper = static_cast<std::uint16_t>(pixels[i] >> 16);
        const auto oddGreen = static_cast<std::uint16_t>(lower >> 8 & 1);
        const auto raised = static_cast<std::uint16_t>(lower + 127 + oddGreen);
        const auto fromHalf = static_cast<std::int16_t>((lower | (upper & 1)) ^ 0x8000);
        red[i] = static_cast<Channel>(lower & 255);
        green[i] = static_cast<Channel>(raised >> 8);
        blue[i] = static_cast<Channel>(upper + (fromHalf > 0 ? 1 : 0));
    }
}

namespace {

PINTALUX_VECTOR_CLONES
void ComposeRun(const Channel* red, const Channel* green, const Channel* blue, int count, Pixel* out) {
    constexpr Channel kFull = 255;
    for (int i = 0; i < count; ++i) {
        const auto lower =
            static_cast<std::uint16_t>(std::min(red[i], kFull) | std::min(green[i], kFull) << 8);
        const auto upper = static_cast<std::uint16_t>(std::min(blue[i], kFull));
        out[i] = lower | static_cast<Pixel>(upper) << 16;
    }
}

} // namespace

void ComposeRun(const ChannelRuns& channels, int count, Pixel* out) {
    ComposeRun(channels.red.data(), channels.green.data(), channels.blue.data(), count, out);
}

} // namespace pintalux
