#include "surface/system/Windows1252.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace pintalux {

namespace {

/// The characters of 0x80 to 0x9F; all other bytes are the characters of their own number.
constexpr std::array<char16_t, 32> kUpperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char ByteOf(std::uint32_t character) {
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) return static_cast<char>(character);
    const auto found = std::ranges::find(kUpperControls, character);
    if (found == kUpperControls.end()) return '?';
    return static_cast<char>(0x80 + (found - kUpperControls.begin()));
}

/// Length of the sequence that a byte begins: 1 to 4, or 0 if none begins with it.
std::size_t SequenceLength(unsigned char first) {
    if (first < 0x80) return 1;
    if (first >= 0xC2 && first < 0xE0) return 2;
    if (first >= 0xE0 && first < 0xF0) return 3;
    if (first >= 0xF0 && first < 0xF5) return 4;
    return 0;
}

bool Continues(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

} // namespace

std::string ToWindows1252(std::string_view utf8) {
    std::string bytes;
    while (!utf8.empty()) {
        const auto first = static_cast<unsigned char>(utf8[0]);
        const std::size_t length = SequenceLength(first);
        if (length == 0 || length > utf8.size() ||
            !std::ranges::all_of(utf8.substr(1, length - 1), Continues)) {
            bytes += '?';
            utf8.remove_prefix(1);
            continue;
        }
        std::uint32_t character = length == 1 ? first : first & (0xFFU >> (length + 1));
        for (const char c : utf8.substr(1, length - 1))
            character = character << 6 | (static_cast<unsigned char>(c) & 0x3FU);
        bytes += ByteOf(character);
        utf8.remove_prefix(length);
    }
    return bytes;
}

std::string FromWindows1252(std::string_view bytes) {
    std::string utf8;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        const unsigned character = byte >= 0x80 && byte < 0xA0 ? kUpperControls[byte - 0x80U] : byte;
        if (character < 0x80) {
            utf8 += static_cast<char>(character);
        } else if (character < 0x800) {
            utf8 += static_cast<char>(0xC0 | character >> 6);
            utf8 += static_cast<char>(0x80 | (character & 0x3F));
        } else {
            utf8 += static_cast<char>(0xE0 | character >> 12);
            utf8 += static_cast<char>(0x80 | (character >> 6 & 0x3F));
            utf8 += static_cast<char>(0x80 | (character & 0x3F));
        }
    }
    return utf8;
}

} // namespace pintalux
