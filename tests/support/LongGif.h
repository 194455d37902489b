// A picture that takes a while to read.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>

namespace pintalux {

/// Colour numbers of a GIF image, packed in codes of growing length.
class GifPacker {
  public:
    void Put(unsigned code, int length) {
        bits_ |= code << used_;
        for (used_ += length; used_ >= 8; used_ -= 8, bits_ >>= 8)
            bytes_ += static_cast<char>(bits_ & 0xFF);
    }
    /// In blocks, each behind its length.
    std::string Blocks() {
        Put(0, 16); // what is left over
        std::string blocks;
        for (std::size_t at = 0; at < bytes_.size(); at += 255) {
            const std::string block = bytes_.substr(at, 255);
            blocks += static_cast<char>(block.size()) + block;
        }
        return blocks + std::string(1, '\0');
    }

  private:
    std::string bytes_;
    unsigned bits_ = 0;
    int used_ = 0;
};

/// A GIF file whose one image, as large as its screen, is all transparent and coded as tightly as the format
/// allows: reading it takes time and hardly any memory.
inline std::string LongGif(int width, int height) {
    using namespace std::string_literals;
    constexpr unsigned kClear = 4;
    constexpr unsigned kEnd = 5;
    GifPacker packer;
    int length = 3;
    for (std::int64_t left = std::int64_t{width} * height; left > 0;) {
        packer.Put(kClear, length);
        length = 3;
        packer.Put(0, length);
        --left;
        // Each code is a run one longer than the last, up to the last code that there is.
        for (unsigned code = kEnd + 1; code < 4096 && left > 0; ++code) {
            packer.Put(code, length);
            left -= code - kClear;
            if (code + 1 == 1U << length) length = std::min(length + 1, 12);
        }
    }
    packer.Put(kEnd, length);
    const auto side = [](int pixels) {
        return std::string{static_cast<char>(pixels & 0xFF), static_cast<char>(pixels >> 8)};
    };
    const std::string size = side(width) + side(height);
    const std::string colours = "\x91\0\0"s + std::string(12, '\x7F');
    const std::string transparent = "\x21\xF9\x04\x01\0\0\0\0"s;
    return "GIF89a" + size + colours + transparent + "\x2C\0\0\0\0"s + size + "\0\x02"s + packer.Blocks() +
           ";";
}

} // namespace pintalux
