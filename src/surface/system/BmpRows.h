// A BMP file that grows row by row, as a page comes from a scanner.
#pragma once

#include "surface/system/FileLayer.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace pintalux {

/// An uncompressed 24-bit BMP file, its rows from the top down, whose height is known at its end. The file is
/// new; one that was not finished goes with the object. Errors as the file layer gives them.
class BmpRows {
  public:
    BmpRows(const std::string& path, int width);
    ~BmpRows();
    BmpRows(const BmpRows&) = delete;
    BmpRows& operator=(const BmpRows&) = delete;

    /// A row of `width` pixels of three bytes, red first.
    void Add(std::span<const std::uint8_t> row);
    /// Writes what is left, and the height.
    void Finish();

  private:
    void Flush();

    int width_;
    int height_ = 0;
    std::vector<std::byte> buffer_;
    std::size_t used_;
    bool finished_ = false;
    File file_; // Made last: whatever fails before leaves no file.
};

} // namespace pintalux
