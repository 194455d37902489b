#include "surface/raster/Transfer.h"

#include "base/RuntimeError.h"
#include "base/VectorClones.h"
#include "surface/raster/BandLoop.h"
#include "surface/raster/StreamCopy.h"
#include "surface/raster/StretchCopy.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <vector>

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

/// The `count` pixels of row y from x on, which lie inside: in place if they lie side by side, else gathered
/// in `room`. What lies below follows soon.
const Pixel* PixelsDown(const Bitmap& from, int x, int y, int count, RunPixels& room) {
    FetchRow(from, x, y + 1, count);
    const auto run = from.Run(x, y);
    if (static_cast<int>(run.size()) >= count) return run.data();
    from.ReadRow(x, y, {room.data(), static_cast<std::size_t>(count)});
    return room.data();
}

PINTALUX_VECTOR_CLONES
void CopyInCache(Pixel* to, const Pixel* from, std::size_t count, Pixel inversion) {
    for (std::size_t i = 0; i < count; ++i)
        to[i] = from[i] ^ inversion;
}

PINTALUX_VECTOR_CLONES
void MirrorInCache(Pixel* to, const Pixel* from, std::size_t count, Pixel inversion) {
    for (std::size_t i = 0; i < count; ++i)
        to[i] = from[count - 1 - i] ^ inversion;
}

/// A copy without stretching that mirrors or inverts: over the cores, run by run. It goes down and right
/// through the source, since memory is fetched ahead in that direction.
void CopyEqualSize(Bitmap& to, const StretchMap& map, const Bitmap& from, Pixel inversion) {
    const Box area = map.Place();
    const bool upward = map.rows.source.front() > map.rows.source.back();
    const bool leftward = map.columns.source.front() > map.columns.source.back();
    const bool cached = StaysInCache(to);
    const auto copy =
        leftward ? (cached ? MirrorInCache : StreamMirrored) : (cached ? CopyInCache : StreamCopy);
    const int firstTile = area.left / Bitmap::kTileWidth;
    const int lastTile = (area.right - 1) / Bitmap::kTileWidth;
    to.DetachTable();
    ForBands(area, [&](int top, int bottom) {
        to.Overwrite({area.left, top, area.right, bottom});
        alignas(64) RunPixels room;
        for (int step = top; step < bottom; ++step) {
            const int y = upward ? top + bottom - 1 - step : step;
            const int sourceY = map.rows.source[static_cast<std::size_t>(y - area.top)];
            for (int tile = firstTile; tile <= lastTile; ++tile) {
                const int left = (leftward ? firstTile + lastTile - tile : tile) * Bitmap::kTileWidth;
                const int x = std::max(left, area.left);
                const int count = std::min(left + Bitmap::kTileWidth, area.right) - x;
                const int column = map.columns.source[static_cast<std::size_t>(x - area.left)];
                const int first = leftward ? column - count + 1 : column;
                copy(to.WritableRun(x, y).data(), PixelsDown(from, first, sourceY, count, room),
                     static_cast<std::size_t>(count), inversion);
            }
        }
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

PINTALUX_VECTOR_CLONES
int CountKeys(const Pixel* pixels, int count, Pixel key) {
    std::uint32_t keys = 0;
    for (int i = 0; i < count; ++i)
        keys += pixels[i] == key ? 1U : 0U;
    return static_cast<int>(keys);
}

/// What lies below shows through the key.
PINTALUX_VECTOR_CLONES
void LayOver(const Pixel* below, const Pixel* pixels, Pixel* out, int count, Pixel key) {
    for (int i = 0; i < count; ++i) {
        const Pixel under = below[i];
        out[i] = pixels[i] == key ? under : pixels[i];
    }
}

/// A transparent copy without stretching, over the cores. Each band of the destination is copied row by row,
/// after a look at its tiles: what the key lets be shared as a whole, or not touched at all, is left out.
class KeyCopier {
  public:
    KeyCopier(Bitmap& to, const StretchMap& map, const Bitmap& from, Pixel key)
        : to_(to), before_(to), from_(from), area_(map.Place()), key_(key),
          shiftX_(area_.left - map.columns.source.front()), shiftY_(area_.top - map.rows.source.front()) {}

    void Run() {
        to_.DetachTable();
        ForBands(area_, [&](int top, int bottom) {
            for (int band = top / Bitmap::kTileHeight; band * Bitmap::kTileHeight < bottom; ++band)
                CopyBand(band * Bitmap::kTileHeight);
        });
    }

  private:
    void CopyBand(int top) {
        std::vector<Box> boxes;
        for (int left = area_.left / Bitmap::kTileWidth * Bitmap::kTileWidth; left < area_.right;
             left += Bitmap::kTileWidth) {
            const Box tile{left, top, left + Bitmap::kTileWidth, top + Bitmap::kTileHeight};
            const Box box = Intersection(tile, area_);
            if (IsSettled(box)) continue;
            to_.Overwrite(box);
            boxes.push_back(box);
        }
        alignas(64) RunPixels room, mixed;
        for (int y = std::max(top, area_.top); y < std::min(top + Bitmap::kTileHeight, area_.bottom); ++y) {
            for (const Box& box : boxes)
                CopyRun(box.left, y, box.Width(), room, mixed);
        }
    }

    /// Looks through a tile whose first row holds nothing but the key, or that may be shared.
    bool IsSettled(const Box& box) {
        const Box source{box.left - shiftX_, box.top - shiftY_, box.right - shiftX_, box.bottom - shiftY_};
        const bool aligned = shiftX_ % Bitmap::kTileWidth == 0 && shiftY_ % Bitmap::kTileHeight == 0;
        const Box firstRow{source.left, source.top, source.right, source.top + 1};
        if (!aligned && Keys(firstRow) < box.Width()) return false;
        const int keys = Keys(source);
        if (keys == box.Width() * box.Height()) return true;
        if (!aligned || keys > 0) return false;
        to_.Copy(box.left, box.top, from_, source);
        return true;
    }

    void CopyRun(int x, int y, int count, RunPixels& room, RunPixels& mixed) {
        if (CopyFromTwoTiles(x, y, count)) return;
        const Pixel* pixels = PixelsDown(from_, x - shiftX_, y - shiftY_, count, room);
        if (CountKeys(pixels, count, key_) > 0) {
            LayOver(before_.Run(x, y).data(), pixels, mixed.data(), count, key_);
            pixels = mixed.data();
        }
        StreamRow(to_, x, y, {pixels, static_cast<std::size_t>(count)});
    }

    /// Without a key among pixels from two tiles, which need not be gathered then but for the line where they
    /// meet; false if something else is to be done.
    bool CopyFromTwoTiles(int x, int y, int count) {
        const int fromX = x - shiftX_;
        const int fromY = y - shiftY_;
        const auto left = from_.Run(fromX, fromY);
        const int first = static_cast<int>(left.size());
        if (first >= count || StaysInCache(to_)) return false;
        const Pixel* right = from_.Run(fromX + first, fromY).data();
        FetchRow(from_, fromX, fromY + 1, count);
        if (CountKeys(left.data(), first, key_) > 0 || CountKeys(right, count - first, key_) > 0)
            return false;
        constexpr int kLine = 16;
        Pixel* const out = to_.WritableRun(x, y).data();
        const int whole = first / kLine * kLine;
        const int end = std::min(whole + kLine, count);
        std::array<Pixel, kLine> line;
        std::copy(left.data() + whole, left.data() + first, line.data());
        std::copy_n(right, end - first, line.data() + first - whole);
        StreamCopy(out, left.data(), static_cast<std::size_t>(whole));
        StreamCopy(out + whole, line.data(), static_cast<std::size_t>(end - whole));
        StreamCopy(out + end, right + end - first, static_cast<std::size_t>(count - end));
        return true;
    }

    int Keys(const Box& box) const {
        RunPixels room;
        int keys = 0;
        for (int y = box.top; y < box.bottom; ++y)
            keys += CountKeys(PixelsDown(from_, box.left, y, box.Width(), room), box.Width(), key_);
        return keys;
    }

    Bitmap& to_;
    const Bitmap before_;
    const Bitmap& from_;
    Box area_;
    Pixel key_;
    int shiftX_;
    int shiftY_;
};

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
        KeyCopier(to.Bits(), map, from, keyPixel).Run();
    } else {
        ForStretchedRows(from, map, [&](int y, auto row) {
            WriteUnlessKey(to.Bits(), map.columns.first, y, row, keyPixel);
        });
    }
    to.Touched(map.Place());
}

} // namespace pintalux
