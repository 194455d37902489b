#include "base/RuntimeError.h"
#include "surface/window/Control_native.h"

namespace pintalux {

Container::Container(Container* parent, std::string name, int scaleMode)
    : Control(parent, std::move(name)), scaleMode_(scaleMode) {}

void Container::ScaleMode(int value) {
    if (value < kScaleTwips || value > kScalePixels) throw RuntimeError(kInvalidPropertyValue);
    if (value == scaleMode_) return;
    const double before = UnitsPerPixel();
    scaleMode_ = value;
    const double after = UnitsPerPixel();
    // The numbers change, the places on the screen don't: no widget moves.
    for (Control* child : native_->children) {
        for (double* length : {&child->left_, &child->top_, &child->width_, &child->height_})
            *length = *length * after / before; // In this order: 33 * 0.75 / 0.75 is 33 again.
    }
}

double Container::UnitsPerPixel() const {
    switch (scaleMode_) {
    case kScaleTwips:
        return kTwipsPerPixel;
    case kScalePoints:
        return 0.75;
    default:
        return 1;
    }
}

double Container::ScaleWidth() const {
    return PixelWidth() * UnitsPerPixel();
}

double Container::ScaleHeight() const {
    return PixelHeight() * UnitsPerPixel();
}

QWidget* ClientWidgetOf(const Container& container) {
    const ControlNative& native = container.Native();
    return native.client ? native.client.data() : native.widget.data();
}

} // namespace pintalux
