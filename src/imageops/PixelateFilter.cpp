#include "base/Arithmetic.h"
#include "imageops/ImgFiltMod.h"
#include "imageops/RowLoop.h"
#include "surface/raster/StreamCopy.h"
#include "surface/window/Surface.h"

#include <algorithm>
#include <span>
#include <vector>

namespace pintalux {

namespace {

/// Where the boxes begin along a side of the image.
// Intended: a side that is a multiple of the box gets a last box one pixel from its edge, whose colour is
// taken from outside and white.
std::vector<int> BoxStarts(int side, std::int16_t box) {
    std::vector<int> starts;
    for (int at = 0; at <= side; at = AddInt16(at, box)) {
        const bool atEdge = at + 1 > side;
        starts.push_back(atEdge ? side - 1 : at);
        if (atEdge) break; // Nothing lies beyond; boxes of one pixel would come back here for ever.
    }
    return starts;
}

/// The end of box i. A box reaches one pixel into the next one, which is painted over it.
int BoxEnd(const std::vector<int>& starts, std::size_t i, int box, int limit) {
    return std::min(i + 1 < starts.size() ? starts[i + 1] : starts[i] + box + 1, limit);
}

} // namespace

void PixelateFilter(Surface& work, Surface& live, ProgressBar& Pb, std::int16_t level) {
    const std::int16_t s = level;
    SetProgressMax(Pb, s + work.ScaleWidth());
    const std::vector<int> columns = BoxStarts(ToInt16(work.ScaleWidth()), s);
    const std::vector<int> rows = BoxStarts(ToInt16(work.ScaleHeight()), s);
    const Bitmap read = work.hDC().Bits();
    Bitmap& bits = live.hDC().Bits();
    const Box area{columns.front(), rows.front(), BoxEnd(columns, columns.size() - 1, s, bits.Width()),
                   BoxEnd(rows, rows.size() - 1, s, bits.Height())};

    ForRows(live, area, Pb, Cores::All, [&](int top, int bottom) {
        std::vector<Pixel> colours(static_cast<std::size_t>(area.right));
        auto row =
            static_cast<std::size_t>(std::upper_bound(rows.begin(), rows.end(), top) - rows.begin()) - 1;
        for (int y = top; y < bottom; ++row) {
            for (std::size_t column = 0; column < columns.size(); ++column) {
                const int PxX = columns[column] + 1;
                const int PxY = rows[row] + 1;
                const Colour PxColour = read.Holds(PxX, PxY) ? static_cast<Colour>(read.At(PxX, PxY)) : -1;
                const int end = BoxEnd(columns, column, s, area.right);
                if (columns[column] < end)
                    std::fill(colours.begin() + columns[column], colours.begin() + end, PixelOf(PxColour));
            }
            if (row + 1 < rows.size()) FetchRow(read, 0, rows[row + 1] + 1, read.Width());
            const int end = std::min(BoxEnd(rows, row, s, area.bottom), bottom);
            for (; y < end; ++y)
                StreamRow(bits, area.left, y,
                          std::span(colours).subspan(static_cast<std::size_t>(area.left)));
        }
    });
}

} // namespace pintalux
