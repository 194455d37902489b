// The outline of an ellipse as a walk from its widest row to its tips.
#pragma once

#include "base/WideInteger.h"
#include "surface/raster/Figure.h"

#include <cstdint>

namespace pintalux {

/// Four outline pixels that mirror each other: columns x0 and x1 in the rows upper and lower.
struct OutlineStep {
    std::int64_t x0;
    std::int64_t x1;
    std::int64_t upper;
    std::int64_t lower;
};

/// Calls visit(OutlineStep) for the outline inside `box`, which has its corners in order and is 3 or more
/// wide and high: from the widest rows outwards, each step next to the one before.
template <class Visit>
void WalkEllipse(const LongBox& box, Visit visit) {
    // The error terms are cubes of the extents: 128 bits hold them for every 32-bit box.
    const Int128 a = box.right - 1 - box.left;
    const Int128 b = box.bottom - 1 - box.top;
    const std::int64_t odd = (box.Height() - 1) & 1;
    Int128 dx = 4 * (1 - a) * b * b;
    Int128 dy = 4 * a * a * (odd + 1);
    Int128 error = dx + dy + odd * a * a;
    OutlineStep at{box.left, box.right - 1, 0, box.top + box.Height() / 2};
    at.upper = at.lower - odd;
    OutlineStep last = at;
    while (at.x0 <= at.x1) {
        visit(at);
        last = at;
        const Int128 twice = 2 * error;
        if (twice <= dy) {
            ++at.lower;
            --at.upper;
            dy += 8 * a * a;
            error += dy;
        }
        if (twice >= dx) {
            ++at.x0;
            --at.x1;
            dx += 8 * b * b;
            error += dx;
        }
    }
    // Intended: an outline that ends short of the tip rows carries its last columns on to them, so that a
    // slim upright ellipse is whole.
    while (last.lower < box.bottom - 1) {
        ++last.lower;
        --last.upper;
        visit(last);
    }
}

} // namespace pintalux
