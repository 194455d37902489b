// Where a turn fetches the pixels at distances i and j from the centre.
#pragma once

#include "base/Arithmetic.h"

#include <cmath>

namespace pintalux {

/// Right and down from the centre of the source.
struct Offset {
    int u = 0;
    int v = 0;
    bool operator==(const Offset&) const = default;
};

/// The angle, in radians, that a turn by `degrees` computes with.
inline double RadiansOf(double degrees) {
    return (360 - degrees) * (3.14159265358979 / 180);
}

/// The polar mapping of the distances i right and j down, 0 or more, by `angle` in radians. The radius is
/// rounded to a whole number. 3 right and 4 down have the radius 5; a turn by 90 degrees fetches them from 4
/// right and 3 up, {4, -3}.
inline Offset TurnedOffset(int i, int j, double angle) {
    const double a = i == 0 ? 0.0 : std::atan(static_cast<double>(j) / i);
    const double x = i;
    const double y = j;
    const int r = ToInt16(std::sqrt(x * x + y * y));
    return {ToInt16(r * std::cos(a + angle)), ToInt16(r * std::sin(a + angle))};
}

/// The same for 90 degrees (`sign` 1) and 270 (-1), for i and j up to 16383: {4, -3} and {-4, 3} of 3, 4. The
/// rounded radius r lies less than 1/2 from the exact one R. So u, which is r * j / R = j + (r - R) * j / R,
/// rounds to j, and v to i. A test compares every i and j with the formula.
constexpr Offset RightAngleOffset(int i, int j, int sign) {
    return i == 0 ? Offset{0, -sign * j} : Offset{sign * j, -sign * i};
}

} // namespace pintalux
