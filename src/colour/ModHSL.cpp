#include "colour/ModHSL.h"

namespace pintalux {

Colour ContrastColor(Colour c) {
    return RgbToHsl(c).Lum <= 120 ? kWhite : kBlack;
}

} // namespace pintalux
