// From view pixels to image pixels.
#pragma once

#include "base/Arithmetic.h"
#include "document/frmImage.h"

#include <cstdint>

namespace pintalux {

/// A point in image pixels.
struct ImagePoint {
    std::int16_t x;
    std::int16_t y;
};

/// The image pixel under a view pixel, floored. Error 6 beyond 16 bits.
inline ImagePoint ImagePointAt(const frmImage& image, double X, double Y) {
    return {FloorToInt16(X / image.factor), FloorToInt16(Y / image.factor)};
}

/// Where a figure ends, in image pixels. It is not kept, so that it may lie beyond 16 bits.
struct FigureEnd {
    std::int32_t x;
    std::int32_t y;
};

/// The image pixel under a view pixel, floored, for the end of a figure. Error 6 beyond 32 bits.
inline FigureEnd FigureEndAt(const frmImage& image, double X, double Y) {
    return {FloorToInt32(X / image.factor), FloorToInt32(Y / image.factor)};
}

/// Makes the image pixel under a view pixel the stroke's anchor.
inline void TakeAnchor(frmImage& image, double X, double Y) {
    const ImagePoint point = ImagePointAt(image, X, Y);
    image.sx = point.x;
    image.sy = point.y;
}

} // namespace pintalux
