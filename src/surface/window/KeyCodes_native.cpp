#include "surface/window/KeyCodes_native.h"

#include "surface/window/Control.h"

#include <utility>

namespace pintalux {

namespace {

constexpr std::pair<int, int> kCodes[] = {
    {Qt::Key_Backspace, 8}, {Qt::Key_Tab, 9},    {Qt::Key_Backtab, 9},  {Qt::Key_Return, 13},
    {Qt::Key_Enter, 13},    {Qt::Key_Shift, 16}, {Qt::Key_Control, 17}, {Qt::Key_Alt, 18},
    {Qt::Key_Escape, 27},   {Qt::Key_Space, 32}, {Qt::Key_PageUp, 33},  {Qt::Key_PageDown, 34},
    {Qt::Key_End, 35},      {Qt::Key_Home, 36},  {Qt::Key_Left, 37},    {Qt::Key_Up, 38},
    {Qt::Key_Right, 39},    {Qt::Key_Down, 40},  {Qt::Key_Insert, 45},  {Qt::Key_Delete, 46},
    {Qt::Key_Menu, 93},     {Qt::Key_Plus, 107}, {Qt::Key_Minus, 109},
};

} // namespace

int KeyCodeOf(const QKeyEvent& event) {
    const int key = event.key();
    if ((key >= Qt::Key_0 && key <= Qt::Key_9) || (key >= Qt::Key_A && key <= Qt::Key_Z)) return key;
    if (key >= Qt::Key_F1 && key <= Qt::Key_F12) return 112 + key - Qt::Key_F1;
    for (const auto& [toolkit, code] : kCodes)
        if (toolkit == key) return code;
    return 0;
}

int ShiftOf(const QKeyEvent& event) {
    const Qt::KeyboardModifiers held = event.modifiers();
    return (held.testFlag(Qt::ShiftModifier) ? kShiftMask : 0) |
           (held.testFlag(Qt::ControlModifier) ? kCtrlMask : 0) |
           (held.testFlag(Qt::AltModifier) ? kAltMask : 0);
}

} // namespace pintalux
