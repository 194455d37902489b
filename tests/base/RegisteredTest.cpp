#include "base/Registered.h"
#include "support/Errors.h"

#include <gtest/gtest.h>

namespace pintalux {
namespace {

struct Panel {
    explicit Panel(Registered<Panel>& way, int number) : value(number), entry(way, *this) {}
    int value;
    Registered<Panel>::Entry entry;
};

TEST(Registered, WithoutAnEntryItIsError91) {
    const Registered<Panel> way;
    EXPECT_FALSE(way);
    EXPECT_EQ(ErrorOf([&] { way->value = 1; }), 91);
}

TEST(Registered, AnObjectIsReachedWhileItLives) {
    Registered<Panel> way;
    {
        const Panel panel(way, 7);
        EXPECT_TRUE(way);
        EXPECT_EQ(way->value, 7);
    }
    EXPECT_FALSE(way);
}

TEST(Registered, TheOneBeforeIsBackWhenALaterOneGoes) {
    Registered<Panel> way;
    const Panel first(way, 1);
    {
        const Panel second(way, 2);
        EXPECT_EQ(way->value, 2);
    }
    EXPECT_EQ(way->value, 1);
}

} // namespace
} // namespace pintalux
