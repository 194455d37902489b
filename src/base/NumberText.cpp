#include "base/NumberText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>

namespace pintalux {

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// The longest prefix that reads as a decimal number: sign, digits, one point, an exponent with digits.
std::string NumberPrefix(std::string_view text) {
    std::string number;
    bool point = false;
    bool exponent = false;
    for (const char c : text) {
        const bool afterExponent = exponent && (number.back() == 'e');
        if (IsBlank(c)) continue;
        if (IsDigit(c) || ((c == '+' || c == '-') && (number.empty() || afterExponent))) {
            number += c;
        } else if (c == '.' && !point && !exponent) {
            point = true;
            number += c;
        } else if ((c == 'e' || c == 'E' || c == 'd' || c == 'D') && !exponent && !number.empty() &&
                   number.find_first_of("0123456789") != std::string::npos) {
            exponent = true;
            number += 'e';
        } else {
            break;
        }
    }
    return number;
}

} // namespace

double Val(std::string_view text) {
    std::string number = NumberPrefix(text);
    if (!number.empty() && number.front() == '+') number.erase(0, 1);
    double value = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
    return error == std::errc{} ? value : 0;
}

std::string NumberText(double value) {
    if (value == 0) return "0";
    char buffer[64];
    // Whole numbers are written out; the rest with the 15 figures that a double carries. The desktop's
    // language must not put its comma here.
    const bool whole = value == std::floor(value) && std::abs(value) < 1e15;
    const auto format = whole ? std::chars_format::fixed : std::chars_format::general;
    const auto written = std::to_chars(buffer, std::end(buffer), value, format, whole ? 0 : 15);
    return std::string(buffer, written.ptr);
}

std::string FormattedNumber(double value) {
    std::string text(value < 0 ? 0 : 1, ' ');
    return text.append(NumberText(value));
}

std::string Trim(std::string_view text) {
    std::size_t first = 0;
    std::size_t last = text.size();
    while (first < last && IsBlank(text[first]))
        ++first;
    while (last > first && IsBlank(text[last - 1]))
        --last;
    return std::string(text.substr(first, last - first));
}

std::string KeepAlnum(std::string_view text) {
    std::string kept;
    std::copy_if(text.begin(), text.end(), std::back_inserter(kept), [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    });
    return kept;
}

std::string LowerCase(std::string text) {
    for (char& c : text) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + ('a' - 'A'));
    }
    return text;
}

} // namespace pintalux
