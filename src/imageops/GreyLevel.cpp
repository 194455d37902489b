#include "imageops/GreyLevel.h"

#include "imageops/VectorClones.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace pintalux {

namespace {

constexpr Channel kUndecided = -1;

/// The levels in whole numbers, from hundredths of 59 green + 30 red + 11 blue. A sum that ends exactly on a
/// half is left undecided.
PINTALUX_VECTOR_CLONES
void WholeGreyRun(const Channel* red, const Channel* green, const Channel* blue, Channel* out, int count) {
    constexpr std::uint32_t kHundredth = 5243; // of 2^19, near enough for every sum below 2^15
    for (int i = 0; i < count; ++i) {
        const auto sum = static_cast<std::uint16_t>(59 * green[i] + 30 * red[i] + 11 * blue[i] + 50);
        const auto upper = static_cast<std::uint16_t>((sum * kHundredth) >> 16);
        const auto level = static_cast<std::uint16_t>(upper >> 3);
        const auto rest = static_cast<Channel>(sum - level * 100);
        const auto half = static_cast<Channel>(static_cast<Channel>(rest - 1) >> 15); // -1 where none is left
        const Channel white = NearWhite({red[i], green[i], blue[i]});
        out[i] = static_cast<Channel>(((level | half) & ~white) | (white & 255));
    }
}

/// Whether one of the four levels from `out` on is undecided.
bool AnyUndecided(const Channel* out) {
    std::uint64_t four;
    std::memcpy(&four, out, sizeof four);
    return (four & 0x8000800080008000) != 0;
}

} // namespace

void GreyRun(const Channel* red, const Channel* green, const Channel* blue, Channel* out, int count) {
    WholeGreyRun(red, green, blue, out, count);
    for (int first = 0; first < count;) {
        if (count - first >= 4 && !AnyUndecided(out + first)) {
            first += 4;
            continue;
        }
        const int end = std::min(first + 4, count);
        for (int i = first; i < end; ++i)
            if (out[i] == kUndecided) out[i] = GreyLevel({red[i], green[i], blue[i]});
        first = end;
    }
}

} // namespace pintalux
