// Mirrors an image. A flip twice gives the image back exactly.
#include "imageops/ImgFiltMod.h"
#include "imageops/Landing.h"
#include "surface/raster/Transfer.h"
#include "surface/window/Surface.h"

namespace pintalux {

void FlipImage(Surface& destination, Surface& source, std::int16_t horizontal) {
    const double SW = source.ScaleWidth();
    const double SH = source.ScaleHeight();
    if (horizontal == -1) {
        destination.PaintPicture(source.Picture(), 0, 0, SW, SH, SW, 0, -SW, SH, SRCCOPY);
    } else {
        destination.PaintPicture(source.Picture(), 0, 0, SW, SH, 0, SH, SW, -SH, SRCCOPY);
    }
    LandOnDestination(destination);
}

} // namespace pintalux
