// Uncompressed BMP files, read straight into a bitmap.
#pragma once

#include "surface/raster/Bitmap.h"
#include "surface/system/BmpHeader.h"

namespace pintalux {

/// The picture of a file without compression. Error 481 if it ends early, 7 if memory runs out.
Picture ReadBmpRows(File& file, const BmpHeader& header);

} // namespace pintalux
