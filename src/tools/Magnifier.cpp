// The magnifier: zooms around the clicked point and keeps it in view.
#include "document/frmImage.h"
#include "document/Globals.h"
#include "document/Zoom.h"
#include "tools/PaintingTools.h"

namespace pintalux {

namespace {

void Magnify(frmImage& image, double X, double Y, bool in) {
    const double above = (image.Image1.Height() + 1) / (Y + 1);
    const double before = (image.Image1.Width() + 1) / (X + 1);
    if (!ZoomStep(in, image.Image1, image.PicMerge)) return;
    ScrollRatioV = above;
    ScrollRatioH = before;
    image.drawrulers();
    image.Picsize();
    if (image.VS.Visible()) image.VS.Value(image.VS.Max() / ScrollRatioV);
    if (image.HS.Visible()) image.HS.Value(image.HS.Max() / ScrollRatioH);
}

} // namespace

void MagnifierPress(frmImage& image, double X, double Y) {
    Magnify(image, X, Y, true);
}

void MagnifierRightPress(frmImage& image, double X, double Y) {
    Magnify(image, X, Y, false);
}

} // namespace pintalux
