#include "inputs/ByHand.h"
#include "support/LineMenu.h"
#include "surface/window/SpinnerPair.h"

#include <QClipboard>
#include <QLineEdit>

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
    void Paste(const char* pasted) {
        QApplication::clipboard()->setText(pasted);
        PasteByMenu(Line());
    }

    TestWindow window;
    TextBox text{window, "txtPXw"};
    ScrollBar bar{window, "VSPXw", ScrollBar::Direction::Vertical};
};

TEST_F(SpinnerPairTest, BarWritesTheInvertedNumber) {
    bar.Value(377);
    EXPECT_EQ(text.Text(), "123");
}

TEST_F(SpinnerPairTest, ArrowKeysInTheBoxStepTheNumberWithinItsRange) {
    bar.Value(500 - 42);
    Key(Line(), Qt::Key_Up);
    EXPECT_EQ(text.Text(), "43");
    Key(Line(), Qt::Key_Down);
    Key(Line(), Qt::Key_Down);
    EXPECT_EQ(text.Text(), "41");
    Key(Line(), Qt::Key_Up, {}, Qt::ShiftModifier);
    EXPECT_EQ(text.Text(), "41");
    bar.Value(0);
    Key(Line(), Qt::Key_Up);
    EXPECT_EQ(text.Text(), "500");
    bar.Value(500);
    Key(Line(), Qt::Key_Down);
    EXPECT_EQ(text.Text(), "0");
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
    Paste("7x7");
    EXPECT_EQ(text.Text(), "77");
    EXPECT_EQ(bar.Value(), 500 - 77);
    Line().selectAll();
    Paste("99999999999999999999");
    EXPECT_EQ(text.Text(), "500");
    EXPECT_EQ(bar.Value(), 0);
}

} // namespace

} // namespace pintalux
