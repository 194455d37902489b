// Scrolling while a selection is dragged to the edge of the view.
#pragma once

namespace pintalux {

class frmImage;

/// X, Y in view pixels. Within 3 pixels of an edge, on either side of it, the bar moves by 3; further out
/// by 10.
void AutoScroll(frmImage& image, double X, double Y);

} // namespace pintalux
