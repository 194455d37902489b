// Rectangular and freehand selections: their tools, the floating piece, its merge.
#pragma once

#include "tools/ToolTable.h"

#include <span>

namespace pintalux {

extern const std::span<const Tool> SelectionTools;

/// Says what a press does to a piece that floats.
void ConnectFloatingSteps();

} // namespace pintalux
