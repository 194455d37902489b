// The eye-dropper: previews the colour under its tip, and takes it at the release.
#include "base/Arithmetic.h"
#include "colour/ColourPanel.h"
#include "document/frmImage.h"
#include "surface/raster/Drawing.h"
#include "tools/PaintingTools.h"

namespace pintalux {

namespace {

constexpr Colour kNoPixel = -1; // what `GetPixel` gives beyond the image

Colour ColourAtTip(frmImage& image, double X, double Y) {
    // Intended: the sample is taken at the tip of the dropper, 16 pixels left of and 14 below the pointer, so
    // that the tip shows which pixel counts.
    const int x = ToInt32((X + kEyeTipX) / image.factor);
    const int y = ToInt32((Y + kEyeTipY) / image.factor);
    return GetPixel(image.PicMerge.hDC(), x, y);
}

} // namespace

void PickColour(frmImage& image, double X, double Y) {
    const Colour picked = ColourAtTip(image, X, Y);
    if (picked != kNoPixel) TheColourPanel->ChangeColor(picked);
}

void PickRelease(frmImage& image, double X, double Y) {
    if (ColourAtTip(image, X, Y) == kNoPixel) return;
    image.curdrawcolor = TheColourPanel->Picture6.BackColor();
    TheColourPanel->SetCurrentColour(image.curdrawcolor);
    if (!ColorLock) TheColourPanel->loadselected();
}

} // namespace pintalux
