#include "surface/raster/FloodMask.h"

#include <algorithm>
#include <bit>
#include <span>

namespace pintalux {

namespace {

using Word = FloodMask::Word;
constexpr std::size_t kWordBits = FloodMask::kWordBits;
constexpr std::size_t kRowWords = FloodMask::kRowWords;
constexpr Word kAllBits = FloodMask::kAllBits;

// The loops over the pixels of a word run over this table, which lets them take several pixels at a time.
constexpr auto kBits = [] {
    std::array<Word, kWordBits> bits{};
    for (std::size_t i = 0; i < kWordBits; ++i)
        bits[i] = Word{1} << i;
    return bits;
}();

Word LowBits(std::size_t count) {
    return count < kWordBits ? (Word{1} << count) - 1 : kAllBits;
}

Word MatchWord(std::span<const Pixel, kWordBits> pixels, FloodArea area) {
    Word same = 0;
    for (std::size_t i = 0; i < kWordBits; ++i)
        same |= (pixels[i] == area.colour ? kAllBits : 0) & kBits[i];
    return area.ofTheColour ? same : ~same;
}

// Writes the pixels whose bit is set, without a branch for each: specks would make it guess wrong all the
// time.
void BlendWord(std::span<Pixel, kWordBits> pixels, Word bits, Pixel fill) {
    if (bits == kAllBits) {
        std::fill(pixels.begin(), pixels.end(), fill);
        return;
    }
    for (std::size_t i = 0; i < kWordBits; ++i)
        pixels[i] = (bits & kBits[i]) != 0 ? fill : pixels[i];
}

// The number of set bits, in plain steps that the compiler can take for several words at a time.
Word CountBits(Word bits) {
    bits -= bits >> 1 & 0x55555555;
    bits = (bits & 0x33333333) + (bits >> 2 & 0x33333333);
    bits = (bits + (bits >> 4)) & 0x0F0F0F0F;
    bits += bits >> 8;
    return (bits + (bits >> 16)) & 0xFF;
}

using Row = std::array<Word, kRowWords>;
using Squares = std::array<Row, kWordBits>;

// Turns squares of bits that lie side by side, each by itself: bit c of row r becomes bit r of row c.
void Transpose(Squares& squares) {
    Word low = kAllBits;
    for (std::size_t half = kWordBits / 2; half > 0; half /= 2) {
        low ^= low << half;
        for (std::size_t row = 0; row < kWordBits; row = (row + half + 1) & ~half) {
            Row upper = squares[row]; // Copies, which the compiler knows to lie apart.
            Row lower = squares[row + half];
            for (std::size_t word = 0; word < kRowWords; ++word) {
                const Word swapped = (upper[word] >> half ^ lower[word]) & low;
                upper[word] ^= swapped << half;
                lower[word] ^= swapped;
            }
            squares[row] = upper;
            squares[row + half] = lower;
        }
    }
}

} // namespace

FloodMask::FloodMask(const Bitmap& bits, const Box& box, FloodArea area) {
    const auto columns = static_cast<std::size_t>(box.Width());
    for (int y = box.top; y < box.bottom; ++y) {
        const auto run = bits.Run(box.left, y);
        Word* const row = rows_.data() + static_cast<std::size_t>(y - box.top) * kRowWords;
        for (std::size_t x = 0; x + kWordBits <= columns; x += kWordBits)
            row[x / kWordBits] = MatchWord(run.subspan(x).first<kWordBits>(), area);
        const std::size_t rest = columns % kWordBits;
        if (rest == 0) continue;
        std::array<Pixel, kWordBits> padded{};
        std::copy_n(run.end() - static_cast<std::ptrdiff_t>(rest), rest, padded.begin());
        row[columns / kWordBits] = MatchWord(padded, area) & LowBits(rest);
    }
}

FloodMask FloodMask::OfColumns(const Columns& columns) {
    Squares squares;
    for (std::size_t word = 0; word < kRowWords; ++word) {
        for (std::size_t bit = 0; bit < kWordBits; ++bit)
            squares[bit][word] = columns[word * kWordBits + bit];
    }
    Transpose(squares);
    Words rows;
    for (std::size_t row = 0; row < kRows; ++row)
        std::copy(squares[row].begin(), squares[row].end(), rows.data() + row * kRowWords);
    return FloodMask(rows);
}

FloodMask::Columns FloodMask::ByColumns() const {
    Squares squares{};
    for (std::size_t row = 0; row < kRows; ++row)
        std::copy_n(rows_.data() + row * kRowWords, kRowWords, squares[row].begin());
    Transpose(squares);
    Columns columns;
    for (std::size_t word = 0; word < kRowWords; ++word) {
        for (std::size_t bit = 0; bit < kWordBits; ++bit)
            columns[word * kWordBits + bit] = squares[bit][word];
    }
    return columns;
}

bool FloodMask::HoldsAllOf(const Box& box) const {
    const auto columns = static_cast<std::size_t>(box.Width());
    for (std::size_t row = 0; row < static_cast<std::size_t>(box.Height()); ++row) {
        for (std::size_t x = 0; x < columns; x += kWordBits) {
            if (rows_[row * kRowWords + x / kWordBits] != LowBits(columns - x)) return false;
        }
    }
    return true;
}

bool FloodMask::HoldsNone() const {
    return std::all_of(rows_.begin(), rows_.end(), [](Word word) { return word == 0; });
}

Box FloodMask::Around() const {
    const auto held = [](Word word) { return word != 0; };
    const auto first = std::find_if(rows_.begin(), rows_.end(), held);
    if (first == rows_.end()) return {};
    const auto end = std::find_if(rows_.rbegin(), rows_.rend(), held).base();
    std::array<Word, kRowWords> columns{};
    for (std::size_t row = 0; row < kRows; ++row) {
        for (std::size_t word = 0; word < kRowWords; ++word)
            columns[word] |= rows_[row * kRowWords + word];
    }
    const auto left = std::find_if(columns.begin(), columns.end(), held);
    const auto right = std::find_if(columns.rbegin(), columns.rend(), held).base() - 1;
    constexpr int kBitsOfWord = kWordBits;
    return {static_cast<int>(left - columns.begin()) * kBitsOfWord + std::countr_zero(*left),
            static_cast<int>(first - rows_.begin()) / static_cast<int>(kRowWords),
            static_cast<int>(right - columns.begin() + 1) * kBitsOfWord - std::countl_zero(*right),
            static_cast<int>(end - rows_.begin() - 1) / static_cast<int>(kRowWords) + 1};
}

bool FloodMask::StandsUpright() const {
    // A few pairs of rows stand for all. What is in one piece over most of a word is as well off by rows.
    constexpr std::size_t kStep = std::max<std::size_t>(kRows / 8, 1);
    Word words = 0;
    Word flatPieces = 0;
    Word uprightPieces = 0;
    for (std::size_t row = 1; row < kRows; row += kStep) {
        words += kRowWords;
        for (std::size_t at = row * kRowWords; at < (row + 1) * kRowWords; ++at) {
            flatPieces += CountBits(rows_[at] & ~(rows_[at] << 1));
            uprightPieces += CountBits(rows_[at] & ~rows_[at - kRowWords]);
        }
    }
    return 2 * (uprightPieces + words) < flatPieces;
}

void FloodMask::Write(Bitmap& bits, const Box& box, Pixel fill) const {
    for (int y = box.top; y < box.bottom; ++y) {
        const auto pixels = bits.WritableRun(box.left, y);
        const Word* const row = rows_.data() + static_cast<std::size_t>(y - box.top) * kRowWords;
        for (std::size_t x = 0; x < pixels.size(); x += kWordBits) {
            const Word word = row[x / kWordBits];
            const auto rest = pixels.subspan(x);
            if (word == 0) continue;
            if (rest.size() >= kWordBits) {
                BlendWord(rest.first<kWordBits>(), word, fill);
                continue;
            }
            for (std::size_t i = 0; i < rest.size(); ++i)
                rest[i] = (word & kBits[i]) != 0 ? fill : rest[i];
        }
    }
}

} // namespace pintalux
