// What stands in a BMP file before its rows: size, kind, palette and colour masks.
#pragma once

#include "surface/raster/Colour.h"
#include "surface/system/FileLayer.h"

#include <array>
#include <vector>

namespace pintalux {

struct BmpHeader {
    int width = 0;  ///< 1 to 32000.
    int height = 0; ///< 1 to 32000.
    bool topDown = false;
    int bits = 24;                 ///< A pixel: 1, 4, 8, 16, 24 or 32.
    bool compressed = false;       ///< Run lengths instead of rows.
    std::uint64_t pixelOffset = 0; ///< Where the rows begin in the file.
    /// Up to 8 bits: a colour for each number that a pixel can hold. Black where the file has none.
    std::vector<Pixel> palette;
    /// 16 and 32 bits: where red, green, blue and alpha stand in a pixel; 0 for a channel that is not there.
    std::array<std::uint32_t, 4> masks = {};

    /// Bytes from one row to the next.
    std::size_t RowLength() const {
        return (static_cast<std::size_t>(width) * static_cast<std::size_t>(bits) + 31) / 32 * 4;
    }
    /// Bytes of a row without what fills it up.
    std::size_t UsedRowLength() const {
        return (static_cast<std::size_t>(width) * static_cast<std::size_t>(bits) + 7) / 8;
    }
};

/// Reads and checks the header of a file that begins with "BM". Error 481 if a field is impossible, a side
/// illegal or the file too short for the uncompressed rows that it announces.
BmpHeader ReadBmpHeader(File& file);

} // namespace pintalux
