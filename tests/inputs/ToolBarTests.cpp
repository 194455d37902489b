#include "surface/window/ToolBar.h"

#include "inputs/ByHand.h"

#include <QAccessible>
#include <QToolButton>
#include <vector>

namespace pintalux {

namespace {

const std::vector<ToolBar::Row> kRows = {
    {"New", "Imagem nova", nullptr},
    {"Open", "Abrir imagem", nullptr},
    {nullptr, nullptr, nullptr},
    {"Pen", "Desenha uma linha", nullptr, ButtonStyle::ButtonGroup},
    {"Eraser", "Apaga", nullptr, ButtonStyle::ButtonGroup, "Borracha"},
    {"Mag", nullptr, ":/icons/missing.svg", ButtonStyle::ButtonGroup},
    {nullptr, nullptr, nullptr},
    {"Other", nullptr, nullptr, ButtonStyle::ButtonGroup},
    {"Bold", nullptr, nullptr, ButtonStyle::Check},
};

class ToolBarTest : public testing::Test {
  protected:
    ToolBarTest() {
        bar.Move(0, 0, 590 * 15, 100 * 15);
        bar.ButtonClick = [this](ToolButton& button) { clicked.push_back(button.Key()); };
    }
    QToolButton& Widget(const char* key) {
        return *WidgetOf(bar)->findChild<QToolButton*>(QString("TB2_") + key);
    }

    TestWindow window;
    ToolBar bar{window, "TB2", kRows};
    std::vector<std::string> clicked;
};

TEST_F(ToolBarTest, SeparatorsCountAsPositions) {
    EXPECT_EQ(bar.ButtonCount(), 9);
    EXPECT_EQ(bar.Buttons(4).Key(), "Pen");
    EXPECT_EQ(bar.Buttons("Pen").Index(), 4);
}

TEST_F(ToolBarTest, UnknownButtonIsError9) {
    EXPECT_EQ(ErrorOf([&] { bar.Buttons(0); }), 9);
    EXPECT_EQ(ErrorOf([&] { bar.Buttons(10); }), 9);
    EXPECT_EQ(ErrorOf([&] { bar.Buttons("pen"); }), 9);
    EXPECT_EQ(ErrorOf([&] { bar.Buttons(""); }), 9);
}

TEST_F(ToolBarTest, PressingByCodeReleasesTheGroupWithoutAClick) {
    bar.Buttons("Other").Value(1);
    bar.Buttons("Pen").Value(1);
    bar.Buttons("Mag").Value(1);
    EXPECT_EQ(bar.Buttons("Pen").Value(), 0);
    EXPECT_FALSE(Widget("Pen").isChecked());
    EXPECT_TRUE(Widget("Mag").isChecked());
    EXPECT_EQ(bar.Buttons("Other").Value(), 1); // behind a separator: a group of its own
    EXPECT_TRUE(clicked.empty());
    EXPECT_EQ(ErrorOf([&] { bar.Buttons("Pen").Value(2); }), 380);
}

TEST_F(ToolBarTest, CodeReleasesWhatItPressed) {
    bar.Buttons("Bold").Value(1);
    EXPECT_TRUE(Widget("Bold").isChecked());
    bar.Buttons("Bold").Value(0);
    EXPECT_FALSE(Widget("Bold").isChecked());
    EXPECT_EQ(bar.Buttons("Bold").Value(), 0);
    bar.Buttons("New").Value(1);
    EXPECT_EQ(bar.Buttons("New").Value(), 0); // one that does not stay pressed
    EXPECT_TRUE(clicked.empty());
}

TEST_F(ToolBarTest, ScreenReadersPressItsButtons) {
    ASSERT_TRUE(WaitFor([&] { return WidgetOf(window)->isActiveWindow(); }));
    const auto spoken = [&](const char* key) { return QAccessible::queryAccessibleInterface(&Widget(key)); };
    const auto act = [&](const char* key, const QString& action) {
        spoken(key)->actionInterface()->doAction(action);
    };
    const QString press = QAccessibleActionInterface::pressAction();
    EXPECT_EQ(spoken("Pen")->role(), QAccessible::RadioButton);
    EXPECT_EQ(spoken("Pen")->actionInterface()->actionNames(), QStringList{press});
    EXPECT_TRUE(spoken("Pen")->state().checkable);
    EXPECT_FALSE(spoken("Pen")->state().checked);
    act("Pen", press);
    EXPECT_TRUE(spoken("Pen")->state().checked);
    act("Pen", "no such act");
    bar.Buttons("Pen").Enabled(false);
    act("Pen", press);
    EXPECT_EQ(clicked, std::vector<std::string>{"Pen"});
    act("New", QAccessibleActionInterface::setFocusAction());
    EXPECT_TRUE(Widget("New").hasFocus());
}

TEST_F(ToolBarTest, ClickTakesTheNewValueBeforeTheEvent) {
    std::vector<int> values;
    bar.ButtonClick = [&](ToolButton& button) { values.push_back(button.Value()); };
    ClickOn(Widget("Pen"));
    ClickOn(Widget("Bold"));
    ClickOn(Widget("Bold"));
    ClickOn(Widget("New"));
    EXPECT_EQ(values, (std::vector<int>{1, 1, 0, 0}));
}

TEST_F(ToolBarTest, ClickOnAPressedGroupButtonKeepsItPressedAndCounts) {
    ClickOn(Widget("Pen"));
    ClickOn(Widget("Pen"));
    EXPECT_TRUE(Widget("Pen").isChecked());
    EXPECT_EQ(bar.Buttons("Pen").Value(), 1);
    EXPECT_EQ(clicked, (std::vector<std::string>{"Pen", "Pen"}));
}

TEST_F(ToolBarTest, DisabledButtonTakesNoClick) {
    bar.Buttons("New").Enabled(false);
    ClickOn(Widget("New"));
    EXPECT_TRUE(clicked.empty());
    bar.Buttons("New").Enabled(true);
    ClickOn(Widget("New"));
    EXPECT_EQ(clicked.size(), 1U);
}

TEST_F(ToolBarTest, MissingPictureShowsCaptionOrKey) {
    EXPECT_EQ(Widget("Eraser").text(), "Borracha");
    EXPECT_EQ(Widget("Mag").text(), "Mag");
}

TEST_F(ToolBarTest, EveryButtonHasAnAccessibleName) {
    EXPECT_EQ(Widget("Pen").accessibleName(), "Desenha uma linha");
    EXPECT_EQ(Widget("Eraser").accessibleName(), "Borracha") << "what it does; the tip describes it";
    EXPECT_EQ(Widget("Mag").accessibleName(), "Mag");
}

TEST_F(ToolBarTest, NarrowBarWraps) {
    EXPECT_EQ(Widget("New").y(), Widget("Bold").y());
    bar.Width(120 * 15);
    EXPECT_GT(Widget("Bold").y(), Widget("New").y());
    for (QToolButton* button : WidgetOf(bar)->findChildren<QToolButton*>())
        EXPECT_LE(button->geometry().right(), 120);
}

TEST_F(ToolBarTest, OneTabStopAndArrowsInside) {
    ASSERT_TRUE(WaitFor([&] { return WidgetOf(window)->isActiveWindow(); }));
    bar.Buttons("New").Enabled(false);
    EXPECT_EQ(Widget("Open").focusPolicy(), Qt::TabFocus);
    EXPECT_EQ(Widget("Pen").focusPolicy(), Qt::NoFocus);
    Widget("Open").setFocus(Qt::TabFocusReason);
    Key(Widget("Open"), Qt::Key_Right);
    EXPECT_TRUE(Widget("Pen").hasFocus());
    EXPECT_EQ(Widget("Open").focusPolicy(), Qt::NoFocus);
    Key(Widget("Pen"), Qt::Key_Return, "\r");
    EXPECT_EQ(clicked, std::vector<std::string>{"Pen"});
    Key(Widget("Pen"), Qt::Key_End);
    EXPECT_TRUE(Widget("Bold").hasFocus());
    Key(Widget("Bold"), Qt::Key_Right);
    EXPECT_TRUE(Widget("Open").hasFocus());
}

TEST_F(ToolBarTest, MouseClickLeavesTheFocusWhereItIs) {
    ASSERT_TRUE(WaitFor([&] { return WidgetOf(window)->isActiveWindow(); }));
    QWidget elsewhere(WidgetOf(window));
    elsewhere.show();
    elsewhere.setFocus();
    ClickOn(Widget("Open"));
    EXPECT_TRUE(elsewhere.hasFocus());
}

TEST_F(ToolBarTest, ImageSizeSetsThePictures) {
    EXPECT_EQ(Widget("New").iconSize(), QSize(24, 24));
    bar.ImageSize(16);
    EXPECT_EQ(Widget("New").iconSize(), QSize(16, 16));
}

} // namespace

} // namespace pintalux
