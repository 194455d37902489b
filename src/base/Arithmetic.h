// The program's arithmetic: 16- and 32-bit integers that refuse to overflow, and doubles that round half
// to even. No other place converts a double to an integer.
#pragma once

#include <cstdint>

namespace pintalux {

/// `value` rounded to the nearest whole number, an exact half to the even one; still a double.
double RoundHalfEven(double value);

/// `value` rounded half to even. Error 6 outside -32768 to 32767 and for what is not a number.
std::int16_t ToInt16(double value);

/// `value` rounded half to even. Error 6 outside the 32-bit range and for what is not a number.
std::int32_t ToInt32(double value);

/// The largest whole number not above `value`, as an integer. Error 6 outside the 32-bit range.
std::int32_t FloorToInt32(double value);

/// The largest whole number not above `value`, as a 16-bit integer. Error 6 out of range.
std::int16_t FloorToInt16(double value);

/// 16-bit sums, differences and products; error 6 where the result leaves -32768 to 32767.
std::int16_t AddInt16(int a, int b);
std::int16_t SubtractInt16(int a, int b);
std::int16_t MultiplyInt16(int a, int b);

} // namespace pintalux
