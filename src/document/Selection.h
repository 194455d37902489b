// What every part that touches a selection needs: its rectangle in the image, the commands that depend on it,
// the clean copy below a freehand piece.
#pragma once

#include "document/frmImage.h"
#include "surface/raster/Transfer.h"

namespace pintalux {

/// The members of the selection from where its band or its piece lies on the view.
void TakeMembers(frmImage& image, const Control& place);

/// The selection's rectangle in whole image pixels, half to even. Error 6 beyond 32 bits.
Extent SelectionExtent(const frmImage& image);

/// Cut and Copy, in the menu and on the tool bar.
void EnableCutAndCopy(bool value);

/// Shows the document's image on its display.
void ShowMerge(frmImage& image);

/// A freehand piece goes, the image is again what its clean copy holds. A hole that was cut stays.
void PutCleanCopyBack(frmImage& image);

} // namespace pintalux
