// The undo and redo commands on the active document.
#pragma once

namespace pintalux {

/// Shows the state before the current one. A state whose file disappeared empties the image.
void mnuEditUndo_Click();

/// Shows the next state. A state whose file disappeared leaves everything as it is.
void mnuEditRedo_Click();

} // namespace pintalux
