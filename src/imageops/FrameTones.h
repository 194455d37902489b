// The bands of a moulding in flat tones. Each band has two, the later one on top; the place across the band
// says which shows.
#pragma once

#include "imageops/FrameBands.h"

#include <array>

namespace pintalux {

/// A tone for places that lie above one bound and below another. Half places arise where a size is odd.
struct Tone {
    double above;
    double below;
    Colour colour;
};

struct Tones {
    std::array<Tone, 2> top, bottom; ///< By row.
    std::array<Tone, 2> left, right; ///< By column.
};

void PaintTones(Bitmap& bits, int y, const RowBands& bands, const Tones& tones);

} // namespace pintalux
