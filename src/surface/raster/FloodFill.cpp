#include "surface/raster/FloodFill.h"

#include "base/RuntimeError.h"
#include "surface/raster/Figure.h"
#include "surface/raster/FloodTile.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <vector>

namespace pintalux {

namespace {

// A fill goes from tile to tile: each tile fills what it can reach by itself and hands on what it filled at
// its edges. Pixels are written at the end only. A tile waits at most once, and in it each word at most once,
// with all pixels entered meanwhile: what waits can't outgrow the picture, and every step fills a pixel.
class Flood {
  public:
    Flood(Bitmap& bits, FloodArea area)
        : bits_(bits), area_(area), across_(Pieces(bits.Width(), Bitmap::kTileWidth)),
          down_(Pieces(bits.Height(), Bitmap::kTileHeight)), tiles_(across_ * down_) {}

    void From(int x, int y) {
        const auto column = static_cast<std::size_t>(x);
        const auto row = static_cast<std::size_t>(y);
        Enter(row / kRows * across_ + column / kColumns,
              [&](FloodTile& tile) { tile.EnterColumn(column % kColumns, Word{1} << (row % kRows)); });
        while (!waiting_.empty()) {
            const std::size_t tile = waiting_.back();
            waiting_.pop_back();
            FloodTile* const masks = tiles_[tile].masks.get();
            masks ? Leave(tile, masks->Spread()) : LeaveWhole(tile);
        }
    }

    /// Writes what was filled and gives the box around it.
    Box Write(Pixel fill) {
        Box written = ShareWholeTiles(fill);
        for (std::size_t tile = 0; tile < tiles_.size(); ++tile) {
            if (!tiles_[tile].entered) continue;
            const FloodMask filled = tiles_[tile].masks->Filled();
            const Box box = BoxOf(tile);
            if (Union(written, box) != written) {
                const Box around = filled.Around();
                written = Union(written, {box.left + around.left, box.top + around.top,
                                          box.left + around.right, box.top + around.bottom});
            }
            filled.Write(bits_, box, fill);
        }
        return written;
    }

  private:
    using Word = FloodMask::Word;
    static constexpr std::size_t kRows = FloodMask::kRows;
    static constexpr std::size_t kColumns = FloodMask::kColumns;

    // A tile is looked at when the fill comes by. Only one that the area covers in part needs masks; what is
    // filled of it may still be nothing, if the fill comes by where the area is not.
    enum class State : unsigned char { Unseen, Whole, Mixed, Closed };
    struct Entry {
        std::unique_ptr<FloodTile> masks;
        State state = State::Unseen;
        bool entered = false;
    };

    static std::size_t Pieces(int extent, int pieceExtent) {
        return static_cast<std::size_t>((extent - 1) / pieceExtent + 1);
    }

    Box BoxOf(std::size_t tile) const {
        const int left = static_cast<int>(tile % across_) * Bitmap::kTileWidth;
        const int top = static_cast<int>(tile / across_) * Bitmap::kTileHeight;
        return {left, top, left + std::min(bits_.Width() - left, Bitmap::kTileWidth),
                top + std::min(bits_.Height() - top, Bitmap::kTileHeight)};
    }

    // Looks at a tile that the fill comes by for the first time.
    void See(std::size_t tile) {
        const Box box = BoxOf(tile);
        const Pixel* const pixels = bits_.Run(box.left, box.top).data();
        Entry& entry = tiles_[tile];
        if (pixels != blank_) {
            const FloodMask mask(bits_, box, area_);
            if (mask.HoldsNone()) {
                entry.state = State::Closed;
                return;
            }
            if (!mask.HoldsAllOf(box)) {
                entry.masks = std::make_unique<FloodTile>(mask);
                entry.state = State::Mixed;
                return;
            }
            if (box.Width() == Bitmap::kTileWidth && box.Height() == Bitmap::kTileHeight) blank_ = pixels;
        }
        entry.state = State::Whole;
        waiting_.push_back(tile);
    }

    FloodTile* MixedTile(std::size_t tile) {
        Entry& entry = tiles_[tile];
        if (entry.state == State::Unseen) See(tile);
        return entry.masks.get();
    }

    // Seeds a tile, which then waits for its turn.
    template <class Seed>
    void Enter(std::size_t tile, Seed seed) {
        FloodTile* const masks = MixedTile(tile);
        if (!masks) return;
        const bool waited = masks->Waits();
        seed(*masks);
        if (waited || !masks->Waits()) return;
        tiles_[tile].entered = true;
        waiting_.push_back(tile);
    }

    // Goes on from a tile's edges; beyond the bitmap there is nothing.
    void Leave(std::size_t tile, const FloodTile::Edges& edges) {
        if (edges.anyTop != 0 && tile >= across_)
            Enter(tile - across_, [&](FloodTile& above) { above.EnterRow(kRows - 1, edges.top); });
        if (edges.anyBottom != 0 && tile + across_ < tiles_.size())
            Enter(tile + across_, [&](FloodTile& below) { below.EnterRow(0, edges.bottom); });
        if (edges.left != 0 && tile % across_ > 0)
            Enter(tile - 1, [&](FloodTile& left) { left.EnterColumn(kColumns - 1, edges.left); });
        if (edges.right != 0 && tile % across_ + 1 < across_)
            Enter(tile + 1, [&](FloodTile& right) { right.EnterColumn(0, edges.right); });
    }

    void LeaveWhole(std::size_t tile) {
        FloodTile::Edges edges;
        edges.top.fill(FloodMask::kAllBits);
        edges.bottom.fill(FloodMask::kAllBits);
        edges.anyTop = edges.anyBottom = FloodMask::kAllBits;
        edges.left = edges.right = FloodMask::kAllBits >> (FloodMask::kWordBits - kRows);
        Leave(tile, edges);
    }

    // Tiles that are filled all over are shared, not written: neighbours in one go, bands alike in one go.
    Box ShareWholeTiles(Pixel fill) {
        Box all;
        std::vector<Box> open; // Boxes that end with the band before.
        for (std::size_t band = 0; band < down_; ++band) {
            std::vector<Box> boxes = WholeTilesOf(band);
            for (const Box& box : open) {
                const auto below = std::find_if(boxes.begin(), boxes.end(), [&](const Box& other) {
                    return other.left == box.left && other.right == box.right;
                });
                if (below != boxes.end()) {
                    below->top = box.top;
                } else {
                    bits_.Fill(box, fill);
                }
                all = Union(all, box);
            }
            open = std::move(boxes);
        }
        for (const Box& box : open) {
            bits_.Fill(box, fill);
            all = Union(all, box);
        }
        return all;
    }

    std::vector<Box> WholeTilesOf(std::size_t band) const {
        std::vector<Box> boxes;
        for (std::size_t tile = band * across_; tile < (band + 1) * across_; ++tile) {
            if (tiles_[tile].state != State::Whole) continue;
            const Box box = BoxOf(tile);
            if (!boxes.empty() && boxes.back().right == box.left) {
                boxes.back().right = box.right;
            } else {
                boxes.push_back(box);
            }
        }
        return boxes;
    }

    Bitmap& bits_;
    FloodArea area_;
    std::size_t across_;
    std::size_t down_;
    std::vector<Entry> tiles_;
    std::vector<std::size_t> waiting_; ///< The tiles where something waits, each once.
    const Pixel* blank_ = nullptr;     ///< Pixels of a tile that the area covers; other places may share it.
};

} // namespace

bool ExtFloodFill(DeviceContext& hdc, int x, int y, Colour colour, int kind) {
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
