#include "imageops/ImgFiltMod.h"
#include "imageops/Landing.h"
#include "surface/raster/Transfer.h"
#include "surface/window/Surface.h"

namespace pintalux {

// Intended: the mask colour is inverted with the rest, so that nothing of a freehand selection stays
// transparent and its whole rectangle lands on the image.
void InvertFilter(Surface& work, Surface& live, ProgressBar& /*Pb*/, std::int16_t /*level*/) {
    const double W = work.ScaleWidth();
    const double H = work.ScaleHeight();
    live.PaintPicture(work.Picture(), 0, 0, W, H, 0, 0, W, H, NOTSRCCOPY);
    Land(live, live, work);
}

} // namespace pintalux
