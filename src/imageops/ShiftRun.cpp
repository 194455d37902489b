#include "imageops/ShiftRun.h"

#include "imageops/NearWhiteRule.h"
#include "imageops/VectorClones.h"

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
void ShiftRun(const ChannelRuns& Px, const Channels& shift, int count, ChannelRuns& computed) {
    const auto [red, green, blue] = shift;
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
        const Channels p{Px.red[i], Px.green[i], Px.blue[i]};
        Channels c{Reflected(p.red, red), Reflected(p.green, green), Reflected(p.blue, blue)};
        ApplyNearWhiteRule(p, c);
        computed.red[i] = c.red;
        computed.green[i] = c.green;
        computed.blue[i] = c.blue;
    }
}

} // namespace pintalux
