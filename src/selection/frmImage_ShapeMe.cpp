// Clipping a surface to the outline of what it shows.
#include "document/frmImage.h"

namespace pintalux {

// Along whichever axis it is scanned, the outline is the same.
void frmImage::ShapeMe(Colour Color, bool /*HorizontalScan*/, Surface& Name2) {
    Name2.ScaleMode(kScalePixels);
    Region full = Name2.ShapeWithout(Color);
    SetWindowRgn(Name2, full);
    DeleteObject(full);
}

} // namespace pintalux
