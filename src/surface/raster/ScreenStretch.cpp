#include "surface/raster/AxisMap.h"
#include "surface/raster/ScreenMean.h"
#include "surface/raster/Transfer.h"

#include <algorithm>
#include <cstring>

namespace pintalux {

namespace {

void ConvertRow(const Bitmap& source, int x, int y, std::span<std::uint32_t> out) {
    while (!out.empty()) {
        const auto run = source.Run(x, y);
        const std::size_t count = std::min(run.size(), out.size());
        for (std::size_t i = 0; i < count; ++i)
            out[i] = OnScreen(run[i]);
        out = out.subspan(count);
        x += static_cast<int>(count);
    }
}

// Fills rows of screen pixels from rows of the source.
class ScreenStretch {
  public:
    ScreenStretch(const Bitmap& source, AxisMap columns, AxisMap rows, std::uint32_t* out, int stride)
        : source_(source), columns_(std::move(columns)), rows_(std::move(rows)), out_(out), stride_(stride) {}

    /// An image row is converted once and then spread out. `scale` is the number of screen pixels for each of
    /// the source, or 0 if that is no whole number.
    void SpreadRows(int scale) {
        const int first = columns_.source.front();
        std::vector<std::uint32_t> row(static_cast<std::size_t>(columns_.source.back() - first + 1));
        for (int i = 0; i < rows_.Size(); ++i) {
            if (RepeatsRow(i)) {
                RepeatRow(i);
                continue;
            }
            if (scale == 1) {
                ConvertRow(source_, first, SourceRow(i), Row(i));
                continue;
            }
            ConvertRow(source_, first, SourceRow(i), row);
            scale > 0 ? SpreadWhole(row, scale, Row(i)) : Spread(row, first, Row(i));
        }
    }

  private:
    int SourceRow(int i) const { return rows_.source[static_cast<std::size_t>(i)]; }
    bool RepeatsRow(int i) const { return i > 0 && SourceRow(i) == SourceRow(i - 1); }
    std::span<std::uint32_t> Row(int i) const {
        return {out_ + std::ptrdiff_t{i} * stride_, columns_.source.size()};
    }
    void RepeatRow(int i) const { std::memcpy(Row(i).data(), Row(i - 1).data(), Row(i).size_bytes()); }

    void Spread(const std::vector<std::uint32_t>& row, int first, std::span<std::uint32_t> out) const {
        for (std::size_t i = 0; i < out.size(); ++i) {
            out[i] = row[static_cast<std::size_t>(columns_.source[i] - first)];
        }
    }

    // A whole number of screen pixels for each source pixel; the first and the last may be cut.
    void SpreadWhole(const std::vector<std::uint32_t>& row, int scale, std::span<std::uint32_t> out) const {
        std::size_t count = static_cast<std::size_t>(scale - columns_.first % scale);
        for (const std::uint32_t pixel : row) {
            count = std::min(count, out.size());
            std::fill_n(out.begin(), count, pixel);
            out = out.subspan(count);
            count = static_cast<std::size_t>(scale);
        }
    }

    const Bitmap& source_;
    AxisMap columns_;
    AxisMap rows_;
    std::uint32_t* out_;
    std::ptrdiff_t stride_;
};

} // namespace

void StretchForScreen(const Bitmap& source, int width, int height, const Box& visible, std::uint32_t* out,
                      int stride) {
    const Box shown = Intersection(visible, {0, 0, width, height});
    if (source.Empty() || shown.Empty()) return;
    out += std::ptrdiff_t{shown.top - visible.top} * stride + (shown.left - visible.left);
    if (width < source.Width() || height < source.Height())
        return MeanForScreen(source, width, height, shown, out, stride);
    ScreenStretch stretch(source, MapVisible(shown.left, shown.right, width, source.Width()),
                          MapVisible(shown.top, shown.bottom, height, source.Height()), out, stride);
    stretch.SpreadRows(width % source.Width() == 0 ? width / source.Width() : 0);
}

} // namespace pintalux
