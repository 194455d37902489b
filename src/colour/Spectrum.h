// The picture that colours are picked from.
#pragma once

#include "surface/raster/Bitmap.h"

namespace pintalux {

/// 177 by 188: the hues along x, from red once around to red; along y from white over the full colour to
/// black; at the right edge a column of greys.
Picture SpectrumPicture();

} // namespace pintalux
