#include "base/Arithmetic.h"

#include "base/RuntimeError.h"

#include <cmath>
#include <limits>

namespace pintalux {

namespace {

template <class Integer>
Integer Narrow(double whole) {
    // A NaN fails both comparisons and is refused with the rest.
    if (!(whole >= static_cast<double>(std::numeric_limits<Integer>::min()) &&
          whole <= static_cast<double>(std::numeric_limits<Integer>::max()))) {
        throw RuntimeError(kOverflow);
    }
    return static_cast<Integer>(whole);
}

std::int16_t NarrowInt16(std::int64_t value) {
    if (value < -32768 || value > 32767) throw RuntimeError(kOverflow);
    return static_cast<std::int16_t>(value);
}

} // namespace

double RoundHalfEven(double value) {
    return std::nearbyint(value);
}

std::int16_t ToInt16(double value) {
    return Narrow<std::int16_t>(RoundHalfEven(value));
}

std::int32_t ToInt32(double value) {
    return Narrow<std::int32_t>(RoundHalfEven(value));
}

std::int32_t FloorToInt32(double value) {
    return Narrow<std::int32_t>(std::floor(value));
}

std::int16_t FloorToInt16(double value) {
    return Narrow<std::int16_t>(std::floor(value));
}

std::int16_t AddInt16(int a, int b) {
    return NarrowInt16(std::int64_t{a} + b);
}

std::int16_t SubtractInt16(int a, int b) {
    return NarrowInt16(std::int64_t{a} - b);
}

std::int16_t MultiplyInt16(int a, int b) {
    return NarrowInt16(std::int64_t{a} * b);
}

} // namespace pintalux
