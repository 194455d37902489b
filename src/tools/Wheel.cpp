#include "tools/Wheel.h"

#include "document/frmImage.h"
#include "document/Selection.h"
#include "document/Workspace.h"
#include "document/Zoom.h"
#include "surface/window/Screen.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace pintalux {

namespace {

constexpr double kNotch = 120;
constexpr double kPixelsPerNotch = 60;

/// What fine steps have added up to.
struct Turned {
    double right = 0, down = 0, zoom = 0;
};

/// The whole pixels of what has added up; the rest waits.
void Scroll(ScrollBar& bar, double& turned, double turn) {
    if (turned * turn < 0) turned = 0; // Back: nothing of the other way is left to go.
    turned += turn;
    if (!bar.Visible()) turned = 0;
    const double pixels = std::trunc(turned * kPixelsPerNotch / kNotch);
    if (pixels == 0) return;
    turned -= pixels * kNotch / kPixelsPerNotch;
    bar.Value(std::clamp(bar.Value() + pixels, 0.0, double(bar.Max())));
}

void Zoom(frmImage& image, Turned& turned, const WheelTurn& turn) {
    if (turned.zoom * turn.down < 0) turned.zoom = 0;
    turned.zoom += turn.down;
    while (std::abs(turned.zoom) >= kNotch) {
        const bool in = turned.zoom < 0;
        turned.zoom += in ? kNotch : -kNotch;
        ZoomAt(image, in, turn.x, turn.y);
    }
}

// While a button is held a stroke or a drag is under way, whose places count by the view as it is.
bool Held(const frmImage& image) {
    return UserIsBusy() || image.byKeys;
}

void Turn(frmImage& image, Turned& turned, const WheelTurn& turn) {
    if (Held(image)) return;
    const bool zooms = (turn.shift & kCtrlMask) != 0;
    if (!zooms) turned.zoom = 0;
    if (zooms) return Zoom(image, turned, turn);
    const bool sideways = (turn.shift & kShiftMask) != 0;
    Scroll(image.HS, turned.right, turn.right + (sideways ? turn.down : 0));
    Scroll(image.VS, turned.down, sideways ? 0 : turn.down);
}

void Stand(ScrollBar& bar, double value) {
    if (bar.Visible()) bar.Value(std::clamp(std::round(value), 0.0, double(bar.Max())));
}

} // namespace

void ZoomAt(frmImage& image, bool in, double viewX, double viewY) {
    if (&ActiveImage() != &image) image.Show(); // The zoom and its menu are those of the active document.
    const int level = image.factorlevel + (in ? 1 : -1);
    if (level < 0 || level >= kZoomLevels || (in && !ViewFits(image, level))) return;
    const double x = (viewX - image.PicBG.Left()) / image.factor;
    const double y = (viewY - image.PicBG.Top()) / image.factor;
    EndFreehandPiece(image);
    if (!ZoomStep(in, image.Image1, image.PicMerge)) return;
    Stand(image.HS, x * image.factor - viewX);
    Stand(image.VS, y * image.factor - viewY);
    image.drawrulers();
}

void ConnectWheel(frmImage& image) {
    const auto turned = std::make_shared<Turned>();
    image.PicFrame.MouseWheel = [&image, turned](const WheelTurn& turn) { Turn(image, *turned, turn); };
    // Over the lying bar the wheel moves that bar.
    image.HS.MouseWheel = [&image, turned](WheelTurn turn) {
        if ((turn.shift & kCtrlMask) != 0) return;
        turn.shift |= kShiftMask;
        Turn(image, *turned, turn);
    };
}

} // namespace pintalux
