// Lines and polylines: a preview over the view while dragging, one line on the image at the release.
#include "document/frmImage.h"
#include "document/Workspace.h"
#include "tools/ImagePoint.h"
#include "tools/PaintingTools.h"

namespace pintalux {

namespace {

void ShowPreview(frmImage& image, double fromX, double fromY, double X, double Y) {
    image.Line1.X1(fromX);
    image.Line1.Y1(fromY);
    image.Line1.X2(X);
    image.Line1.Y2(Y);
    image.Line1.Visible(true);
}

} // namespace

void LinePress(frmImage& image, double X, double Y) {
    TakeAnchor(image, X, Y);
    ShowPreview(image, X, Y, X, Y);
}

void LineMove(frmImage& image, double X, double Y) {
    image.Line1.X2(X);
    image.Line1.Y2(Y);
}

void LineRelease(frmImage& image, double X, double Y) {
    const FigureEnd end = FigureEndAt(image, X, Y);
    image.PicMerge.Line(image.sx, image.sy, end.x, end.y, image.curdrawcolor);
}

void PolyLineChosen() {
    ActiveImage().curpoly = true;
}

void PolyLinePress(frmImage& image, double X, double Y) {
    if (image.curpoly) {
        TakeAnchor(image, X, Y);
        image.curpoly = false;
    }
    ShowPreview(image, image.sx * image.factor, image.sy * image.factor, X, Y);
}

void PolyLineRelease(frmImage& image, double X, double Y) {
    LineRelease(image, X, Y);
    TakeAnchor(image, X, Y);
}

} // namespace pintalux
