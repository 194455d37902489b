// The pen: one of five tips; lines between the points of the pointer are the only smoothing.
#include "base/Arithmetic.h"
#include "document/frmImage.h"
#include "tools/ImagePoint.h"
#include "tools/PaintingTools.h"
#include "tools/ToolSettings.h"

namespace pintalux {

namespace {

enum Brush : std::int16_t { kRound, kLeftSlash, kRightSlash, kHorizontal, kVertical };

void SetTip(StrokeState& stroke, int x1, int y1, int x2, int y2) {
    stroke.PenTipX1 = ToInt16(x1);
    stroke.PenTipY1 = ToInt16(y1);
    stroke.PenTipX2 = ToInt16(x2);
    stroke.PenTipY2 = ToInt16(y2);
}

// The tip's two ends for w = `Slider1`, fixed at the press for the whole stroke.
void TakeTip(StrokeState& stroke, int brush) {
    const int w = TheToolSettings->Slider1.Value();
    switch (brush) {
    case kLeftSlash:
        SetTip(stroke, w, w, -w, -w);
        break;
    case kRightSlash:
        SetTip(stroke, w, -w, -w, w);
        break;
    case kHorizontal:
        SetTip(stroke, -w, 0, w, 0);
        break;
    case kVertical:
        SetTip(stroke, 0, -w, 0, w);
        break;
    default:
        SetTip(stroke, 0, 0, 0, 0);
    }
}

void Dot(frmImage& image, const ImagePoint& at) {
    // Where the text goes that a command prints.
    image.PicMerge.CurrentX(at.x);
    image.PicMerge.CurrentY(at.y);
    image.PicMerge.PSet(at.x, at.y, image.curdrawcolor);
}

} // namespace

void PenPress(frmImage& image, double X, double Y) {
    const int brush = TheToolSettings->BrushShape;
    TakeTip(image, brush);
    if (brush == kRound) {
        TakeAnchor(image, X, Y);
        Dot(image, {image.sx, image.sy});
        return;
    }
    // Intended: the tip of the press is measured in view pixels, that of the moves in image pixels, so that a
    // first touch looks the same at every zoom.
    const FigureEnd one = FigureEndAt(image, X + image.PenTipX1, Y + image.PenTipY1);
    const FigureEnd other = FigureEndAt(image, X + image.PenTipX2, Y + image.PenTipY2);
    image.PicMerge.Line(one.x, one.y, other.x, other.y, image.curdrawcolor);
    TakeAnchor(image, X, Y);
}

void PenMove(frmImage& image, double X, double Y) {
    const ImagePoint next = ImagePointAt(image, X, Y);
    if (TheToolSettings->BrushShape == kRound) Dot(image, next);
    // From one end of the tip at the new point to its other end at the old one: this fills the ribbon.
    image.PicMerge.Line(AddInt16(next.x, image.PenTipX1), AddInt16(next.y, image.PenTipY1),
                        AddInt16(image.sx, image.PenTipX2), AddInt16(image.sy, image.PenTipY2),
                        image.curdrawcolor);
    image.sx = next.x;
    image.sy = next.y;
}

} // namespace pintalux
