// Numbers to text and back, as the platform does it: a blank before what is not negative, and a reader that
// takes the leading number of a text.
#pragma once

#include <string>
#include <string_view>

namespace pintalux {

/// The leading number of `text`, blanks skipped, the point as decimal sign; 0 where there is none.
double Val(std::string_view text);

/// The number as text with the point as decimal sign, with a leading blank unless it is negative.
std::string FormattedNumber(double value);

/// The number as text without the leading blank.
std::string NumberText(double value);

/// `text` without blanks at both ends.
std::string Trim(std::string_view text);

/// Only the letters A to Z, a to z and the digits of the text: of a formatted number its bare digits.
std::string KeepAlnum(std::string_view text);

/// `text` with A to Z in lower case.
std::string LowerCase(std::string text);

} // namespace pintalux
