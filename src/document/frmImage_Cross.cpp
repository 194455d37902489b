// The cross: the pixel of the image that keys act on. It shows while the keys are used.
#include "document/frmImage.h"

#include <algorithm>
#include <cmath>

namespace pintalux {

namespace {

constexpr double kArm = 8; // view pixels

/// How far a bar has to stand so that a place of the view is seen, with some room around it.
void BringIntoView(ScrollBar& bar, double place, double length) {
    if (!bar.Visible()) return;
    const double room = std::min(2 * kArm, std::floor(length / 3));
    double value = bar.Value();
    value = std::min(value, place - room);
    value = std::max(value, place - length + room);
    bar.Value(std::clamp(std::round(value), 0.0, double(bar.Max())));
}

double MiddleOf(double imageStart, double imageLength, double viewLength) {
    const double first = std::max(0.0, -imageStart);
    const double last = std::min(imageLength, viewLength - imageStart);
    return (first + last) / 2;
}

} // namespace

CrossPlace frmImage::MiddleOfView() const {
    const double x = MiddleOf(PicBG.Left(), PicBG.Width(), PicFrame.ScaleWidth());
    const double y = MiddleOf(PicBG.Top(), PicBG.Height(), PicFrame.ScaleHeight());
    return {static_cast<int>(x / factor), static_cast<int>(y / factor)};
}

void frmImage::ShowCross(int x, int y) {
    // A band ends in front of the cross: to hold the last row and column it ends beyond them.
    const int beyond = SelectShape.Visible() ? 0 : 1;
    crossX = std::clamp(x, 0, std::max(PicMerge.PixelWidth() - beyond, 0));
    crossY = std::clamp(y, 0, std::max(PicMerge.PixelHeight() - beyond, 0));
    BringIntoView(HS, (crossX + 0.5) * factor, HS.Width());
    BringIntoView(VS, (crossY + 0.5) * factor, VS.Height());
    CrossX.Visible(true);
    CrossY.Visible(true);
    DrawCross();
}

void frmImage::HideCross() {
    CrossX.Visible(false);
    CrossY.Visible(false);
}

void frmImage::DrawCross() {
    if (!CrossX.Visible()) return;
    const double x = (crossX + 0.5) * factor;
    const double y = (crossY + 0.5) * factor;
    CrossX.X1(x - kArm);
    CrossX.Y1(y);
    CrossX.X2(x + kArm);
    CrossX.Y2(y);
    CrossY.X1(x);
    CrossY.Y1(y - kArm);
    CrossY.X2(x);
    CrossY.Y2(y + kArm);
}

} // namespace pintalux
