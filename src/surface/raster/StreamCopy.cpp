#include "surface/raster/StreamCopy.h"

#include "surface/raster/Bitmap.h"

#include <algorithm>

namespace pintalux {

void FetchRow(const Bitmap& bits, int x, int y, int count) {
    const Box inside = Intersection({x, y, x + count, y + 1}, bits.Bounds());
    for (int at = inside.left; at < inside.right;) {
        const auto run = bits.Run(at, y);
        const int size = std::min(static_cast<int>(run.size()), inside.right - at);
        FetchAhead(run.data(), size);
        at += size;
    }
}

bool StaysInCache(const Bitmap& bits) {
    constexpr std::int64_t kFewPixels = std::int64_t{1} << 18;
    return std::int64_t{bits.Width()} * bits.Height() < kFewPixels;
}

void StreamRow(Bitmap& bits, int x, int y, std::span<const Pixel> pixels) {
    if (StaysInCache(bits)) return bits.WriteRow(x, y, pixels);
    while (!pixels.empty()) {
        const auto run = bits.WritableRun(x, y);
        const std::size_t count = std::min(run.size(), pixels.size());
        StreamCopy(run.data(), pixels.data(), count);
        pixels = pixels.subspan(count);
        x += static_cast<int>(count);
    }
}

} // namespace pintalux
