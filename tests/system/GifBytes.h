// GIF files made by hand.
#pragma once

#include "system/Sandbox.h"

#include <string>
#include <vector>

namespace pintalux {

/// Screen and palette: red, green, blue, black.
inline std::string GifScreen(int width, int height) {
    using namespace std::string_literals;
    return "GIF89a" + LittleEndian(width, 2) + LittleEndian(height, 2) + "\x91\0\0"s +
           "\xFF\0\0\0\xFF\0\0\0\xFF\0\0\0"s;
}

/// What holds for the image behind it. `disposal`: 1 stays, 2 is cleared, 3 gives back what was there;
/// `transparent` below 0 for none.
inline std::string GifControl(int delay, int transparent, int disposal = 1) {
    return "\x21\xF9\x04" + LittleEndian(disposal << 2 | (transparent >= 0 ? 1 : 0), 1) +
           LittleEndian(delay, 2) + LittleEndian(transparent >= 0 ? transparent : 0, 1) + LittleEndian(0, 1);
}

/// Codes of one width, packed; whoever calls sees to it that no table grows.
inline std::string PackedCodes(const std::vector<unsigned>& codes, int width) {
    std::string bytes;
    unsigned bits = 0;
    int used = 0;
    for (const unsigned code : codes) {
        bits |= code << used;
        for (used += width; used >= 8; used -= 8, bits >>= 8)
            bytes += static_cast<char>(bits & 0xFF);
    }
    return bytes + static_cast<char>(bits);
}

/// An image of colour numbers 0 to 3. Its codes are three bits long, each behind a clear code.
inline std::string GifImage(int left, int top, int width, int height, const std::vector<int>& numbers) {
    constexpr unsigned kClear = 4;
    constexpr unsigned kEnd = 5;
    std::vector<unsigned> codes;
    for (const int number : numbers)
        codes.insert(codes.end(), {kClear, static_cast<unsigned>(number)});
    codes.push_back(kEnd);
    const std::string data = PackedCodes(codes, 3);
    return "\x2C" + LittleEndian(left, 2) + LittleEndian(top, 2) + LittleEndian(width, 2) +
           LittleEndian(height, 2) + LittleEndian(0, 1) + "\x02" + LittleEndian(std::ssize(data), 1) + data +
           LittleEndian(0, 1);
}

} // namespace pintalux
