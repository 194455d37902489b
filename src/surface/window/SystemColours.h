// Colours of the desktop, for the controls whose `BackColor` takes them.
#pragma once

#include "surface/raster/Colour.h"

namespace pintalux {

enum SystemColour : Colour {
    kSystemMenu = -0x7FFFFFFC,    ///< 0x80000004: what lies behind menus and dialogs.
    kSystem3DLight = -0x7FFFFFEA, ///< 0x80000016: between a button's face and its lit edge.
};

} // namespace pintalux
