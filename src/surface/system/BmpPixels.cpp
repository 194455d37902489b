#include "surface/system/BmpPixels.h"

#include "base/VectorClones.h"

#include <bit>
#include <cstdint>
#include <cstring>

namespace pintalux {

namespace {

static_assert(std::endian::native == std::endian::little, "the lowest byte of a pixel comes first in memory");

using Bytes = std::uint8_t __attribute__((vector_size(16)));
constexpr int kAtOnce = 4;                                       // pixels of `Bytes`
constexpr std::ptrdiff_t kTriples = std::ptrdiff_t{3} * kAtOnce; // bytes

} // namespace

PINTALUX_VECTOR_CLONES
void UnpackTriples(const std::byte* in, Pixel* out, int count) {
    for (; count >= kAtOnce; count -= kAtOnce, in += kTriples, out += kAtOnce) {
        Bytes bytes;
        std::memcpy(&bytes, in, sizeof bytes);
        bytes = __builtin_shufflevector(bytes, Bytes{}, 2, 1, 0, 16, 5, 4, 3, 16, 8, 7, 6, 16, 11, 10, 9, 16);
        std::memcpy(out, &bytes, sizeof bytes);
    }
    for (; count > 0; --count, in += 3, ++out) {
        std::uint32_t word = 0;
        std::memcpy(&word, in, 3);
        *out = __builtin_bswap32(word) >> 8;
    }
}

// Four pixels are written as sixteen bytes, and what is too much is overwritten by those that follow.
PINTALUX_VECTOR_CLONES
void PackTriples(const Pixel* in, std::byte* out, int count) {
    for (; count >= 2 * kAtOnce; count -= kAtOnce, in += kAtOnce, out += kTriples) {
        Bytes bytes;
        std::memcpy(&bytes, in, sizeof bytes);
        bytes =
            __builtin_shufflevector(bytes, Bytes{}, 2, 1, 0, 6, 5, 4, 10, 9, 8, 14, 13, 12, 16, 16, 16, 16);
        std::memcpy(out, &bytes, sizeof bytes);
    }
    for (; count > 0; --count, ++in, out += 3) {
        const std::uint32_t word = __builtin_bswap32(*in) >> 8;
        std::memcpy(out, &word, 3);
    }
}

} // namespace pintalux
