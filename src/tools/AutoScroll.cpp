#include "tools/AutoScroll.h"

#include "document/frmImage.h"

#include <algorithm>

namespace pintalux {

namespace {

constexpr double kBand = 3;
constexpr int kSlow = 3;
constexpr int kFast = 10;

// How far to scroll for a pointer that lies `beyond` pixels outside an edge; negative is inside.
int StepFor(double beyond) {
    if (beyond > kBand) return kFast;
    return beyond >= -kBand ? kSlow : 0;
}

void ScrollAxis(ScrollBar& bar, double at, double nearEdge, double farEdge) {
    if (!bar.Visible()) return;
    if (const int up = StepFor(at - farEdge)) {
        bar.Value(std::min(bar.Value() + up, bar.Max()));
    } else if (const int down = StepFor(nearEdge - at)) {
        bar.Value(std::max(bar.Value() - down, 0));
    }
}

} // namespace

void AutoScroll(frmImage& image, double X, double Y) {
    const double left = image.PicBG.Left();
    const double top = image.PicBG.Top();
    ScrollAxis(image.HS, X, image.HS.Left() - left, image.HS.Width() - left);
    ScrollAxis(image.VS, Y, image.VS.Top() - top, image.VS.Height() - top);
}

} // namespace pintalux
