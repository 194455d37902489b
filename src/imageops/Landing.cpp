#include "imageops/Landing.h"

#include "surface/window/Surface.h"

namespace pintalux {

void Land(const Surface& drawn, Surface& live, Surface& work) {
    const Picture image = drawn.Image();
    live.Picture(image);
    work.Picture(image);
}

void LandOnDestination(Surface& destination) {
    destination.AutoSize(true);
    destination.Picture(destination.Image());
}

} // namespace pintalux
