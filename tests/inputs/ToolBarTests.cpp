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

TEST_F(ToolBarTest, OneOfAGroupIsPressedWhereverItBeginsAndEnds) {
    const char* const keys[] = {"A", "B", "C", "D"};
    std::vector<ToolBar::Row> rows;
    for (const char* key : keys)
        rows.push_back({key, nullptr, nullptr, ButtonStyle::ButtonGroup});
    ToolBar group(window, "TB3", rows);
    group.Move(0, 1500, 590 * 15, 100 * 15);
    const auto button = [&group](const char* key) {
        return WidgetOf(group)->findChild<QToolButton*>(QString("TB3_") + key);
    };
    for (const char* first : keys) {
        for (const char* second : keys) {
            for (const bool byHand : {false, true}) {
                SCOPED_TRACE(std::string(first) + second + (byHand ? " by hand" : ""));
                group.Buttons(first).Value(1);
                if (byHand) ClickOn(*button(second));
                group.Buttons(second).Value(1);
                for (const char* key : keys) {
                    EXPECT_EQ(group.Buttons(key).Value(), key == second ? 1 : 0) << key;
                    EXPECT_EQ(button(key)->isChecked(), key == second) << key;
                }
            }
        }
    }
}

TEST_F(ToolBarTest, CodePressesAndReleasesOnlyWhatStaysPressed) {
    for (const int index : {1, 2, 3, 7}) {
        SCOPED_TRACE(index);
        bar.Buttons(index).Value(1);
        EXPECT_EQ(bar.Buttons(index).Value(), 0);
        EXPECT_EQ(ErrorOf([&] { bar.Buttons(index).Value(-1); }), 380);
    }
    for (const char* key : {"Pen", "Bold"}) {
        bar.Buttons(key).Value(1);
        EXPECT_EQ(bar.Buttons(key).Value(), 1) << key;
        EXPECT_TRUE(Widget(key).isChecked()) << key;
        bar.Buttons(key).Value(0);
        EXPECT_EQ(bar.Buttons(key).Value(), 0) << key;
        EXPECT_FALSE(Widget(key).isChecked()) << key;
    }
    bar.Buttons("Other").Value(1);
    bar.Buttons("Bold").Value(1); // beside it, and of no group
    EXPECT_EQ(bar.Buttons("Other").Value(), 1);
    EXPECT_TRUE(clicked.empty());
}

TEST_F(ToolBarTest, ArrowsWalkRoundAndPassWhatIsOff) {
    ASSERT_TRUE(WaitFor([&] { return WidgetOf(window)->isActiveWindow(); }));
    bar.Buttons("Eraser").Enabled(false);
    bar.Buttons("Bold").Enabled(false);
    const std::vector<std::string> stops = {"New", "Open", "Pen", "Mag", "Other"};
    struct Way {
        int key, step;
    };
    for (const Way way : {Way{Qt::Key_Right, 1}, {Qt::Key_Down, 1}, {Qt::Key_Left, 4}, {Qt::Key_Up, 4}}) {
        for (std::size_t i = 0; i < stops.size(); ++i) {
            const char* from = stops[i].c_str();
            const char* to = stops[(i + static_cast<std::size_t>(way.step)) % stops.size()].c_str();
            Widget(from).setFocus(Qt::TabFocusReason);
            Key(Widget(from), way.key);
            EXPECT_TRUE(Widget(to).hasFocus()) << from << " to " << to;
            for (const std::string& each : stops)
                EXPECT_EQ(Widget(each.c_str()).focusPolicy() == Qt::TabFocus, each == to) << each;
        }
    }
    Key(Widget("Open"), Qt::Key_Home);
    EXPECT_TRUE(Widget("New").hasFocus());
    Key(Widget("New"), Qt::Key_End);
    EXPECT_TRUE(Widget("Other").hasFocus());
    Key(Widget("Other"), Qt::Key_Enter, "\r");
    EXPECT_EQ(clicked, std::vector<std::string>{"Other"});
    bar.Buttons("Other").Enabled(false);
    EXPECT_EQ(Widget("New").focusPolicy(), Qt::TabFocus) << "the bar keeps a stop";
}

TEST_F(ToolBarTest, ItsHeightFitsItsRowsAndSeparatorsAreLines) {
    double before = 0;
    for (const int width : {590, 120, 60, 30}) {
        SCOPED_TRACE(width);
        bar.Width(width * 15);
        int bottom = 0;
        int right = 0;
        for (const QToolButton* button : WidgetOf(bar)->findChildren<QToolButton*>()) {
            bottom = std::max(bottom, button->geometry().bottom() + 1);
            right = std::max(right, button->geometry().right() + 1);
            for (const QToolButton* other : WidgetOf(bar)->findChildren<QToolButton*>())
                EXPECT_TRUE(other == button || !other->geometry().intersects(button->geometry()));
        }
        EXPECT_EQ(bar.HeightFor(width * 15), bottom * 15);
        EXPECT_GE(bar.HeightFor(width * 15), before);
        before = bar.HeightFor(width * 15);
        if (width > 100) {
            EXPECT_LE(right, width);
        }
    }
    bar.Width(590 * 15);
    const QImage shown = WidgetOf(bar)->grab().toImage().scaled(WidgetOf(bar)->size());
    const QColor line = WidgetOf(bar)->palette().color(QPalette::Mid);
    const QRect left = Widget("Open").geometry();
    const QRect next = Widget("Pen").geometry();
    EXPECT_GT(next.left(), left.right() + 3);
    int lines = 0;
    for (int x = left.right() + 1; x < next.left(); ++x)
        lines += shown.pixelColor(x, left.center().y()) == line;
    EXPECT_EQ(lines, 1);
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
