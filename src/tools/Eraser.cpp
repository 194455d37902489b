// The eraser: paints the image's background colour.
#include "document/frmImage.h"
#include "tools/ImagePoint.h"
#include "tools/PaintingTools.h"

namespace pintalux {

namespace {

// Intended: the eraser writes the exact background, never raised as a pen's colour is, so that it leaves no
// trace.
void Dot(frmImage& image) {
    image.PicMerge.CurrentX(image.sx); // Where the text goes that a command prints.
    image.PicMerge.CurrentY(image.sy);
    image.PicMerge.PSet(image.sx, image.sy, image.PicMerge.BackColor());
}

} // namespace

void EraserPress(frmImage& image, double X, double Y) {
    TakeAnchor(image, X, Y);
    Dot(image);
}

void EraserMove(frmImage& image, double X, double Y) {
    const ImagePoint last{image.sx, image.sy};
    TakeAnchor(image, X, Y);
    Dot(image);
    image.PicMerge.Line(image.sx, image.sy, last.x, last.y, image.PicMerge.BackColor());
}

} // namespace pintalux
