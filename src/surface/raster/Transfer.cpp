#include "surface/raster/Transfer.h"

#include "base/Parallel.h"
#include "base/RuntimeError.h"
#include "surface/raster/StreamCopy.h"
#include "surface/raster/StretchCopy.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace pintalux {

namespace {

// Calls write(y, pixels) for each destination row with the source pixels that belong there.
template <class Write>
void ForStretchedRows(const Bitmap& from, const StretchMap& map, Write write) {
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
                    row[at] = pixels[map.columns.source[at] - part.tile];
                }
            }
            composed = sourceY;
        }
        write(map.rows.first + i, std::span<const Pixel>(row));
    }
}

/// Whether each cell takes one of its own: nothing is stretched, though either axis may be mirrored.
bool EqualSize(const Extent& a, const Extent& b) {
    return std::abs(std::int64_t{a.width}) == std::abs(std::int64_t{b.width}) &&
           std::abs(std::int64_t{a.height}) == std::abs(std::int64_t{b.height});
}

bool SameDirection(const Extent& a, const Extent& b) {
    return (a.width < 0) == (b.width < 0) && (a.height < 0) == (b.height < 0);
}

using RunPixels = std::array<Pixel, Bitmap::kTileWidth>;

/// The source pixels of `count` destination cells, the first of which is column `i` of the map; the columns
/// go up or down one by one.
void GatherRun(const Bitmap& from, const StretchMap& map, int i, int sourceY, int count, Pixel inversion,
               Pixel* out) {
    const bool mirrored = map.columns.source.front() > map.columns.source.back();
    for (int done = 0; done < count;) {
        const int column = map.columns.source[static_cast<std::size_t>(i) + static_cast<std::size_t>(done)];
        if (mirrored) {
            const int first = std::max(column - column % Bitmap::kTileWidth, column - (count - done - 1));
            const Pixel* pixels = from.Run(first, sourceY).data();
            const int size = column - first + 1;
            for (int at = 0; at < size; ++at)
                out[done + at] = pixels[size - 1 - at] ^ inversion;
            done += size;
        } else {
            const auto run = from.Run(column, sourceY);
            const int size = std::min(static_cast<int>(run.size()), count - done);
            for (int at = 0; at < size; ++at)
                out[done + at] = run[static_cast<std::size_t>(at)] ^ inversion;
            done += size;
        }
    }
}

/// A copy without stretching that mirrors or inverts: over the cores, run by run. It goes down and right
/// through the source, since memory is fetched ahead in that direction.
void CopyEqualSize(Bitmap& to, const StretchMap& map, const Bitmap& from, Pixel inversion) {
    const Box area = map.Place();
    const bool upward = map.rows.source.front() > map.rows.source.back();
    const bool leftward = map.columns.source.front() > map.columns.source.back();
    const int firstTile = area.left / Bitmap::kTileWidth;
    const int lastTile = (area.right - 1) / Bitmap::kTileWidth;
    to.Overwrite(area);
    SplitOverCores(area.Height(), [&](int begin, int end) {
        alignas(64) RunPixels pixels;
        for (int step = begin; step < end; ++step) {
            const int i = upward ? begin + end - 1 - step : step;
            const int sourceY = map.rows.source[static_cast<std::size_t>(i)];
            for (int tile = firstTile; tile <= lastTile; ++tile) {
                const int left = (leftward ? firstTile + lastTile - tile : tile) * Bitmap::kTileWidth;
                const int x = std::max(left, area.left);
                const int count = std::min(left + Bitmap::kTileWidth, area.right) - x;
                GatherRun(from, map, x - area.left, sourceY, count, inversion, pixels.data());
                StreamCopy(to.WritableRun(x, area.top + i).data(), pixels.data(),
                           static_cast<std::size_t>(count));
            }
        }
        FinishStreaming();
    });
}

void Stretch(DeviceContext& to, const Extent& place, const Bitmap& source, const Extent& fromPlace,
             std::uint32_t rop) {
    if (rop != SRCCOPY && rop != NOTSRCCOPY) throw RuntimeError(kInvalidArgument);
    const Bitmap from = source; // Keeps what is read as it was if both are one bitmap.
    const StretchMap map(to.Bits(), place, from, fromPlace);
    if (map.Empty()) return;
    const Pixel inversion = rop == NOTSRCCOPY ? 0xFFFFFF : 0;
    if (inversion == 0 && EqualSize(place, fromPlace) && SameDirection(place, fromPlace)) {
        const int left = map.columns.source.front();
        const int top = map.rows.source.front();
        to.Bits().Copy(map.columns.first, map.rows.first, from,
                       {left, top, left + map.columns.Size(), top + map.rows.Size()});
    } else if (EqualSize(place, fromPlace)) {
        CopyEqualSize(to.Bits(), map, from, inversion);
    } else {
        CopyStretched(to.Bits(), map, from, inversion);
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

/// Whether a box holds pixels of the key, and others.
struct KeyFound {
    bool key;
    bool other;
};
KeyFound LookForKey(const Bitmap& bits, const Box& box, Pixel key) {
    Pixel keys = 0;
    Pixel others = 0;
    for (int y = box.top; y < box.bottom; ++y) {
        for (int x = box.left; x < box.right;) {
            const auto run = bits.Run(x, y);
            const auto part = run.first(std::min(run.size(), static_cast<std::size_t>(box.right - x)));
            for (const Pixel pixel : part) {
                keys |= pixel == key ? 1U : 0U;
                others |= pixel == key ? 0U : 1U;
            }
            x += static_cast<int>(part.size());
        }
    }
    return {keys != 0, others != 0};
}

/// The part of a transparent copy without stretching that lies in one tile of the destination. Where the
/// source holds no key it is a plain copy, which shares tiles or need not read what it covers.
void CopyTileUnlessKey(Bitmap& to, const Box& box, const Bitmap& from, int shiftX, int shiftY, Pixel key) {
    const Box source{box.left - shiftX, box.top - shiftY, box.right - shiftX, box.bottom - shiftY};
    const KeyFound found = LookForKey(from, source, key);
    if (!found.other) return;
    if (!found.key && shiftX % Bitmap::kTileWidth == 0 && shiftY % Bitmap::kTileHeight == 0) {
        return to.Copy(box.left, box.top, from, source);
    }
    if (!found.key) to.Overwrite(box);
    alignas(64) RunPixels row;
    const std::span<Pixel> pixels(row.data(), static_cast<std::size_t>(box.Width()));
    for (int y = box.top; y < box.bottom; ++y) {
        from.ReadRow(source.left, y - shiftY, pixels);
        if (found.key) {
            WriteUnlessKey(to, box.left, y, pixels, key);
        } else {
            StreamCopy(to.WritableRun(box.left, y).data(), row.data(), pixels.size());
        }
    }
    FinishStreaming();
}

/// A transparent copy without stretching, a band of the destination at a time, over the cores.
void CopyUnlessKey(Bitmap& to, const StretchMap& map, const Bitmap& from, Pixel key) {
    const Box area = map.Place();
    const int shiftX = area.left - map.columns.source.front();
    const int shiftY = area.top - map.rows.source.front();
    const int firstBand = area.top / Bitmap::kTileHeight;
    const int bands = (area.bottom - 1) / Bitmap::kTileHeight + 1 - firstBand;
    to.DetachTable();
    SplitOverCores(bands, [&](int begin, int end) {
        for (int band = firstBand + begin; band < firstBand + end; ++band) {
            for (int left = 0; left < area.right; left += Bitmap::kTileWidth) {
                const int top = band * Bitmap::kTileHeight;
                const Box tile{left, top, left + Bitmap::kTileWidth, top + Bitmap::kTileHeight};
                const Box box = Intersection(tile, area);
                if (!box.Empty()) CopyTileUnlessKey(to, box, from, shiftX, shiftY, key);
            }
        }
    });
}

} // namespace

void BitBlt(DeviceContext& to, int x, int y, int width, int height, const DeviceContext& from, int fromX,
            int fromY, std::uint32_t rop) {
    Stretch(to, {x, y, width, height}, from.Bits(), {fromX, fromY, width, height}, rop);
}

void StretchBlt(DeviceContext& to, const Extent& place, const DeviceContext& from, const Extent& fromPlace,
                std::uint32_t rop) {
    Stretch(to, place, from.Bits(), fromPlace, rop);
}

void StretchBits(DeviceContext& to, const Extent& place, const Bitmap& from, const Extent& fromPlace,
                 std::uint32_t rop) {
    Stretch(to, place, from, fromPlace, rop);
}

void TransparentBlt(DeviceContext& to, const Extent& place, const DeviceContext& source,
                    const Extent& fromPlace, Colour key) {
    const Bitmap from = source.Bits();
    const StretchMap map(to.Bits(), place, from, fromPlace);
    if (map.Empty()) return;
    const Pixel keyPixel = static_cast<Pixel>(key) & 0xFFFFFF;
    if (EqualSize(place, fromPlace) && SameDirection(place, fromPlace)) {
        CopyUnlessKey(to.Bits(), map, from, keyPixel);
    } else {
        ForStretchedRows(from, map, [&](int y, auto row) {
            WriteUnlessKey(to.Bits(), map.columns.first, y, row, keyPixel);
        });
    }
    to.Touched(map.Place());
}

} // namespace pintalux
