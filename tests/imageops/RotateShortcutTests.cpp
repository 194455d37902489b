// A turn by a right angle without trigonometry, held against the mapping that it stands for.
#include "imageops/TurnedOffset.h"

#include <cmath>
#include <gtest/gtest.h>

namespace pintalux {
namespace {

/// The mapping as it is told, rounded half to even.
Offset ByPolarMapping(int i, int j, double degrees) {
    const double angle = (360 - degrees) * (3.14159265358979 / 180);
    const double a = i == 0 ? 0.0 : std::atan(static_cast<double>(j) / static_cast<double>(i));
    const double r = std::nearbyint(std::sqrt(static_cast<double>(i) * i + static_cast<double>(j) * j));
    return {static_cast<int>(std::nearbyint(r * std::cos(a + angle))),
            static_cast<int>(std::nearbyint(r * std::sin(a + angle)))};
}

/// The same with j and i over the unrounded radius as sine and cosine of a, and the angle an exact right one.
Offset ByRatios(int i, int j, int sign) {
    const double radius = std::sqrt(static_cast<double>(i) * i + static_cast<double>(j) * j);
    const double r = std::nearbyint(radius);
    const double sine = i == 0 ? 0.0 : j / radius;
    const double cosine = i == 0 ? 1.0 : i / radius;
    return {sign * static_cast<int>(std::nearbyint(r * sine)),
            -sign * static_cast<int>(std::nearbyint(r * cosine))};
}

void ExpectShortcutHolds(int i, int j) {
    const Offset quarter = RightAngleOffset(i, j, 1);
    const Offset threeQuarters = RightAngleOffset(i, j, -1);
    ASSERT_EQ(quarter, ByPolarMapping(i, j, 90)) << i << ", " << j;
    ASSERT_EQ(threeQuarters, ByPolarMapping(i, j, 270)) << i << ", " << j;
    ASSERT_EQ(quarter, ByRatios(i, j, 1)) << i << ", " << j;
    ASSERT_EQ(threeQuarters, ByRatios(i, j, -1)) << i << ", " << j;
}

constexpr int kEnd = 16384; // The largest distance is 16383: twice as much must fit into 16 bits.

TEST(RightAngleOffset, EqualsThePolarMapping) {
    for (int i = 0; i < 400; ++i) {
        for (int j = 0; j < 400; ++j)
            ExpectShortcutHolds(i, j);
    }
    for (int i = 0; i < kEnd; i += 61) {
        for (int j = 0; j < kEnd; j += 67)
            ExpectShortcutHolds(i, j);
    }
    for (int far = 0; far < kEnd; ++far) {
        ExpectShortcutHolds(0, far);
        ExpectShortcutHolds(far, 0);
        ExpectShortcutHolds(1, far);
        ExpectShortcutHolds(far, 1);
        ExpectShortcutHolds(far, far);
        ExpectShortcutHolds(kEnd - 1, far);
        ExpectShortcutHolds(far, kEnd - 1);
    }
}

TEST(RightAngleOffset, DISABLED_EqualsThePolarMappingForEveryPixel) {
    for (int i = 0; i < kEnd; ++i) {
        for (int j = 0; j < kEnd; ++j)
            ExpectShortcutHolds(i, j);
    }
}

TEST(TurnedOffset, IsThePolarMappingForAnyAngle) {
    for (const double degrees : {0.0, 30.0, 90.0, 123.5, 180.0, 270.0, 359.0}) {
        for (int i = 0; i < 60; ++i) {
            for (int j = 0; j < 60; ++j) {
                ASSERT_EQ(TurnedOffset(i, j, RadiansOf(degrees)), ByPolarMapping(i, j, degrees))
                    << i << ", " << j << " at " << degrees;
            }
        }
    }
}

TEST(RadiansOf, TurnsAgainstTheClock) {
    EXPECT_NEAR(RadiansOf(90), 4.71238898038469, 1e-14);
    EXPECT_NEAR(RadiansOf(270), 1.5707963267949, 1e-14);
}

} // namespace
} // namespace pintalux
