// The commands that open a dialog for frames, borders and a new size.
#pragma once

namespace pintalux {

/// Paints a frame on the rectangle that floats, or inside the image. A freehand piece is refused.
void mnuBorderWiz_Click();

/// Grows the canvas by margins.
void mnuAddBorders_Click();

/// Stretches the whole image to a new size; pixels are dropped or repeated, never blended.
void mnuResize_Click();

} // namespace pintalux
