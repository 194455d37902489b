// The one common dialog that all commands share; it keeps its last file name between uses.
#pragma once

#include "surface/system/CommonDialog.h"

namespace pintalux {

inline CommonDialog CommonDialog1;

} // namespace pintalux
