#include "base/VectorClones.h"
#include "imageops/ChannelSplit.h"
#include "imageops/ImgFiltMod.h"
#include "imageops/Landing.h"
#include "imageops/PixelTable.h"
#include "imageops/RowLoop.h"
#include "surface/raster/StreamCopy.h"
#include "surface/window/Surface.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace pintalux {

namespace {

/// round(sum / 10), half to even, of the sum of nine channels: the first quotient tells whether a half goes
/// up or down.
// Intended: nine pixels are divided by ten, so that the picture also gets darker by a tenth.
inline Channel Tenth(Channel sum) {
    // 6554 / 65536 is near enough to 1 / 10 for sums up to 2313.
    const auto tenth = [](int of) {
        return static_cast<std::uint16_t>(static_cast<unsigned>(of) * 6554U >> 16);
    };
    const auto whole = static_cast<std::uint16_t>(sum);
    const std::uint16_t quotient = tenth(whole);
    return static_cast<Channel>(tenth(static_cast<std::uint16_t>(whole + 4 + (quotient & 1))));
}

PINTALUX_VECTOR_CLONES
void AddRows(const Channel* upper, const Channel* middle, const Channel* lower, Channel* out, int count) {
    for (int i = 0; i < count; ++i)
        out[i] = static_cast<Channel>(upper[i] + middle[i] + lower[i]);
}

/// `SplitChannels` for `count` pixels, each channel side by side.
PINTALUX_VECTOR_CLONES
void SplitRun(const Pixel* pixels, Channel* red, Channel* green, Channel* blue, int count) {
    for (int i = 0; i < count; ++i) {
        const Channels c = SplitChannels(pixels[i]);
        red[i] = c.red;
        green[i] = c.green;
        blue[i] = c.blue;
    }
}

/// The sums of a channel over three rows, from d columns left of the first pixel on; `d` is the stride.
inline Channel Softened(const Channel* sums, int i, int d) {
    return Tenth(static_cast<Channel>(sums[i] + sums[i + d] + sums[i + 2 * d]));
}

PINTALUX_VECTOR_CLONES
void SoftenRun(const Channel* red, const Channel* green, const Channel* blue, Pixel* out, int count, int d) {
    for (int i = 0; i < count; ++i)
        out[i] = ComposePixel({Softened(red, i, d), Softened(green, i, d), Softened(blue, i, d)});
}

constexpr int WholeVectors(int count) {
    return (count + kVectorPixels - 1) / kVectorPixels * kVectorPixels;
}

/// The split rows around the one that is computed, in a strip of columns as wide as a tile and its
/// neighbourhood: each pixel is split once, and all stays in the nearest cache.
class Strip {
  public:
    Strip(const PixelTable& Px, int level)
        : Px_(Px), level_(level), width_(WholeVectors(Bitmap::kTileWidth + 2 * level) + kVectorPixels),
          rows_(2 * level + 1), pixels_(static_cast<std::size_t>(width_)),
          planes_(static_cast<std::size_t>(3 * width_ * (rows_ + 1))) {}

    /// Begins at columns x to x + count - 1, row y.
    void Begin(int x, int y, int count) {
        left_ = x - level_;
        count_ = count + 2 * level_;
        for (int row = y - level_; row < y + level_; ++row)
            Split(row);
    }

    /// Row y of the strip from x on; the rows come one after the other. `out` has room for whole vectors.
    void Soften(int x, int y, int count, Pixel* out) {
        Split(y + level_);
        const int d = std::min(level_, y);
        SoftenRun(Sums(y, d, 0), Sums(y, d, 1), Sums(y, d, 2), out, WholeVectors(count), d);
        for (int column = x; column < std::min(d, x + count); ++column)
            out[column - x] = NearLeftEdge(column, y);
    }

  private:
    /// Where the stride is the column itself.
    Pixel NearLeftEdge(int x, int y) {
        const Channel* const rows[] = {Plane(y - x, 0), Plane(y, 0), Plane(y + x, 0)};
        const std::ptrdiff_t d = x;
        const auto sum = [&](int channel) {
            int nine = 0;
            for (const Channel* row : rows) {
                const Channel* first = row + static_cast<std::ptrdiff_t>(channel) * width_ - left_;
                nine += first[0] + first[d] + first[2 * d];
            }
            return static_cast<Channel>(nine);
        };
        const Channel PxR = sum(0), PxG = sum(1), PxB = sum(2);
        return ComposePixel({Tenth(PxR), Tenth(PxG), Tenth(PxB)});
    }
    void Split(int y) {
        SplitRun(Px_.RunDown(left_, y, count_, pixels_.data()), Plane(y, 0), Plane(y, 1), Plane(y, 2),
                 count_);
    }
    /// The sums of rows y - d, y and y + d, from d columns left of the strip's first pixel on.
    const Channel* Sums(int y, int d, int channel) {
        Channel* const sums = At(rows_, channel);
        AddRows(Plane(y - d, channel), Plane(y, channel), Plane(y + d, channel), sums, WholeVectors(count_));
        return sums + (level_ - d);
    }
    Channel* Plane(int y, int channel) { return At((y + rows_) % rows_, channel); }
    Channel* At(int slot, int channel) {
        return planes_.data() + static_cast<std::ptrdiff_t>(3 * slot + channel) * width_;
    }

    const PixelTable& Px_;
    int level_;
    int width_;
    int rows_;
    int left_ = 0;
    int count_ = 0;
    std::vector<Pixel> pixels_;
    std::vector<Channel> planes_;
};

} // namespace

void SoftenFilter(Surface& work, Surface& live, ProgressBar& Pb, std::int16_t level) {
    const Box loop{1, 1, LoopEnd(work.ScaleWidth() - level), LoopEnd(work.ScaleHeight() - level)};
    SetProgressMax(Pb, work.ScaleWidth() - 1 + work.ScaleWidth() - level);
    const PixelTable Px = ReadPixels(work);
    const bool masked = MaskIsUp();
    Bitmap& bits = work.hDC().Bits();
    ForRows(work, loop, Pb, Cores::All, [&](int top, int bottom) {
        Strip strip(Px, level);
        alignas(64) PixelTable::Room out;
        for (int x = loop.left; x < loop.right;) {
            const int count = std::min(static_cast<int>(bits.Run(x, top).size()), loop.right - x);
            strip.Begin(x, top, count);
            for (int y = top; y < bottom; ++y) {
                strip.Soften(x, y, count, out.data());
                if (masked) KeepMasked(Px, x, y, count, out.data());
                StreamRow(bits, x, y, {out.data(), static_cast<std::size_t>(count)});
            }
            x += count;
        }
    });
    Land(work, live, work);
}

} // namespace pintalux
