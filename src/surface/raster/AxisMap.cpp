#include "surface/raster/AxisMap.h"

#include "surface/raster/Bitmap.h"
#include "surface/raster/Transfer.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace pintalux {

int StretchedCell(int d, int source, int destination) {
    // (2d + 1) * source stays below 2 to the power of 63.
    const std::int64_t centre = (std::int64_t{2} * d + 1) * source;
    const std::int64_t cells = std::int64_t{2} * destination;
    return static_cast<int>((centre + cells - 1) / cells - 1);
}

AxisMap MapAxis(Reach to, int toLimit, Reach from, int fromLimit) {
    AxisMap map;
    // The smallest 32-bit extent has no positive twin.
    if (to.extent == 0 || from.extent == 0 || to.extent == std::numeric_limits<int>::min() ||
        from.extent == std::numeric_limits<int>::min()) {
        return map;
    }
    // A negative extent spans the cells before its start.
    const std::int64_t toStart = std::int64_t{to.start} + std::min(to.extent, 0);
    const std::int64_t fromStart = std::int64_t{from.start} + std::min(from.extent, 0);
    const int toCells = std::abs(to.extent);
    const int fromCells = std::abs(from.extent);
    const bool mirrored = (to.extent < 0) != (from.extent < 0);

    const std::int64_t end = std::min<std::int64_t>(toLimit, toStart + toCells);
    for (std::int64_t cell = std::max<std::int64_t>(0, toStart); cell < end; ++cell) {
        const int d = static_cast<int>(cell - toStart);
        const std::int64_t source =
            fromStart + StretchedCell(mirrored ? toCells - 1 - d : d, fromCells, toCells);
        if (source < 0 || source >= fromLimit) continue;
        if (map.source.empty()) map.first = static_cast<int>(cell);
        map.source.push_back(static_cast<int>(source));
    }
    return map;
}

AxisMap MapVisible(int begin, int end, int to, int from) {
    AxisMap map;
    map.first = begin;
    map.source.reserve(static_cast<std::size_t>(end - begin));
    for (int cell = begin; cell < end; ++cell)
        map.source.push_back(StretchedCell(cell, from, to));
    return map;
}

std::vector<TileColumns> ColumnsByTile(const AxisMap& columns) {
    std::vector<TileColumns> stretches;
    for (int i = 0; i < columns.Size(); ++i) {
        const int column = columns.source[static_cast<std::size_t>(i)];
        const int tile = column - column % Bitmap::kTileWidth;
        if (stretches.empty() || stretches.back().tile != tile) stretches.push_back({i, i, tile});
        stretches.back().end = i + 1;
    }
    return stretches;
}

std::vector<std::uint8_t> PlacesInTile(const AxisMap& columns) {
    static_assert(Bitmap::kTileWidth <= 256);
    std::vector<std::uint8_t> places;
    places.reserve(columns.source.size());
    for (const int column : columns.source)
        places.push_back(static_cast<std::uint8_t>(column % Bitmap::kTileWidth));
    return places;
}

} // namespace pintalux
