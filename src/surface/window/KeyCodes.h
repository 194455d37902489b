// The codes of keys without a character, as `KeyStroke` and the events of keys tell them.
#pragma once

namespace pintalux {

enum KeyCodes : int {
    kBackspace = 8,
    kEnter = 13,
    kEscape = 27,
    kSpace = 32,
    kPageUp,
    kPageDown,
    kEnd,
    kHome,
    kLeft,
    kUp,
    kRight,
    kDown,
    kInsert = 45,
    kDelete = 46,
    kMenu = 93,
    kPlus = 107, ///< This and the next: of the block of numbers.
    kMinus = 109,
};

} // namespace pintalux
