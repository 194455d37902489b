#include "inputs/ByHand.h"
#include "surface/window/SpinnerPair.h"

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenu>

namespace pintalux {

namespace {

/// A box and its inverted bar, 0 to 500.
class SpinnerPairTest : public testing::Test {
  protected:
    SpinnerPairTest() {
        bar.Max(500);
        BindSpinner(text, bar);
    }
    QLineEdit& Line() { return ToolkitOf<QLineEdit>(text); }
    void PasteByMenu(const char* pasted) {
        QApplication::clipboard()->setText(pasted);
        QContextMenuEvent event(QContextMenuEvent::Mouse, {5, 5}, Line().mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(&Line(), &event);
        auto* menu = Line().findChild<QMenu*>();
        for (QAction* action : menu->actions())
            if (action->text().startsWith("C&olar")) action->trigger();
        delete menu;
        QApplication::sendPostedEvents(&Line(), QEvent::MetaCall); // the paste itself
    }

    TestWindow window;
    TextBox text{window, "txtPXw"};
    ScrollBar bar{window, "VSPXw", ScrollBar::Direction::Vertical};
};

TEST_F(SpinnerPairTest, BarWritesTheInvertedNumber) {
    bar.Value(377);
    EXPECT_EQ(text.Text(), "123");
}

TEST_F(SpinnerPairTest, DigitsTypedMoveTheBar) {
    Type(Line(), "42");
    EXPECT_EQ(bar.Value(), 500 - 42);
}

TEST_F(SpinnerPairTest, NumberAboveTheRangeIsCutBeforeItsKeyIsReleased) {
    Type(Line(), "99");
    PressKey(Line(), Qt::Key_9, "9");
    EXPECT_EQ(text.Text(), "500");
    ReleaseKey(Line(), Qt::Key_9, "9");
    EXPECT_EQ(bar.Value(), 0);
    text.Text("123456789012345678901234567890");
    EXPECT_EQ(text.Text(), "500");
}

TEST_F(SpinnerPairTest, PastedByTheMenuCountsAsTyped) {
    PasteByMenu("7x7");
    EXPECT_EQ(text.Text(), "77");
    EXPECT_EQ(bar.Value(), 500 - 77);
    Line().selectAll();
    PasteByMenu("99999999999999999999");
    EXPECT_EQ(text.Text(), "500");
    EXPECT_EQ(bar.Value(), 0);
}

} // namespace

} // namespace pintalux
