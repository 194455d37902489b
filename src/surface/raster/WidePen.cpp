#include "surface/raster/WidePen.h"

#include "base/WideInteger.h"
#include "surface/raster/EllipseOutline.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>

namespace pintalux {

namespace {

// The largest whole number whose square is not above `value`.
std::int64_t SquareRoot(Int128 value) {
    std::int64_t low = 0;
    std::int64_t high = std::int64_t{1} << 32;
    while (low < high) {
        const std::int64_t middle = low + (high - low + 1) / 2;
        if (Int128{middle} * middle <= value) {
            low = middle;
        } else {
            high = middle - 1;
        }
    }
    return low;
}

// floor(width * |part| / length) + 1, exact, for a line that is `part` long along one axis, `other` along the
// other.
std::int64_t BodyExtent(int width, std::int64_t part, std::int64_t other) {
    const Int128 square = Int128{part} * part;
    const Int128 lengthSquare = square + Int128{other} * other;
    return SquareRoot(Int128{width} * width * square / lengthSquare) + 1;
}

using Corners = std::array<LongPoint, 4>;

Corners BodyCorners(int width, LongPoint from, LongPoint to) {
    const std::int64_t dx = to.x - from.x;
    const std::int64_t dy = to.y - from.y;
    std::int64_t a = dx == 0 ? width : 0;
    std::int64_t b = dy == 0 ? width : 0;
    if (dx != 0 && dy != 0) {
        a = BodyExtent(width, dy, dx);
        b = BodyExtent(width, dx, dy);
    }
    const int s = (dx > 0 && dy > 0) || (dx < 0 && dy < 0) ? -1 : 1;
    const LongPoint right{(a + 1) / 2, s * ((b + 1) / 2)};
    const LongPoint left{-(a / 2), -s * (b / 2)};
    return {{{from.x + right.x, from.y + right.y},
             {to.x + right.x, to.y + right.y},
             {to.x + left.x, to.y + left.y},
             {from.x + left.x, from.y + left.y}}};
}

// The first whole column at or right of where the edge from p to q crosses row y. Products fit `Integer`.
template <class Integer>
std::int64_t CrossingColumn(LongPoint p, LongPoint q, std::int64_t y) {
    const Integer along = static_cast<Integer>(y - p.y) * (q.x - p.x);
    return p.x + static_cast<std::int64_t>(CeilDivide<Integer>(along, q.y - p.y));
}

bool IsSmall(LongPoint p) {
    constexpr std::int64_t kBound = std::int64_t{1} << 30;
    return std::abs(p.x) < kBound && std::abs(p.y) < kBound;
}

void AddConvex(Figure& figure, const Corners& corners) {
    const auto byRow = [](LongPoint p, LongPoint q) { return p.y < q.y; };
    const auto [highest, lowest] = std::minmax_element(corners.begin(), corners.end(), byRow);
    const bool small = std::all_of(corners.begin(), corners.end(), IsSmall);
    const std::int64_t top = std::max<std::int64_t>(highest->y, figure.Area().top);
    const std::int64_t bottom = std::min<std::int64_t>(lowest->y, figure.Area().bottom);
    for (std::int64_t y = top; y < bottom; ++y) {
        std::int64_t left = std::numeric_limits<std::int64_t>::max();
        std::int64_t right = std::numeric_limits<std::int64_t>::min();
        for (std::size_t i = 0; i < corners.size(); ++i) {
            LongPoint p = corners[i];
            LongPoint q = corners[(i + 1) % corners.size()];
            if (p.y > q.y) std::swap(p, q);
            if (y < p.y || y >= q.y) continue;
            const std::int64_t column =
                small ? CrossingColumn<std::int64_t>(p, q, y) : CrossingColumn<Int128>(p, q, y);
            left = std::min(left, column);
            right = std::max(right, column);
        }
        figure.Add(y, left, right);
    }
}

} // namespace

WidePen::WidePen(int width) : width_(std::max(width, 1)) {
    const int before = width_ / 2;
    if (width_ <= 2) {
        rows_.assign(static_cast<std::size_t>(width_), {-before, width_ - before});
        return;
    }
    rows_.assign(static_cast<std::size_t>(width_), {0, 0});
    const auto widen = [&](std::int64_t y, int left, int right) {
        DotRow& row = rows_[static_cast<std::size_t>(y + before)];
        row = {std::min(row.left, left), std::max(row.right, right)};
    };
    const LongBox box{-before, -before, width_ - before, width_ - before};
    WalkEllipse(box, [&](const OutlineStep& step) {
        widen(step.upper, static_cast<int>(step.x0), static_cast<int>(step.x1) + 1);
        widen(step.lower, static_cast<int>(step.x0), static_cast<int>(step.x1) + 1);
    });
}

bool WidePen::Misses(const Figure& figure, LongPoint from, LongPoint to) const {
    const LongBox reach = Sorted({from.x, from.y, to.x, to.y})
                              .Grown(std::int64_t{width_} + 2); // The body's corners reach 1 on.
    return Cut(reach, figure.Area()).Empty();
}

void WidePen::AddDot(Figure& figure, LongPoint at) const {
    if (Misses(figure, at, at)) return;
    std::int64_t y = at.y - width_ / 2;
    for (const DotRow& row : rows_) {
        figure.Add(y, at.x + row.left, at.x + row.right);
        ++y;
    }
}

void WidePen::AddBody(Figure& figure, LongPoint from, LongPoint to) const {
    if (from == to || Misses(figure, from, to)) return;
    AddConvex(figure, BodyCorners(width_, from, to));
}

void WidePen::AddLine(Figure& figure, LongPoint from, LongPoint to) const {
    AddDot(figure, from);
    AddDot(figure, to);
    AddBody(figure, from, to);
}

} // namespace pintalux
