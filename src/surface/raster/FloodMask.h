// The area of a flood fill inside one tile of the bitmap, as bits.
#pragma once

#include "surface/raster/Bitmap.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace pintalux {

/// The pixels that belong to an area: those of a colour, or all others.
struct FloodArea {
    Pixel colour;
    bool ofTheColour;

    bool Holds(Pixel pixel) const { return (pixel == colour) == ofTheColour; }
};

/// A bit for each pixel of a tile, row by row: the lowest bit of a word is its leftmost pixel. Pixels beyond
/// the bitmap's right or lower end have none.
class FloodMask {
  public:
    using Word = std::uint32_t;
    static constexpr std::size_t kWordBits = 32;
    static constexpr Word kAllBits = ~Word{0};
    static constexpr std::size_t kColumns = Bitmap::kTileWidth;
    static constexpr std::size_t kRows = Bitmap::kTileHeight;
    static constexpr std::size_t kRowWords = kColumns / kWordBits;
    static constexpr std::size_t kWords = kRows * kRowWords;
    static_assert(kColumns % kWordBits == 0, "the row of a tile is so many whole words");
    static_assert(kRows <= kWordBits, "the column of a tile fits in one word");
    using Words = std::array<Word, kWords>;
    using Columns = std::array<Word, kColumns>; ///< A word a column, its lowest bit the topmost pixel.

    /// The pixels of `box`, a tile of the bitmap cut to its size, that belong to the area.
    FloodMask(const Bitmap& bits, const Box& box, FloodArea area);
    /// The pixels whose bits are given row by row.
    explicit FloodMask(const Words& rows) : rows_(rows) {}
    /// The pixels whose bits are given column by column.
    static FloodMask OfColumns(const Columns& columns);

    const Words& Rows() const { return rows_; }
    Columns ByColumns() const;

    bool HoldsAllOf(const Box& box) const;
    bool HoldsNone() const;
    /// The box around the pixels, from the tile's corner; empty if there are none.
    Box Around() const;
    /// True if the mask falls into far fewer pieces by columns than by rows.
    bool StandsUpright() const;

    /// Writes the pixels on the tile whose box is given.
    void Write(Bitmap& bits, const Box& box, Pixel fill) const;

  private:
    Words rows_{};
};

} // namespace pintalux
