#include "imageops/FrameBands.h"

#include "imageops/Frames.h"
#include "imageops/Landing.h"
#include "imageops/RowLoop.h"
#include "surface/window/ProgressBar.h"
#include "surface/window/Surface.h"

namespace pintalux {

Columns Intersection(Columns a, Columns b) {
    return {std::max(a.begin, b.begin), std::min(a.end, b.end)};
}

// Depths change by one at most from column to column, so that each is met first on the way up and last on the
// way down.
BandDepths::BandDepths(Columns all, int risingEnd, int fallingBegin)
    : all_(all), rising_(Intersection(all, {all.begin, risingEnd})),
      falling_(Intersection(all, {fallingBegin, all.end})) {
    int before = -1;
    for (int x = all.begin; x < all.end; ++x) {
        const int risen = std::max(std::min(x + 1, rising_.end) - rising_.begin, 0);
        const int fallen = std::max(x + 1 - falling_.begin, 0);
        const int depth = risen - fallen;
        if (depth >= static_cast<int>(atLeast_.size()))
            atLeast_.resize(static_cast<std::size_t>(depth) + 1, {x, all.end});
        for (int gone = std::max(depth, -1) + 1; gone <= before; ++gone)
            atLeast_[static_cast<std::size_t>(gone)].end = x;
        before = depth;
    }
}

Columns BandDepths::AtLeast(int depth) const {
    return Reached(depth) ? atLeast_[static_cast<std::size_t>(depth)] : Columns{};
}

Columns BandDepths::Before(int depth) const {
    if (depth < 1) return {};
    return Reached(depth) ? Columns{all_.begin, AtLeast(depth).begin} : all_;
}

Columns BandDepths::After(int depth) const {
    return depth >= 1 && Reached(depth) ? Columns{AtLeast(depth).end, all_.end} : Columns{};
}

Columns BandDepths::RisingBelow(int depth) const {
    return Intersection(Before(depth), rising_);
}

Columns BandDepths::FallingBelow(int depth) const {
    return Intersection(Reached(depth) ? After(depth) : Before(depth), falling_);
}

FrameBands::FrameBands(int width, int height, int s)
    : height_(height), depths_({1, std::max(width, 1)}, s, width - s) {}

RowBands FrameBands::OfRow(int y) const {
    const int toEdge = std::min(y, height_ - y);
    return {y > 0 ? depths_.AtLeast(y) : Columns{}, depths_.AtLeast(height_ - y), depths_.RisingBelow(toEdge),
            depths_.FallingBelow(toEdge)};
}

void FillColumns(Bitmap& bits, int y, Columns columns, Pixel pixel) {
    const int end = std::min(columns.end, bits.Width());
    for (int x = std::max(columns.begin, 0); x < end;) {
        auto run = bits.WritableRun(x, y);
        if (run.size() > static_cast<std::size_t>(end - x))
            run = run.first(static_cast<std::size_t>(end - x));
        std::fill(run.begin(), run.end(), pixel);
        x += static_cast<int>(run.size());
    }
}

void ForFrameRows(Surface& live, ProgressBar& Pb, const std::function<void(Bitmap& bits, int y)>& paint) {
    const int endX = LoopEnd(live.ScaleWidth() - 1);
    const int endY = LoopEnd(live.ScaleHeight() - 1);
    SetProgressMax(Pb, 2 * (live.ScaleWidth() - 1));
    Bitmap& bits = live.hDC().Bits();
    ForRowsInPlace(live, {0, 0, endX, endY}, Pb, [&](int top, int bottom) {
        for (int y = top; y < bottom; ++y)
            paint(bits, y);
    });
}

void FinishFrame(Surface& work, Surface& live, int s, Flag outerLine, Flag innerLine) {
    if (outerLine) DrawOuterLine(live);
    if (innerLine) DrawInsetRect(live, s, kBlack);
    Land(live, live, work);
}

} // namespace pintalux
