// A figure: the set of pixels that a drawing call paints, gathered as runs and then painted once, so that
// the invert mode turns each pixel once however often the figure's parts overlap.
#pragma once

#include "surface/raster/DeviceContext.h"

#include <cstdint>
#include <vector>

namespace pintalux {

/// Geometry reckons in 64 bits: the corners of a figure may lie anywhere in 32 bits, and its pen beyond.
struct LongPoint {
    std::int64_t x = 0;
    std::int64_t y = 0;
    bool operator==(const LongPoint&) const = default;
};

struct LongBox {
    std::int64_t left = 0;
    std::int64_t top = 0;
    std::int64_t right = 0;
    std::int64_t bottom = 0;

    std::int64_t Width() const { return right - left; }
    std::int64_t Height() const { return bottom - top; }
    bool Empty() const { return right <= left || bottom <= top; }
    /// The box `margin` pixels larger on each side.
    LongBox Grown(std::int64_t margin) const {
        return {left - margin, top - margin, right + margin, bottom + margin};
    }
};

/// The box with its corners in order.
LongBox Sorted(const LongBox& box);

/// The part of `box` inside `clip`.
Box Cut(const LongBox& box, const Box& clip);

class Figure {
  public:
    /// Keeps the runs inside `area` and drops the rest.
    explicit Figure(const Box& area);

    /// Adds the pixels left to right - 1 of row y.
    void Add(std::int64_t y, std::int64_t left, std::int64_t right);
    void AddPixel(std::int64_t x, std::int64_t y) { Add(y, x, x + 1); }

    const Box& Area() const { return area_; }

    /// Paints every pixel of the figure once and gives the box around them.
    Box Paint(Bitmap& bits, Pixel pixel, int mode) const;

  private:
    struct Run {
        int left;
        int right;
        std::int32_t next; ///< Index of the run that the row got before; -1 ends the row.
    };

    std::vector<Run> RowRuns(std::size_t row) const;

    Box area_;
    std::vector<Run> runs_;
    std::vector<std::int32_t> rows_;
};

/// Paints the pixels left to right - 1 of row y, which must lie inside.
void PaintSpan(Bitmap& bits, int y, int left, int right, Pixel pixel, int mode);

/// The smallest box around both.
Box Union(const Box& a, const Box& b);

/// Paints the figure in the context's draw mode and tells the owner.
void PaintFigure(DeviceContext& hdc, const Figure& figure, Colour colour);

} // namespace pintalux
