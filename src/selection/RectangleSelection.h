// The rectangular selection: a band that snaps to image pixels, the piece that is lifted, its drag.
#pragma once

namespace pintalux {

class frmImage;

// Tool 13: its choice, its steps; X and Y are view pixels.
void SelectChosen();
void SelectPress(frmImage& image, double X, double Y);
void SelectMove(frmImage& image, double X, double Y);
void SelectRelease(frmImage& image, double X, double Y);

/// Copies the selected rectangle of `PicMerge` to `SelHolder`.
void SelectionBlit(frmImage& image);

void PicSelect_MouseDown(frmImage& image);
void PicSelect_MouseUp(frmImage& image);

void mnuEditSelectAll_Click();
void mnuEditSelectNone_Click();

} // namespace pintalux
