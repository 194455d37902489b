// 128-bit integers for products of coordinates that may use all of their 32 bits.
#pragma once

namespace pintalux {

__extension__ typedef __int128 Int128;

/// The quotient rounded up; the divisor is positive.
template <class Integer>
constexpr Integer CeilDivide(Integer dividend, Integer divisor) {
    const Integer quotient = dividend / divisor;
    return quotient * divisor < dividend ? quotient + 1 : quotient;
}

} // namespace pintalux
