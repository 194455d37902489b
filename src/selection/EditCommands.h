// Cut, copy and paste between a document and the desktop's clipboard. Cutting and copying end the selection
// and record no state; a paste lands as a floating piece and touches no pixel of the image.
#pragma once

namespace pintalux {

void mnuEditCut_Click();
void mnuEditCopy_Click();
/// Error 521 if no bitmap can be had from the clipboard. The window is usable again whatever happens.
void mnuEditPaste_Click();
/// The clipboard's bitmap as a new document. Error 521 as for a paste.
void mnuEditPasteNew_Click();

/// The paste of the tool bar: what floats is merged first.
void PasteFromBar();

} // namespace pintalux
