// What the two kinds of floating pieces share: the grid they snap to, and the commands that depend on them.
#pragma once

#include "document/frmImage.h"
#include "surface/raster/Transfer.h"

#include <cmath>

namespace pintalux {

/// The view pixel where the image pixel under `v` begins.
inline double Snapped(const frmImage& image, double v) {
    return std::floor(v / image.factor) * image.factor;
}

/// Shows the document's image on its display.
inline void ShowMerge(frmImage& image) {
    image.Image1.Picture(image.PicMerge.Image());
}

/// The selection's rectangle in whole image pixels, half to even. Error 6 beyond 32 bits.
Extent SelectionExtent(const frmImage& image);

/// The selection's members from where the rectangular piece lies.
void TakePieceMembers(frmImage& image);

/// Cut and Copy, in the menu and on the tool bar.
void EnableCutAndCopy(bool value);

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
