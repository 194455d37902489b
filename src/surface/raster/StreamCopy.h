// Copies of pixels that go past the caches.
#pragma once

#include "surface/raster/Colour.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace pintalux {

/// Copies `count` pixels to memory that nobody reads soon. An ordinary store fetches the old contents first;
/// over a large image that is a third of the traffic. `FinishStreaming` must follow in the same thread.
inline void StreamCopy(Pixel* to, const Pixel* from, std::size_t count) {
#ifdef __SSE2__
    if (reinterpret_cast<std::uintptr_t>(to) % 64 == 0) {
        for (; count >= 16; count -= 16, to += 16, from += 16) {
            const auto* in = reinterpret_cast<const __m128i*>(from);
            auto* out = reinterpret_cast<__m128i*>(to);
            _mm_stream_si128(out, _mm_loadu_si128(in));
            _mm_stream_si128(out + 1, _mm_loadu_si128(in + 1));
            _mm_stream_si128(out + 2, _mm_loadu_si128(in + 2));
            _mm_stream_si128(out + 3, _mm_loadu_si128(in + 3));
        }
    }
#endif
    std::memcpy(to, from, count * sizeof(Pixel));
}

/// Orders the streamed pixels before what this thread does next.
inline void FinishStreaming() {
#ifdef __SSE2__
    _mm_sfence();
#endif
}

} // namespace pintalux
