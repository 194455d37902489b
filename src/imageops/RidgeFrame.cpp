#include "base/Arithmetic.h"
#include "imageops/Frames.h"
#include "imageops/FrameTones.h"
#include "surface/window/Surface.h"

#include <limits>

namespace pintalux {

namespace {

// Intended: of an even size the top band's innermost row has no tone and keeps the picture.
Tones RidgeTones(double W, double H, double s, bool inward) {
    constexpr double kAny = std::numeric_limits<double>::infinity();
    const double half = s / 2;
    const Colour A = inward ? kWhite : kBlack;
    const Colour B = inward ? RGB(192, 192, 192) : RGB(128, 128, 128);
    const Colour C = inward ? RGB(128, 128, 128) : RGB(192, 192, 192);
    const Colour D = inward ? kBlack : kWhite;
    return {{{{-kAny, half + 1, A}, {half, s, B}}},
            {{{H - s, H - half, C}, {H - half - 1, H, D}}},
            {{{-kAny, half + 1, A}, {half, s, B}}},
            {{{W - s - 1, W - half, C}, {W - half - 1, kAny, D}}}};
}

} // namespace

void RidgeFrame(Surface& work, Surface& live, std::int16_t& size, Flag outerLine, Flag innerLine, Flag inward,
                ProgressBar& Pb) {
    const std::int16_t entry = size;
    size = ToInt16(size / 8.0);
    const int W = live.PixelWidth();
    const int H = live.PixelHeight();
    const FrameBands bands(W, H, size);
    const Tones tones = RidgeTones(W, H, size, inward);
    ForFrameRows(live, Pb, [&](Bitmap& bits, int y) { PaintTones(bits, y, bands.OfRow(y), tones); });
    FinishFrame(work, live, size, outerLine, innerLine);
    size = entry;
}

} // namespace pintalux
