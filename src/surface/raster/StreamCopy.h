// Pixels fetched before they are read, and copies that go past the caches.
#pragma once

#include "surface/raster/Colour.h"

#include <cstddef>
#include <cstdint>
#include <span>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace pintalux {

class Bitmap;

/// Asks for `count` pixels that are read soon: the rows of a tile are too short for the processor to see a
/// pattern in them. They come into the second cache: what is fetched for a whole band would push out of the
/// first what is at work. (Always inlined: the compiler would drop a call that does nothing else.)
[[gnu::always_inline]] inline void FetchAhead(const Pixel* pixels, int count) {
    constexpr int kCacheLinePixels = 16;
    constexpr int kForReading = 0;
    constexpr int kSecondCache = 2;
    for (int i = 0; i < count; i += kCacheLinePixels)
        __builtin_prefetch(pixels + i, kForReading, kSecondCache);
}

/// Copies `count` pixels to memory that nobody reads soon; each bit of `inversion` inverts that bit. An
/// ordinary store fetches the old contents first; over a large image that is a third of the traffic.
/// `FinishStreaming` must follow in the same thread.
inline void StreamCopy(Pixel* to, const Pixel* from, std::size_t count, Pixel inversion = 0) {
#ifdef __SSE2__
    for (; count > 0 && reinterpret_cast<std::uintptr_t>(to) % 64 != 0; --count)
        *to++ = *from++ ^ inversion;
    const __m128i inverted = _mm_set1_epi32(static_cast<int>(inversion));
    for (; count >= 16; count -= 16, to += 16, from += 16) {
        const auto* in = reinterpret_cast<const __m128i*>(from);
        auto* out = reinterpret_cast<__m128i*>(to);
        for (int i = 0; i < 4; ++i)
            _mm_stream_si128(out + i, _mm_xor_si128(_mm_loadu_si128(in + i), inverted));
    }
#endif
    for (std::size_t i = 0; i < count; ++i)
        to[i] = from[i] ^ inversion;
}

/// The same in reverse: the last of the `count` pixels comes first.
inline void StreamMirrored(Pixel* to, const Pixel* from, std::size_t count, Pixel inversion) {
    from += count;
#ifdef __SSE2__
    for (; count > 0 && reinterpret_cast<std::uintptr_t>(to) % 64 != 0; --count)
        *to++ = *--from ^ inversion;
    const __m128i inverted = _mm_set1_epi32(static_cast<int>(inversion));
    for (; count >= 16; count -= 16, to += 16) {
        from -= 16;
        const auto* in = reinterpret_cast<const __m128i*>(from);
        auto* out = reinterpret_cast<__m128i*>(to);
        for (int i = 0; i < 4; ++i) {
            const __m128i four = _mm_shuffle_epi32(_mm_loadu_si128(in + 3 - i), _MM_SHUFFLE(0, 1, 2, 3));
            _mm_stream_si128(out + i, _mm_xor_si128(four, inverted));
        }
    }
#endif
    for (std::size_t i = 0; i < count; ++i)
        to[i] = *--from ^ inversion;
}

/// Asks for `count` pixels of row y from x on, as far as they lie inside.
void FetchRow(const Bitmap& bits, int x, int y, int count);

/// Whether a bitmap of so few pixels stays in a core's own caches, where it is better written than streamed.
bool StaysInCache(const Bitmap& bits);

/// Streams the pixels of row y from x on, or writes them to one that stays in the cache. `FinishStreaming`
/// must follow.
void StreamRow(Bitmap& bits, int x, int y, std::span<const Pixel> pixels);

/// Orders the streamed pixels before what this thread does next.
inline void FinishStreaming() {
#ifdef __SSE2__
    _mm_sfence();
#endif
}

} // namespace pintalux
