// Which commands may be used: the undo code sets some at once, the poll of the main window sets them all 33
// times a second.
#pragma once

#include "surface/window/ListStore.h"

namespace pintalux {

/// Undo and redo, menu items and buttons, from the cursor of a history.
void ShowUndoState(const ListStore& order);

/// The commands that need a document, and the eye-dropper, the magnifier and the text tool. Here and below,
/// an item without a command stays off.
void ImgMenuEnable(bool value);

/// The commands on the image.
void EnableImageMenus();

/// Switches them off; with `all` also undo, redo, borders, resizing and the arranging of windows. Clears
/// `all`.
void DisableImageMenus(bool& all);

} // namespace pintalux
