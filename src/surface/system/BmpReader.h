// BMP files, read straight into a bitmap.
#pragma once

#include "surface/raster/Bitmap.h"
#include "surface/system/BmpHeader.h"

#include <stop_token>

namespace pintalux {

/// The picture of a file without compression. Error 481 if it ends early, 7 if memory runs out or the picture
/// would take half of what is free, 18 at a stop.
Picture ReadBmpRows(File& file, const BmpHeader& header, const std::stop_token& stop);

/// The picture of a compressed file. What it leaves out, or what is missing at its end, has the palette's
/// first colour. Errors 7 and 18 as above.
Picture ReadBmpRunLengths(File& file, const BmpHeader& header, const std::stop_token& stop);

} // namespace pintalux
