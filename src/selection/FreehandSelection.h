// The freehand selection: a drawn path, the piece inside it, its drag.
#pragma once

namespace pintalux {

class frmImage;

// The steps of tool 14; X and Y are view pixels.
void FreeSelectPress(frmImage& image, double X, double Y);
void FreeSelectMove(frmImage& image, double X, double Y);
void FreeSelectRelease(frmImage& image, double X, double Y);

void PicFreeSelect_MouseDown(frmImage& image);
void PicFreeSelect_MouseUp(frmImage& image);

} // namespace pintalux
