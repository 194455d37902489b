// Squares, rectangles, circles and ellipses, outlined or filled.
#include "document/frmImage.h"
#include "surface/raster/Drawing.h"
#include "tools/ImagePoint.h"
#include "tools/PaintingTools.h"
#include "tools/ToolSettings.h"

#include <cmath>

namespace pintalux {

namespace {

enum Shape : std::int16_t { kSquare, kRectangle, kCircle, kEllipse };

bool HasBoxPreview() {
    return TheToolSettings->ShapeType <= kRectangle;
}

// Left and width of the preview between the anchor `a` and the pointer `p`.
void Stretch(double a, double p, double& start, double& length) {
    start = a >= p ? p : a;
    length = std::abs(a - p);
}

void DrawSquare(frmImage& image, bool outline) {
    const double factor = image.factor;
    const double left = (image.ShSquare.Left() - image.Image1.Left()) / factor;
    const double top = (image.ShSquare.Top() - image.Image1.Top()) / factor;
    const double right = left + image.ShSquare.Width() / factor;
    const double bottom = top + image.ShSquare.Height() / factor;
    if (outline) {
        image.PicMerge.LineB(left, top, right, bottom, image.curdrawcolor);
    } else {
        image.PicMerge.LineBF(left, top, right, bottom, image.curdrawcolor);
    }
}

void DrawRectangle(frmImage& image, const FigureEnd& end, bool outline) {
    if (outline) {
        image.PicMerge.LineB(image.sx, image.sy, end.x, end.y, image.curdrawcolor);
    } else {
        image.PicMerge.LineBF(image.sx, image.sy, end.x, end.y, image.curdrawcolor);
    }
}

void DrawRound(frmImage& image, const FigureEnd& end, bool outline) {
    Surface& PicMerge = image.PicMerge;
    const bool circle = TheToolSettings->ShapeType == kCircle;
    if (!outline) {
        PicMerge.FillStyle(kFillSolid);
        PicMerge.FillColor(image.curdrawcolor);
    }
    if (circle) {
        const double dx = image.sx - end.x;
        const double dy = image.sy - end.y;
        PicMerge.Circle(image.sx, image.sy, std::sqrt(dx * dx + dy * dy), image.curdrawcolor);
    } else {
        PicMerge.ForeColor(image.curdrawcolor);
        Ellipse(PicMerge.hDC(), image.sx, image.sy, end.x, end.y);
    }
    PicMerge.FillStyle(kFillTransparent);
}

} // namespace

void ShapesPress(frmImage& image, double X, double Y) {
    TakeAnchor(image, X, Y);
    const double left = image.sx * image.factor;
    const double top = image.sy * image.factor;
    if (HasBoxPreview()) {
        image.ShSquare.Move(left, top, 0, 0);
        image.ShSquare.Visible(true);
    } else {
        image.Line1.X1(left);
        image.Line1.Y1(top);
        image.Line1.X2(X);
        image.Line1.Y2(Y);
        image.Line1.Visible(true);
    }
}

void ShapesMove(frmImage& image, double X, double Y) {
    if (!HasBoxPreview()) {
        image.Line1.X2(X);
        image.Line1.Y2(Y);
        return;
    }
    const double anchorY = image.sy * image.factor;
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
    Stretch(image.sx * image.factor, X, left, width);
    Stretch(anchorY, Y, top, height);
    if (TheToolSettings->ShapeType == kSquare) {
        height = width;
        top = Y < anchorY ? anchorY - height : anchorY;
    }
    image.ShSquare.Move(left, top, width, height);
}

void ShapesRelease(frmImage& image, double X, double Y) {
    const bool outline = TheToolSettings->Option1.Value();
    if (outline) image.PicMerge.FillStyle(kFillTransparent);
    image.PicMerge.DrawWidth(outline ? TheToolSettings->Slider3.Value() : 1);
    const FigureEnd end = FigureEndAt(image, X, Y);
    switch (TheToolSettings->ShapeType) {
    case kSquare:
        DrawSquare(image, outline);
        break;
    case kRectangle:
        DrawRectangle(image, end, outline);
        break;
    default:
        DrawRound(image, end, outline);
    }
}

} // namespace pintalux
