#include "base/VectorClones.h"
#include "document/Globals.h"
#include "imageops/ImgFiltMod.h"
#include "imageops/Landing.h"
#include "imageops/NearWhiteRule.h"
#include "imageops/PixelTable.h"
#include "imageops/RandomNumbers.h"
#include "imageops/RowLoop.h"
#include "surface/raster/StreamCopy.h"
#include "surface/window/ProgressBar.h"
#include "surface/window/Surface.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace pintalux {

namespace {

constexpr Pixel kOutside = 0xFFFFFFFF; // What `Point` gives there.

/// round(level * r), half to even, of a random number in 24 bits: the product as doubles give it, exactly.
inline int OffsetOf(int level, std::uint32_t r) {
    const std::int64_t product = std::int64_t{level} * r;
    return static_cast<int>((product + 0x7FFFFF + (product >> 24 & 1)) >> 24);
}

/// The colour that the digits of `k` give, written in hexadecimal without leading zeros and read in pairs
/// from the left as blue, green and red; a pair may be one digit, or nothing, which is 0.
// Intended: the digits shift where the blue of a colour is below 0x10, which gives the scattered image its
// colour noise.
inline Pixel PairedDigits(Pixel k) {
    const Pixel five = (k << 4 & 0xFFFF00) | (k & 15);
    const Pixel three = (k << 12 & 0xFF0000) | (k & 15) << 8;
    const Pixel upToTwo = k << 16;
    // With branches the compiler could not take several pixels at a time.
    const auto below = [k](Pixel limit, Pixel then, Pixel otherwise) {
        const Pixel mask = 0U - static_cast<Pixel>(k < limit);
        return (mask & then) | (~mask & otherwise);
    };
    return below(0x100, upToTwo, below(0x1000, three, below(0x10000, k << 8, below(0x100000, five, k)))) &
           0xFFFFFF;
}

// Intended: only a red above 240 caps a colour, at 200 or, where green or blue is not bright, at 0; white
// turns grey.
PINTALUX_VECTOR_CLONES
void ScatterRun(const Pixel* from, Pixel* out, int count) {
    for (int i = 0; i < count; ++i) {
        const Pixel paired = PairedDigits(from[i]);
        const auto HexRed = static_cast<Channel>(paired & 255);
        const auto HexGreen = static_cast<Channel>(paired >> 8 & 255);
        const auto HexBlue = static_cast<Channel>(paired >> 16);
        const int capped = 200 | (NearFull(HexGreen) & 200) << 8 | (NearFull(HexBlue) & 200) << 16;
        const int bright = NearFull(HexRed);
        out[i] = static_cast<Pixel>((bright & capped) | (~bright & static_cast<int>(paired)));
    }
}

/// The rows that a row fetches from, each side by side in memory, with what lies outside to their right.
class FetchedRows {
  public:
    FetchedRows(const PixelTable& Px, int level)
        : Px_(Px), rows_(level + 1), width_(Px.W() + level),
          pixels_(static_cast<std::size_t>(rows_) * static_cast<std::size_t>(width_), kOutside) {}

    Pixel* Row(int y) { return pixels_.data() + static_cast<std::ptrdiff_t>(y % rows_) * width_; }

    /// Takes row y; the oldest one goes.
    void Take(int y) {
        if (y < Px_.H()) {
            Px_.Pixels().ReadRow(0, y, {Row(y), static_cast<std::size_t>(Px_.W())});
        } else {
            std::fill_n(Row(y), width_, kOutside);
        }
    }

  private:
    const PixelTable& Px_;
    int rows_;
    int width_;
    std::vector<Pixel> pixels_;
};

/// How far right and down each pixel of a row is fetched from: two random numbers each.
PINTALUX_VECTOR_CLONES
void OffsetsRun(const RandomNumbers& random, int level, std::int16_t* right, std::int16_t* down, int count) {
    for (int i = 0; i < count; ++i) {
        const auto before = static_cast<std::uint64_t>(2 * i);
        right[i] = static_cast<std::int16_t>(OffsetOf(level, random.BitsAhead(before)));
        down[i] = static_cast<std::int16_t>(OffsetOf(level, random.BitsAhead(before + 1)));
    }
}

/// Makes the pixels of row PxX, from those that random numbers fetch.
void ScatterRow(FetchedRows& rows, int level, int PxX, const RandomNumbers& random, std::span<Pixel> out) {
    constexpr std::size_t kAtOnce = 256;
    std::vector<const Pixel*> below;
    for (int i = 0; i <= level; ++i)
        below.push_back(rows.Row(PxX + i) + 1);
    std::array<std::int16_t, kAtOnce> right, down;
    std::array<Pixel, kAtOnce> fetched;
    for (std::size_t first = 0; first < out.size(); first += kAtOnce) {
        const std::size_t count = std::min(kAtOnce, out.size() - first);
        OffsetsRun(random.Ahead(2 * first), level, right.data(), down.data(), static_cast<int>(count));
        for (std::size_t i = 0; i < count; ++i)
            fetched[i] =
                below[static_cast<std::size_t>(down[i])][first + i + static_cast<std::size_t>(right[i])];
        ScatterRun(fetched.data(), &out[first], static_cast<int>(count));
    }
}

/// Puts back the pixels of row PxX that the mask protects.
// Intended: the mask is read with row and column exchanged, so that scattered grains stray over the outline.
void KeepScatterMasked(const Bitmap& bits, const PixelTable& Px, int PxX, std::span<Pixel> out) {
    for (int PxY = 1; PxY <= static_cast<int>(out.size()); ++PxY) {
        // The rows above are done, and it is their new pixels that count.
        const Bitmap& current = PxY < PxX ? bits : Px.Pixels();
        if (current.Holds(PxX, PxY) && current.At(PxX, PxY) == MaskKeyColour) {
            out[static_cast<std::size_t>(PxY - 1)] = Px.Pixels().At(PxY, PxX);
        }
    }
}

} // namespace

// A pixel is fetched from its own row or one below, and never from its left: from what the loop has not
// changed yet. So the table may stand for the surface, and rows need not wait for each other.
void ScatterFilter(Surface& work, Surface& live, ProgressBar& Pb, std::int16_t level) {
    SetProgressMax(Pb, work.ScaleHeight() - 3);
    const Box loop{1, 1, LoopEnd(work.ScaleWidth() - 3), LoopEnd(work.ScaleHeight() - 3)};
    if (!loop.Empty()) {
        const PixelTable Px = ReadPixels(work);
        Bitmap& bits = work.hDC().Bits();
        const bool masked = MaskIsUp();
        const auto columns = static_cast<std::size_t>(loop.Width());
        const RandomNumbers start = TheRandomNumbers;
        TheRandomNumbers = start.Ahead(2 * columns * static_cast<std::size_t>(loop.Height()));
        ForRows(work, loop, Pb, masked ? Cores::One : Cores::All, [&](int top, int bottom) {
            FetchedRows rows(Px, level);
            for (int y = top; y < top + level; ++y)
                rows.Take(y);
            std::vector<Pixel> row(columns);
            for (int PxX = top; PxX < bottom; ++PxX) {
                rows.Take(PxX + level);
                const auto before = 2 * columns * static_cast<std::size_t>(PxX - loop.top);
                ScatterRow(rows, level, PxX, start.Ahead(before), row);
                if (masked) KeepScatterMasked(bits, Px, PxX, row);
                StreamRow(bits, loop.left, PxX, row);
            }
        });
    }
    Pb.Value(0);
    Land(work, live, work);
}

} // namespace pintalux
