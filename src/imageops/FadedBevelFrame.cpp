#include "base/Arithmetic.h"
#include "imageops/FrameBands.h"
#include "imageops/Frames.h"
#include "imageops/FrameShades.h"
#include "surface/window/Surface.h"

#include <cstddef>
#include <vector>

namespace pintalux {

namespace {

/// `count` values of a fade: `first`, then each the one before plus `step`, rounded at every step.
std::vector<std::int32_t> Fade(std::int32_t first, double step, int count) {
    std::vector<std::int32_t> values;
    for (; count > 0; --count) {
        values.push_back(first);
        first = ToInt32(first + step);
    }
    return values;
}

/// What each band adds or takes away. The side bands run over the columns: the left one fades from column 1
/// on, the right one grows from its first column on.
struct Fades {
    Fades(int W, int H, int s, int h, int d) : rightBegin(std::max(W - s, 1)) {
        if (s == 0) return; // No band, and no step to fade by.
        const double lightStep = static_cast<double>(h) / s;
        const double shadowStep = static_cast<double>(d) / s;
        top = Fade(h, -lightStep, std::min(s, H));
        bottom = Fade(d, -shadowStep, std::min(s, H) + 1);
        left = Fade(h, -lightStep, std::min(s, W));
        right = Fade(ToInt32(shadowStep), shadowStep, W - rightBegin);
    }

    std::int32_t Top(int y) const { return top[static_cast<std::size_t>(y - 1)]; }
    std::int32_t Bottom(int fromEdge) const { return bottom[static_cast<std::size_t>(fromEdge)]; }
    std::int32_t Left(int x) const { return left[static_cast<std::size_t>(x - 1)]; }
    std::int32_t Right(int x) const { return right[static_cast<std::size_t>(x - rightBegin)]; }

  private:
    int rightBegin;
    std::vector<std::int32_t> top, bottom, left, right;
};

void PaintFadedBands(Surface& live, int s, int h, int d, ProgressBar& Pb) {
    const int W = live.PixelWidth();
    const int H = live.PixelHeight();
    const FrameBands bands(W, H, s);
    const Fades fades(W, H, s, h, d);
    ForFrameRows(live, Pb, [&](Bitmap& bits, int y) {
        const RowBands row = bands.OfRow(y);
        ChangeColumns(bits, y, row.top, [&](int, Pixel pixel) { return Saturated(pixel, fades.Top(y)); });
        ChangeColumns(bits, y, row.bottom,
                      [&](int, Pixel pixel) { return Darkened(pixel, fades.Bottom(H - 1 - y)); });
        ChangeColumns(bits, y, row.left, [&](int x, Pixel pixel) { return Saturated(pixel, fades.Left(x)); });
        ChangeColumns(bits, y, row.right,
                      [&](int x, Pixel pixel) { return Darkened(pixel, fades.Right(x)); });
    });
}

} // namespace

void FadedBevelFrame(Surface& work, Surface& live, std::int16_t size, std::int16_t& highlight,
                     std::int16_t& shadow, Flag outerLine, Flag innerLine, ProgressBar& Pb) {
    BWizHighlight = highlight;
    BWizShadow = shadow;
    highlight = MultiplyInt16(2, highlight);
    PaintFadedBands(live, size, highlight, shadow, Pb);
    FinishFrame(work, live, size, outerLine, innerLine);
}

} // namespace pintalux
