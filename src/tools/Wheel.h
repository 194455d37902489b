// The wheel over a document scrolls; with Shift sideways, with Ctrl it zooms at the pointer.
#pragma once

namespace pintalux {

class frmImage;
struct WheelTurn;

void ConnectWheel(frmImage& image);

/// A level in or out; what lies at a place of the view, in its pixels, stays there. What floats is treated as
/// by the zoom menu. Nothing happens at the ends of the scale and where the view would not fit.
void ZoomAt(frmImage& image, bool in, double viewX, double viewY);

} // namespace pintalux
