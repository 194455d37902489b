// The formats that are left to the toolkit's decoders.
#pragma once

#include "surface/raster/Bitmap.h"
#include "surface/system/FileLayer.h"
#include "surface/system/Pictures.h"

#include <stop_token>

namespace pintalux {

/// A picture (the first, of several) of one of the toolkit's formats: "png", "webp" or "tiff". Transparent
/// pixels show white; what a file says of its colours or of the camera's position is not looked at. Error 481
/// if it is broken, ends early or has an illegal side, which is found before anything is decoded, or if the
/// toolkit cannot read the format; 7 if memory runs out, or if what the decoder holds and the picture would
/// take more than half of what is free; 18 at a stop. A WebP that has been read to its end is decoded in one
/// go.
Picture ReadByToolkit(File& file, const char* format, const std::stop_token& stop);

/// The size that the header of such a file announces, legal or not, and never legal if it is broken.
PictureSize SizeByToolkit(File& file, const char* format);

/// The largest picture of an icon file: icons are small, and of many kinds.
Picture ReadIcon(File& file, const std::stop_token& stop);

} // namespace pintalux
