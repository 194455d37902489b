// The program's numbers for keys.
#pragma once

#include <QKeyEvent>

namespace pintalux {

/// Letters and digits: the code of their capital; 8 backspace, 9 Tab, 13 Enter, 27 Escape, 32 blank, 33 to 40
/// page up, page down, End, Home, left, up, right, down, 45 insert, 46 delete, 112 to 123 the function keys;
/// 16 to 18 Shift, Ctrl, Alt; 0 for the rest.
int KeyCodeOf(const QKeyEvent& event);

/// The `ShiftBits` held.
int ShiftOf(const QKeyEvent& event);

} // namespace pintalux
