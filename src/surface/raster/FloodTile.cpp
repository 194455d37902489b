#include "surface/raster/FloodTile.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace pintalux {

namespace {

using Word = FloodTile::Word;
constexpr std::size_t kWordBits = FloodMask::kWordBits;
constexpr std::size_t kRows = FloodMask::kRows;
constexpr std::size_t kColumns = FloodMask::kColumns;
constexpr std::size_t kRowWords = FloodMask::kRowWords;
constexpr std::size_t kLast = kWordBits - 1;

// So many words wait where the area is wide and full of holes, not along corridors.
constexpr std::size_t kCrowd = 8;

Word AllBitsIf(bool condition) {
    return Word{0} - static_cast<Word>(condition);
}

std::size_t LowestBit(Word bits) {
    return static_cast<std::size_t>(std::countr_zero(bits));
}

// The open bits that hang together with the seeds towards the higher bits: adding a seed to a run of ones
// carries through to its end.
Word SpreadUp(Word seeds, Word open) {
    return (((open + seeds) ^ open) | seeds) & open;
}

// The same towards the lower bits, in doubling steps.
Word SpreadDown(Word filled, Word open) {
    if (((open & ~filled) << 1 & filled) == 0) return filled;
    for (std::size_t step = 1; step < kWordBits; step *= 2) {
        filled |= open & (filled >> step);
        open &= open >> step;
    }
    return filled;
}

} // namespace

FloodTile::FloodTile(const FloodMask& area) : upright_(area.StandsUpright()) {
    if (upright_) {
        area_ = area.ByColumns();
    } else {
        std::copy(area.Rows().begin(), area.Rows().end(), area_.begin());
    }
    std::copy(area_.begin(), area_.end(), open_.begin() + kMargin);
}

FloodMask FloodTile::Filled() const {
    const auto filled = [&](auto& words) {
        for (std::size_t word = 0; word < words.size(); ++word)
            words[word] = area_[word] & ~open_[kMargin + word];
    };
    if (upright_) {
        FloodMask::Columns columns;
        filled(columns);
        return FloodMask::OfColumns(columns);
    }
    FloodMask::Words rows;
    filled(rows);
    return FloodMask(rows);
}

// Lets the fill enter a word, which then waits for its turn. Without branches: whether it can enter is
// anybody's guess.
inline void FloodTile::Seed(std::size_t word, Word pixels) {
    const Word entered = pixels & open_[kMargin + word];
    const Word before = seeds_[kMargin + word];
    waiting_[end_ % kRing] = static_cast<std::uint16_t>(word);
    end_ += static_cast<std::size_t>((before == 0) & (entered != 0));
    seeds_[kMargin + word] = before | entered;
}

void FloodTile::EnterRow(std::size_t row, const Row& pixels) {
    for (std::size_t word = 0; word < kRowWords; ++word) {
        if (!upright_) {
            Seed(row * kRowWords + word, pixels[word]);
            continue;
        }
        for (Word rest = pixels[word]; rest != 0; rest &= rest - 1)
            Seed(word * kWordBits + LowestBit(rest), Word{1} << row);
    }
}

void FloodTile::EnterColumn(std::size_t column, Word pixels) {
    if (upright_) {
        Seed(column, pixels);
        return;
    }
    const Word bit = Word{1} << (column % kWordBits);
    for (; pixels != 0; pixels &= pixels - 1)
        Seed(LowestBit(pixels) * kRowWords + column / kWordBits, bit);
}

FloodTile::Edges FloodTile::Spread() {
    Edges edges;
    upright_ ? SpreadAlongColumns(edges) : SpreadAlongRows(edges);
    return edges;
}

// Fills what hangs together with the seeds inside a word, and gives it.
inline Word FloodTile::Fill(std::size_t word, Word seeds) {
    Word& open = open_[kMargin + word];
    const Word filled = SpreadDown(SpreadUp(seeds, open), open);
    open &= ~filled;
    return filled;
}

void FloodTile::SpreadAlongColumns(Edges& edges) {
    while (Waits()) {
        const std::size_t column = Newest();
        const Word filled = Fill(column, std::exchange(seeds_[kMargin + column], 0));
        edges.left |= filled & AllBitsIf(column == 0);
        edges.right |= filled & AllBitsIf(column == kColumns - 1);
        const Word top = filled & 1;
        const Word bottom = filled >> (kRows - 1);
        edges.top[column / kWordBits] |= top << (column % kWordBits);
        edges.bottom[column / kWordBits] |= bottom << (column % kWordBits);
        edges.anyTop |= top;
        edges.anyBottom |= bottom;
        Seed(column - 1, filled);
        Seed(column + 1, filled);
    }
}

void FloodTile::SpreadAlongRows(Edges& edges) {
    while (Waits()) {
        // In a crowd the oldest comes first: by then it has been entered from all sides.
        const bool crowded = end_ - first_ >= kCrowd;
        std::size_t at = crowded ? Oldest() : Newest();
        Word seeds = std::exchange(seeds_[kMargin + at], 0);
        while (seeds != 0) {
            const std::size_t row = at / kRowWords;
            const std::size_t word = at % kRowWords;
            const Word filled = Fill(at, seeds);
            const Word outLeft = filled & AllBitsIf(word == 0) & 1;
            const Word outRight = filled >> kLast & AllBitsIf(word == kRowWords - 1);
            const Word outTop = filled & AllBitsIf(row == 0);
            const Word outBottom = filled & AllBitsIf(row == kRows - 1);
            edges.top[word] |= outTop;
            edges.bottom[word] |= outBottom;
            edges.anyTop |= outTop;
            edges.anyBottom |= outBottom;
            edges.left |= outLeft << row;
            edges.right |= outRight << row;

            const std::size_t here = at;
            const Word toLeft = ((filled & 1) ^ outLeft) << kLast;
            const Word toRight = (filled >> kLast) ^ outRight;
            seeds = 0;
            if (crowded) {
                Seed(here - kRowWords, filled);
                Seed(here + kRowWords, filled);
                Seed(here - 1, toLeft);
                Seed(here + 1, toRight);
                continue;
            }
            // Else one word beside comes next, without the way through the ring: along a corridor there is
            // but one.
            const auto enter = [&](std::size_t beside, Word pixels) {
                const Word entered = pixels & open_[kMargin + beside];
                if (entered == 0) return;
                if (seeds != 0 || seeds_[kMargin + beside] != 0) {
                    Seed(beside, entered);
                } else {
                    seeds = entered;
                    at = beside;
                }
            };
            enter(here - kRowWords, filled);
            enter(here + kRowWords, filled);
            enter(here - 1, toLeft);
            enter(here + 1, toRight);
        }
    }
}

} // namespace pintalux
