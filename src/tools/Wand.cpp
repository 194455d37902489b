#include "tools/Wand.h"

#include "base/Arithmetic.h"
#include "base/NumberText.h"
#include "colour/ColourPanel.h"
#include "document/frmImage.h"
#include "surface/window/Screen.h"
#include "tools/Image1_Pointer.h"
#include "tools/ToolSettings.h"

#include <cmath>

namespace pintalux {

namespace {

enum WandMode : int { kBrighter, kDarker, kRedder, kGreener, kBluer, kCurrentColour };

/// The share of a channel of the current colour in the strength, rounded.
std::int32_t ShareOf(const TextBox& channel, int strength) {
    return ToInt32(Val(channel.Text()) / 255 * strength);
}

/// The image pixel of a coordinate that went through a fifteenth. In single precision fifteen times the
/// fifteenth of a whole number is that number again; in double 15 * (31 / 15) is not 31.
float ImagePixel(double coordinate, int twipsPerPixel, double factor) {
    const auto view = static_cast<float>(twipsPerPixel * coordinate);
    return static_cast<float>(std::floor(static_cast<double>(view) / factor));
}

} // namespace

WandShift ChosenShift() {
    const int i = TheToolSettings->Slider4.Value();
    const ColourPanel& panel = *TheColourPanel;
    switch (TheToolSettings->Combo2.ListIndex()) {
    case kBrighter:
        return {i, i, i};
    case kDarker:
        return {-i, -i, -i};
    case kRedder:
        return {i, -1, -1};
    case kGreener:
        return {-1, i, -1};
    case kBluer:
        return {-1, -1, i};
    case kCurrentColour:
        return {ShareOf(panel.txtRed, i), ShareOf(panel.txtGreen, i), ShareOf(panel.txtBlue, i)};
    default:
        return {};
    }
}

// Intended: the point of a press counts fifteenfold and so falls off most images; the wand works while it
// moves, and a click that does not move changes nothing by accident.
void WandPress(frmImage& image, double X, double Y) {
    image.Image1.Refresh();
    image.picsource.Picture(image.PicMerge.Image());
    image.PicMerge.AutoRedraw(false);
    WandStopped = false;
    const float x = ImagePixel(X, Screen.TwipsPerPixelX(), image.factor);
    const float y = ImagePixel(Y, Screen.TwipsPerPixelY(), image.factor);
    WandApply(image.PicMerge, image.picsource, image.picsource.hDC(), x, y, ChosenShift(),
              ToInt16(TheToolSettings->Slider5.Value()), ToInt16(TheToolSettings->Slider6.Value()));
    image.Image1.Picture(image.PicMerge.Image());
}

// A move is a press whose point is in view pixels already, so that the fifteenfold of its fifteenth is the
// image pixel under the pointer. It shows the image first, as the moves of all tools do; the press shows it
// again.
void WandMove(frmImage& image, double X, double Y) {
    image.Image1.Picture(image.PicMerge.Image());
    image.Image1.Refresh();
    Image1_MouseDown(image, kLeftButton, X, Y);
}

void WandRelease(frmImage& image, double, double) {
    WandStopped = true;
    image.PicMerge.AutoRedraw(true);
    image.Image1.Picture(image.PicMerge.Image());
    image.Image1.Refresh();
}

} // namespace pintalux
