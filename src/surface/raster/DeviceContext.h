// The device context: the bitmap that drawing goes to, with the pen and the brush of its surface.
#pragma once

#include "surface/raster/Bitmap.h"
#include "surface/raster/Colour.h"

#include <functional>

namespace pintalux {

enum FillStyleValue : int { kFillSolid = 0, kFillTransparent = 1 };
enum DrawModeValue : int { kDrawInvert = 6, kDrawCopyPen = 13 };
enum DrawStyleValue : int { kDrawSolid = 0, kDrawDash = 2, kDrawNone = 5 };

/// Pen and brush.
struct DrawAttributes {
    Colour ForeColor = kBlack; ///< Pen colour of `Ellipse`; colour of printing.
    Colour FillColor = kBlack;
    int FillStyle = kFillTransparent;
    int DrawMode = kDrawCopyPen;
    int DrawStyle = kDrawSolid;
    int DrawWidth = 1; ///< Pen width in pixels, 1 or more.
};

/// What drawing calls draw on. A const one is only read from.
class DeviceContext {
  public:
    DeviceContext() = default;
    /// A context over a bitmap and attributes that outlive it. `touched`, if given, hears of each drawn box.
    DeviceContext(Bitmap& bits, DrawAttributes& attributes, std::function<void(const Box&)> touched = {})
        : bits_(&bits), attributes_(&attributes), touched_(std::move(touched)) {}

    Bitmap& Bits() { return *bits_; }
    const Bitmap& Bits() const { return *bits_; }
    const DrawAttributes& Attributes() const { return *attributes_; }

    /// Sends further drawing to another bitmap.
    void Redirect(Bitmap& bits) { bits_ = &bits; }

    /// Tells the owner that the pixels of `box` changed. Every drawing call does so once, for what it drew.
    void Touched(const Box& box) {
        if (touched_ && !box.Empty()) touched_(box);
    }

  private:
    Bitmap* bits_ = nullptr;
    DrawAttributes* attributes_ = nullptr;
    std::function<void(const Box&)> touched_;
};

} // namespace pintalux
