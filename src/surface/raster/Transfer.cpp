#include "surface/raster/Transfer.h"

#include "surface/raster/AxisMap.h"
#include "surface/raster/RuntimeError.h"

#include <algorithm>

namespace pintalux {

namespace {

// The destination cells of a copy, column by column and row by row.
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

// Calls write(y, pixels) for each destination row with the source pixels that belong there.
template <class Write>
void ForStretchedRows(const Bitmap& from, const StretchMap& map, Pixel inversion, Write write) {
    const std::vector<TileColumns> stretches = ColumnsByTile(map.columns);
    std::vector<Pixel> row(map.columns.source.size());
    int composed = -1;
    for (int i = 0; i < map.rows.Size(); ++i) {
        const int sourceY = map.rows.source[static_cast<std::size_t>(i)];
        if (sourceY != composed) {
            for (const TileColumns& part : stretches) {
                const Pixel* pixels = from.Run(part.tile, sourceY).data();
                for (int column = part.begin; column < part.end; ++column) {
                    const auto at = static_cast<std::size_t>(column);
                    row[at] = pixels[map.columns.source[at] - part.tile] ^ inversion;
                }
            }
            composed = sourceY;
        }
        write(map.rows.first + i, std::span<const Pixel>(row));
    }
}

bool SameSize(const Extent& a, const Extent& b) {
    return a.width == b.width && a.height == b.height;
}

void Stretch(const DeviceContext& to, const Extent& place, const Bitmap& source, const Extent& fromPlace,
             std::uint32_t rop) {
    if (rop != SRCCOPY && rop != NOTSRCCOPY) throw RuntimeError(kInvalidArgument);
    const Bitmap from = source; // Keeps what is read as it was if both are one bitmap.
    const StretchMap map(to.Bits(), place, from, fromPlace);
    if (map.Empty()) return;
    if (rop == SRCCOPY && SameSize(place, fromPlace)) {
        const int left = map.columns.source.front();
        const int top = map.rows.source.front();
        to.Bits().Copy(map.columns.first, map.rows.first, from,
                       {left, top, left + map.columns.Size(), top + map.rows.Size()});
    } else {
        ForStretchedRows(from, map, rop == NOTSRCCOPY ? 0xFFFFFF : 0,
                         [&](int y, auto row) { to.Bits().WriteRow(map.columns.first, y, row); });
    }
    to.Touched(map.Place());
}

// Writes the pixels that differ from the key. A stretch of nothing but the key detaches no tile.
void WriteUnlessKey(Bitmap& to, int x, int y, std::span<const Pixel> row, Pixel key) {
    while (!row.empty()) {
        const std::size_t count = std::min(row.size(), to.Run(x, y).size());
        const auto part = row.first(count);
        if (std::any_of(part.begin(), part.end(), [key](Pixel pixel) { return pixel != key; })) {
            Pixel* pixels = to.WritableRun(x, y).data();
            for (std::size_t i = 0; i < count; ++i)
                pixels[i] = part[i] == key ? pixels[i] : part[i];
        }
        row = row.subspan(count);
        x += static_cast<int>(count);
    }
}

} // namespace

void BitBlt(const DeviceContext& to, int x, int y, int width, int height, const DeviceContext& from,
            int fromX, int fromY, std::uint32_t rop) {
    Stretch(to, {x, y, width, height}, from.Bits(), {fromX, fromY, width, height}, rop);
}

void StretchBlt(const DeviceContext& to, const Extent& place, const DeviceContext& from,
                const Extent& fromPlace, std::uint32_t rop) {
    Stretch(to, place, from.Bits(), fromPlace, rop);
}

void StretchBits(const DeviceContext& to, const Extent& place, const Bitmap& from, const Extent& fromPlace,
                 std::uint32_t rop) {
    Stretch(to, place, from, fromPlace, rop);
}

void TransparentBlt(const DeviceContext& to, const Extent& place, const DeviceContext& source,
                    const Extent& fromPlace, Colour key) {
    const Bitmap from = source.Bits();
    const StretchMap map(to.Bits(), place, from, fromPlace);
    if (map.Empty()) return;
    const Pixel keyPixel = static_cast<Pixel>(key) & 0xFFFFFF;
    ForStretchedRows(from, map, 0, [&](int y, auto row) {
        WriteUnlessKey(to.Bits(), map.columns.first, y, row, keyPixel);
    });
    to.Touched(map.Place());
}

} // namespace pintalux
