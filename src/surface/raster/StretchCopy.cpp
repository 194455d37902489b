#include "surface/raster/StretchCopy.h"

#include "surface/raster/BandLoop.h"
#include "surface/raster/StreamCopy.h"

#include <algorithm>
#include <array>
#include <vector>

namespace pintalux {

namespace {

constexpr int kRowsAhead = 2;

/// The columns of a map that lie in one tile of the destination, cut where their sources change the tile.
struct DestinationTile {
    int x; ///< Of the first column.
    std::vector<TileColumns> parts;

    std::size_t Count() const { return static_cast<std::size_t>(parts.back().end - parts.front().begin); }
};

std::vector<DestinationTile> TilesOf(const AxisMap& columns) {
    std::vector<DestinationTile> tiles;
    for (TileColumns part : ColumnsByTile(columns)) {
        while (part.begin < part.end) {
            const int x = columns.first + part.begin;
            const int inTile = x % Bitmap::kTileWidth;
            if (tiles.empty() || inTile == 0) tiles.push_back({x, {}});
            const int end = std::min(part.end, part.begin + Bitmap::kTileWidth - inTile);
            tiles.back().parts.push_back({part.begin, end, part.tile});
            part.begin = end;
        }
    }
    return tiles;
}

class StretchCopier {
  public:
    StretchCopier(Bitmap& to, const StretchMap& map, const Bitmap& from, Pixel inversion)
        : to_(to), rows_(map.rows), from_(from), inversion_(inversion), tiles_(TilesOf(map.columns)),
          inTile_(PlacesInTile(map.columns)) {}

    /// The rows top to bottom - 1, which lie in one band of the destination: tile after tile, since the
    /// memory of a tile lies together. A source row is picked apart once for all the rows that repeat it.
    void CopyBand(int top, int bottom) const {
        alignas(64) std::array<Pixel, Bitmap::kTileWidth> pixels;
        for (const DestinationTile& tile : tiles_) {
            for (int y = top; y < bottom; ++y) {
                if (y == top || SourceRow(y) != SourceRow(y - 1)) {
                    const int later = std::min(y + kRowsAhead, bottom - 1);
                    Pick(tile, SourceRow(y), SourceRow(later), pixels.data());
                }
                StreamCopy(to_.WritableRun(tile.x, y).data(), pixels.data(), tile.Count());
            }
        }
    }

  private:
    int SourceRow(int y) const { return rows_.source[static_cast<std::size_t>(y - rows_.first)]; }
    int InTile(int i) const { return inTile_[static_cast<std::size_t>(i)]; }

    /// Gathers a row of a tile. Row `laterY` follows soon.
    void Pick(const DestinationTile& tile, int sourceY, int laterY, Pixel* out) const {
        for (const TileColumns& part : tile.parts) {
            const Pixel* later = from_.Run(part.tile, laterY).data();
            const auto [first, last] = std::minmax({InTile(part.begin), InTile(part.end - 1)});
            FetchAhead(later + first, last - first + 1);
            const Pixel* pixels = from_.Run(part.tile, sourceY).data();
            const std::uint8_t* places = inTile_.data() + part.begin;
            const int count = part.end - part.begin;
            for (int i = 0; i < count; ++i)
                out[i] = pixels[places[i]];
            for (int i = 0; inversion_ != 0 && i < count; ++i)
                out[i] ^= inversion_;
            out += count;
        }
    }

    Bitmap& to_;
    const AxisMap& rows_;
    const Bitmap& from_;
    Pixel inversion_;
    std::vector<DestinationTile> tiles_;
    std::vector<std::uint8_t> inTile_;
};

} // namespace

void CopyStretched(Bitmap& to, const StretchMap& map, const Bitmap& from, Pixel inversion) {
    const StretchCopier copier(to, map, from, inversion);
    const Box area = map.Place();
    to.DetachTable();
    ForBands(area, [&](int top, int bottom) {
        to.Overwrite({area.left, top, area.right, bottom});
        for (int band = top / Bitmap::kTileHeight; band * Bitmap::kTileHeight < bottom; ++band)
            copier.CopyBand(std::max(top, band * Bitmap::kTileHeight),
                            std::min(bottom, (band + 1) * Bitmap::kTileHeight));
    });
}

} // namespace pintalux
