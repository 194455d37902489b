// Writing pixels without a drawing call.
#pragma once

#include "surface/raster/DeviceContext.h"

namespace pintalux {

/// The right to write on a context's bitmap while it lives. At its end, by an error too, the owner hears of
/// the box.
class PixelWrite {
  public:
    /// The box is cut to the bitmap.
    PixelWrite(DeviceContext& hdc, const Box& box)
        : hdc_(hdc), box_(Intersection(box, hdc.Bits().Bounds())) {}
    /// The whole bitmap.
    explicit PixelWrite(DeviceContext& hdc) : PixelWrite(hdc, hdc.Bits().Bounds()) {}
    ~PixelWrite() { hdc_.Touched(box_); }
    PixelWrite(const PixelWrite&) = delete;
    PixelWrite& operator=(const PixelWrite&) = delete;

    Bitmap& Bits() const { return hdc_.Bits(); }
    const Box& Area() const { return box_; }

  private:
    DeviceContext& hdc_;
    Box box_;
};

} // namespace pintalux
