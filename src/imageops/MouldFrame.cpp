#include "base/Arithmetic.h"
#include "imageops/Frames.h"
#include "imageops/FrameTones.h"
#include "imageops/Landing.h"
#include "surface/window/Surface.h"

#include <limits>

namespace pintalux {

namespace {

constexpr double kAny = std::numeric_limits<double>::infinity();
constexpr Colour kLight = 0xCCCCCC;
constexpr Colour kGrey = 0x808080;
constexpr Colour kDark = 0x404040;

Tones OuterTones(double W, double H, double s) {
    const double half = s / 2;
    return {{{{-kAny, half, kWhite}, {half - 1, s, kLight}}},
            {{{H - s, H - half, kGrey}, {H - half - 1, H, kDark}}},
            {{{-kAny, half, kWhite}, {half - 1, s, kLight}}},
            {{{W - s - 1, W - half, kGrey}, {W - half - 1, kAny, kDark}}}};
}

Tones InnerTones(double W, double H, double s, double f) {
    const double half = s / 2;
    return {{{{-kAny, half + 1 + f, kGrey}, {half + f, s + f + 1, kDark}}},
            {{{H - s - f, H - f - half - 1, kWhite}, {H - f - half - 2, H - f, kLight}}},
            {{{-kAny, half + f, kGrey}, {half + f - 1, s + f, kDark}}},
            {{{W - s - f - 1, W - half - f - 1, kWhite}, {W - half - f - 2, W - f, kLight}}}};
}

/// The flat colour between the mouldings of size `s` and inset `f`.
void FillFlat(Bitmap& bits, int y, int s, int f, Pixel pixel) {
    const int W = bits.Width();
    const int H = bits.Height();
    const Columns left{std::max(s, 1), f};
    const Columns right{std::max(W - f, 1), W - s};
    if (y >= s && y <= H - s) {
        FillColumns(bits, y, left, pixel);
        FillColumns(bits, y, right, pixel);
    }
    // What lies between the two has the colour at the top and the bottom only.
    const Columns between{std::max(f, 1), right.begin < right.end ? right.begin : W - f + 1};
    if ((y >= s && y <= f) || (y >= H - f && y <= H - s)) FillColumns(bits, y, between, pixel);
}

/// Paints row y of a moulding that lies `f` pixels inside. Its top band begins at its edge, and so has one
/// row more than the depth; what is shallower belongs to both sides, whose tones tell by the column.
void PaintInnerRow(Bitmap& bits, int y, int f, const BandDepths& depths, const Tones& tones) {
    const int fromTop = y - f;
    const int fromBottom = bits.Height() - f - y;
    const int toEdge = std::min(fromTop, fromBottom);
    const Columns before = depths.Before(toEdge);
    const Columns after = depths.After(toEdge);
    PaintTones(bits, y,
               {fromTop < 0 ? Columns{} : depths.AtLeast(fromTop),
                fromBottom < 1 ? Columns{} : depths.AtLeast(fromBottom), before, before},
               tones);
    PaintTones(bits, y, {{}, {}, after, after}, tones);
}

} // namespace

void MouldFrame(Surface& work, Surface& live, std::int16_t& size, std::int16_t frameSize, Colour colour,
                ProgressBar& Pb) {
    const std::int16_t entry = size;
    size = ToInt16(size / 8.0);
    const int W = live.PixelWidth();
    const int H = live.PixelHeight();
    const FrameBands bands(W, H, size);
    const Tones tones = OuterTones(W, H, size);
    const Pixel pixel = PixelOf(colour);
    ForFrameRows(live, Pb, [&](Bitmap& bits, int y) {
        PaintTones(bits, y, bands.OfRow(y), tones);
        FillFlat(bits, y, size, frameSize, pixel);
    });
    InnerMould(work, live, size, frameSize, Pb);
    size = entry;
    Land(live, live, work);
}

void InnerMould(Surface&, Surface& live, std::int16_t s, std::int16_t f, ProgressBar& Pb) {
    const int W = live.PixelWidth();
    const int H = live.PixelHeight();
    const BandDepths depths({f, std::max<int>(W - f, f)}, s + f, W - s - f);
    const Tones tones = InnerTones(W, H, s, f);
    ForFrameRows(live, Pb, [&](Bitmap& bits, int y) { PaintInnerRow(bits, y, f, depths, tones); });
}

} // namespace pintalux
