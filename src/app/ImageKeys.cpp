// The hand that draws by keys. The arrows move a cross over the image; Space holds the button at the cross as
// long as it is held itself, Enter presses it and at its next stroke lets it go. The tools hear of presses,
// moves and releases as from the pointer. Whatever else is pressed, or takes the focus away, lets go first,
// so that what was drawn is recorded.
#include "app/ImageKeys.h"

#include "document/BarPositions.h"
#include "document/CommandBar.h"
#include "document/frmImage.h"
#include "document/Globals.h"
#include "document/MainMenu.h"
#include "document/Selection.h"
#include "document/Workspace.h"
#include "selection/Nudge.h"
#include "selection/RectangleSelection.h"
#include "surface/window/KeyCodes.h"
#include "surface/window/Screen.h"
#include "tools/Image1_Pointer.h"
#include "tools/ToolTable.h"
#include "tools/Wheel.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace pintalux {

namespace {

constexpr int kFarStep = 10; // image pixels, with Shift

/// The pointer's own part of the keys, beside what the document keeps.
struct KeyHand {
    bool bySpace = false;   ///< Space holds the button: its release lets go.
    CursorPosition pointer; ///< Where the pointer stood when the cross was moved last.
};

/// Image pixels that are one pixel of the view where the view is reduced.
int Grain(const frmImage& image) {
    return image.factor < 1 ? static_cast<int>(std::lround(1 / image.factor)) : 1;
}

/// Where the pointer would have to be, in twips of the view, for the tool to act on the cross.
struct PointerPlace {
    double x, y;
};
PointerPlace AtCross(const frmImage& image) {
    constexpr double kInside = 0.01; // of a view pixel: no rounding leads out of it
    const Tool& tool = TheTools->Row(CurrentTool);
    const auto place = [&](int cross, int tip) {
        return (std::round(cross * image.factor) + kInside - tip) * kTwipsPerPixel;
    };
    return {place(image.crossX, tool.tipX), place(image.crossY, tool.tipY)};
}

bool Floats(const frmImage& image) {
    return PieceFloats(image) || image.lbltext.Visible();
}

void LetGo(frmImage& image) {
    if (!image.byKeys) return;
    image.byKeys = false;
    const PointerPlace at = AtCross(image);
    Image1_MouseUp(image, kLeftButton, at.x, at.y);
}

void ShowCross(frmImage& image, KeyHand& hand) {
    if (image.crossX < 0) {
        const CrossPlace middle = image.MiddleOfView();
        image.crossX = middle.x;
        image.crossY = middle.y;
    }
    const int grain = Grain(image);
    hand.pointer = GetCursorPos();
    image.ShowCross(image.crossX / grain * grain, image.crossY / grain * grain);
}

void MoveCross(frmImage& image, KeyHand& hand, double dx, double dy) {
    ShowCross(image, hand);
    const int grain = Grain(image);
    image.ShowCross(image.crossX + static_cast<int>(dx) * grain, image.crossY + static_cast<int>(dy) * grain);
    const PointerPlace at = AtCross(image);
    Image1_MouseMove(image, image.byKeys ? kLeftButton : 0, at.x, at.y);
}

void PressAtCross(frmImage& image, KeyHand& hand, bool bySpace) {
    ShowCross(image, hand);
    if (Floats(image) && !TheTools->Row(CurrentTool).leavesWhatFloats) return LayDown(image);
    hand.bySpace = bySpace;
    const PointerPlace at = AtCross(image);
    Image1_MouseMove(image, 0, at.x, at.y);
    image.byKeys = true;
    Image1_MouseDown(image, kLeftButton, at.x, at.y);
}

void Choose(ToolButton& button) {
    CommandBar& bar = *TheWorkspace.bar;
    if (!button.Enabled()) return;
    button.Value(1);
    bar.TB2.ButtonClick(button);
}

bool ChooseByLetter(int letter) {
    for (int number = kFirstTool; number <= kLastTool; ++number) {
        if (TheTools->Row(number).letter != letter) continue;
        Choose(TheWorkspace.bar->TB2.Buttons(number));
        return true;
    }
    return false;
}

void ZoomAtCross(frmImage& image, KeyHand& hand, bool in) {
    ShowCross(image, hand);
    ZoomAt(image, in, image.PicBG.Left() + (image.crossX + 0.5) * image.factor,
           image.PicBG.Top() + (image.crossY + 0.5) * image.factor);
    ShowCross(image, hand);
}

/// A step that a key asks for, in image pixels of the present zoom.
struct Step {
    double x = 0, y = 0;
};
bool StepOf(const frmImage& image, const KeyStroke& key, Step& step) {
    const double far = (key.shift & kShiftMask) != 0 ? kFarStep : 1;
    const double page = std::max(1.0, std::floor(image.PicFrame.ScaleHeight() / image.factor / Grain(image)));
    const double line = image.PicMerge.PixelWidth();
    switch (key.code) {
    case kLeft:
        step.x = -far;
        return true;
    case kRight:
        step.x = far;
        return true;
    case kUp:
        step.y = -far;
        return true;
    case kDown:
        step.y = far;
        return true;
    case kPageUp:
        step.y = -page;
        return true;
    case kPageDown:
        step.y = page;
        return true;
    case kHome:
        step.x = -line;
        return true;
    case kEnd:
        step.x = line;
        return true;
    default:
        return false;
    }
}

bool Escape(frmImage& image) {
    if (AbandonStroke(image)) return true;
    LetGo(image);
    image.HideCross();
    return true;
}

/// Keys that press and let go. A key that is held repeats none of it.
bool PressKey(frmImage& image, KeyHand& hand, const KeyStroke& key) {
    if (key.code != kSpace && key.code != kEnter) return false;
    if (key.repeated) return true;
    if (image.byKeys) {
        LetGo(image);
    } else {
        PressAtCross(image, hand, key.code == kSpace);
    }
    return true;
}

bool ImageKey(frmImage& image, KeyHand& hand, const KeyStroke& key) {
    if (key.code == kEscape) return Escape(image);
    // In the middle of a stroke or a drag of the pointer the keys wait for its end.
    if (UserIsBusy()) return (key.shift & (kCtrlMask | kAltMask)) == 0;
    const bool command = (key.shift & (kCtrlMask | kAltMask)) != 0;
    Step step;
    if (!command && StepOf(image, key, step)) {
        const int grain = Grain(image);
        if (image.byKeys || !Nudge(image, static_cast<int>(step.x) * grain, static_cast<int>(step.y) * grain))
            MoveCross(image, hand, step.x, step.y);
        return true;
    }
    if (!command && PressKey(image, hand, key)) return true;
    constexpr int kShiftKey = 16;
    if (key.code == kShiftKey) return false;
    LetGo(image);
    if (command || key.repeated) return false;
    switch (key.code) {
    case kDelete:
        if (PieceFloats(image)) mnuEditSelectNone_Click();
        return true;
    case kPlus:
    case kMinus:
        ZoomAtCross(image, hand, key.code == kPlus);
        return true;
    default:
        return ChooseByLetter(key.code);
    }
}

void FocusMoved(frmImage& image, KeyHand& hand, bool got, bool byKeys) {
    if (got) {
        if (byKeys) ShowCross(image, hand);
        return;
    }
    LetGo(image);
    image.HideCross();
}

/// The pointer takes over from the cross, which goes on from there at the next key.
void PointerMoved(frmImage& image, const KeyHand& hand, double X, double Y) {
    const bool still = image.CrossX.Visible() && GetCursorPos() == hand.pointer;
    if (image.byKeys || still) return; // The view may have moved below a pointer that nobody touched.
    image.HideCross();
    const Tool& tool = TheTools->Row(CurrentTool);
    image.crossX = static_cast<int>(std::floor((X / kTwipsPerPixel + tool.tipX) / image.factor));
    image.crossY = static_cast<int>(std::floor((Y / kTwipsPerPixel + tool.tipY) / image.factor));
    image.crossX = std::clamp(image.crossX, 0, std::max(image.PicMerge.PixelWidth() - 1, 0));
    image.crossY = std::clamp(image.crossY, 0, std::max(image.PicMerge.PixelHeight() - 1, 0));
}

} // namespace

void ConnectKeys(frmImage& image) {
    const auto hand = std::make_shared<KeyHand>();
    image.EndKeys = [&image] { LetGo(image); };
    image.Image1.Key = [&image, hand](const KeyStroke& key) { return ImageKey(image, *hand, key); };
    image.Image1.KeyReleased = [&image, hand](const KeyStroke& key) {
        if (key.code != kSpace || key.repeated) return false;
        if (hand->bySpace) LetGo(image);
        return true;
    };
    image.Image1.FocusMoved = [&image, hand](bool got, bool byKeys) {
        FocusMoved(image, *hand, got, byKeys);
    };
    image.Image1.MouseMove = [&image, hand, act = image.Image1.MouseMove](int Button, int Shift, double X,
                                                                          double Y) {
        PointerMoved(image, *hand, X, Y);
        act(Button, Shift, X, Y);
    };
}

} // namespace pintalux
