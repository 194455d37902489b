#include "surface/raster/ThinLine.h"

#include "base/WideInteger.h"

#include <algorithm>
#include <cstdlib>

namespace pintalux {

namespace {

// Neighbours in a row are painted together: most lines of a drawing are flat or upright.
class RowPainter {
  public:
    RowPainter(Bitmap& bits, Pixel pixel, int mode) : bits_(bits), pixel_(pixel), mode_(mode) {}

    void Add(int x, int y) {
        const bool sameRow = !run_.Empty() && y == run_.top;
        if (sameRow && x == run_.right) {
            ++run_.right;
        } else if (sameRow && x == run_.left - 1) {
            --run_.left;
        } else {
            Flush();
            run_ = {x, y, x + 1, y + 1};
        }
    }

    void Flush() {
        if (run_.Empty()) return;
        PaintSpan(bits_, run_.top, run_.left, run_.right, pixel_, mode_);
        painted_ = Union(painted_, run_);
        run_ = {};
    }

    const Box& Painted() const { return painted_; }

  private:
    Bitmap& bits_;
    Pixel pixel_;
    int mode_;
    Box run_;
    Box painted_;
};

} // namespace

ThinLine::ThinLine(LongPoint from, LongPoint to)
    : upright_(std::abs(to.y - from.y) > std::abs(to.x - from.x)),
      steps_(std::max(std::abs(to.x - from.x), std::abs(to.y - from.y))), along_(upright_ ? from.y : from.x),
      direction_((upright_ ? to.y - from.y : to.x - from.x) < 0 ? -1 : 1), cross_(upright_ ? from.x : from.y),
      crossExtent_(upright_ ? to.x - from.x : to.y - from.y) {}

std::int64_t ThinLine::CrossAt(std::int64_t step) const {
    if (steps_ == 0) return cross_;
    const Int128 doubled = Int128{2} * step * crossExtent_ - steps_;
    return cross_ + static_cast<std::int64_t>(CeilDivide<Int128>(doubled, Int128{2} * steps_));
}

std::int64_t ThinLine::RoundingAt(std::int64_t step, std::int64_t cross) const {
    const Int128 doubled = Int128{2} * step * crossExtent_ - steps_;
    return static_cast<std::int64_t>(Int128{2} * steps_ * (cross - cross_) - doubled);
}

// The first step from `first` on where the test holds; once it holds, it goes on holding. `end` if it never
// does.
template <class Test>
std::int64_t ThinLine::FirstStepWhere(std::int64_t first, std::int64_t end, Test test) const {
    while (first < end) {
        const std::int64_t middle = first + (end - first) / 2;
        if (test(CrossAt(middle))) {
            end = middle;
        } else {
            first = middle + 1;
        }
    }
    return first;
}

ThinLine::Steps ThinLine::Inside(const Box& clip, LastPoint last) const {
    if (clip.Empty()) return {0, 0};
    const std::int64_t alongLow = upright_ ? clip.top : clip.left;
    const std::int64_t alongHigh = (upright_ ? clip.bottom : clip.right) - 1;
    const std::int64_t crossLow = upright_ ? clip.left : clip.top;
    const std::int64_t crossHigh = (upright_ ? clip.right : clip.bottom) - 1;

    std::int64_t first = direction_ > 0 ? alongLow - along_ : along_ - alongHigh;
    std::int64_t end = (direction_ > 0 ? alongHigh - along_ : along_ - alongLow) + 1;
    first = std::max<std::int64_t>(first, 0);
    end = std::min(end, last == LastPoint::Painted ? steps_ + 1 : steps_);
    if (first >= end) return {0, 0};

    const auto outside = [&](std::int64_t cross) { return cross < crossLow || cross > crossHigh; };
    if (!outside(CrossAt(first)) && !outside(CrossAt(end - 1))) return {first, end};
    if (crossExtent_ >= 0) {
        first = FirstStepWhere(first, end, [&](std::int64_t cross) { return cross >= crossLow; });
        end = FirstStepWhere(first, end, [&](std::int64_t cross) { return cross > crossHigh; });
    } else {
        first = FirstStepWhere(first, end, [&](std::int64_t cross) { return cross <= crossHigh; });
        end = FirstStepWhere(first, end, [&](std::int64_t cross) { return cross < crossLow; });
    }
    return {first, end};
}

Box PaintThinLine(DeviceContext& hdc, const ThinLine& line, LastPoint last, Colour colour) {
    const DrawAttributes& attributes = hdc.Attributes();
    RowPainter painter(hdc.Bits(), PixelOf(colour), attributes.DrawMode);
    const bool dashed = attributes.DrawStyle == kDrawDash;
    line.Walk(hdc.Bits().Bounds(), dashed, last, [&](int x, int y) { painter.Add(x, y); });
    painter.Flush();
    return painter.Painted();
}

} // namespace pintalux
