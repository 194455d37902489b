// Zoom of the active document: 31 levels. Zooming touches no pixel; it resizes the display.
#pragma once

#include <cstdint>

namespace pintalux {

class Display;
class frmImage;
class Surface;

inline constexpr std::int16_t kZoomLevels = 31;
inline constexpr std::int16_t kActualLevel = 15; ///< 1:1.

/// View pixels per image pixel at a level of 0 to 30: 1/16 to 1 at 0 to 15, 2 to 16 at 16 to 30.
double ZoomFactor(int level);

/// Whether the image at a level is at most 32767 pixels wide and high, which is as far as scroll bars reach.
/// A level that does not fit is not taken: its command changes nothing.
bool ViewFits(const frmImage& image, int level);

/// Sets `factor` of the active window from its `factorlevel` and ticks the zoom menu for it.
void ApplyZoomLevel();

/// One click of the magnifier: a level in or out, the rectangular selection scaled along. At either end
/// nothing happens. False if the view would not fit: nothing was touched.
bool ZoomStep(bool in, Display& image, Surface& merge);

/// After a zoom by the menu: scales the rectangular selection by `ZoomRatio` and keeps the image in view.
void RescaleSelection();
/// The rectangle that floats, with what it shows, follows a view that has become `ratio` times as large.
void ScaleRectangle(frmImage& image, double ratio);

void mnuZoomActual_Click();
void mnuZoomInX_Click(int Index);  ///< Index + 1 to 1.
void mnuZoomOutX_Click(int Index); ///< 1 to Index + 1.

} // namespace pintalux
