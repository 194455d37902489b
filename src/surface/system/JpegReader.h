// JPEG files, decoded straight into a bitmap.
#pragma once

#include "surface/raster/Bitmap.h"
#include "surface/system/FileLayer.h"
#include "surface/system/Pictures.h"

#include <stop_token>

namespace pintalux {

/// The picture of a JPEG file, row by row: grey, colours, or printing inks as they look on white paper. A
/// file that ends early is grey where its data are missing. Error 481 if it is broken, has an illegal side or
/// more scans than any program writes, 7 if memory runs out or the picture would take half of what is free,
/// 18 at a stop.
Picture ReadJpeg(File& file, const std::stop_token& stop);

/// The size that its header announces, legal or not. Error 481 if there is none.
PictureSize ReadJpegSize(File& file);

} // namespace pintalux
