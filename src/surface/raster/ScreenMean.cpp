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

/// Of a picture with a key the sums leave out what is in its colour; the upper half of green counts the rest.
constexpr std::uint32_t kOneSample = 0x00010000;

PINTALUX_VECTOR_CLONES
void AddRunUnlessKey(const Pixel* pixels, int count, Pixel key, std::uint32_t* redBlue,
                     std::uint32_t* green) {
    for (int i = 0; i < count; ++i) {
        const std::uint32_t inside = pixels[i] == key ? 0U : ~0U;
        redBlue[i] += pixels[i] & kRedAndBlue & inside;
        green[i] += ((pixels[i] >> 8 & 0xFF) | kOneSample) & inside;
    }
}

PINTALUX_VECTOR_CLONES
void AddGatheredUnlessKey(const Pixel* pixels, const std::uint8_t* places, int count, Pixel key,
                          std::uint32_t* redBlue, std::uint32_t* green) {
    for (int i = 0; i < count; ++i) {
        const Pixel pixel = pixels[places[i]];
        const std::uint32_t inside = pixel == key ? 0U : ~0U;
        redBlue[i] += pixel & kRedAndBlue & inside;
        green[i] += ((pixel >> 8 & 0xFF) | kOneSample) & inside;
    }
}

template <std::ptrdiff_t along>
[[gnu::always_inline]] inline std::uint32_t SumOf(const std::uint32_t* neighbours) {
    std::uint32_t sum = 0;
    for (std::ptrdiff_t j = 0; j < along; ++j)
        sum += neighbours[j];
    return sum;
}

/// As `Divide`, with what `out` holds, alpha as well, in the place of the samples that were left out.
template <std::ptrdiff_t along>
[[gnu::always_inline]] inline void DivideOver(const std::uint32_t* redBlue, const std::uint32_t* green,
                                              int count, std::uint32_t samples, std::uint32_t* out) {
    const std::uint32_t share = (65536 + samples - 1) / samples;
    const std::uint32_t half = samples / 2;
    for (int i = 0; i < count; ++i) {
        const std::uint32_t rb = SumOf<along>(redBlue + i * along);
        const std::uint32_t g = SumOf<along>(green + i * along);
        const std::uint32_t inside = g >> 16;
        const std::uint32_t below = samples - inside;
        const std::uint32_t under = out[i];
        const std::uint32_t alpha = (255 * inside + below * (under >> 24) + half) * share >> 16;
        const std::uint32_t red = ((rb & 0xFFFF) + below * (under >> 16 & 0xFF) + half) * share >> 16;
        const std::uint32_t middle = ((g & 0xFFFF) + below * (under >> 8 & 0xFF) + half) * share >> 16;
        const std::uint32_t blue = ((rb >> 16) + below * (under & 0xFF) + half) * share >> 16;
        out[i] = alpha << 24 | red << 16 | middle << 8 | blue;
    }
}

PINTALUX_VECTOR_CLONES
void DivideRowOver(const std::uint32_t* redBlue, const std::uint32_t* green, int count, int along,
                   std::uint32_t samples, std::uint32_t* out) {
    if (along == 1) return DivideOver<1>(redBlue, green, count, samples, out);
    if (along == 2) return DivideOver<2>(redBlue, green, count, samples, out);
    if (along == 3) return DivideOver<3>(redBlue, green, count, samples, out);
    DivideOver<4>(redBlue, green, count, samples, out);
}

/// The sums of `along` neighbours, divided by `samples` to nearest: for 16 samples of at most 255 the product
/// is exact.
template <std::ptrdiff_t along>
[[gnu::always_inline]] inline void Divide(const std::uint32_t* redBlue, const std::uint32_t* green, int count,
                                          std::uint32_t samples, std::uint32_t* out) {
    const std::uint32_t share = (65536 + samples - 1) / samples;
    const std::uint32_t half = samples / 2;
    for (int i = 0; i < count; ++i) {
        const std::uint32_t rb = SumOf<along>(redBlue + i * along);
        const std::uint32_t g = SumOf<along>(green + i * along);
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
               std::ptrdiff_t stride, std::optional<Pixel> key)
        : source_(source), key_(key), across_(SamplesAlong(source.Width(), width)),
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
            if (row > begin && SameRows(row) && !key_) {
                std::copy_n(to - stride_, width_, to);
                continue;
            }
            std::fill(redBlue.begin(), redBlue.end(), 0);
            std::fill(green.begin(), green.end(), 0);
            for (int sample = 0; sample < down_; ++sample)
                AddRow(SourceRow(row * down_ + sample), redBlue.data(), green.data());
            (key_ ? DivideRowOver : DivideRow)(redBlue.data(), green.data(), width_, across_,
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
            const std::uint8_t* places = places_.data() + part.begin;
            std::uint32_t* toRedBlue = redBlue + part.begin;
            std::uint32_t* toGreen = green + part.begin;
            if (adjoining_[i]) {
                key_ ? AddRunUnlessKey(pixels + *places, count, *key_, toRedBlue, toGreen)
                     : AddRun(pixels + *places, count, toRedBlue, toGreen);
            } else {
                key_ ? AddGatheredUnlessKey(pixels, places, count, *key_, toRedBlue, toGreen)
                     : AddGathered(pixels, places, count, toRedBlue, toGreen);
            }
        }
    }

    const Bitmap& source_;
    std::optional<Pixel> key_;
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
                   std::ptrdiff_t stride, std::optional<Pixel> key) {
    const ScreenMean mean(source, width, height, shown, out, stride, key);
    if (std::int64_t{shown.Width()} * shown.Height() < kWorthSplitting) return mean.Rows(0, shown.Height());
    SplitOverCores(shown.Height(), [&](int begin, int end) { mean.Rows(begin, end); });
}

} // namespace pintalux
