#include "base/Parallel.h"
#include "surface/raster/AxisMap.h"
#include "surface/raster/Transfer.h"

#include <algorithm>
#include <cstring>

namespace pintalux {

namespace {

constexpr int kCacheLinePixels = 16;
constexpr int kRunsAhead = 2;
/// Below so many screen pixels a second core costs more than it brings.
constexpr std::int64_t kWorthSplitting = 100'000;

// Screens take the channels the other way round, opaque.
std::uint32_t OnScreen(Pixel pixel) {
    return 0xFF000000 | (pixel & 0xFF) << 16 | (pixel & 0xFF00) | (pixel >> 16 & 0xFF);
}

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

    /// Only the pixels shown are read: for reductions.
    void Reduce() {
        parts_ = ColumnsByTile(columns_);
        inTile_ = PlacesInTile(columns_);
        const std::int64_t pixels = std::int64_t{rows_.Size()} * columns_.Size();
        if (pixels < kWorthSplitting) return ReduceRows(0, rows_.Size());
        SplitOverCores(rows_.Size(), [this](int begin, int end) { ReduceRows(begin, end); });
    }

  private:
    void ReduceRows(int begin, int end) const {
        while (begin < end) {
            const int band = SourceRow(begin) / Bitmap::kTileHeight;
            int next = begin + 1;
            while (next < end && SourceRow(next) / Bitmap::kTileHeight == band)
                ++next;
            ReduceBand(begin, next);
            begin = next;
        }
    }

    // Tile after tile, all rows of a tile: its memory lies together, while a row of the image is spread over
    // as many places as it has tiles.
    void ReduceBand(int begin, int end) const {
        const int rows = end - begin;
        const int runs = rows * static_cast<int>(parts_.size());
        for (int run = 0; run < runs; ++run) {
            const TileColumns& part = parts_[static_cast<std::size_t>(run / rows)];
            const int i = begin + run % rows;
            const int later = std::min(run + kRunsAhead, runs - 1);
            const TileColumns& laterPart = parts_[static_cast<std::size_t>(later / rows)];
            // A tile's rows are too short for the processor to see a pattern in them: what comes next is
            // asked for here. (The compiler would drop a function that does nothing else.)
            const Pixel* ahead = source_.Run(laterPart.tile, SourceRow(begin + later % rows)).data();
            const int last = InTile(laterPart.end - 1);
            for (int column = InTile(laterPart.begin); column <= last; column += kCacheLinePixels)
                __builtin_prefetch(ahead + column);
            if (i > begin && RepeatsRow(i)) {
                RepeatPart(part, i);
            } else {
                ReducePart(part, i);
            }
        }
    }

    int InTile(int i) const { return inTile_[static_cast<std::size_t>(i)]; }
    int SourceRow(int i) const { return rows_.source[static_cast<std::size_t>(i)]; }
    bool RepeatsRow(int i) const { return i > 0 && SourceRow(i) == SourceRow(i - 1); }
    std::span<std::uint32_t> Row(int i) const {
        return {out_ + std::ptrdiff_t{i} * stride_, columns_.source.size()};
    }
    void RepeatRow(int i) const { std::memcpy(Row(i).data(), Row(i - 1).data(), Row(i).size_bytes()); }

    // Gathers first and converts afterwards: the second step is done several pixels at a time.
    void ReducePart(const TileColumns& part, int row) const {
        const Pixel* pixels = source_.Run(part.tile, SourceRow(row)).data();
        const std::uint8_t* columns = inTile_.data() + part.begin;
        std::uint32_t* out = Row(row).data() + part.begin;
        const int count = part.end - part.begin;
        for (int i = 0; i < count; ++i)
            out[i] = pixels[columns[i]];
        for (int i = 0; i < count; ++i)
            out[i] = OnScreen(out[i]);
    }

    void RepeatPart(const TileColumns& part, int row) const {
        std::copy_n(Row(row - 1).data() + part.begin, part.end - part.begin, Row(row).data() + part.begin);
    }

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
    std::vector<TileColumns> parts_;   // Of a reduction: the columns by tile,
    std::vector<std::uint8_t> inTile_; // and where in its tile each lies.
    std::uint32_t* out_;
    std::ptrdiff_t stride_;
};

} // namespace

void StretchForScreen(const Bitmap& source, int width, int height, const Box& visible, std::uint32_t* out,
                      int stride) {
    const Box shown = Intersection(visible, {0, 0, width, height});
    if (source.Empty() || shown.Empty()) return;
    out += std::ptrdiff_t{shown.top - visible.top} * stride + (shown.left - visible.left);
    ScreenStretch stretch(source, MapVisible(shown.left, shown.right, width, source.Width()),
                          MapVisible(shown.top, shown.bottom, height, source.Height()), out, stride);
    // Where most pixels of a row are shown, reading all of them in turn is the quickest, too.
    if (2 * std::int64_t{width} > source.Width()) {
        stretch.SpreadRows(width % source.Width() == 0 ? width / source.Width() : 0);
    } else {
        stretch.Reduce();
    }
}

} // namespace pintalux
