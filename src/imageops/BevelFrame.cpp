#include "base/Arithmetic.h"
#include "imageops/FrameBands.h"
#include "imageops/Frames.h"
#include "imageops/FrameShades.h"
#include "surface/window/Surface.h"

namespace pintalux {

namespace {

/// The parts of a bottom band that are painted. It is read from its inner edge outward, and reading ends at
/// the first pixel that lies outside the image.
// Intended: where the band is deeper than the image is high its first pixel lies above the image, so that
// these columns keep what the other bands painted.
std::array<Columns, 2> Painted(Columns bottom, Columns tooDeep) {
    if (tooDeep.end <= tooDeep.begin) return {bottom, Columns{}};
    return {Intersection(bottom, {0, tooDeep.begin}), Intersection(bottom, {tooDeep.end, bottom.end})};
}

} // namespace

// Intended: light raises the saturation, not the luminance, so that a bevel on a grey picture colours it.
void BevelFrame(Surface& work, Surface& live, std::int16_t size, std::int16_t& highlight,
                std::int16_t& shadow, Flag outerLine, Flag innerLine, ProgressBar& Pb) {
    BWizHighlight = highlight;
    BWizShadow = shadow;
    highlight = ToInt16(highlight / 3.0);
    shadow = ToInt16(shadow / 3.0);
    const int H = live.PixelHeight();
    const FrameBands bands(live.PixelWidth(), H, size);
    const auto lit = [by = highlight](int, Pixel pixel) { return Saturated(pixel, by); };
    const auto shaded = [by = shadow](int, Pixel pixel) { return CutTo160(Darkened(pixel, by)); };
    ForFrameRows(live, Pb, [&](Bitmap& bits, int y) {
        const RowBands row = bands.OfRow(y);
        ChangeColumns(bits, y, row.top, lit);
        for (const Columns part : Painted(row.bottom, bands.Depths().AtLeast(H + 1)))
            ChangeColumns(bits, y, part, shaded);
        ChangeColumns(bits, y, row.left, lit);
        ChangeColumns(bits, y, row.right, shaded);
    });
    FinishFrame(work, live, size, outerLine, innerLine);
}

} // namespace pintalux
