// Copies that repeat or drop pixels, tile by tile.
#pragma once

#include "surface/raster/AxisMap.h"
#include "surface/raster/Bitmap.h"
#include "surface/raster/Transfer.h"

namespace pintalux {

/// The destination cells of a copy, column by column and row by row.
struct StretchMap {
    AxisMap columns;
    AxisMap rows;

    StretchMap(const Bitmap& to, const Extent& place, const Bitmap& from, const Extent& fromPlace)
        : columns(MapAxis({place.x, place.width}, to.Width(), {fromPlace.x, fromPlace.width}, from.Width())),
          rows(MapAxis({place.y, place.height}, to.Height(), {fromPlace.y, fromPlace.height},
                       from.Height())) {}

    bool Empty() const { return columns.source.empty() || rows.source.empty(); }
    Box Place() const { return {columns.first, rows.first, columns.End(), rows.End()}; }
};

/// Writes every cell of the map, which is not empty, with its source pixel, over the cores. Each bit of
/// `inversion` inverts that bit.
void CopyStretched(Bitmap& to, const StretchMap& map, const Bitmap& from, Pixel inversion);

} // namespace pintalux
