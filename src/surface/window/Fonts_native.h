// Fonts of printing and labels as the toolkit knows them.
#pragma once

#include "surface/window/Surface.h"

#include <QFont>

namespace pintalux {

/// "Small Fonts": the desktop's own face, as small as is still read. Only screens show it.
QFont SmallFont();

/// The toolkit's font, without smoothing, sized in pixels: an image must not depend on the desktop's
/// resolution.
QFont ToQFont(const Font& font);

} // namespace pintalux
