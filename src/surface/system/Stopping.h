// Long work that can be given up.
#pragma once

#include "base/RuntimeError.h"

#include <stop_token>

namespace pintalux {

/// Error 18 once the user has asked for a stop.
inline void RaiseIfStopped(const std::stop_token& stop) {
    if (stop.stop_requested()) throw RuntimeError(kInterrupted);
}

} // namespace pintalux
