// Uncompressed 24-bit BMP files, rows from the bottom up, out of a bitmap's tiles.
#pragma once

#include "surface/raster/Bitmap.h"
#include "surface/system/FileLayer.h"

#include <array>
#include <string>

namespace pintalux {

/// Bytes of one row of a 24-bit BMP: three a pixel, filled up to a multiple of four.
constexpr std::size_t BmpRowLength(int width) {
    return (static_cast<std::size_t>(width) * 3 + 3) / 4 * 4;
}

inline constexpr std::size_t kBmpHeaderLength = 54;

/// What stands before the rows; a negative height means that they go from the top down.
std::array<std::byte, kBmpHeaderLength> BmpHeaderOf(int width, int height);

/// Writes the whole BMP file. Error 481 for the empty picture, 7 if memory runs out, else as the file layer
/// says.
void WriteBmp(const Picture& picture, File& file);

/// The next piece of the same bytes, about `length` of them, in whole rows; an empty one at the end. `bottom`
/// is the picture's height at the start. Errors 481 and 7 as above.
std::string NextBmpPiece(const Picture& picture, std::size_t length, int& bottom);

/// Writes the whole BMP file to `path`, in place; a file that is made for it is the user's alone.
void WritePrivateBmp(const Picture& picture, const std::string& path);

} // namespace pintalux
