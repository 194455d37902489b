// The files of the undo states of all documents.
#pragma once

#include "surface/raster/Bitmap.h"
#include "surface/system/StateFiles.h"

#include <string>

namespace pintalux {

/// The one store of states, with its writer behind the edits.
StateFiles& States();

/// Deletes a state's file if it exists.
void ForgetState(const std::string& path);

} // namespace pintalux
