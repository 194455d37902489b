// The part of a flood fill that lies in one tile of the bitmap.
//
// A pixel is a bit; 32 of them, a word, are filled at a step. Open pixels belong to the area and are not
// filled yet. The fill enters a tile at some of them, its seeds. It spreads to all open pixels that hang
// together with a seed. Words with seeds wait in a queue. A word that is taken out fills its runs of open
// bits that hold a seed: open 01110110 with the seed 00000100 fills 00000110. What it filled seeds the words
// beside it.
#pragma once

#include "surface/raster/FloodMask.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

namespace pintalux {

/// The words hold rows of the tile, 8 words a row. Where the area stands upright they hold columns, one word
/// each. So a corridor one pixel wide is filled 32 pixels at a step, whether it lies or stands. By rows alone
/// an image full of upright corridors takes nearly twice the time.
class FloodTile {
  public:
    using Word = FloodMask::Word;
    using Row = std::array<Word, FloodMask::kRowWords>;

    explicit FloodTile(const FloodMask& area);

    /// Makes the given pixels of a row seeds, as far as they are open.
    void EnterRow(std::size_t row, const Row& pixels);
    /// The same for a column; the lowest bit is its topmost pixel.
    void EnterColumn(std::size_t column, Word pixels);
    /// True if there are seeds that have not spread.
    bool Waits() const { return first_ != end_; }

    /// The pixels at the tile's edges that a step of the fill filled: its neighbours are entered beside them.
    struct Edges {
        Row top{};
        Row bottom{};
        Word anyTop = 0; ///< Not 0 if any of the top row was filled.
        Word anyBottom = 0;
        Word left = 0;
        Word right = 0;
    };
    /// Fills all open pixels of the tile that hang together with the seeds; none waits afterwards.
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

    /// Both layouts have 256 words, 32 rows of 8 or 256 columns. 8 closed words lie before and 8 behind them,
    /// so that the edges need no test: nothing enters a closed word.
    static constexpr std::size_t kMargin = FloodMask::kRowWords;
    static_assert(FloodMask::kWords <= FloodMask::kColumns && FloodMask::kColumns < 0xFFFF);
    using Words = std::array<Word, FloodMask::kColumns + 2 * kMargin>;

    bool upright_;
    FloodMask::Columns area_{}; ///< What belonged to the area before the fill.
    Words open_{};              ///< What of it is not filled yet.
    Words seeds_{};             ///< What of that the fill has entered.
    /// The queue: the numbers of the words that hold seeds, each once. It is a ring with room for one number
    /// too many: `Seed` writes the number of a word first and counts it only if the word has to wait.
    static constexpr std::size_t kRing = std::bit_ceil(FloodMask::kColumns + 1);
    std::array<std::uint16_t, kRing> waiting_;
    // Counted on past the end of the ring: of 512 places number 513 is place 1.
    std::size_t first_ = 0; ///< The word that waits longest.
    std::size_t end_ = 0;   ///< Behind the word that came last.
};

} // namespace pintalux
