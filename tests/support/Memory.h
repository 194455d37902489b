// Machines with little or much memory.
#pragma once

#include "surface/system/FreeMemory.h"

namespace pintalux {

/// While it lives, so many bytes count as free.
class SupposedMemory {
  public:
    explicit SupposedMemory(std::uint64_t bytes) { FreeMemoryForTests(bytes); }
    ~SupposedMemory() { FreeMemoryForTests({}); }
    SupposedMemory(const SupposedMemory&) = delete;
    SupposedMemory& operator=(const SupposedMemory&) = delete;
};

} // namespace pintalux
