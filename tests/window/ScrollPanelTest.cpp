// A panel of the main window that scrolls where the window is too low for it.
#include "surface/window/ScrollPanel.h"
#include "surface/window/Buttons.h"
#include "surface/window/Control_native.h"
#include "surface/window/Display.h"
#include "surface/window/Inputs.h"
#include "window/WindowTest.h"

#include <QAbstractScrollArea>
#include <QScrollBar>
#include <QWheelEvent>

namespace pintalux {
namespace {

class ScrollPanelTest : public testing::Test {
  protected:
    ScrollPanelTest()
        : window("window"), panel(static_cast<Container&>(window), "panel"), title(panel, "title"),
          first(panel, "first", "first"), last(panel, "last", "last") {
        panel.Width(120 * 15);
        title.Move(0, 0, 120, 22);
        panel.Header(title);
        first.Move(10, 30, 100, 24);
        last.Move(10, 500, 100, 24);
        window.AlignPanel(panel, Align::Right);
    }
    void Show(int height) {
        window.Form::Move(0, 0, 500 * 15, height * 15);
        window.Show();
        LetEventsRun();
    }
    static QScrollBar* Bar() { return FindWidget("panel")->findChild<QScrollBar*>(); }
    /// Where a control lies on the panel as it is seen.
    static QRect Seen(const std::string& name) {
        QWidget* widget = FindWidget(name);
        return {widget->mapTo(FindWidget("panel"), QPoint(0, 0)), widget->size()};
    }
    MDIForm window;
    ScrollPanel panel;
    Surface title;
    CommandButton first, last;
};

TEST_F(ScrollPanelTest, AHighWindowShowsAllWithoutABar) {
    Show(700);
    EXPECT_FALSE(Bar()->isVisible());
    EXPECT_EQ(FindWidget("panel")->width(), 120);
    EXPECT_EQ(Seen("last"), QRect(10, 500, 100, 24));
}

TEST_F(ScrollPanelTest, ALowWindowScrollsToTheLastControlAndKeepsTheTitle) {
    Show(300);
    ASSERT_TRUE(Bar()->isVisible());
    EXPECT_EQ(FindWidget("panel")->width(), 120 + Bar()->width()); // no room of the controls
    EXPECT_EQ(panel.Width(), 120 * 15);
    EXPECT_EQ(Seen("first").top(), 30);
    Bar()->setValue(Bar()->maximum());
    LetEventsRun();
    EXPECT_EQ(Seen("last").bottom(), FindWidget("panel")->height() - 1);
    EXPECT_EQ(Seen("title"), QRect(0, 0, 120, 22));
    EXPECT_EQ(last.Top(), 500); // for the program nothing has moved
}

TEST_F(ScrollPanelTest, ABarThatIsNotNeededAnyMoreGoesAndAllIsBack) {
    Show(300);
    Bar()->setValue(Bar()->maximum());
    last.Top(100);
    LetEventsRun();
    EXPECT_FALSE(Bar()->isVisible());
    EXPECT_EQ(Seen("first").top(), 30);
    EXPECT_EQ(FindWidget("panel")->width(), 120);
}

TEST_F(ScrollPanelTest, TheWheelScrolls) {
    Show(300);
    QWidget* over = FindWidget("first");
    QWheelEvent event(QPointF(5, 5), over->mapToGlobal(QPointF(5, 5)), QPoint(), QPoint(0, -120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(over, &event);
    EXPECT_EQ(Seen("first").top(), 30 - 60);
}

TEST_F(ScrollPanelTest, InputsThatTheWheelTurnsKeepItForThemselves) {
    ListBox list(panel, "list");
    ComboBox combo(panel, "combo", {});
    Slider slider(panel, "slider", 0, 100);
    ScrollBar bar(panel, "bar", ScrollBar::Direction::Vertical);
    CheckBox check(panel, "check", "check");
    Label label(panel, "label", "label");
    int top = 60;
    for (Control* control : std::initializer_list<Control*>{&list, &combo, &slider, &bar, &check, &label}) {
        control->Move(10, top, 100, 24);
        top += 30;
    }
    for (int i = 0; i < 30; ++i) {
        list.AddItem("entry");
        combo.AddItem("entry");
    }
    Show(300);
    const auto scrolledOver = [](const std::string& name) {
        Bar()->setValue(30);
        QWidget* over = FindWidget(name);
        if (auto* view = qobject_cast<QAbstractScrollArea*>(over)) over = view->viewport();
        QWheelEvent event(QPointF(5, 5), over->mapToGlobal(QPointF(5, 5)), QPoint(), QPoint(0, -120),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(over, &event);
        return Bar()->value() - 30;
    };
    for (const char* name : {"combo", "slider", "bar"})
        EXPECT_EQ(scrolledOver(name), 0) << name;
    for (const char* name : {"check", "label", "title"})
        EXPECT_EQ(scrolledOver(name), 60) << name;
}

TEST_F(ScrollPanelTest, ItsBarLiesOverWhatScrolls) {
    last.Left(0);
    last.Width(panel.Width());
    Show(300);
    Bar()->setValue(Bar()->maximum());
    const QWidget& frame = *FindWidget("panel");
    const QPoint middle = Bar()->mapTo(&frame, Bar()->rect().center());
    EXPECT_EQ(frame.childAt({middle.x(), FindWidget("last")->mapTo(&frame, QPoint(5, 5)).y()}), Bar());
}

TEST_F(ScrollPanelTest, TheTabKeyReachesWhatHasToBeScrolledTo) {
    Show(300);
    window.FocusAreas({{&panel, nullptr}});
    FindWidget("window")->activateWindow();
    ASSERT_TRUE(WaitFor([] { return FindWidget("window")->isActiveWindow(); }));
    first.SetFocus();
    Key(*FindWidget("first"), Qt::Key_Tab);
    EXPECT_TRUE(FindWidget("last")->hasFocus());
    EXPECT_LE(Seen("last").bottom(), FindWidget("panel")->height() - 1);
    Key(*FindWidget("last"), Qt::Key_Tab);
    EXPECT_TRUE(FindWidget("first")->hasFocus());
    EXPECT_GE(Seen("first").top(), 22);
    // What lost its stop while it had the focus gives it to what stood around it.
    CommandButton gone(panel, "gone", "gone");
    gone.Move(10, 400, 100, 24);
    FindWidget("gone")->setFocus();
    FindWidget("gone")->setFocusPolicy(Qt::ClickFocus);
    Key(*FindWidget("gone"), Qt::Key_Backtab, {}, Qt::ShiftModifier);
    EXPECT_TRUE(first.HasFocus());
    // Outside its panel it cannot be scrolled to.
    last.Left(130);
    Key(*FindWidget("first"), Qt::Key_Tab);
    EXPECT_TRUE(FindWidget("first")->hasFocus());
}

TEST_F(ScrollPanelTest, AControlThatGetsTheFocusComesIntoSight) {
    Show(300);
    FindWidget("window")->activateWindow();
    ASSERT_TRUE(WaitFor([] { return FindWidget("window")->isActiveWindow(); }));
    last.SetFocus();
    LetEventsRun();
    EXPECT_LE(Seen("last").bottom(), FindWidget("panel")->height() - 1);
    first.SetFocus();
    LetEventsRun();
    EXPECT_GE(Seen("first").top(), 22); // not below the title
}

} // namespace
} // namespace pintalux
