// The table of the tools: whole, in the order of the bar, and the way from a page to its tool.
#include "tools/ToolTable.h"

#include "tools/ToolTest.h"

#include <algorithm>
#include <set>

namespace pintalux {
namespace {

class ToolTableTest : public ToolTest {};

TEST_F(ToolTableTest, EveryPositionFromTheFirstToTheLastToolHasItsRow) {
    std::set<std::string> keys;
    for (int number = kFirstTool; number <= kLastTool; ++number) {
        const Tool& tool = TheTools->Row(number);
        ASSERT_EQ(tool.number, number) << "no row";
        EXPECT_TRUE(keys.insert(tool.key).second) << tool.key << " stands twice";
        EXPECT_EQ(frmMain->TB2.Buttons(number).Key(), tool.key);
    }
    EXPECT_EQ(frmMain->TB2.ButtonCount(), kLastTool);
}

TEST_F(ToolTableTest, ANumberWithoutAToolHasAnEmptyRow) {
    EXPECT_EQ(TheTools->Row(0).press, nullptr);
    EXPECT_EQ(TheTools->Row(2).key, nullptr);
    EXPECT_THROW(TheTools->Row(kLastTool + 1), RuntimeError);
    EXPECT_THROW(TheTools->Row(-1), RuntimeError);
}

TEST_F(ToolTableTest, APageChoosesItsFirstToolUnlessTheCurrentOneIsItsOwn) {
    EXPECT_EQ(TheTools->ToolOfPage(kSelectionPage, kPenTool), kSelectTool);
    EXPECT_EQ(TheTools->ToolOfPage(kSelectionPage, kFreeSelectTool), kFreeSelectTool);
    EXPECT_EQ(TheTools->ToolOfPage(kWandPage, kFreeSelectTool), kColorWandTool);
    EXPECT_EQ(TheTools->ToolOfPage(kClipPage, kPenTool), 0);
}

TEST_F(ToolTableTest, AnotherTableIsTheOneInUseWhileItLives) {
    constexpr Tool kOne[] = {{.number = kPenTool, .key = "Other"}};
    {
        const ToolTable other({kOne});
        EXPECT_EQ(std::string(TheTools->Row(kPenTool).key), "Other");
        EXPECT_EQ(TheTools->Row(kEraserTool).key, nullptr);
    }
    EXPECT_EQ(std::string(TheTools->Row(kPenTool).key), "Pen");
}

} // namespace
} // namespace pintalux
