// How much memory a picture may take.
#pragma once

#include <cstdint>
#include <optional>

namespace pintalux {

/// Bytes that programs can still get without others being pushed out of memory. All there are where the
/// system does not say.
std::uint64_t FreeMemory();

/// Bytes of memory that the machine has; all there are where the system does not say.
std::uint64_t MachineMemory();

/// Error 7 if `bytes` are more than half of the free memory: a file that announces a giant must not bring the
/// whole desktop down.
void DemandMemory(std::uint64_t bytes);

/// Room for a picture in memory, in bytes.
inline std::uint64_t PictureBytes(int width, int height) {
    return std::uint64_t{4} * static_cast<std::uint64_t>(width) * static_cast<std::uint64_t>(height);
}

/// Tests: what counts as free, and as all that the machine has, from now on; nothing for the truth.
void FreeMemoryForTests(std::optional<std::uint64_t> bytes);

} // namespace pintalux
