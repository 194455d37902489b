#include "tools/Image1_Pointer.h"

#include "base/NumberText.h"
#include "colour/ColourPanel.h"
#include "document/frmImage.h"
#include "document/Globals.h"
#include "document/Selection.h"
#include "surface/window/Screen.h"
#include "tools/AutoScroll.h"
#include "tools/Text.h"
#include "tools/ToolSettings.h"
#include "tools/ToolTable.h"
#include "tools/Wheel.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace pintalux {

namespace {

// Intended: a stroke in the background colour is raised by 4, so that it never vanishes.
constexpr Colour kAgainstBackground = 4;

void ShowImage(frmImage& image) {
    image.Image1.Picture(image.PicMerge.Image());
    image.Image1.Refresh();
}

void TakeColours(frmImage& image) {
    // A stroke whose release never came must not leave its inverting dashes to the next one, nor its drawing
    // beside the picture.
    image.PicMerge.AutoRedraw(true);
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

void Run(StrokeStep step, frmImage& image, double X, double Y) {
    if (step != nullptr) step(image, X, Y);
}

// True: the press is used up. A rectangle goes and the press paints all the same.
bool MergeWhatFloats(frmImage& image, const Tool& tool) {
    if (image.lbltext.Visible()) {
        Run(TheFloatingSteps.commitTextByPress, image);
        // The release of other tools shows and records the text; with these the next state takes it.
        if (tool.atRelease == AtRelease::Nothing) {
            ShowImage(image);
            FollowWithCleanCopy(image);
            image.unrecorded = true;
        }
        return true;
    }
    if (image.PicSelect.Visible()) Run(TheFloatingSteps.mergeRectangle, image);
    if (!image.PicFreeSelect.Visible()) return false;
    Run(TheFloatingSteps.mergeFreehand, image);
    return true;
}

void LeftPress(frmImage& image, const Tool& tool, double X, double Y) {
    image.swallowed = true; // Also where the merge fails: nothing may be drawn from an old anchor.
    image.swallowed = !tool.leavesWhatFloats && MergeWhatFloats(image, tool);
    if (!image.swallowed) Run(tool.press, image, X, Y);
}

// Whatever the tool: another one may have been chosen since the press.
void HidePreviews(frmImage& image) {
    image.Line1.Visible(false);
    image.ShSquare.Visible(false);
    image.SelectShape.Visible(false);
}

void SetPointerShape(Display& image1, const PointerLook& look) {
    if (look.shape == kPointerCustom) image1.MouseIcon({look.picture, look.hotX, look.hotY});
    image1.MousePointer(look.shape);
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

void Image1_MouseDown(frmImage& image, int Button, double X, double Y) {
    const Tool& tool = TheTools->Row(CurrentTool);
    X = X / Screen.TwipsPerPixelX();
    Y = Y / Screen.TwipsPerPixelY();
    TakeColours(image);
    if (Button == kLeftButton) {
        image.abandoned = false;
        image.chainBefore = image.curpoly;
        LeftPress(image, tool, X, Y);
    } else if (Button == kRightButton && tool.rightPress != nullptr) {
        tool.rightPress(image, X, Y);
    } else {
        ShowImage(image);
    }
}

void Image1_MouseMove(frmImage& image, int Button, double X, double Y) {
    const Tool& tool = TheTools->Row(CurrentTool);
    X = std::floor(X / Screen.TwipsPerPixelX());
    Y = std::floor(Y / Screen.TwipsPerPixelY());
    MoveRulerMarks(image, X, Y);
    SetPointerShape(image.Image1, tool.pointer);
    if (tool.hover != nullptr) {
        tool.hover(image, X, Y);
        return;
    }
    if ((Button & kLeftButton) == 0 || image.swallowed || image.abandoned) return;
    if (tool.scrollsAtEdges) AutoScroll(image, X, Y);
    Run(tool.drag, image, X, Y);
    if (tool.showsDrag) ShowImage(image);
}

void Image1_MouseUp(frmImage& image, int Button, double X, double Y) {
    if (Button == kLeftButton && std::exchange(image.abandoned, false)) return;
    const Tool& tool = TheTools->Row(CurrentTool);
    X = std::floor(X / Screen.TwipsPerPixelX());
    Y = std::floor(Y / Screen.TwipsPerPixelY());
    if (Button == kLeftButton) {
        HidePreviews(image);
        if (std::exchange(image.swallowed, false)) {
            image.FreeSelDrawing = false; // The next drag draws its path again.
        } else {
            Run(tool.release, image, X, Y);
        }
        if (tool.atRelease == AtRelease::Nothing) return;
        image.PicMerge.DrawWidth(TheToolSettings->Slider2.Value());
    }
    ShowImage(image);
    // Intended: any button's release takes an undo state, so that a click marks a point to come back to.
    if (tool.atRelease != AtRelease::Show) image.Backup();
}

bool AbandonStroke(frmImage& image) {
    const bool drawing =
        image.pathOpen || image.Line1.Visible() || image.ShSquare.Visible() || image.SelectShape.Visible();
    if (!drawing) return false;
    HidePreviews(image);
    AbandonPath(image);
    image.curpoly = image.chainBefore;
    image.selecting = false;
    image.abandoned = true;
    image.byKeys = false;
    return true;
}

void LayDown(frmImage& image) {
    TakeColours(image);
    if (image.lbltext.Visible()) {
        Run(TheFloatingSteps.commitTextByPress, image);
        ShowImage(image);
        image.Backup();
    } else if (image.PicSelect.Visible()) {
        Run(TheFloatingSteps.mergeRectangle, image);
    } else if (image.PicFreeSelect.Visible()) {
        Run(TheFloatingSteps.mergeFreehand, image);
        image.FreeSelDrawing = false; // No release follows.
    }
}

void ConnectTools(frmImage& image) {
    ConnectText(image);
    ConnectWheel(image);
    image.Image1.MouseDown = [&image](int Button, int, double X, double Y) {
        if (image.EndKeys) image.EndKeys();
        Image1_MouseDown(image, Button, X, Y);
    };
    image.Image1.MouseMove = [&image](int Button, int, double X, double Y) {
        Image1_MouseMove(image, Button, X, Y);
    };
    image.Image1.MouseUp = [&image](int Button, int, double X, double Y) {
        Image1_MouseUp(image, Button, X, Y);
    };
}

} // namespace pintalux
