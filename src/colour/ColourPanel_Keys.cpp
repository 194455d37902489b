// The grid of colours by keys: the arrows walk its filled cells, Space and Enter pick.
#include "colour/ColourPanel.h"
#include "surface/raster/Drawing.h"

#include <algorithm>

namespace pintalux {

namespace {

constexpr int kColumns = 6;
constexpr int kCellPitch = 18; // pixels
constexpr int kFirstRow = 156;
constexpr int kCellSide = 16;

enum KeyCode : int { kEnter = 13, kSpace = 32, kEnd = 35, kHome, kLeft, kUp, kRight, kDown };

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
    ColorBox.FocusMoved = nullptr;
}

void ColourPanel::GoToCell(int cell) {
    gridCell_ = cell;
    const GridPoint middle = MiddleOf(cell);
    constexpr int kHalf = kCellSide / 2 + 1;
    ShCell.Move(std::max(middle.x - kHalf, 0), middle.y - kHalf, 2 * kHalf, 2 * kHalf);
    ShCell.Visible(true);
    const Colour c = GetPixel(ColorBox.hDC(), middle.x, middle.y);
    ChangeColor(c);
    ColorBox.AccessibleName("As minhas cores, " + RgbReadout(c));
}

bool ColourPanel::GridKey(const KeyStroke& key) {
    const int count = CollectionCount;
    if (count < 1 || (key.shift & (kCtrlMask | kAltMask)) != 0) return false;
    const int cell = std::min(gridCell_, count - 1);
    if (key.code == kSpace || key.code == kEnter) {
        if (key.repeated) return true;
        GoToCell(cell);
        const GridPoint middle = MiddleOf(cell);
        ColorBox_MouseDown(kLeftButton, middle.x, middle.y);
        return true;
    }
    const int next = CellAfter(cell, key.code, count);
    if (next >= 0) GoToCell(next);
    return next >= 0;
}

void ColourPanel::ConnectGridKeys() {
    ShCell.Visible(false);
    ShCell.BorderWidth(2);
    ColorBox.TakesFocus(FocusBy::Tab);
    ColorBox.AccessibleRole(SpokenRole::Colours);
    ColorBox.Key = [this](const KeyStroke& key) { return GridKey(key); };
    ColorBox.FocusMoved = [this](bool got, bool) {
        if (got && CollectionCount > 0) return GoToCell(std::min<int>(gridCell_, CollectionCount - 1));
        ShCell.Visible(false);
        FallBackToCurrent();
    };
}

} // namespace pintalux
