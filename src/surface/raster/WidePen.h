// The pen two or more pixels wide: a dot at each end of a line and a four-cornered body between them.
#pragma once

#include "surface/raster/Figure.h"

#include <vector>

namespace pintalux {

class WidePen {
  public:
    /// A pen `width` pixels wide, 1 or more.
    explicit WidePen(int width);

    /// Adds the dot around `at`.
    void AddDot(Figure& figure, LongPoint at) const;

    /// Adds the line with both of its ends. The direction changes nothing.
    void AddLine(Figure& figure, LongPoint from, LongPoint to) const;

    /// Adds what lies between the dots of two points.
    void AddBody(Figure& figure, LongPoint from, LongPoint to) const;

  private:
    struct DotRow {
        int left; ///< Relative to the dot's point.
        int right;
    };

    bool Misses(const Figure& figure, LongPoint from, LongPoint to) const;

    int width_;
    std::vector<DotRow> rows_; ///< The first lies width / 2 above the dot's point.
};

} // namespace pintalux
