// Our pictures as the toolkit's, and back.
#pragma once

#include "surface/raster/Bitmap.h"

#include <QImage>

namespace pintalux {

/// A copy of the picture. Error 7 if memory runs out.
QImage ImageOf(const Picture& picture);

/// The same back; transparent pixels show white. Error 7 if memory runs out.
Picture PictureOfImage(const QImage& image);

} // namespace pintalux
