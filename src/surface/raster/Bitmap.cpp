#include "surface/raster/Bitmap.h"

#include "base/RuntimeError.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <stdexcept>

namespace pintalux {

namespace {

// Memory that runs out is a run-time error that the program can show.
template <class Allocation>
auto OrOutOfMemory(Allocation allocate) {
    try {
        return allocate();
    } catch (const std::bad_alloc&) {
        throw RuntimeError(kOutOfMemory);
    } catch (const std::length_error&) {
        throw RuntimeError(kOutOfMemory);
    }
}

std::size_t Pieces(int extent, int pieceExtent) {
    return (static_cast<std::size_t>(extent) + static_cast<std::size_t>(pieceExtent) - 1) /
           static_cast<std::size_t>(pieceExtent);
}

bool Covers(const Box& outer, const Box& inner) {
    return outer.left <= inner.left && outer.top <= inner.top && outer.right >= inner.right &&
           outer.bottom >= inner.bottom;
}

} // namespace

Box Intersection(const Box& a, const Box& b) {
    const Box box{std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
                  std::min(a.bottom, b.bottom)};
    return box.Empty() ? Box{} : box;
}

Bitmap::Tile::Tile(const Tile& other) : Counted(other) {
    std::memcpy(pixels, other.pixels, sizeof pixels);
}

Bitmap::Bitmap(int width, int height, Pixel fill) {
    if (width < 0 || height < 0) throw RuntimeError(kInvalidArgument);
    if (width == 0 || height == 0) return;
    width_ = width;
    height_ = height;
    const Shared<Band> band = SolidBand(SolidTile(fill));
    table_ = OrOutOfMemory([&] {
        Shared<Table> table(new Table);
        table->bands.assign(Pieces(height, kTileHeight), band);
        return table;
    });
}

Shared<Bitmap::Tile> Bitmap::SolidTile(Pixel pixel) {
    Shared<Tile> tile = OrOutOfMemory([] { return Shared<Tile>(new Tile); });
    std::fill(std::begin(tile->pixels), std::end(tile->pixels), pixel);
    return tile;
}

Shared<Bitmap::Band> Bitmap::SolidBand(const Shared<Tile>& tile) const {
    return OrOutOfMemory([&] {
        Shared<Band> band(new Band);
        band->tiles.assign(Pieces(width_, kTileWidth), tile);
        return band;
    });
}

Bitmap::Table& Bitmap::OwnTable() {
    if (!table_.Unique()) table_ = OrOutOfMemory([&] { return Shared<Table>(new Table(*table_)); });
    return *table_;
}

Bitmap::Band& Bitmap::OwnBand(std::size_t band) {
    Shared<Band>& own = OwnTable().bands[band];
    if (!own.Unique()) own = OrOutOfMemory([&] { return Shared<Band>(new Band(*own)); });
    return *own;
}

Bitmap::Tile& Bitmap::OwnTile(std::size_t band, std::size_t tile, Keep keep) {
    Shared<Tile>& own = OwnBand(band).tiles[tile];
    if (!own.Unique()) {
        own = OrOutOfMemory([&] { return Shared<Tile>(keep == Keep::Pixels ? new Tile(*own) : new Tile); });
    }
    return *own;
}

Box Bitmap::TileBox(std::size_t band, std::size_t tile) const {
    const int left = static_cast<int>(tile) * kTileWidth;
    const int top = static_cast<int>(band) * kTileHeight;
    return {left, top, left + std::min(width_ - left, kTileWidth),
            top + std::min(height_ - top, kTileHeight)};
}

Box Bitmap::BandBox(std::size_t band) const {
    const Box first = TileBox(band, 0);
    return {0, first.top, width_, first.bottom};
}

void Bitmap::ReadRow(int x, int y, std::span<Pixel> out) const {
    while (!out.empty()) {
        const auto run = Run(x, y);
        const std::size_t count = std::min(run.size(), out.size());
        std::memcpy(out.data(), run.data(), count * sizeof(Pixel));
        out = out.subspan(count);
        x += static_cast<int>(count);
    }
}

void Bitmap::WriteRow(int x, int y, std::span<const Pixel> in) {
    while (!in.empty()) {
        const auto run = WritableRun(x, y);
        const std::size_t count = std::min(run.size(), in.size());
        std::memcpy(run.data(), in.data(), count * sizeof(Pixel));
        in = in.subspan(count);
        x += static_cast<int>(count);
    }
}

void Bitmap::Fill(const Box& box, Pixel pixel) {
    const Box area = Intersection(box, Bounds());
    if (area.Empty()) return;
    // One tile of the colour serves every place that the box covers whole, one band every whole band.
    Shared<Tile> solid;
    Shared<Band> solidBand;
    for (std::size_t band = BandIndex(area.top); band <= BandIndex(area.bottom - 1); ++band) {
        if (Covers(area, BandBox(band))) {
            if (!solid) solid = SolidTile(pixel);
            if (!solidBand) solidBand = SolidBand(solid);
            OwnTable().bands[band] = solidBand;
        } else {
            FillBand(band, area, pixel, solid);
        }
    }
}

void Bitmap::FillBand(std::size_t band, const Box& box, Pixel pixel, Shared<Tile>& solid) {
    for (std::size_t tile = TileIndex(box.left); tile <= TileIndex(box.right - 1); ++tile) {
        const Box bounds = TileBox(band, tile);
        if (Covers(box, bounds)) {
            if (!solid) solid = SolidTile(pixel);
            OwnBand(band).tiles[tile] = solid;
            continue;
        }
        const Box part = Intersection(box, bounds);
        for (int y = part.top; y < part.bottom; ++y) {
            std::fill_n(WritableAddress(part.left, y), part.Width(), pixel);
        }
    }
}

void Bitmap::Copy(int x, int y, const Bitmap& source, const Box& from) {
    const Bitmap held = source; // Keeps the pixels readable if the source is this bitmap itself.
    const Box wanted = Intersection(from, held.Bounds());
    if (wanted.Empty() || Empty()) return;
    // 64 bits: the corner of the cut box may lie beyond the range of an int until it is cut here, too.
    const std::int64_t shiftX = std::int64_t{x} - from.left;
    const std::int64_t shiftY = std::int64_t{y} - from.top;
    const auto left = std::max<std::int64_t>(0, wanted.left + shiftX);
    const auto top = std::max<std::int64_t>(0, wanted.top + shiftY);
    const auto right = std::min<std::int64_t>(width_, wanted.right + shiftX);
    const auto bottom = std::min<std::int64_t>(height_, wanted.bottom + shiftY);
    if (left >= right || top >= bottom) return;

    const Box area{static_cast<int>(left), static_cast<int>(top), static_cast<int>(right),
                   static_cast<int>(bottom)};
    if (area == Bounds() && shiftX == 0 && shiftY == 0 && held.Bounds() == Bounds()) {
        table_ = held.table_;
        return;
    }
    for (std::size_t band = BandIndex(area.top); band <= BandIndex(area.bottom - 1); ++band) {
        CopyBand(band, area, held, static_cast<int>(shiftX), static_cast<int>(shiftY));
    }
}

void Bitmap::CopyBand(std::size_t band, const Box& box, const Bitmap& source, int shiftX, int shiftY) {
    const bool aligned = shiftX % kTileWidth == 0 && shiftY % kTileHeight == 0;
    const Box rows = BandBox(band);
    if (aligned && shiftX == 0 && source.width_ == width_ && Covers(box, rows)) {
        OwnTable().bands[band] = source.table_->bands[BandIndex(rows.top - shiftY)];
        return;
    }
    for (std::size_t tile = TileIndex(box.left); tile <= TileIndex(box.right - 1); ++tile) {
        const Box bounds = TileBox(band, tile);
        const bool whole = Covers(box, bounds);
        if (aligned && whole) {
            OwnBand(band).tiles[tile] =
                source.table_->bands[BandIndex(bounds.top - shiftY)]->tiles[TileIndex(bounds.left - shiftX)];
            continue;
        }
        // A tile that is overwritten whole is not worth copying first.
        OwnTile(band, tile, whole ? Keep::Nothing : Keep::Pixels);
        CopyTile(Intersection(box, bounds), source, shiftX, shiftY);
    }
}

void Bitmap::CopyTile(const Box& box, const Bitmap& source, int shiftX, int shiftY) {
    for (int y = box.top; y < box.bottom; ++y) {
        const std::span<Pixel> row(WritableAddress(box.left, y), static_cast<std::size_t>(box.Width()));
        source.ReadRow(box.left - shiftX, y - shiftY, row);
    }
}

void Bitmap::Detach(const Box& box) {
    const Box area = Intersection(box, Bounds());
    if (area.Empty()) return;
    for (std::size_t band = BandIndex(area.top); band <= BandIndex(area.bottom - 1); ++band) {
        for (std::size_t tile = TileIndex(area.left); tile <= TileIndex(area.right - 1); ++tile) {
            OwnTile(band, tile, Keep::Pixels);
        }
    }
}

void Bitmap::Overwrite(const Box& box) {
    const Box area = Intersection(box, Bounds());
    if (area.Empty()) return;
    for (std::size_t band = BandIndex(area.top); band <= BandIndex(area.bottom - 1); ++band) {
        for (std::size_t tile = TileIndex(area.left); tile <= TileIndex(area.right - 1); ++tile) {
            OwnTile(band, tile, Covers(area, TileBox(band, tile)) ? Keep::Nothing : Keep::Pixels);
        }
    }
}

Bitmap Bitmap::Resized(int width, int height, Pixel fill) const {
    if (width == width_ && height == height_) return *this;
    Bitmap resized(width, height, fill);
    resized.Copy(0, 0, *this, Bounds());
    return resized;
}

std::vector<Box> Bitmap::Difference(const Bitmap& a, const Bitmap& b) {
    std::vector<Box> boxes;
    if (a.width_ != b.width_ || a.height_ != b.height_) {
        if (!b.Empty()) boxes.push_back(b.Bounds());
        return boxes;
    }
    if (a.table_ == b.table_) return boxes;
    for (std::size_t band = 0; band < a.table_->bands.size(); ++band) {
        const Shared<Band>& bandA = a.table_->bands[band];
        const Shared<Band>& bandB = b.table_->bands[band];
        if (bandA == bandB) continue;
        bool joined = false;
        for (std::size_t tile = 0; tile < bandA->tiles.size(); ++tile) {
            const bool differs = bandA->tiles[tile] != bandB->tiles[tile];
            const Box box = a.TileBox(band, tile);
            if (differs && joined) {
                boxes.back().right = box.right;
            } else if (differs) {
                boxes.push_back(box);
            }
            joined = differs;
        }
    }
    return boxes;
}

Box Bitmap::Shrunk(const Bitmap& a, const Bitmap& b, const Box& box) {
    Box shrunk{box.right, box.bottom, box.left, box.top};
    for (int y = box.top; y < box.bottom; ++y) {
        for (int x = box.left; x < box.right;) {
            const auto ofA =
                a.Run(x, y).first(std::min(a.RunLength(x), static_cast<std::size_t>(box.right - x)));
            const auto ofB = b.Run(x, y).first(ofA.size());
            if (std::memcmp(ofA.data(), ofB.data(), ofA.size_bytes()) != 0) {
                const auto first = std::mismatch(ofA.begin(), ofA.end(), ofB.begin()).first;
                const auto last = std::mismatch(ofA.rbegin(), ofA.rend(), ofB.rbegin()).first;
                shrunk.left = std::min(shrunk.left, x + static_cast<int>(first - ofA.begin()));
                shrunk.right = std::max(shrunk.right, x + static_cast<int>(ofA.rend() - last));
                shrunk.top = std::min(shrunk.top, y);
                shrunk.bottom = y + 1;
            }
            x += static_cast<int>(ofA.size());
        }
    }
    return shrunk.Empty() ? Box{} : shrunk;
}

bool Bitmap::operator==(const Bitmap& other) const {
    if (width_ != other.width_ || height_ != other.height_) return false;
    for (const Box& box : Difference(*this, other)) {
        for (int y = box.top; y < box.bottom; ++y) {
            for (int x = box.left; x < box.right; x += static_cast<int>(Run(x, y).size())) {
                const auto run = Run(x, y);
                if (std::memcmp(run.data(), other.Run(x, y).data(), run.size_bytes()) != 0) return false;
            }
        }
    }
    return true;
}

} // namespace pintalux
