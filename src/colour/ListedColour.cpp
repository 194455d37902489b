#include "colour/ListedColour.h"

#include "colour/ColourPanel.h"

namespace pintalux {

Colour ListedColour(int listIndex, Colour otherwise) {
    switch (listIndex) {
    case 0:
        return 0xFFFFFF;
    case 1:
        return 0;
    case 2:
        return 0x0000FF;
    case 3:
        return 0x00FF00;
    case 4:
        return 0xFF0000;
    case 5:
        return CurrentColour();
    default:
        return otherwise;
    }
}

} // namespace pintalux
