// Fonts of printing and labels as the toolkit knows them.
#pragma once

#include "surface/window/Surface.h"

#include <QFont>

namespace pintalux {

/// The toolkit's font, without smoothing, sized in pixels: an image must not depend on the desktop's
/// resolution.
QFont ToQFont(const Font& font);

} // namespace pintalux
