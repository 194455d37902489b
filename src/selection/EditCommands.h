// Cut, copy and paste between a document and the desktop's clipboard. Cutting and copying merge a piece that
// was grabbed or pasted, take it from where it lies and end the selection; they record no state of their own.
// What is pasted floats and touches no pixel of the image. A clipboard that gives no picture ends a paste
// with a message before anything is changed.
#pragma once

namespace pintalux {

void mnuEditCut_Click();
void mnuEditCopy_Click();
void mnuEditPaste_Click();
/// The clipboard's bitmap as a new document.
void mnuEditPasteNew_Click();

/// The paste of the tool bar: what floats is merged first, a piece that was only lifted as well.
void PasteFromBar();

} // namespace pintalux
