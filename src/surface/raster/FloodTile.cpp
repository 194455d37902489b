#include "surface/raster/FloodTile.h"

#include <algorithm>
#include <bit>

namespace pintalux {

namespace {

using Word = FloodTile::Word;

constexpr Word kLastBit = Word{1} << (FloodTile::kWordBits - 1);

// Four bits as masks of four pixels.
constexpr auto kFourMasks = [] {
    std::array<std::array<Pixel, 4>, 16> masks{};
    for (std::size_t bits = 0; bits < masks.size(); ++bits) {
        for (std::size_t i = 0; i < 4; ++i)
            masks[bits][i] = bits >> i & 1 ? 0xFFFFFFFF : 0;
    }
    return masks;
}();

// Writes the pixels whose bit is set, without a branch for each: specks would make it guess wrong all the
// time.
void BlendWord(std::span<Pixel, 64> pixels, Word bits, Pixel fill) {
    if (bits == ~Word{0}) {
        std::fill(pixels.begin(), pixels.end(), fill);
        return;
    }
    for (std::size_t i = 0; i < pixels.size(); i += 4) {
        const auto& mask = kFourMasks[bits >> i & 15];
        for (std::size_t k = 0; k < 4; ++k) {
            pixels[i + k] = (pixels[i + k] & ~mask[k]) | (fill & mask[k]);
        }
    }
}

// The open bits that hang together with the seeds towards the higher bits: adding a seed to a run of ones
// carries through to its end.
Word SpreadUp(Word seeds, Word open) {
    return (((open + seeds) ^ open) | seeds) & open;
}

// The same towards the lower bits, in doubling steps.
Word SpreadDown(Word filled, Word open) {
    if (((open & ~filled) << 1 & filled) == 0) return filled;
    for (int step = 1; step < FloodTile::kWordBits; step *= 2) {
        filled |= open & (filled >> step);
        open &= open >> step;
    }
    return filled;
}

bool IsOneBit(Word word) {
    return word != 0 && (word & (word - 1)) == 0;
}

constexpr FloodTile::RowMask RowBit(int row) {
    return FloodTile::RowMask{1} << row;
}

} // namespace

FloodTile::FloodTile(const Bitmap& bits, const Box& box, FloodArea area) : box_(box) {
    for (int y = box.top; y < box.bottom; ++y) {
        auto run = bits.Run(box.left, y);
        for (Word& word : area_[static_cast<std::size_t>(y - box.top)]) {
            const std::size_t count = std::min<std::size_t>(run.size(), kWordBits);
            word = MatchWord(run.data(), count, area);
            run = run.subspan(count);
        }
    }
    open_ = area_;
}

// One bit for each pixel of the area.
Word FloodTile::MatchWord(const Pixel* pixels, std::size_t count, FloodArea area) {
    // Compared into bytes first, which vectorises, and the bytes then gathered eight at a time.
    std::array<std::uint8_t, kWordBits> held{};
    for (std::size_t i = 0; i < count; ++i)
        held[i] = area.Holds(pixels[i]);
    Word word = 0;
    for (std::size_t i = 0; i < held.size(); i += 8) {
        Word bytes = 0;
        for (std::size_t k = 0; k < 8; ++k)
            bytes |= Word{held[i + k]} << (8 * k);
        word |= (bytes * 0x0102040810204080 >> 56) << i;
    }
    return word;
}

void FloodTile::Seed(int row, const Row& pixels) {
    const auto at = static_cast<std::size_t>(row);
    Word any = 0;
    for (std::size_t word = 0; word < kWords; ++word) {
        const Word entered = pixels[word] & open_[at][word];
        seeds_[at][word] |= entered;
        any |= entered;
    }
    if (any != 0) seeded_ |= RowBit(row);
}

void FloodTile::SeedColumn(int column, RowMask rows) {
    const auto word = static_cast<std::size_t>(column / kWordBits);
    Row pixels{};
    pixels[word] = Word{1} << (column % kWordBits);
    for (; rows != 0; rows &= rows - 1)
        Seed(std::countr_zero(rows), pixels);
}

FloodTile::Edges FloodTile::Spread() {
    Edges edges;
    bool downwards = true;
    for (int row = 0; seeded_ != 0;) {
        row = NextRow(row, downwards);
        if (!FollowCorridor(row)) SpreadRow(row, edges);
    }
    return edges;
}

// The next row with seeds in the direction of the sweep; at its end the sweep turns round.
int FloodTile::NextRow(int row, bool& downwards) const {
    const RowMask below = seeded_ & ~(RowBit(row) - 1);
    const RowMask above = seeded_ & (RowBit(row) | (RowBit(row) - 1));
    if (downwards ? below == 0 : above == 0) downwards = !downwards;
    return downwards ? std::countr_zero(below) : kRows - 1 - std::countl_zero(above);
}

// Goes along an upright corridor one pixel wide without looking at whole rows. False if `row` has none, or
// where it ends at the tile's edge or the word's.
bool FloodTile::FollowCorridor(int& row) {
    const auto start = static_cast<std::size_t>(row);
    std::size_t word = 0;
    while (word < kWords && seeds_[start][word] == 0)
        ++word;
    for (std::size_t other = word + 1; other < kWords; ++other) {
        if (seeds_[start][other] != 0) return false;
    }
    const Word bit = word < kWords ? seeds_[start][word] : 0;
    if (!IsOneBit(bit) || bit == 1 || bit == kLastBit) return false;
    const Word beside = bit << 1 | bit >> 1;
    const auto openAt = [&](int at) -> Word& { return open_[static_cast<std::size_t>(at)][word]; };

    bool went = false;
    while (row > 0 && row < kRows - 1 && (openAt(row) & bit) != 0 && (openAt(row) & beside) == 0) {
        const bool above = (openAt(row - 1) & bit) != 0;
        const bool below = (openAt(row + 1) & bit) != 0;
        if (above && below) break;
        seeds_[static_cast<std::size_t>(row)][word] = 0;
        seeded_ &= ~RowBit(row);
        openAt(row) &= ~bit;
        went = true;
        if (!above && !below) return true;
        row += below ? 1 : -1;
        const bool metOthers = (seeded_ & RowBit(row)) != 0;
        seeds_[static_cast<std::size_t>(row)][word] |= bit;
        seeded_ |= RowBit(row);
        if (metOthers) return true;
    }
    return went;
}

// Fills a row from its seeds and takes the filled pixels out of what is open.
FloodTile::Row FloodTile::TakeRow(std::size_t row) {
    Row filled{};
    Word carry = 0;
    for (std::size_t word = 0; word < kWords; ++word) {
        const Word open = open_[row][word];
        const Word seeds = (seeds_[row][word] | carry) & open;
        filled[word] = seeds == 0 ? 0 : SpreadDown(SpreadUp(seeds, open), open);
        carry = filled[word] >> (kWordBits - 1);
        seeds_[row][word] = 0;
    }
    for (std::size_t word = kWords - 1; word > 0; --word) {
        // Back over the border to the word before, where the run may begin.
        const Word entered =
            (filled[word] & 1) != 0 ? kLastBit & open_[row][word - 1] & ~filled[word - 1] : 0;
        if (entered != 0) filled[word - 1] |= SpreadDown(entered, open_[row][word - 1]);
    }
    for (std::size_t word = 0; word < kWords; ++word)
        open_[row][word] &= ~filled[word];
    return filled;
}

void FloodTile::SpreadRow(int row, Edges& edges) {
    seeded_ &= ~RowBit(row);
    const Row filled = TakeRow(static_cast<std::size_t>(row));
    if (row > 0) Seed(row - 1, filled);
    if (row < kRows - 1) Seed(row + 1, filled);
    for (std::size_t word = 0; word < kWords; ++word) {
        if (row == 0) edges.top[word] |= filled[word];
        if (row == kRows - 1) edges.bottom[word] |= filled[word];
    }
    if ((filled.front() & 1) != 0) edges.left |= RowBit(row);
    if ((filled.back() & kLastBit) != 0) edges.right |= RowBit(row);
}

Box FloodTile::Filled() const {
    Row columns{};
    RowMask rows = 0;
    for (int row = 0; row < kRows; ++row) {
        Word any = 0;
        for (std::size_t word = 0; word < kWords; ++word) {
            const Word filled = FilledWord(static_cast<std::size_t>(row), word);
            columns[word] |= filled;
            any |= filled;
        }
        if (any != 0) rows |= RowBit(row);
    }
    if (rows == 0) return {};
    Box box{box_.right, box_.top + std::countr_zero(rows), box_.left,
            box_.top + kRows - std::countl_zero(rows)};
    for (std::size_t word = 0; word < kWords; ++word) {
        if (columns[word] == 0) continue;
        const int left = box_.left + static_cast<int>(word) * kWordBits;
        box.left = std::min(box.left, left + std::countr_zero(columns[word]));
        box.right = std::max(box.right, left + kWordBits - std::countl_zero(columns[word]));
    }
    return box;
}

bool FloodTile::FilledWhole() const {
    int filled = 0;
    for (std::size_t row = 0; row < area_.size(); ++row) {
        for (std::size_t word = 0; word < kWords; ++word)
            filled += std::popcount(FilledWord(row, word));
    }
    return filled == box_.Width() * box_.Height();
}

void FloodTile::Write(Bitmap& bits, Pixel fill) const {
    for (int y = box_.top; y < box_.bottom; ++y) {
        const auto run = bits.WritableRun(box_.left, y);
        for (std::size_t word = 0; word * kWordBits < run.size(); ++word) {
            const Word filled = FilledWord(static_cast<std::size_t>(y - box_.top), word);
            if (filled == 0) continue;
            const auto pixels = run.subspan(word * kWordBits);
            if (pixels.size() >= kWordBits) {
                BlendWord(pixels.first<kWordBits>(), filled, fill);
                continue;
            }
            for (std::size_t i = 0; i < pixels.size(); ++i)
                pixels[i] = filled >> i & 1 ? fill : pixels[i];
        }
    }
}

} // namespace pintalux
