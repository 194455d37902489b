#include "base/Flag.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace pintalux {

TEST(FlagTest, StartsFalseAndIsZero) {
    const Flag flag;
    EXPECT_FALSE(flag);
    EXPECT_EQ(flag.Value(), 0);
}

TEST(FlagTest, TrueIsMinusOne) {
    Flag flag;
    flag = true;
    EXPECT_TRUE(flag);
    EXPECT_EQ(flag.Value(), -1);
    flag = !flag;
    EXPECT_EQ(flag.Value(), 0);
}

TEST(FlagTest, TakesNoNumber) {
    static_assert(!std::is_constructible_v<Flag, int>);
    static_assert(!std::is_assignable_v<Flag&, int>);
    static_assert(sizeof(Flag) == 2);
    EXPECT_EQ(Flag(true), Flag(!Flag(false)));
}

} // namespace pintalux
