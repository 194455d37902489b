#include "tools/Image1_Pointer.h"

#include "base/Arithmetic.h"
#include "base/NumberText.h"
#include "base/RuntimeError.h"
#include "colour/ColourPanel.h"
#include "document/frmImage.h"
#include "document/Globals.h"
#include "surface/window/Screen.h"
#include "tools/AutoScroll.h"
#include "tools/PaintingTools.h"
#include "tools/ToolNumbers.h"
#include "tools/ToolSettings.h"

#include <algorithm>
#include <cmath>

namespace pintalux {

namespace {

// Intended: a stroke in the background colour is raised by 4, so that it never vanishes.
constexpr Colour kAgainstBackground = 4;

void ShowImage(frmImage& image) {
    image.Image1.Picture(image.PicMerge.Image());
    image.Image1.Refresh();
}

void TakeColours(frmImage& image) {
    // A path whose release never came must not leave its inverting dashes to the next stroke.
    image.PicMerge.DrawMode(kDrawCopyPen);
    image.PicMerge.DrawStyle(kDrawSolid);
    image.PicMerge.DrawWidth(TheToolSettings->Slider2.Value());
    image.curtranscolor = image.PicMerge.BackColor();
    image.curdrawcolor = CurrentColour();
    if (image.curdrawcolor == image.curtranscolor) image.curdrawcolor += kAgainstBackground;
}

void Run(const std::function<void(frmImage&)>& step, frmImage& image) {
    if (step) step(image);
}

void Run(const std::function<void(frmImage&, double, double)>& step, frmImage& image, double X, double Y) {
    if (step) step(image, X, Y);
}

void LeftPress(frmImage& image, double X, double Y) {
    if (image.lbltext.Visible()) {
        Run(TheFloatingSteps.commitText, image);
        return;
    }
    if (image.PicSelect.Visible()) Run(TheFloatingSteps.mergeRectangle, image);
    if (image.PicFreeSelect.Visible()) {
        Run(TheFloatingSteps.mergeFreehand, image);
        return;
    }
    Run(StepsOf(CurrentTool).press, image, X, Y);
}

// The pictures of the tools that point with their tip.
const Icon EyePic{":/icons/cursor-eye.svg", 16, 16};
const Icon FillPic{":/icons/cursor-fill.svg", 16, 15};
const Icon MagPic{":/icons/cursor-mag.svg", 12, 12};

void SetPointerShape(Display& image1) {
    const auto custom = [&image1](const Icon& picture) {
        image1.MouseIcon(picture);
        image1.MousePointer(kPointerCustom);
    };
    switch (CurrentTool) {
    case kSelectTool:
        image1.MousePointer(kPointerCross);
        break;
    case kColorPickTool:
        custom(EyePic);
        break;
    case kFloodTool:
        custom(FillPic);
        break;
    case kMagTool:
        custom(MagPic);
        break;
    default:
        image1.MousePointer(kPointerDefault);
    }
}

} // namespace

void MoveRulerMarks(frmImage& image, double X, double Y) {
    if (!RulersOn) return;
    const double x = std::max(0.0, image.LeftRuler.ScaleWidth() + image.PicBG.Left() + X);
    const double y = std::max(0.0, image.PicBG.Top() + Y);
    image.LineX.X1(x);
    image.LineX.X2(x);
    image.LineX.Y2(image.TopRuler.ScaleHeight());
    image.LineY.Y1(y);
    image.LineY.Y2(y);
    image.LineY.X2(image.LeftRuler.ScaleWidth());
    image.lblx.Caption(NumberText(std::floor(X / image.factor)));
    image.lbly.Caption(NumberText(std::floor(Y / image.factor)));
}

ToolSteps& StepsOf(int tool) {
    static std::array<ToolSteps, kLastTool + 1> table;
    if (tool < 0 || tool > kLastTool) throw RuntimeError(kSubscriptOutOfRange);
    return table[static_cast<std::size_t>(tool)];
}

void Image1_MouseDown(frmImage& image, int Button, double X, double Y) {
    X = X / Screen.TwipsPerPixelX();
    Y = Y / Screen.TwipsPerPixelY();
    TakeColours(image);
    if (Button == kLeftButton && CurrentTool != kMagTool) {
        LeftPress(image, X, Y);
    } else if (CurrentTool == kMagTool && Button == kLeftButton) {
        Magnify(image, X, Y, true);
    } else if (CurrentTool == kMagTool && Button == kRightButton) {
        Magnify(image, X, Y, false);
    } else {
        ShowImage(image);
    }
}

void Image1_MouseMove(frmImage& image, int Button, double X, double Y) {
    X = std::floor(X / Screen.TwipsPerPixelX());
    Y = std::floor(Y / Screen.TwipsPerPixelY());
    MoveRulerMarks(image, X, Y);
    SetPointerShape(image.Image1);
    if (CurrentTool == kColorPickTool) {
        PickColour(image, X, Y);
        return;
    }
    if ((Button & kLeftButton) == 0) return;
    if (CurrentTool == kSelectTool || CurrentTool == kFreeSelectTool) AutoScroll(image, X, Y);
    Run(StepsOf(CurrentTool).drag, image, X, Y);
    if (CurrentTool == kFloodTool) return;
    ShowImage(image);
}

void Image1_MouseUp(frmImage& image, int Button, double X, double Y) {
    X = std::floor(X / Screen.TwipsPerPixelX());
    Y = std::floor(Y / Screen.TwipsPerPixelY());
    if (Button == kLeftButton) {
        Run(StepsOf(CurrentTool).release, image, X, Y);
        if (CurrentTool == kSelectTool || CurrentTool == kFreeSelectTool || CurrentTool == kColorPickTool)
            return;
        image.PicMerge.DrawWidth(TheToolSettings->Slider2.Value());
    }
    ShowImage(image);
    // Intended: any button's release takes an undo state, so that a click marks a point to come back to.
    if (CurrentTool != kMagTool) image.Backup();
}

void ConnectTools(frmImage& image) {
    image.Image1.MouseDown = [&image](int Button, int, double X, double Y) {
        Image1_MouseDown(image, Button, X, Y);
    };
    image.Image1.MouseMove = [&image](int Button, int, double X, double Y) {
        Image1_MouseMove(image, Button, X, Y);
    };
    image.Image1.MouseUp = [&image](int Button, int, double X, double Y) {
        Image1_MouseUp(image, Button, X, Y);
    };
}

void InstallPaintingTools() {
    StepsOf(kPenTool) = {PenPress, PenMove, {}};
    StepsOf(kEraserTool) = {EraserPress, EraserMove, {}};
    StepsOf(kFloodTool) = {FloodPress, {}, {}};
    StepsOf(kLineTool) = {LinePress, LineMove, LineRelease};
    StepsOf(kPolyLineTool) = {PolyLinePress, LineMove, PolyLineRelease};
    StepsOf(kShapesTool) = {ShapesPress, ShapesMove, ShapesRelease};
    StepsOf(kColorPickTool) = {{}, {}, PickRelease};
}

} // namespace pintalux
