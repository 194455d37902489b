#include "surface/raster/BandLoop.h"

#include "base/Parallel.h"
#include "surface/raster/Bitmap.h"
#include "surface/raster/StreamCopy.h"

#include <algorithm>

namespace pintalux {

namespace {

constexpr int kPartPixels = 1 << 20; // Half a millisecond of the quickest routine.

struct Bands {
    int first;
    int count;
    int most; ///< Bands of a part.
};

Bands BandsOf(const Box& area) {
    const int first = area.top / Bitmap::kTileHeight;
    return {first, (area.bottom - 1) / Bitmap::kTileHeight + 1 - first,
            std::max(1, kPartPixels / (area.Width() * Bitmap::kTileHeight))};
}

void Part(const Box& area, int firstBand, int endBand, const std::function<void(int top, int bottom)>& rows) {
    rows(std::max(area.top, firstBand * Bitmap::kTileHeight),
         std::min(area.bottom, endBand * Bitmap::kTileHeight));
    FinishStreaming();
}

} // namespace

void ForBands(const Box& area, const std::function<void(int top, int bottom)>& rows,
              const std::function<void(double share)>& tell) {
    if (area.Empty()) return;
    const Bands bands = BandsOf(area);
    const int fair = (bands.count - 1) / CoreCount() + 1;
    ShareOverCores(
        bands.count, std::min(bands.most, fair),
        [&](int begin, int end) { Part(area, bands.first + begin, bands.first + end, rows); },
        [&](int done) {
            if (tell) tell(static_cast<double>(done) / bands.count);
        });
}

void ForBandsInTurn(const Box& area, const std::function<void(int top, int bottom)>& rows,
                    const std::function<void(double share)>& tell) {
    if (area.Empty()) return;
    const Bands bands = BandsOf(area);
    for (int begin = 0; begin < bands.count; begin += bands.most) {
        const int end = std::min(begin + bands.most, bands.count);
        Part(area, bands.first + begin, bands.first + end, rows);
        if (tell) tell(static_cast<double>(end) / bands.count);
    }
}

} // namespace pintalux
