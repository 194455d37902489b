// The part of a flood fill that lies in one tile of the bitmap: one bit a pixel, a word of them at a step.
#pragma once

#include "surface/raster/FloodMask.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

namespace pintalux {

/// The pixels lie in lanes: the tile's rows, several words each; or, where the area stands upright, its
/// columns, one word each. So a corridor one pixel wide is taken by words in either direction.
class FloodTile {
  public:
    using Word = FloodMask::Word;
    using Row = std::array<Word, FloodMask::kRowWords>;

    explicit FloodTile(const FloodMask& area);

    /// Lets the fill enter at the given pixels of a row; those that it may not enter are left out.
    void EnterRow(std::size_t row, const Row& pixels);
    /// Lets the fill enter at the given pixels of a column.
    void EnterColumn(std::size_t column, Word pixels);
    /// True if the fill has entered and not spread since.
    bool Waits() const { return first_ != end_; }

    /// Pixels filled at the tile's edges, through which the fill goes on in its neighbours.
    struct Edges {
        Row top{};
        Row bottom{};
        Word anyTop = 0; ///< Not 0 if any of the top row was filled.
        Word anyBottom = 0;
        Word left = 0;
        Word right = 0;
    };
    /// Fills everything inside the tile that hangs together with where the fill has entered.
    Edges Spread();

    /// What was filled.
    FloodMask Filled() const;

  private:
    void Seed(std::size_t word, Word pixels);
    std::size_t Oldest() { return waiting_[first_++ % kRing]; }
    std::size_t Newest() { return waiting_[--end_ % kRing]; }
    Word Fill(std::size_t word, Word seeds);
    void SpreadAlongRows(Edges& edges);
    void SpreadAlongColumns(Edges& edges);

    /// As many words as the longer of the two layouts has, and closed ones around them, so that the lanes at
    /// the tile's edges need no case of their own.
    static constexpr std::size_t kMargin = FloodMask::kRowWords;
    static_assert(FloodMask::kWords <= FloodMask::kColumns && FloodMask::kColumns < 0xFFFF);
    using Words = std::array<Word, FloodMask::kColumns + 2 * kMargin>;

    bool upright_;
    FloodMask::Columns area_{}; ///< What belonged to the area before the fill.
    Words open_{};              ///< What of it is not filled yet.
    Words seeds_{};             ///< What of that the fill has entered.
    /// The words that have seeds, each once: a ring with room for one more, to write on in vain.
    static constexpr std::size_t kRing = std::bit_ceil(FloodMask::kColumns + 1);
    std::array<std::uint16_t, kRing> waiting_;
    std::size_t first_ = 0; ///< The one that waits longest; only the rest of a division by `kRing` counts.
    std::size_t end_ = 0;   ///< After the one that came last.
};

} // namespace pintalux
