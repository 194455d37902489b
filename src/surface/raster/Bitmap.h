// The bitmap: an image that costs next to nothing to copy.
//
// The words of the pixels:
// - A tile is a piece of 256 by 32 pixels, whose memory lies together.
// - A band of a bitmap is a row of tiles: 32 rows of the image. (The band of a selection is another thing,
//   the frame that is drawn with the pointer.)
// - A run is pixels that lie side by side in one row of one tile: `Run(300, 5)` of an image 400 wide has the
//   100 pixels from column 300 on, since the second tile ends with the image.
// - A surface is a window object with a bitmap that is drawn on and a stored picture (surface/window).
// - A snapshot is a copy of a bitmap. It shares all tiles with it until one of the two is written.
//
// A write detaches only the tiles that it touches, and the short tables above them: a pen stroke costs the
// same on every image. Without tiles a dot on an image 6000 pixels wide would copy 24 KB for each of its
// rows. Related bitmaps are compared tile by tile, without looking at pixels.
//
// Threads: several may read one bitmap. Several may write disjoint boxes of one bitmap after `Detach` or
// `Overwrite` of the whole area, and different bands of it after `DetachTable`. Two bitmaps are
// independent, whatever tiles they share.
#pragma once

#include "base/Shared.h"
#include "surface/raster/Colour.h"
#include "surface/raster/TileMemory.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace pintalux {

/// A rectangle of whole pixels: left and top belong to it, right and bottom don't.
struct Box {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    bool Empty() const { return right <= left || bottom <= top; }
    bool operator==(const Box&) const = default;
};

/// The part that two boxes share; empty where they don't meet.
Box Intersection(const Box& a, const Box& b);

class Bitmap {
  public:
    static constexpr int kTileWidth = 256;
    static constexpr int kTileHeight = 32;

    /// The empty picture: 0 by 0.
    Bitmap() = default;

    /// `width` by `height` pixels of one colour; all tiles share one, so that the size costs nothing yet.
    /// A width or height of 0 gives the empty picture. Error 5 for a negative one, 7 if memory runs out.
    Bitmap(int width, int height, Pixel fill);

    /// A copy costs one pointer; a bitmap that was moved away is the empty picture.
    Bitmap(const Bitmap&) = default;
    Bitmap(Bitmap&& other) noexcept
        : width_(std::exchange(other.width_, 0)), height_(std::exchange(other.height_, 0)),
          table_(std::move(other.table_)) {}
    Bitmap& operator=(Bitmap other) noexcept {
        width_ = other.width_;
        height_ = other.height_;
        table_ = std::move(other.table_);
        return *this;
    }
    ~Bitmap() = default;

    int Width() const { return width_; }
    int Height() const { return height_; }
    bool Empty() const { return width_ == 0 || height_ == 0; }
    Box Bounds() const { return {0, 0, width_, height_}; }
    bool Holds(int x, int y) const { return x >= 0 && y >= 0 && x < width_ && y < height_; }

    /// The pixel at x, y, which must lie inside.
    Pixel At(int x, int y) const { return *Address(x, y); }

    /// Sets the pixel at x, y, which must lie inside. Error 7 if memory runs out.
    void Set(int x, int y, Pixel pixel) { *WritableAddress(x, y) = pixel; }

    /// The pixels from x, y to the end of their tile's row or of the image's row: at least one, at most
    /// `kTileWidth`. A walk along a row takes run after run.
    std::span<const Pixel> Run(int x, int y) const { return {Address(x, y), RunLength(x)}; }

    /// The same, to write on; detaches the tile. Valid until the bitmap is next copied.
    std::span<Pixel> WritableRun(int x, int y) { return {WritableAddress(x, y), RunLength(x)}; }

    /// Copies out.size() pixels of row y, from x on, which must lie inside.
    void ReadRow(int x, int y, std::span<Pixel> out) const;

    /// Writes in.size() pixels of row y, from x on, which must lie inside.
    void WriteRow(int x, int y, std::span<const Pixel> in);

    /// Fills a box, cut to the bitmap. Whole tiles are shared, not written.
    void Fill(const Box& box, Pixel pixel);

    /// Copies the box `from` of `source` to x, y: whole tiles are shared where they line up. Both are cut to
    /// what exists. `source` may be this bitmap's own copy.
    void Copy(int x, int y, const Bitmap& source, const Box& from);

    /// Makes the tiles of a box this bitmap's own, so that threads may write disjoint rows of it.
    void Detach(const Box& box);

    /// The same for a box that is written whole afterwards: what its tiles showed inside it is lost, so that
    /// nothing is copied first.
    void Overwrite(const Box& box);

    /// Makes the table of bands this bitmap's own, so that threads may write to boxes that have no band in
    /// common; each detaches the tiles that it meets.
    void DetachTable() {
        if (!Empty()) OwnTable();
    }

    /// This bitmap in another size: kept at the top left corner, `fill` where it grows.
    Bitmap Resized(int width, int height, Pixel fill) const;

    /// The smallest box inside `box` that holds every pixel in which two bitmaps of one size differ; empty if
    /// none does.
    static Box Shrunk(const Bitmap& a, const Bitmap& b, const Box& box);

    /// The boxes, tile by tile, where `a` and `b` may differ; neighbours in a band are joined. Empty if they
    /// share everything. If the sizes differ: the whole of `b`.
    static std::vector<Box> Difference(const Bitmap& a, const Bitmap& b);

    /// True if every pixel is equal (compared where tiles are not shared) and the sizes are.
    bool operator==(const Bitmap& other) const;

  private:
    struct Tile : Counted {
        Tile() = default; // The pixels stay as they come: whoever makes a tile writes them.
        Tile(const Tile& other);
        static void* operator new(std::size_t size) { return TakeTileMemory(size); }
        static void operator delete(void* tile) noexcept { GiveTileMemory(tile); }
        alignas(64) Pixel pixels[kTileWidth * kTileHeight];
    };
    struct Band : Counted {
        std::vector<Shared<Tile>> tiles;
    };
    struct Table : Counted {
        std::vector<Shared<Band>> bands;
    };
    enum class Keep { Pixels, Nothing };

    static std::size_t BandIndex(int y) { return static_cast<std::size_t>(y) / kTileHeight; }
    static std::size_t TileIndex(int x) { return static_cast<std::size_t>(x) / kTileWidth; }
    static std::size_t Offset(int x, int y) {
        return static_cast<std::size_t>(y) % kTileHeight * kTileWidth +
               static_cast<std::size_t>(x) % kTileWidth;
    }

    const Pixel* Address(int x, int y) const {
        return table_->bands[BandIndex(y)]->tiles[TileIndex(x)]->pixels + Offset(x, y);
    }
    Pixel* WritableAddress(int x, int y) {
        // Only loads where the path is already this bitmap's own.
        if (table_.Unique()) {
            const Shared<Band>& band = table_->bands[BandIndex(y)];
            if (band.Unique()) {
                const Shared<Tile>& tile = band->tiles[TileIndex(x)];
                if (tile.Unique()) return tile->pixels + Offset(x, y);
            }
        }
        return OwnTile(BandIndex(y), TileIndex(x), Keep::Pixels).pixels + Offset(x, y);
    }
    std::size_t RunLength(int x) const {
        const int tileRest = kTileWidth - static_cast<int>(static_cast<unsigned>(x) % kTileWidth);
        return static_cast<std::size_t>(tileRest < width_ - x ? tileRest : width_ - x);
    }

    Table& OwnTable();
    Band& OwnBand(std::size_t band);
    Tile& OwnTile(std::size_t band, std::size_t tile, Keep keep);
    Box TileBox(std::size_t band, std::size_t tile) const;
    Box BandBox(std::size_t band) const;
    static Shared<Tile> SolidTile(Pixel pixel);
    Shared<Band> SolidBand(const Shared<Tile>& tile) const;
    void FillBand(std::size_t band, const Box& box, Pixel pixel, Shared<Tile>& solid);
    void CopyBand(std::size_t band, const Box& box, const Bitmap& source, int shiftX, int shiftY);
    void CopyTile(const Box& box, const Bitmap& source, int shiftX, int shiftY);

    int width_ = 0;
    int height_ = 0;
    Shared<Table> table_;
};

using Picture = Bitmap; ///< What a surface stores and shows; the empty bitmap is the empty picture.

} // namespace pintalux
