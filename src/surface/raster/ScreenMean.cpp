#include "surface/raster/ScreenMean.h"

#include "base/Parallel.h"
#include "base/VectorClones.h"
#include "surface/raster/AxisMap.h"

#include <algorithm>
#include <vector>

namespace pintalux {

namespace {

constexpr int kMostSamples = 4;
/// Below so many screen pixels a second core costs more than it brings.
constexpr std::int64_t kWorthSplitting = 50'000;

// Red and blue of a pixel lie 16 bits apart, so that one sum takes both: 16 samples stay below 2 to the power
// of 12.
constexpr std::uint32_t kRedAndBlue = 0x00FF00FF;

PINTALUX_VECTOR_CLONES
void AddRun(const Pixel* pixels, int count, std::uint32_t* redBlue, std::uint32_t* green) {
    for (int i = 0; i < count; ++i) {
        redBlue[i] += pixels[i] & kRedAndBlue;
        green[i] += pixels[i] >> 8 & 0xFF;
    }
}

PINTALUX_VECTOR_CLONES
void AddGathered(const Pixel* pixels, const std::uint8_t* places, int count, std::uint32_t* redBlue,
                 std::uint32_t* green) {
    for (int i = 0; i < count; ++i) {
        const Pixel pixel = pixels[places[i]];
        redBlue[i] += pixel & kRedAndBlue;
        green[i] += pixel >> 8 & 0xFF;
    }
}

/// The sums of `along` neighbours, divided by `samples` to nearest: for 16 samples of at most 255 the product
/// is exact.
template <int along>
[[gnu::always_inline]] inline void Divide(const std::uint32_t* redBlue, const std::uint32_t* green, int count,
                                          std::uint32_t samples, std::uint32_t* out) {
    const std::uint32_t share = (65536 + samples - 1) / samples;
    const std::uint32_t half = samples / 2;
    for (int i = 0; i < count; ++i) {
        std::uint32_t rb = 0;
        std::uint32_t g = 0;
        for (int j = 0; j < along; ++j) {
            rb += redBlue[i * along + j];
            g += green[i * along + j];
        }
        const std::uint32_t red = ((rb & 0xFFFF) + half) * share >> 16;
        const std::uint32_t blue = ((rb >> 16) + half) * share >> 16;
        out[i] = 0xFF000000 | red << 16 | (((g + half) * share >> 8) & 0xFF00) | blue;
    }
}

PINTALUX_VECTOR_CLONES
void DivideRow(const std::uint32_t* redBlue, const std::uint32_t* green, int count, int along,
               std::uint32_t samples, std::uint32_t* out) {
    if (along == 1) return Divide<1>(redBlue, green, count, samples, out);
    if (along == 2) return Divide<2>(redBlue, green, count, samples, out);
    if (along == 3) return Divide<3>(redBlue, green, count, samples, out);
    Divide<4>(redBlue, green, count, samples, out);
}

class ScreenMean {
  public:
    ScreenMean(const Bitmap& source, int width, int height, const Box& shown, std::uint32_t* out,
               std::ptrdiff_t stride)
        : source_(source), across_(SamplesAlong(source.Width(), width)),
          down_(SamplesAlong(source.Height(), height)),
          columns_(MapVisible(shown.left * across_, shown.right * across_, width * across_, source.Width())),
          rows_(MapVisible(shown.top * down_, shown.bottom * down_, height * down_, source.Height())),
          parts_(ColumnsByTile(columns_)), places_(PlacesInTile(columns_)), width_(shown.Width()), out_(out),
          stride_(stride) {
        for (const TileColumns& part : parts_)
            adjoining_.push_back(Column(part.end - 1) - Column(part.begin) == part.end - 1 - part.begin &&
                                 EachOnce(part));
    }

    void Rows(int begin, int end) const {
        const auto fine = static_cast<std::size_t>(columns_.Size());
        std::vector<std::uint32_t> redBlue(fine);
        std::vector<std::uint32_t> green(fine);
        for (int row = begin; row < end; ++row) {
            std::uint32_t* to = out_ + row * stride_;
            if (row > begin && SameRows(row)) {
                std::copy_n(to - stride_, width_, to);
                continue;
            }
            std::fill(redBlue.begin(), redBlue.end(), 0);
            std::fill(green.begin(), green.end(), 0);
            for (int sample = 0; sample < down_; ++sample)
                AddRow(SourceRow(row * down_ + sample), redBlue.data(), green.data());
            DivideRow(redBlue.data(), green.data(), width_, across_,
                      static_cast<std::uint32_t>(across_ * down_), to);
        }
    }

  private:
    int Column(int i) const { return columns_.source[static_cast<std::size_t>(i)]; }
    int SourceRow(int i) const { return rows_.source[static_cast<std::size_t>(i)]; }

    bool EachOnce(const TileColumns& part) const {
        for (int i = part.begin + 1; i < part.end; ++i)
            if (Column(i) != Column(i - 1) + 1) return false;
        return true;
    }

    /// An axis that is enlarged repeats its rows.
    bool SameRows(int row) const { return down_ == 1 && SourceRow(row) == SourceRow(row - 1); }

    void AddRow(int y, std::uint32_t* redBlue, std::uint32_t* green) const {
        for (std::size_t i = 0; i < parts_.size(); ++i) {
            const TileColumns& part = parts_[i];
            const Pixel* pixels = source_.Run(part.tile, y).data();
            const int count = part.end - part.begin;
            if (adjoining_[i]) {
                AddRun(pixels + places_[static_cast<std::size_t>(part.begin)], count, redBlue + part.begin,
                       green + part.begin);
            } else {
                AddGathered(pixels, places_.data() + part.begin, count, redBlue + part.begin,
                            green + part.begin);
            }
        }
    }

    const Bitmap& source_;
    int across_; ///< Samples of a screen pixel along a row,
    int down_;   ///< and down a column.
    AxisMap columns_;
    AxisMap rows_;
    std::vector<TileColumns> parts_;
    std::vector<std::uint8_t> places_;
    std::vector<bool> adjoining_; ///< Of a part: it takes each of its pixels once, in turn.
    int width_;
    std::uint32_t* out_;
    std::ptrdiff_t stride_;
};

} // namespace

int SamplesAlong(int source, int destination) {
    return std::clamp((source + destination - 1) / destination, 1, kMostSamples);
}

void MeanForScreen(const Bitmap& source, int width, int height, const Box& shown, std::uint32_t* out,
                   std::ptrdiff_t stride) {
    const ScreenMean mean(source, width, height, shown, out, stride);
    if (std::int64_t{shown.Width()} * shown.Height() < kWorthSplitting) return mean.Rows(0, shown.Height());
    SplitOverCores(shown.Height(), [&](int begin, int end) { mean.Rows(begin, end); });
}

} // namespace pintalux
