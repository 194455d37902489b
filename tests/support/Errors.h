// What a statement of a test raises.
#pragma once

#include "base/RuntimeError.h"

namespace pintalux {

/// The number of the run-time error that a statement raises; 0 for none.
template <class Statement>
int ErrorOf(Statement statement) {
    try {
        statement();
        return 0;
    } catch (const RuntimeError& error) {
        return error.Number();
    }
}

} // namespace pintalux
