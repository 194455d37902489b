// Lays the controls of a dialog out in a grid that follows the texts, whatever the font's size.
#pragma once

#include "surface/window/Control.h"

#include <vector>

namespace pintalux {

enum class Place { Fill, Left, Right, Centre, Top };

/// One control in the grid. A null control leaves room that stretches.
struct GridItem {
    Control* control;
    int row;
    int column;
    int rows = 1;
    int columns = 1;
    Place place = Place::Fill;
};

/// Gives the container a grid. The order of the items is the order of the Tab key. Controls in a grid take
/// their place from it; assigning `Width` or `Height` before sets the least size. A form shrinks to its grid.
void LayOutGrid(Container& container, const std::vector<GridItem>& items, int spacing = 8, int margin = 12);

/// Says which text belongs to which control: screen readers read it, its access key focuses the control.
void LabelFor(Control& label, Control& control);

} // namespace pintalux
