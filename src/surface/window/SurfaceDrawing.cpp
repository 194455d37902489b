// Drawing on surfaces: coordinates become whole pixels here, half to even, and the raster layer draws.
#include "base/Arithmetic.h"
#include "surface/raster/Drawing.h"
#include "surface/raster/Transfer.h"
#include "surface/window/Surface.h"

namespace pintalux {

namespace {

Extent ExtentOf(double x, double y, double width, double height) {
    return {ToInt32(x), ToInt32(y), ToInt32(width), ToInt32(height)};
}

} // namespace

Colour Surface::Point(double x, double y) const {
    return GetPixel(hDC(), ToInt32(x), ToInt32(y));
}

void Surface::PSet(double x, double y, Colour colour) {
    DrawDot(hDC(), ToInt32(x), ToInt32(y), colour);
}

void Surface::Line(double x1, double y1, double x2, double y2, Colour colour) {
    DrawLine(hDC(), ToInt32(x1), ToInt32(y1), ToInt32(x2), ToInt32(y2), colour);
}

void Surface::LineB(double x1, double y1, double x2, double y2, Colour colour) {
    DrawBox(hDC(), ToInt32(x1), ToInt32(y1), ToInt32(x2), ToInt32(y2), colour);
}

void Surface::LineBF(double x1, double y1, double x2, double y2, Colour colour) {
    DrawFilledBox(hDC(), ToInt32(x1), ToInt32(y1), ToInt32(x2), ToInt32(y2), colour);
}

void Surface::Circle(double x, double y, double radius, Colour colour) {
    DrawCircle(hDC(), ToInt32(x), ToInt32(y), ToInt32(radius), colour);
}

void Surface::PaintPicture(const pintalux::Picture& picture, double x1, double y1, double w1, double h1,
                           double x2, double y2, double w2, double h2, std::uint32_t rop) {
    StretchBits(hDC(), ExtentOf(x1, y1, w1, h1), picture, ExtentOf(x2, y2, w2, h2), rop);
}

} // namespace pintalux
