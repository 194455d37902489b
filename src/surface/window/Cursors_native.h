// Pointer shapes as the toolkit knows them.
#pragma once

#include "surface/window/Control.h"

#include <QCursor>

namespace pintalux {

/// The cursor of a `PointerShape`; `icon` counts for the custom shape only. What is unknown gives the arrow.
QCursor CursorOf(int shape, const Icon& icon);

} // namespace pintalux
