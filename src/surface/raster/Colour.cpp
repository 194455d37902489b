#include "surface/raster/Colour.h"

#include "base/RuntimeError.h"

#include <algorithm>

namespace pintalux {

Colour RGB(int red, int green, int blue) {
    if (red < 0 || green < 0 || blue < 0) throw RuntimeError(kInvalidArgument);
    return std::min(red, 255) | std::min(green, 255) << 8 | std::min(blue, 255) << 16;
}

} // namespace pintalux
