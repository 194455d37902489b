// What the floating pieces share: the grid they snap to, the hole they leave, their drag.
#pragma once

#include "document/Selection.h"

#include <cmath>

namespace pintalux {

/// The view pixel where the image pixel under `v` begins: at 3:1 that of 10 is 9.
inline double Snapped(const frmImage& image, double v) {
    return std::floor(v / image.factor) * image.factor;
}

/// Stamps the background of `PicSelect` on the selected rectangle of the image.
void StampBlank(frmImage& image);

/// Starts a drag of a floating surface: reads the pointer, keeps the grab offset and starts the timer that
/// follows the pointer.
void StartDrag(frmImage& image, Surface& piece, Timer& timer);
/// One tick of the drag.
void FollowPointer(const frmImage& image, Surface& piece);

/// The ruler marks and the pointer's shape for a pointer over a floating piece. X and Y are twips on a
/// display, the surface's own unit on a surface: `toPixels` turns them into pixels.
void MoveOverPiece(frmImage& image, Control& under, const Surface& piece, double X, double Y,
                   double toPixels);

/// Connects the events of floating pieces, of the viewport and of the drag timers of a new document.
void ConnectSelection(frmImage& image);

} // namespace pintalux
