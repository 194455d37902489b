#include "surface/raster/ScreenPiece.h"

#include "base/VectorClones.h"
#include "surface/raster/AxisMap.h"
#include "surface/raster/ScreenMean.h"
#include "surface/raster/Transfer.h"

#include <algorithm>
#include <vector>

namespace pintalux {

namespace {

/// No pixel of a screen, which are opaque: what lies below stays.
constexpr std::uint32_t kNothing = 0;

PINTALUX_VECTOR_CLONES
void LayRow(const std::uint32_t* row, int count, std::uint32_t* out) {
    for (int i = 0; i < count; ++i)
        out[i] = row[i] == kNothing ? out[i] : row[i];
}

void SpreadRow(const Bitmap& source, int y, const AxisMap& columns, Pixel key,
               std::vector<std::uint32_t>& row) {
    for (std::size_t i = 0; i < row.size(); ++i) {
        const Pixel pixel = source.At(columns.source[i], y);
        row[i] = pixel == key ? kNothing : OnScreen(pixel);
    }
}

/// The stretches of a row that are not `key`.
std::vector<Region::Run> RunsOf(const Bitmap& picture, int y, Pixel key) {
    std::vector<Region::Run> runs;
    bool open = false;
    for (int x = 0; x < picture.Width();) {
        for (const Pixel pixel : picture.Run(x, y)) {
            if (pixel != key && !open) runs.push_back({x, x});
            open = pixel != key;
            ++x;
            if (open) runs.back().right = x;
        }
    }
    return runs;
}

/// Stretches that meet become one.
std::vector<Region::Run> Joined(std::vector<Region::Run> runs) {
    std::sort(runs.begin(), runs.end(),
              [](const Region::Run& a, const Region::Run& b) { return a.left < b.left; });
    std::vector<Region::Run> joined;
    for (const Region::Run& run : runs) {
        if (!joined.empty() && joined.back().right >= run.left) {
            joined.back().right = std::max(joined.back().right, run.right);
        } else {
            joined.push_back(run);
        }
    }
    return joined;
}

/// One axis of a view, and the samples that each of its pixels takes.
struct ViewAxis {
    ViewAxis(int source, int view)
        : samples(SamplesAlong(source, view)), cells(MapVisible(0, view * samples, view * samples, source)) {}

    int Cell(int sample) const { return cells.source[static_cast<std::size_t>(sample)]; }
    /// The first sample at or behind a cell.
    int FirstFrom(int cell) const {
        return static_cast<int>(std::lower_bound(cells.source.begin(), cells.source.end(), cell) -
                                cells.source.begin());
    }

    int samples;
    AxisMap cells;
};

/// What stretches of image pixels cover of the view.
void AddOnView(const std::vector<Region::Run>& runs, const ViewAxis& across, std::vector<Region::Run>& out) {
    for (const Region::Run& run : runs) {
        const int begin = across.FirstFrom(run.left);
        const int end = across.FirstFrom(run.right);
        if (begin < end) out.push_back({begin / across.samples, (end - 1) / across.samples + 1});
    }
}

} // namespace

void LayForScreen(const Bitmap& source, Pixel key, int width, int height, const Box& visible,
                  std::uint32_t* out, std::ptrdiff_t stride) {
    const Box shown = Intersection(visible, {0, 0, width, height});
    if (source.Empty() || shown.Empty()) return;
    out += (shown.top - visible.top) * stride + (shown.left - visible.left);
    if (width < source.Width() || height < source.Height())
        return MeanForScreen(source, width, height, shown, out, stride, key);
    const AxisMap columns = MapVisible(shown.left, shown.right, width, source.Width());
    std::vector<std::uint32_t> row(static_cast<std::size_t>(shown.Width()));
    int spread = -1;
    for (int y = shown.top; y < shown.bottom; ++y, out += stride) {
        const int cell = StretchedCell(y, source.Height(), height);
        if (cell != spread) SpreadRow(source, cell, columns, key, row);
        spread = cell;
        LayRow(row.data(), shown.Width(), out);
    }
}

Region ShapeOnView(const Bitmap& picture, Pixel key, int width, int height) {
    Region shape;
    if (picture.Empty() || width <= 0 || height <= 0) return shape;
    const ViewAxis across(picture.Width(), width);
    const ViewAxis down(picture.Height(), height);
    for (int y = 0; y < height;) {
        const int first = y * down.samples;
        // An axis that is enlarged repeats its rows.
        int bottom = y + 1;
        while (down.samples == 1 && bottom < height && down.Cell(bottom) == down.Cell(first))
            ++bottom;
        std::vector<Region::Run> runs;
        for (int sample = first; sample < first + down.samples; ++sample)
            AddOnView(RunsOf(picture, down.Cell(sample), key), across, runs);
        runs = Joined(std::move(runs));
        if (!shape.stripes.empty() && shape.stripes.back().bottom == y && shape.stripes.back().runs == runs) {
            shape.stripes.back().bottom = bottom;
        } else if (!runs.empty()) {
            shape.stripes.push_back({y, bottom, std::move(runs)});
        }
        y = bottom;
    }
    return shape;
}

} // namespace pintalux
