// The part of a flood fill that lies in one tile of the bitmap: one bit a pixel, 64 pixels at a step.
#pragma once

#include "surface/raster/Bitmap.h"

#include <array>
#include <cstdint>

namespace pintalux {

/// The pixels that belong to an area: those of a colour, or all others.
struct FloodArea {
    Pixel colour;
    bool ofTheColour;

    bool Holds(Pixel pixel) const { return (pixel == colour) == ofTheColour; }
};

class FloodTile {
  public:
    using Word = std::uint64_t;
    using RowMask = std::uint32_t; ///< A bit for each row of the tile.
    static constexpr int kWordBits = 64;
    static constexpr std::size_t kWords = Bitmap::kTileWidth / kWordBits;
    static constexpr int kRows = Bitmap::kTileHeight;
    using Row = std::array<Word, kWords>; ///< A bit for each pixel of a row.

    /// The tile that covers `box` of the bitmap.
    FloodTile(const Bitmap& bits, const Box& box, FloodArea area);

    /// Lets the fill enter a row at the given pixels; those that it may not enter are left out.
    void Seed(int row, const Row& pixels);
    /// Lets the fill enter one column in the given rows.
    void SeedColumn(int column, RowMask rows);
    /// True if there is something to do since the last `Spread`.
    bool Seeded() const { return seeded_ != 0; }

    /// Pixels filled at the tile's edges, through which the fill goes on in its neighbours.
    struct Edges {
        Row top{};
        Row bottom{};
        RowMask left = 0;
        RowMask right = 0;
    };
    /// Fills everything inside the tile that hangs together with the seeds.
    Edges Spread();

    /// The box of the bitmap around what was filled; empty if nothing was.
    Box Filled() const;
    /// True if every pixel was filled.
    bool FilledWhole() const;
    /// Writes the filled pixels.
    void Write(Bitmap& bits, Pixel fill) const;

  private:
    static Word MatchWord(const Pixel* pixels, std::size_t count, FloodArea area);

    Word FilledWord(std::size_t row, std::size_t word) const { return area_[row][word] & ~open_[row][word]; }
    int NextRow(int row, bool& downwards) const;
    bool FollowCorridor(int& row);
    void SpreadRow(int row, Edges& edges);
    Row TakeRow(std::size_t row);

    Box box_;
    std::array<Row, kRows> area_{}; ///< What belonged to the area before the fill.
    std::array<Row, kRows> open_{}; ///< What of it is not filled yet.
    std::array<Row, kRows> seeds_{};
    RowMask seeded_ = 0; ///< The rows that have seeds.
};

} // namespace pintalux
