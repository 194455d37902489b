// Memory for the tiles of bitmaps, cut from blocks of two megabytes.
#pragma once

#include <cstddef>

namespace pintalux {

/// Room for one tile of `size` bytes, 64-byte aligned; every call of the program asks for the same size.
/// Blocks lie on large pages where the system has them: an image is walked row by row across its tiles, and
/// with small pages the processor would look up an address for every few pixels. Throws std::bad_alloc.
void* TakeTileMemory(std::size_t size);

/// Gives the room of a tile back, from any thread. Blocks without tiles are kept up to 96 megabytes, the size
/// of a photograph; what is beyond goes back to the system.
void GiveTileMemory(void* tile) noexcept;

} // namespace pintalux
