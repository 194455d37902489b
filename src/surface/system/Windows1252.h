// Windows-1252, the 8-bit code page of profile files, to and from UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace pintalux {

/// What the code page lacks, and what is no UTF-8, becomes a question mark.
std::string ToWindows1252(std::string_view utf8);

/// Every byte has a character: the five that the code page leaves free are control characters of the same
/// number.
std::string FromWindows1252(std::string_view bytes);

} // namespace pintalux
