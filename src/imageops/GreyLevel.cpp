#include "imageops/GreyLevel.h"

#include "base/VectorClones.h"
#include "surface/raster/Bitmap.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace pintalux {

namespace {

constexpr Channel kUndecided = -1;

/// The levels in whole numbers, from hundredths of 59 green + 30 red + 11 blue. A sum that ends exactly on a
/// half is left undecided.
PINTALUX_VECTOR_CLONES
void WholeGreyRun(const Pixel* pixels, Channel* out, int count) {
    constexpr std::uint32_t kHundredth = 5243; // of 2^19, near enough for every sum below 2^15
    for (int i = 0; i < count; ++i) {
        const Channels p = SplitChannels(pixels[i]);
        const auto sum = static_cast<std::uint16_t>(59 * p.green + 30 * p.red + 11 * p.blue + 50);
        const auto upper = static_cast<std::uint16_t>((sum * kHundredth) >> 16);
        const auto level = static_cast<std::uint16_t>(upper >> 3);
        const auto rest = static_cast<Channel>(sum - level * 100);
        const auto half = static_cast<Channel>(static_cast<Channel>(rest - 1) >> 15); // -1 where none is left
        const Channel white = NearWhite(p);
        out[i] = static_cast<Channel>(((level | half) & ~white) | (white & 255));
    }
}

PINTALUX_VECTOR_CLONES
void ComposeGreys(const Channel* levels, Pixel* out, int count) {
    for (int i = 0; i < count; ++i)
        out[i] = static_cast<Pixel>(levels[i]) * 0x010101;
}

/// Whether one of the four levels from `out` on is undecided.
bool AnyUndecided(const Channel* out) {
    std::uint64_t four;
    std::memcpy(&four, out, sizeof four);
    return (four & 0x8000800080008000) != 0;
}

} // namespace

void GreyRun(const Pixel* pixels, Pixel* out, int count) {
    std::array<Channel, Bitmap::kTileWidth> room;
    Channel* const levels = room.data();
    WholeGreyRun(pixels, levels, count);
    for (int first = 0; first < count;) {
        if (count - first >= 4 && !AnyUndecided(levels + first)) {
            first += 4;
            continue;
        }
        const int end = std::min(first + 4, count);
        for (int i = first; i < end; ++i)
            if (levels[i] == kUndecided) levels[i] = GreyLevel(SplitChannels(pixels[i]));
        first = end;
    }
    ComposeGreys(levels, out, count);
}

} // namespace pintalux
