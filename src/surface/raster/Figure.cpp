#include "surface/raster/Figure.h"

#include <algorithm>

namespace pintalux {

LongBox Sorted(const LongBox& box) {
    return {std::min(box.left, box.right), std::min(box.top, box.bottom), std::max(box.left, box.right),
            std::max(box.top, box.bottom)};
}

Box Cut(const LongBox& box, const Box& clip) {
    const auto within = [](std::int64_t value, int low, int high) {
        return static_cast<int>(std::clamp<std::int64_t>(value, low, high));
    };
    const Box cut{within(box.left, clip.left, clip.right), within(box.top, clip.top, clip.bottom),
                  within(box.right, clip.left, clip.right), within(box.bottom, clip.top, clip.bottom)};
    return cut.Empty() ? Box{} : cut;
}

Box Union(const Box& a, const Box& b) {
    if (a.Empty()) return b;
    if (b.Empty()) return a;
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
            std::max(a.bottom, b.bottom)};
}

Figure::Figure(const Box& area) : area_(area) {
    if (!area.Empty()) rows_.assign(static_cast<std::size_t>(area.Height()), -1);
}

void Figure::Add(std::int64_t y, std::int64_t left, std::int64_t right) {
    if (y < area_.top || y >= area_.bottom) return;
    const int from = static_cast<int>(std::max<std::int64_t>(left, area_.left));
    const int to = static_cast<int>(std::min<std::int64_t>(right, area_.right));
    if (left >= area_.right || right <= area_.left || from >= to) return;
    std::int32_t& newest = rows_[static_cast<std::size_t>(y - area_.top)];
    // Outlines grow at their left and right edge in turn: one of the two newest runs mostly takes the pixel.
    std::int32_t candidate = newest;
    for (int tries = 0; tries < 2 && candidate >= 0; ++tries) {
        Run& run = runs_[static_cast<std::size_t>(candidate)];
        if (from <= run.right && to >= run.left) {
            run.left = std::min(run.left, from);
            run.right = std::max(run.right, to);
            return;
        }
        candidate = run.next;
    }
    runs_.push_back({from, to, newest});
    newest = static_cast<std::int32_t>(runs_.size() - 1);
}

std::vector<Figure::Run> Figure::RowRuns(std::size_t row) const {
    std::vector<Run> runs;
    for (std::int32_t at = rows_[row]; at >= 0; at = runs.back().next) {
        runs.push_back(runs_[static_cast<std::size_t>(at)]);
    }
    std::sort(runs.begin(), runs.end(), [](const Run& a, const Run& b) { return a.left < b.left; });
    std::size_t kept = 0;
    for (const Run& run : runs) {
        if (kept > 0 && run.left <= runs[kept - 1].right) {
            runs[kept - 1].right = std::max(runs[kept - 1].right, run.right);
        } else {
            runs[kept++] = run;
        }
    }
    runs.resize(kept);
    return runs;
}

Box Figure::Paint(Bitmap& bits, Pixel pixel, int mode) const {
    Box painted;
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        const int y = area_.top + static_cast<int>(row);
        for (const Run& run : RowRuns(row)) {
            PaintSpan(bits, y, run.left, run.right, pixel, mode);
            painted = Union(painted, {run.left, y, run.right, y + 1});
        }
    }
    return painted;
}

void PaintSpan(Bitmap& bits, int y, int left, int right, Pixel pixel, int mode) {
    while (left < right) {
        auto run = bits.WritableRun(left, y);
        run = run.first(std::min(run.size(), static_cast<std::size_t>(right - left)));
        if (mode == kDrawInvert) {
            for (Pixel& each : run)
                each ^= 0xFFFFFF;
        } else {
            std::fill(run.begin(), run.end(), pixel);
        }
        left += static_cast<int>(run.size());
    }
}

void PaintFigure(DeviceContext& hdc, const Figure& figure, Colour colour) {
    hdc.Touched(figure.Paint(hdc.Bits(), PixelOf(colour), hdc.Attributes().DrawMode));
}

} // namespace pintalux
