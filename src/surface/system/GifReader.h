// GIF files: what a viewer shows first.
#pragma once

#include "surface/raster/Bitmap.h"
#include "surface/system/FileLayer.h"
#include "surface/system/Pictures.h"

#include <stop_token>

namespace pintalux {

/// The first frame of a GIF file, as large as its screen: images that follow without a delay belong to it,
/// what of them lies outside the screen is cut off, and what they leave open is white. A file that ends early
/// shows what is there. Error 481 if it is broken before its first image is complete, or has an illegal side;
/// 7 if memory runs out or the picture would take half of what is free; 18 at a stop.
Picture ReadGif(File& file, const std::stop_token& stop);

/// The size of that screen, legal or not: the images on it may be smaller. Error 481 if the file is too
/// short.
PictureSize ReadGifSize(File& file);

} // namespace pintalux
