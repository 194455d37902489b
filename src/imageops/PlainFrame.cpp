#include "imageops/FrameBands.h"
#include "imageops/Frames.h"
#include "surface/window/Surface.h"

namespace pintalux {

void PlainFrame(Surface& work, Surface& live, std::int16_t size, Colour colour, Flag outerLine,
                Flag innerLine, ProgressBar& Pb) {
    const FrameBands bands(live.PixelWidth(), live.PixelHeight(), size);
    const Pixel pixel = PixelOf(colour);
    ForFrameRows(live, Pb, [&](Bitmap& bits, int y) {
        const RowBands row = bands.OfRow(y);
        for (const Columns band : {row.top, row.bottom, row.left, row.right})
            FillColumns(bits, y, band, pixel);
    });
    FinishFrame(work, live, size, outerLine, innerLine);
}

} // namespace pintalux
