#include "inputs/ByHand.h"
#include "surface/window/Inputs.h"

#include <QCheckBox>
#include <QComboBox>
#include <QListWidget>
#include <QRadioButton>
#include <vector>

namespace pintalux {

namespace {

TEST(CheckBox, AssignmentRunsClickOnlyWhenItChanges) {
    TestWindow window;
    CheckBox check(window, "Check1", "Mostrar");
    std::vector<int> seen;
    check.Click = [&] { seen.push_back(check.Value()); };
    check.Value(0);
    check.Value(1);
    check.Value(1);
    EXPECT_EQ(seen, std::vector<int>{1});
    EXPECT_TRUE(ToolkitOf<QCheckBox>(check).isChecked());
}

TEST(CheckBox, OutOfRangeIsError380) {
    TestWindow window;
    CheckBox check(window, "Check1", "");
    EXPECT_EQ(ErrorOf([&] { check.Value(2); }), 380);
    EXPECT_EQ(ErrorOf([&] { check.Value(-1); }), 380);
    EXPECT_EQ(check.Value(), 0);
}

TEST(CheckBox, ClickByHandTogglesBeforeTheEvent) {
    TestWindow window;
    CheckBox check(window, "Check1", "Mostrar");
    check.Move(0, 0, 1500, 300);
    std::vector<int> seen;
    check.Click = [&] { seen.push_back(check.Value()); };
    ClickAt(*WidgetOf(check), {8, 10});
    Key(*WidgetOf(check), Qt::Key_Space, " ");
    EXPECT_EQ(seen, (std::vector<int>{1, 0}));
}

/// Two options in the window, one in a frame.
class OptionTest : public testing::Test {
  protected:
    OptionTest() {
        for (OptionButton* option : {&first, &second, &elsewhere}) {
            option->Move(0, option == &second ? 600 : 0, 1500, 300);
            option->Click = [this, option] { clicked.push_back(option->Name()); };
        }
    }
    TestWindow window;
    Frame frame{window, "Frame1", ""};
    OptionButton first{window, "Option1", "HSL"};
    OptionButton second{window, "Option2", "RGB"};
    OptionButton elsewhere{frame, "Option3", "Web"};
    std::vector<std::string> clicked;
};

TEST_F(OptionTest, ChoosingOneClearsItsSiblingsOnly) {
    elsewhere.Value(true);
    first.Value(true);
    second.Value(true);
    EXPECT_FALSE(first.Value());
    EXPECT_FALSE(ToolkitOf<QRadioButton>(first).isChecked());
    EXPECT_TRUE(second.Value());
    EXPECT_TRUE(elsewhere.Value());
    EXPECT_EQ(clicked, (std::vector<std::string>{"Option3", "Option1", "Option2"}));
}

TEST_F(OptionTest, SameValueAndClearingRunNothing) {
    first.Value(true);
    first.Value(true);
    first.Value(false);
    EXPECT_EQ(clicked.size(), 1U);
    EXPECT_FALSE(ToolkitOf<QRadioButton>(first).isChecked());
}

TEST_F(OptionTest, ClickByHandClearsTheSiblings) {
    first.Value(true);
    ClickAt(*WidgetOf(second), {8, 10});
    EXPECT_FALSE(first.Value());
    EXPECT_TRUE(second.Value());
    ClickAt(*WidgetOf(second), {8, 10});
    EXPECT_EQ(clicked, (std::vector<std::string>{"Option1", "Option2"}));
}

TEST_F(OptionTest, ArrowKeyChoosesTheNextOne) {
    first.Value(true);
    ASSERT_TRUE(WaitFor([&] { return WidgetOf(window)->isActiveWindow(); }));
    first.SetFocus();
    Key(*WidgetOf(first), Qt::Key_Down);
    EXPECT_TRUE(second.Value());
    EXPECT_EQ(clicked.back(), "Option2");
}

TEST(ComboBox, StartsWithNothingChosen) {
    TestWindow window;
    ComboBox combo(window, "Combo1", {"3", "5", "7"});
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(combo.Text(), "");
    EXPECT_EQ(ToolkitOf<QComboBox>(combo).currentIndex(), -1);
    EXPECT_EQ(combo.ListCount(), 3);
    EXPECT_EQ(combo.List(3), "");
}

TEST(ComboBox, AssignmentRunsClickOnlyWhenItChanges) {
    TestWindow window;
    ComboBox combo(window, "Combo1", {"3", "5"});
    int clicks = 0;
    combo.Click = [&] { ++clicks; };
    combo.ListIndex(1);
    combo.ListIndex(1);
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(combo.Text(), "5");
    EXPECT_EQ(ErrorOf([&] { combo.ListIndex(2); }), 380);
    EXPECT_EQ(ErrorOf([&] { combo.ListIndex(-2); }), 380);
    EXPECT_EQ(combo.ListIndex(), 1);
}

TEST(ComboBox, KeyByHandRunsClick) {
    TestWindow window;
    ComboBox combo(window, "Combo1", {"Branco", "Preto"});
    combo.ListIndex(0);
    std::vector<int> seen;
    combo.Click = [&] { seen.push_back(combo.ListIndex()); };
    Key(*WidgetOf(combo), Qt::Key_Down);
    EXPECT_EQ(seen, std::vector<int>{1});
}

TEST(ComboBox, AddingAndClearingRunNothing) {
    TestWindow window;
    ComboBox combo(window, "Combo1", {});
    int clicks = 0;
    combo.Click = [&] { ++clicks; };
    combo.AddItem("um");
    EXPECT_EQ(combo.ListIndex(), -1);
    combo.ListIndex(0);
    combo.AddItem("dois");
    EXPECT_EQ(combo.ListIndex(), 0);
    combo.Clear();
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(clicks, 1);
}

TEST(ListBox, AssignmentAndHandRunClick) {
    TestWindow window;
    ListBox list(window, "FiltList", {"Nitidez", "Contraste", "Difuso"});
    list.Move(0, 0, 3000, 3000);
    std::vector<int> seen;
    list.Click = [&] { seen.push_back(list.ListIndex()); };
    list.ListIndex(0);
    list.ListIndex(0);
    Key(*WidgetOf(list), Qt::Key_Down);
    auto& widget = ToolkitOf<QListWidget>(list);
    ClickAt(*widget.viewport(), widget.visualItemRect(widget.item(2)).center());
    EXPECT_EQ(seen, (std::vector<int>{0, 1, 2}));
    EXPECT_EQ(list.ListIndex(), 2);
    EXPECT_EQ(list.Text(), "Difuso");
}

TEST(ListBox, FocusAloneChoosesNothing) {
    TestWindow window;
    ListBox list(window, "FiltList", {"Nitidez"});
    int clicks = 0;
    list.Click = [&] { ++clicks; };
    ASSERT_TRUE(WaitFor([&] { return WidgetOf(window)->isActiveWindow(); }));
    list.SetFocus();
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(clicks, 0);
}

} // namespace

} // namespace pintalux
