#include "selection/SelectionTools.h"

namespace pintalux {

void InstallSelectionTools() {}

} // namespace pintalux
