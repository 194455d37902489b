// The line one pixel wide: one pixel per step of its longer axis.
#pragma once

#include "surface/raster/Figure.h"

#include <cstdint>

namespace pintalux {

enum class LastPoint { LeftOut, Painted };

class ThinLine {
  public:
    ThinLine(LongPoint from, LongPoint to);

    /// Calls plot(x, y) for each pixel inside `clip`, from the line's start on. Pixels outside cost nothing.
    /// The dashes count them all the same. A painted last point is painted in a gap, too.
    template <class Plot>
    void Walk(const Box& clip, bool dashed, LastPoint last, Plot plot) const;

  private:
    struct Steps {
        std::int64_t first;
        std::int64_t end;
    };

    Steps Inside(const Box& clip, LastPoint last) const;
    /// The coordinate on the shorter axis after `step` steps, rounded to nearest, a half down: step 1 of the
    /// way from (0, 0) to (4, 2) lies at 1/2 and gives 0.
    std::int64_t CrossAt(std::int64_t step) const;
    /// How far the exact coordinate may rise before `cross` is no more the nearest, in units of 1 / (2 *
    /// steps_) pixel: 4 at the start of that way, that is half a pixel, and 0 at its step 1.
    std::int64_t RoundingAt(std::int64_t step, std::int64_t cross) const;
    template <class Test>
    std::int64_t FirstStepWhere(std::int64_t first, std::int64_t end, Test test) const;

    bool upright_;             // The longer axis is y.
    std::int64_t steps_;       // Along the longer axis.
    std::int64_t along_;       // Start on the longer axis...
    std::int64_t direction_;   // ...and the way it goes.
    std::int64_t cross_;       // Start on the other axis...
    std::int64_t crossExtent_; // ...and how far it goes there, signed.
};

/// Pixels of a dash, and of a dash with its gap, counted on the longer axis.
inline constexpr std::int64_t kDashLength = 18;
inline constexpr std::int64_t kDashPeriod = 24;

/// Paints the line in the context's draw style and mode, whatever its draw width, and gives the box around
/// what it painted.
Box PaintThinLine(DeviceContext& hdc, const ThinLine& line, LastPoint last, Colour colour);

template <class Plot>
void ThinLine::Walk(const Box& clip, bool dashed, LastPoint last, Plot plot) const {
    const auto [first, end] = Inside(clip, last);
    if (first >= end) return;
    std::int64_t cross = CrossAt(first);
    std::int64_t above = RoundingAt(first, cross);
    for (std::int64_t step = first; step < end; ++step) {
        if (!dashed || step % kDashPeriod < kDashLength || step == steps_) {
            const int along = static_cast<int>(along_ + direction_ * step);
            const int other = static_cast<int>(cross);
            upright_ ? plot(other, along) : plot(along, other);
        }
        above -= 2 * crossExtent_;
        if (above < 0) {
            above += 2 * steps_;
            ++cross;
        } else if (above >= 2 * steps_) {
            above -= 2 * steps_;
            --cross;
        }
    }
}

} // namespace pintalux
