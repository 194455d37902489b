#include "surface/window/ListStore.h"

#include "support/Errors.h"

#include <gtest/gtest.h>

namespace pintalux {
namespace {

class ListStoreTest : public testing::Test {
  protected:
    ListStoreTest() {
        for (const char* text : {"a", "b", "c"})
            list.AddItem(text);
    }
    ListStore list;
};

TEST_F(ListStoreTest, TheCursorStaysOnItsEntry) {
    list.ListIndex(1);
    list.RemoveItem(0);
    EXPECT_EQ(list.ListIndex(), 0);
    EXPECT_EQ(list.List(0), "b");
    list.RemoveItem(1);
    EXPECT_EQ(list.ListIndex(), 0);
    list.RemoveItem(0);
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(list.ListCount(), 0);
}

TEST_F(ListStoreTest, ClearedItHasNeitherEntriesNorCursor) {
    list.ListIndex(2);
    list.Clear();
    EXPECT_EQ(list.ListCount(), 0);
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(list.List(0), "");
    list.AddItem("d");
    EXPECT_EQ(list.List(0), "d");
}

TEST_F(ListStoreTest, OutsideItThereIsNothing) {
    EXPECT_EQ(list.List(-1), "");
    EXPECT_EQ(list.List(3), "");
    EXPECT_EQ(ErrorOf([&] { list.RemoveItem(3); }), 5);
    EXPECT_EQ(ErrorOf([&] { list.RemoveItem(-1); }), 5);
    EXPECT_EQ(ErrorOf([&] { list.ListIndex(3); }), 380);
    EXPECT_EQ(ErrorOf([&] { list.ListIndex(-2); }), 380);
    EXPECT_EQ(list.ListCount(), 3);
}

} // namespace
} // namespace pintalux
