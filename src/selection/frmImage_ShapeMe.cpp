// Clipping a surface to the outline of what it shows.
#include "document/frmImage.h"

#include <vector>

namespace pintalux {

namespace {

// A run of pixels to be left out: where it starts, and how many pixels it goes on for, over the ends of
// lines if need be.
struct ColourRun {
    int x;
    int y;
    std::int64_t length;
};

// Collects the runs of `colour` over a scan of `lines` lines of `length` pixels, `at(i, line)` each.
template <class PixelAt>
std::vector<ColourRun> FindRuns(int lines, int length, Pixel colour, PixelAt at) {
    std::vector<ColourRun> runs;
    bool open = false;
    for (int line = 0; line < lines; ++line) {
        for (int i = 0; i < length; ++i) {
            if (at(i, line) != colour) {
                open = false;
            } else if (open) {
                ++runs.back().length;
            } else {
                runs.push_back({i, line, 1});
                open = true;
            }
        }
    }
    return runs;
}

// Takes a part of one line out of the region.
void TakeOut(Region& full, int from, int end, int line, bool horizontal) {
    Region run = horizontal ? CreateRectRgn(from, line, end + 1, line + 1)
                            : CreateRectRgn(line, from, line + 1, end + 1);
    CombineRgn(full, full, run, RGN_DIFF);
    DeleteObject(run);
}

} // namespace

void frmImage::ShapeMe(Colour Color, bool HorizontalScan, Surface& Name2) {
    Name2.ScaleMode(kScalePixels);
    const Bitmap bits = Name2.Image();
    const int width = bits.Width();
    const int height = bits.Height();
    const int length = HorizontalScan ? width : height;
    const auto runs =
        HorizontalScan ? FindRuns(height, width, PixelOf(Color), [&](int x, int y) { return bits.At(x, y); })
                       : FindRuns(width, height, PixelOf(Color), [&](int y, int x) { return bits.At(x, y); });
    Region full = CreateRectRgn(0, 0, width, height);
    for (const ColourRun& run : runs) {
        int from = run.x;
        int line = run.y;
        // A run that reaches a line's end goes on at the start of the next one.
        for (std::int64_t left = run.length; left > 0; ++line, from = 0) {
            const int end = static_cast<int>(std::min<std::int64_t>(length, from + left)) - 1;
            TakeOut(full, from, end, line, HorizontalScan);
            left -= end - from + 1;
        }
    }
    SetWindowRgn(Name2, full);
    DeleteObject(full);
}

} // namespace pintalux
