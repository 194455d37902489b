// The commands of the image menu that work on pixels: flips and turns, colour steps, the filters.
#pragma once

namespace pintalux {

// Flips and turns: always the whole image, whatever is selected.
void mnuFlipH_Click();
void mnuFlipV_Click();
void mnuRotate90_Click();
void mnuRotate180_Click();
void mnuRotate270_Click();

/// 20 more (20 less) of a channel on the selection or the image. `Index` 0 red, 1 green, 2 blue.
void mnuColInc_Click(int Index);
void mnuColRed_Click(int Index);

/// Shows the filter browser and applies what was chosen there to the selection or the image.
void mnuFiltBrow_Click();

} // namespace pintalux
