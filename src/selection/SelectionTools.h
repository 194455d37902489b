// Rectangular and freehand selections: their tools, the floating piece, its merge.
#pragma once

namespace pintalux {

/// Puts the steps of tools 13 and 14 into the table, and what a press does to a piece that floats.
void InstallSelectionTools();

} // namespace pintalux
