// Regions: sets of pixels kept as rows of runs, used to clip a surface to an outline.
#pragma once

#include "surface/raster/Bitmap.h"

#include <vector>

namespace pintalux {

inline constexpr int RGN_AND = 1;
inline constexpr int RGN_OR = 2;
inline constexpr int RGN_XOR = 3;
inline constexpr int RGN_DIFF = 4;
inline constexpr int RGN_COPY = 5;

inline constexpr int NULLREGION = 1;
inline constexpr int SIMPLEREGION = 2;
inline constexpr int COMPLEXREGION = 3;

class Region {
  public:
    /// The boxes of the region, from top to bottom and left to right; they don't overlap, and rows that hold
    /// the same runs are joined.
    std::vector<Box> Boxes() const;
    bool Holds(int x, int y) const;
    /// The smallest box around the region; empty for the empty region.
    Box Bounds() const;
    /// NULLREGION, SIMPLEREGION or COMPLEXREGION.
    int Kind() const;

    struct Run {
        int left;
        int right; ///< Exclusive.
        bool operator==(const Run&) const = default;
    };
    /// Rows top to bottom - 1, all holding the same runs, which are sorted and don't touch.
    struct Stripe {
        int top;
        int bottom;
        std::vector<Run> runs;
    };
    std::vector<Stripe> stripes; ///< Sorted, disjoint, none without runs.
};

/// The rectangle; reversed corners are sorted, equal ones give the empty region.
Region CreateRectRgn(int left, int top, int right, int bottom);

/// `result` = a combined with b; may be one of them. Gives the kind of the result; error 5 for an unknown
/// mode. Taking a run of one row out of a region of thousands of rows costs that row only.
int CombineRgn(Region& result, const Region& a, const Region& b, int mode);

/// Gives the region's memory back.
void DeleteObject(Region& region);

} // namespace pintalux
