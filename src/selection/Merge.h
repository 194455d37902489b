// What a press on the image does to a piece that floats.
#pragma once

namespace pintalux {

class frmImage;

void MergeRectangleByPress(frmImage& image);
void MergeFreehandByPress(frmImage& image);

} // namespace pintalux
