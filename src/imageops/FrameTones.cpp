#include "imageops/FrameTones.h"

#include "base/Arithmetic.h"

namespace pintalux {

namespace {

/// The whole places of a tone, as far as a 16-bit image reaches.
Columns PlacesOf(const Tone& tone) {
    constexpr double kFar = 1 << 20;
    return {FloorToInt32(std::max(tone.above, -kFar)) + 1, -FloorToInt32(-std::min(tone.below, kFar))};
}

void PaintRowTones(Bitmap& bits, int y, Columns band, const std::array<Tone, 2>& tones) {
    for (const Tone& tone : tones) {
        if (y > tone.above && y < tone.below) FillColumns(bits, y, band, PixelOf(tone.colour));
    }
}

void PaintColumnTones(Bitmap& bits, int y, Columns band, const std::array<Tone, 2>& tones) {
    for (const Tone& tone : tones)
        FillColumns(bits, y, Intersection(band, PlacesOf(tone)), PixelOf(tone.colour));
}

} // namespace

void PaintTones(Bitmap& bits, int y, const RowBands& bands, const Tones& tones) {
    PaintRowTones(bits, y, bands.top, tones.top);
    PaintRowTones(bits, y, bands.bottom, tones.bottom);
    PaintColumnTones(bits, y, bands.left, tones.left);
    PaintColumnTones(bits, y, bands.right, tones.right);
}

} // namespace pintalux
