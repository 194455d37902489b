#include "surface/raster/FloodFill.h"

#include "surface/raster/Figure.h"
#include "surface/raster/FloodTile.h"
#include "surface/raster/RuntimeError.h"

#include <algorithm>
#include <deque>
#include <memory>
#include <vector>

namespace pintalux {

namespace {

// A fill goes from tile to tile: each tile fills what it can reach by itself and hands on what it filled at
// its edges. Pixels are written at the end only, so that a fill that fails has changed nothing.
class Flood {
  public:
    Flood(Bitmap& bits, FloodArea area)
        : bits_(bits), area_(area), across_((bits.Width() - 1) / Bitmap::kTileWidth + 1),
          down_((bits.Height() - 1) / Bitmap::kTileHeight + 1),
          tiles_(static_cast<std::size_t>(across_) * static_cast<std::size_t>(down_)) {}

    void From(int x, int y) {
        const Place start{x / Bitmap::kTileWidth, y / Bitmap::kTileHeight};
        Enter(start, [&](FloodTile& tile) {
            tile.SeedColumn(x % Bitmap::kTileWidth, FloodTile::RowMask{1} << (y % Bitmap::kTileHeight));
        });
        while (!waiting_.empty()) {
            const Place place = waiting_.front();
            waiting_.pop_front();
            GoOn(place, TileAt(place)->Spread());
        }
    }

    /// Writes what was filled and gives the box around it.
    Box Write(Pixel fill) {
        Box written;
        for (int row = 0; row < down_; ++row)
            written = Union(written, WriteBand(row, fill));
        return written;
    }

  private:
    struct Place {
        int column;
        int row;
    };

    std::unique_ptr<FloodTile>& TileAt(Place place) {
        return tiles_[static_cast<std::size_t>(place.row) * static_cast<std::size_t>(across_) +
                      static_cast<std::size_t>(place.column)];
    }

    // Seeds a tile, which then waits for its turn. Beyond the bitmap there is none.
    template <class Seed>
    void Enter(Place place, Seed seed) {
        if (place.column < 0 || place.row < 0 || place.column >= across_ || place.row >= down_) return;
        std::unique_ptr<FloodTile>& tile = TileAt(place);
        if (!tile) tile = std::make_unique<FloodTile>(bits_, BoxOf(place), area_);
        const bool waits = tile->Seeded();
        seed(*tile);
        if (!waits && tile->Seeded()) waiting_.push_back(place);
    }

    void GoOn(Place from, const FloodTile::Edges& edges) {
        constexpr int kLastRow = FloodTile::kRows - 1;
        constexpr int kLastColumn = Bitmap::kTileWidth - 1;
        if (edges.top != FloodTile::Row{}) {
            Enter({from.column, from.row - 1}, [&](FloodTile& tile) { tile.Seed(kLastRow, edges.top); });
        }
        if (edges.bottom != FloodTile::Row{}) {
            Enter({from.column, from.row + 1}, [&](FloodTile& tile) { tile.Seed(0, edges.bottom); });
        }
        if (edges.left != 0) {
            Enter({from.column - 1, from.row},
                  [&](FloodTile& tile) { tile.SeedColumn(kLastColumn, edges.left); });
        }
        if (edges.right != 0) {
            Enter({from.column + 1, from.row}, [&](FloodTile& tile) { tile.SeedColumn(0, edges.right); });
        }
    }

    Box BoxOf(Place place) const {
        const int left = place.column * Bitmap::kTileWidth;
        const int top = place.row * Bitmap::kTileHeight;
        return {left, top, left + std::min(bits_.Width() - left, Bitmap::kTileWidth),
                top + std::min(bits_.Height() - top, Bitmap::kTileHeight)};
    }

    Box WriteBand(int row, Pixel fill) {
        Box written;
        Box whole; // Tiles that are filled all over are shared, not written: neighbours in one go.
        for (int column = 0; column < across_; ++column) {
            const FloodTile* tile = TileAt({column, row}).get();
            const Box filled = tile ? tile->Filled() : Box{};
            written = Union(written, filled);
            if (filled.Empty()) continue;
            if (!tile->FilledWhole()) {
                tile->Write(bits_, fill);
            } else if (!whole.Empty() && whole.right == filled.left) {
                whole.right = filled.right;
            } else {
                bits_.Fill(whole, fill);
                whole = filled;
            }
        }
        bits_.Fill(whole, fill);
        return written;
    }

    Bitmap& bits_;
    FloodArea area_;
    int across_;
    int down_;
    std::vector<std::unique_ptr<FloodTile>> tiles_;
    std::deque<Place> waiting_;
};

} // namespace

bool ExtFloodFill(const DeviceContext& hdc, int x, int y, Colour colour, int kind) {
    if (kind != FLOODFILLSURFACE && kind != FLOODFILLBORDER) throw RuntimeError(kInvalidArgument);
    Bitmap& bits = hdc.Bits();
    const FloodArea area{static_cast<Pixel>(colour), kind == FLOODFILLSURFACE};
    if (!bits.Holds(x, y) || !area.Holds(bits.At(x, y))) return false;
    if (hdc.Attributes().FillStyle != kFillSolid) return true;
    const Pixel fill = PixelOf(hdc.Attributes().FillColor);
    if (area.ofTheColour && fill == area.colour) return true;

    Flood flood(bits, area);
    flood.From(x, y);
    hdc.Touched(flood.Write(fill));
    return true;
}

} // namespace pintalux
