// The six colours that the dialogs for a new image and for borders offer in a list.
#pragma once

#include "surface/raster/Colour.h"

namespace pintalux {

/// The colour of a place in "Branco", "Preto", "Vermelho", "Verde", "Azul", "Cor actual" (from 0; the last is
/// the current colour of the panel), or `otherwise` for any other place, -1 for no choice included.
Colour ListedColour(int listIndex, Colour otherwise);

} // namespace pintalux
