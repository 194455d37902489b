// Where the four bands of a frame run, row by row.
//
// In a column of depth k the top band and the bottom band have k rows each. Between them lie the side bands.
// Depths rise from the left by one a column, stay, and fall again towards the right, so that the bands meet
// in diagonals. A frame of size 4 on a width of 12 has the depths 1 2 3 3 3 3 3 2 1 0 -1 from column 1 on.
// The columns of depth 3 or more are one stretch, 3 to 7, as those of every depth are. So a frame goes by
// rows.
#pragma once

#include "base/Flag.h"
#include "surface/raster/Bitmap.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <vector>

namespace pintalux {

class ProgressBar;
class Surface;

/// A stretch of a row: begin belongs to it, end does not.
struct Columns {
    int begin = 0;
    int end = 0;
    bool operator==(const Columns&) const = default;
};

/// The part that two stretches share; empty where they don't meet.
Columns Intersection(Columns a, Columns b);

/// The depths of columns.
class BandDepths {
  public:
    /// The columns `all`; those below `risingEnd` add one, those from `fallingBegin` on take one away.
    BandDepths(Columns all, int risingEnd, int fallingBegin);

    /// The columns of depth `depth` or more.
    Columns AtLeast(int depth) const;
    /// Those of a smaller depth, before and after them; none if `depth` is below 1. Without a column of that
    /// depth all lie before.
    Columns Before(int depth) const;
    Columns After(int depth) const;
    /// The rising (falling) ones of a smaller depth.
    Columns RisingBelow(int depth) const;
    Columns FallingBelow(int depth) const;

  private:
    bool Reached(int depth) const { return depth < static_cast<int>(atLeast_.size()); }

    Columns all_, rising_, falling_;
    std::vector<Columns> atLeast_; ///< By depth, from 0 on.
};

/// The columns of a row that belong to each band. Where bands overlap, the later one is painted over the
/// earlier.
struct RowBands {
    Columns top, bottom, left, right;
};

/// The bands of a frame of size `s` on a surface of `width` by `height`. Row and column 0 have none, unless
/// the bottom band is deeper than the image is high.
class FrameBands {
  public:
    FrameBands(int width, int height, int s);
    RowBands OfRow(int y) const;
    const BandDepths& Depths() const { return depths_; }

  private:
    int height_;
    BandDepths depths_;
};

/// Fills columns of row y, as far as the bitmap reaches.
void FillColumns(Bitmap& bits, int y, Columns columns, Pixel pixel);

/// Replaces the pixels of columns of row y, which lie inside, by change(x, pixel).
template <class Change>
void ChangeColumns(Bitmap& bits, int y, Columns columns, const Change& change) {
    for (int x = columns.begin; x < columns.end;) {
        const auto run = bits.WritableRun(x, y);
        const std::size_t count = std::min(run.size(), static_cast<std::size_t>(columns.end - x));
        for (std::size_t i = 0; i < count; ++i)
            run[i] = change(x + static_cast<int>(i), run[i]);
        x += static_cast<int>(count);
    }
}

/// The rows of a frame, from top to bottom over the cores: paint(bits, y) for each.
void ForFrameRows(Surface& live, ProgressBar& Pb, const std::function<void(Bitmap& bits, int y)>& paint);

/// The lines of a frame of size `s` that are ticked, and the landing from the live surface.
void FinishFrame(Surface& work, Surface& live, int s, Flag outerLine, Flag innerLine);

} // namespace pintalux
