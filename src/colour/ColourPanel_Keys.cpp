// The colour box by keys: the arrows walk over the spectrum and the filled cells of the grid, Space and Enter
// pick, Shift+Space and the Menu key ask for the shades, as the right button does.
#include "colour/ColourPanel.h"
#include "surface/raster/Drawing.h"
#include "surface/window/KeyCodes.h"

#include <algorithm>
#include <optional>

namespace pintalux {

namespace {

constexpr int kColumns = 6;
constexpr int kCellPitch = 18; // pixels
constexpr int kFirstRow = 156;
constexpr int kCellSide = 16;

constexpr int kShadePitch = 2; // rows of the strip

bool Picks(const KeyStroke& key) {
    return key.code == kEnter || (key.code == kSpace && key.shift == 0);
}

bool AsksForShades(const KeyStroke& key) {
    return key.code == kMenu || (key.code == kSpace && key.shift == kShiftMask);
}

/// Where a key leads on the spectrum and the strip, in their steps.
struct Step {
    int x = 0, y = 0;
};
std::optional<Step> StepOf(const KeyStroke& key) {
    constexpr int kLeap = 10; // with Shift, or by Page Up and Page Down
    constexpr int kFar = 1000;
    const int by = (key.shift & kShiftMask) != 0 ? kLeap : 1;
    switch (key.code) {
    case kLeft:
        return Step{-by, 0};
    case kRight:
        return Step{by, 0};
    case kUp:
        return Step{0, -by};
    case kDown:
        return Step{0, by};
    case kPageUp:
        return Step{0, -kLeap};
    case kPageDown:
        return Step{0, kLeap};
    case kHome:
        return Step{-kFar, 0};
    case kEnd:
        return Step{kFar, 0};
    default:
        return {};
    }
}

bool WithCtrlOrAlt(const KeyStroke& key) {
    return (key.shift & (kCtrlMask | kAltMask)) != 0;
}

/// The middle of a cell.
struct GridPoint {
    int x, y;
};
GridPoint MiddleOf(int cell) {
    return {cell % kColumns * kCellPitch + kCellSide / 2,
            kFirstRow + cell / kColumns * kCellPitch + kCellSide / 2};
}

/// Where a key leads; -1: nowhere.
int CellAfter(int cell, int key, int count) {
    switch (key) {
    case kLeft:
        return std::max(cell - 1, 0);
    case kRight:
        return std::min(cell + 1, count - 1);
    case kUp:
        return cell < kColumns ? cell : cell - kColumns;
    case kDown:
        return cell + kColumns < count ? cell + kColumns : cell;
    case kHome:
        return 0;
    case kEnd:
        return count - 1;
    default:
        return -1;
    }
}

} // namespace

ColourPanel::~ColourPanel() {
    for (Control* part : {static_cast<Control*>(&ColorBox), static_cast<Control*>(&Image1),
                          static_cast<Control*>(&picColBlowup)})
        part->FocusMoved = nullptr;
}

/// The frame around what keys act on.
void ColourPanel::Mark(int left, int top, int width, int height, Colour colour) {
    ShCell.BorderColor(colour);
    ShCell.Move(std::max(left, 0), std::max(top, 0), width, height);
    ShCell.Visible(true);
}

void ColourPanel::GoToCell(int cell) {
    gridCell_ = cell;
    const GridPoint middle = MiddleOf(cell);
    constexpr int kHalf = kCellSide / 2 + 1;
    Mark(middle.x - kHalf, middle.y - kHalf, 2 * kHalf, 2 * kHalf, kBlack);
    const Colour c = GetPixel(ColorBox.hDC(), middle.x, middle.y);
    ChangeColor(c);
    ColorBox.AccessibleName("As minhas cores, " + RgbReadout(c));
}

bool ColourPanel::GridKey(const KeyStroke& key) {
    const int count = CollectionCount;
    if (count < 1 || WithCtrlOrAlt(key)) return false;
    const int cell = std::min(gridCell_, count - 1);
    const GridPoint middle = MiddleOf(cell);
    if (Picks(key) || AsksForShades(key)) {
        if (key.repeated) return true;
        GoToCell(cell);
        if (Picks(key))
            ColorBox_MouseDown(kLeftButton, middle.x, middle.y);
        else
            OpenShades(ColorBox, middle.x, middle.y, Picture6.BackColor());
        return true;
    }
    const int next = CellAfter(cell, key.code, count);
    if (next >= 0) GoToCell(next);
    return next >= 0;
}

/// To a place of the spectrum as it is shown.
void ColourPanel::GoToHue(int x, int y) {
    const auto width = static_cast<int>(Image1.Width());
    const auto height = static_cast<int>(Image1.Height());
    hueX_ = std::clamp(x, 0, width - 1);
    hueY_ = std::clamp(y, 0, height - 1);
    const Picture& spectrum = Image1.Picture();
    // The edges of the box are those of the picture: white, black and the last grey can be had.
    const auto c = static_cast<Colour>(spectrum.At(hueX_ * (spectrum.Width() - 1) / (width - 1),
                                                   hueY_ * (spectrum.Height() - 1) / (height - 1)));
    constexpr int kHalf = 5;
    Mark(hueX_ - kHalf, hueY_ - kHalf, 2 * kHalf + 1, 2 * kHalf + 1, ContrastColor(c));
    ChangeColor(c);
    Image1.AccessibleName("Espectro de cores, " + RgbReadout(c));
}

bool ColourPanel::SpectrumKey(const KeyStroke& key) {
    if (WithCtrlOrAlt(key)) return false;
    if (Picks(key) || AsksForShades(key)) {
        if (key.repeated) return true;
        GoToHue(hueX_, hueY_);
        if (Picks(key))
            CommitWorkingColour();
        else
            OpenShades(Image1, hueX_, hueY_, Picture6.BackColor());
        return true;
    }
    const auto step = StepOf(key);
    if (step) GoToHue(hueX_ + step->x, hueY_ + step->y);
    return step.has_value();
}

/// The strip beside a place of the box, its middle on the colour, with the focus on it.
void ColourPanel::OpenShades(Control& from, int x, int y, Colour c) {
    shadesFrom_ = &from;
    const double highest = ColorBox.Height() - picColBlowup.Height();
    PlaceBlowup(x - picColBlowup.Width() / 2, std::clamp(y - picColBlowup.Height() / 2, 0.0, highest));
    ColorBlowup(c);
    picColBlowup.SetFocus();
    GoToShade(static_cast<int>(picColBlowup.Height()) / 2);
}

void ColourPanel::GoToShade(int row) {
    const auto height = static_cast<int>(picColBlowup.Height());
    shade_ = std::clamp(row, 0, height - kShadePitch) / kShadePitch * kShadePitch;
    const Colour c = GetPixel(picColBlowup.hDC(), 0, shade_);
    constexpr int kEdge = 2;
    Mark(static_cast<int>(picColBlowup.Left()) - kEdge, static_cast<int>(picColBlowup.Top()) + shade_ - kEdge,
         static_cast<int>(picColBlowup.Width()) + 2 * kEdge, kShadePitch + 2 * kEdge, ContrastColor(c));
    ChangeColor(c);
    picColBlowup.AccessibleName("Tons próximos, " + RgbReadout(c));
}

bool ColourPanel::ShadesKey(const KeyStroke& key) {
    if (shadesFrom_ == nullptr || WithCtrlOrAlt(key)) return false;
    if (Picks(key) || key.code == kEscape) {
        if (key.repeated) return true;
        if (Picks(key)) CommitWorkingColour();
        LeaveShades();
        return true;
    }
    const auto step = StepOf(key);
    if (step) GoToShade(shade_ + kShadePitch * (step->x + step->y));
    return step.has_value();
}

/// Back to where they were asked for; the strip goes with the focus.
void ColourPanel::LeaveShades() {
    if (Control* from = shadesFrom_) from->SetFocus();
}

void ColourPanel::LeftByKeys() {
    ShCell.Visible(false);
    FallBackToCurrent();
}

void ColourPanel::ConnectBoxKeys() {
    ShCell.Visible(false);
    ShCell.BorderWidth(2);
    for (Control* part : {static_cast<Control*>(&Image1), static_cast<Control*>(&ColorBox)}) {
        part->TakesFocus(FocusBy::Tab);
        part->AccessibleRole(SpokenRole::Colours);
    }
    picColBlowup.AccessibleRole(SpokenRole::Colours);
    Image1.Key = [this](const KeyStroke& key) { return SpectrumKey(key); };
    ColorBox.Key = [this](const KeyStroke& key) { return GridKey(key); };
    picColBlowup.Key = [this](const KeyStroke& key) { return ShadesKey(key); };
    Image1.FocusMoved = [this](bool got, bool) {
        if (got) return GoToHue(hueX_, hueY_);
        if (shadesFrom_ == nullptr) LeftByKeys();
    };
    ColorBox.FocusMoved = [this](bool got, bool) {
        if (got && CollectionCount > 0) return GoToCell(std::min<int>(gridCell_, CollectionCount - 1));
        if (shadesFrom_ == nullptr) LeftByKeys();
    };
    picColBlowup.FocusMoved = [this](bool got, bool) {
        if (got) return;
        shadesFrom_ = nullptr;
        LeftByKeys();
    };
}

} // namespace pintalux
