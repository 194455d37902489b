// Colours of the desktop, for the controls whose `BackColor` or `BorderColor` takes them.
#pragma once

#include "surface/raster/Colour.h"

namespace pintalux {

enum SystemColour : Colour {
    kSystemMenu = -0x7FFFFFFC,      ///< 0x80000004: what lies behind menus and dialogs.
    kSystemHighlight = -0x7FFFFFF3, ///< 0x8000000D: what is chosen; a shape's border alone.
    kSystem3DLight = -0x7FFFFFEA,   ///< 0x80000016: between a button's face and its lit edge.
};

} // namespace pintalux
