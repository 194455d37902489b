#include "inputs/ByHand.h"
#include "surface/window/Inputs.h"

#include <memory>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QTransform>
#include <QWheelEvent>
#include <vector>

namespace pintalux {

namespace {

/// An upright bar of 17 by 300 pixels, and what its events saw.
class ScrollBarTest : public testing::Test {
  protected:
    ScrollBarTest() {
        bar.Move(0, 0, 17 * 15, 300 * 15);
        bar.Change = [this] { changes.push_back(bar.Value()); };
        bar.Scroll = [this] { scrolls.push_back(bar.Value()); };
    }
    QScrollBar& Widget() { return ToolkitOf<QScrollBar>(bar); }
    QRect Part(QStyle::SubControl part) {
        QStyleOptionSlider option;
        option.initFrom(&Widget());
        option.orientation = Qt::Vertical;
        option.maximum = Widget().maximum();
        option.minimum = Widget().minimum();
        option.pageStep = Widget().pageStep();
        option.sliderPosition = option.sliderValue = Widget().value();
        option.subControls = QStyle::SC_All;
        return Widget().style()->subControlRect(QStyle::CC_ScrollBar, &option, part, &Widget());
    }
    void Wheel(int delta) {
        QWheelEvent event(QPointF(5, 5), Widget().mapToGlobal(QPointF(5, 5)), {}, {0, delta}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&Widget(), &event);
    }

    TestWindow window;
    ScrollBar bar{window, "VSred", ScrollBar::Direction::Vertical};
    std::vector<int> changes;
    std::vector<int> scrolls;
};

TEST_F(ScrollBarTest, StartsAt0Of32767) {
    EXPECT_EQ(bar.Min(), 0);
    EXPECT_EQ(bar.Max(), 32767);
    EXPECT_EQ(bar.Value(), 0);
}

TEST_F(ScrollBarTest, AssignmentRunsChangeNestedAndSeesTheNewValue) {
    bar.Value(7);
    EXPECT_EQ(changes, std::vector<int>{7});
    EXPECT_EQ(Widget().value(), 7);
    EXPECT_TRUE(scrolls.empty());
}

TEST_F(ScrollBarTest, SameValueRunsNoChange) {
    bar.Value(7);
    bar.Value(7);
    EXPECT_EQ(changes.size(), 1U);
}

TEST_F(ScrollBarTest, ValueRoundsHalfToEven) {
    bar.Value(2.5);
    EXPECT_EQ(bar.Value(), 2);
    bar.Value(3.5);
    EXPECT_EQ(bar.Value(), 4);
}

TEST_F(ScrollBarTest, OutOfRangeIsError380AndChangesNothing) {
    bar.Max(255);
    bar.Value(9);
    EXPECT_EQ(ErrorOf([&] { bar.Value(-1); }), 380);
    EXPECT_EQ(ErrorOf([&] { bar.Value(256); }), 380);
    EXPECT_EQ(bar.Value(), 9);
    EXPECT_EQ(changes.size(), 1U);
}

TEST_F(ScrollBarTest, Beyond16BitsIsError6) {
    EXPECT_EQ(ErrorOf([&] { bar.Value(32768); }), 6);
    EXPECT_EQ(ErrorOf([&] { bar.Max(40000); }), 6);
    EXPECT_EQ(bar.Max(), 32767);
}

TEST_F(ScrollBarTest, ErrorOfChangePassesToTheAssignment) {
    bar.Change = [] { throw RuntimeError(kDeviceError); };
    EXPECT_EQ(ErrorOf([&] { bar.Value(5); }), kDeviceError);
    EXPECT_EQ(bar.Value(), 5);
}

TEST_F(ScrollBarTest, ChangeMayAssignTheValueAgain) {
    bar.Change = [this] {
        changes.push_back(bar.Value());
        if (bar.Value() < 3) bar.Value(bar.Value() + 1);
    };
    bar.Value(1);
    EXPECT_EQ(changes, (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(Widget().value(), 3);
}

TEST_F(ScrollBarTest, ShrinkingTheRangeMovesTheValueAndRunsChange) {
    bar.Value(200);
    bar.Max(100);
    EXPECT_EQ(bar.Value(), 100);
    EXPECT_EQ(changes, (std::vector<int>{200, 100}));
}

TEST_F(ScrollBarTest, LargeChange0IsKeptAndActsAs1) {
    bar.LargeChange(0);
    EXPECT_EQ(bar.LargeChange(), 0);
    Widget().triggerAction(QAbstractSlider::SliderPageStepAdd);
    EXPECT_EQ(bar.Value(), 1);
}

TEST_F(ScrollBarTest, NegativeLargeChangeIsError380) {
    EXPECT_EQ(ErrorOf([&] { bar.LargeChange(-1); }), 380);
    EXPECT_EQ(bar.LargeChange(), 1);
}

TEST_F(ScrollBarTest, ArrowByHandRunsChangeOnce) {
    bar.Max(255);
    bar.Value(255);
    changes.clear();
    ClickAt(Widget(), Part(QStyle::SC_ScrollBarSubLine).center());
    EXPECT_EQ(changes, std::vector<int>{254});
    EXPECT_TRUE(scrolls.empty());
}

TEST_F(ScrollBarTest, DraggingRunsScrollAndTheReleaseRunsChange) {
    bar.Max(100);
    const QPoint thumb = Part(QStyle::SC_ScrollBarSlider).center();
    Mouse(Widget(), QEvent::MouseButtonPress, thumb);
    Mouse(Widget(), QEvent::MouseMove, thumb + QPoint(0, 60));
    ASSERT_FALSE(scrolls.empty());
    EXPECT_TRUE(changes.empty());
    EXPECT_EQ(scrolls.back(), bar.Value());
    Mouse(Widget(), QEvent::MouseButtonRelease, thumb + QPoint(0, 60));
    EXPECT_EQ(changes, std::vector<int>{bar.Value()});
}

TEST_F(ScrollBarTest, WheelUpLowersTheValue) {
    bar.Max(100);
    bar.LargeChange(10);
    bar.Value(50);
    Wheel(120);
    EXPECT_LT(bar.Value(), 50);
    EXPECT_EQ(changes.size(), 2U);
}

TEST_F(ScrollBarTest, ArrowAndPageKeysMoveIt) {
    bar.Max(100);
    bar.LargeChange(10);
    bar.Value(50);
    Key(Widget(), Qt::Key_Up);
    EXPECT_EQ(bar.Value(), 49);
    Key(Widget(), Qt::Key_PageDown);
    EXPECT_EQ(bar.Value(), 59);
}

TEST_F(ScrollBarTest, ShortBarIsTwoArrows) {
    bar.Move(0, 0, 17 * 15, 22 * 15);
    bar.Max(255);
    bar.Value(255);
    changes.clear();
    ClickAt(Widget(), {8, 4});
    EXPECT_EQ(changes, std::vector<int>{254});
    ClickAt(Widget(), {8, 17});
    EXPECT_EQ(changes, (std::vector<int>{254, 255}));
}

/// A bar beside a text box is two arrows, which meet in its middle: what it shows and does along its length,
/// on its own colours, standing or lying.
class ShortBarTest : public ScrollBarTest {
  protected:
    void Make(bool upright, int length) {
        turned = std::make_unique<ScrollBar>(
            window, "turned", upright ? ScrollBar::Direction::Vertical : ScrollBar::Direction::Horizontal);
        turned->Max(100);
        turned->Value(50);
        turned->Move(0, 0, (upright ? 17 : length) * 15, (upright ? length : 17) * 15);
        QPalette colours;
        colours.setColor(QPalette::Button, Qt::white);
        colours.setColor(QPalette::Midlight, Qt::green);
        colours.setColor(QPalette::Dark, Qt::blue);
        colours.setColor(QPalette::ButtonText, Qt::black);
        WidgetOf(*turned)->setPalette(colours);
    }
    /// As upright, one pixel for one of the program's.
    QImage Shown(bool upright) {
        const QImage image = WidgetOf(*turned)->grab().toImage().scaled(WidgetOf(*turned)->size());
        return upright ? image : image.transformed(QTransform(0, 1, 1, 0, 0, 0));
    }
    std::unique_ptr<ScrollBar> turned;
};

TEST_F(ShortBarTest, TheHalfThatIsPressedIsTheOneThatActs) {
    for (const bool upright : {true, false}) {
        for (const int length : {22, 25, 26}) {
            Make(upright, length);
            for (int at = 0; at < length; ++at) {
                SCOPED_TRACE(testing::Message() << upright << " " << length << " " << at);
                const QPoint place = upright ? QPoint(8, at) : QPoint(at, 8);
                const int before = turned->Value();
                const auto pressed = [&](int y) { return Shown(upright).pixelColor(2, y) == Qt::green; };
                Mouse(*WidgetOf(*turned), QEvent::MouseButtonPress, place);
                const bool first = turned->Value() < before;
                EXPECT_NE(turned->Value(), before);
                EXPECT_EQ(first, at < length / 2);
                EXPECT_EQ(pressed(3), first);
                EXPECT_EQ(pressed(length - 4), !first);
                Mouse(*WidgetOf(*turned), QEvent::MouseButtonRelease, place);
                EXPECT_FALSE(pressed(3));
                EXPECT_FALSE(pressed(length - 4));
            }
            Mouse(*WidgetOf(*turned), QEvent::MouseButtonPress, {8, 8}, Qt::RightButton);
            EXPECT_NE(Shown(upright).pixelColor(2, 3), Qt::green) << "the menu's button presses nothing";
            Mouse(*WidgetOf(*turned), QEvent::MouseButtonRelease, {8, 8}, Qt::RightButton);
        }
    }
}

TEST_F(ShortBarTest, EachArrowStandsInTheMiddleOfItsFramedHalf) {
    for (const bool upright : {true, false}) {
        SCOPED_TRACE(upright);
        constexpr int kLength = 26;
        Make(upright, kLength);
        const QImage shown = Shown(upright);
        for (const QRect half : {QRect(0, 0, 17, 13), QRect(0, 13, 17, 13)}) {
            QRect arrow;
            for (int y = half.top(); y <= half.bottom(); ++y) {
                for (int x = half.left(); x <= half.right(); ++x) {
                    const QColor colour = shown.pixelColor(x, y);
                    const bool edge = !half.adjusted(1, 1, -1, -1).contains(x, y);
                    ASSERT_EQ(colour == Qt::blue, edge) << x << ", " << y;
                    if (!edge && qGray(colour.rgb()) < 160) arrow |= QRect(x, y, 1, 1);
                }
            }
            EXPECT_FALSE(arrow.isEmpty());
            EXPECT_LE(arrow.width(), 9) << "a mark, not a sign that fills the half";
            EXPECT_TRUE(half.adjusted(3, 2, -3, -2).contains(arrow)) << arrow.x() << " " << arrow.width();
            EXPECT_LE(std::abs(arrow.left() + arrow.right() - half.left() - half.right()), 2);
            EXPECT_LE(std::abs(arrow.top() + arrow.bottom() - half.top() - half.bottom()), 2);
        }
    }
}

TEST_F(ScrollBarTest, ShortBarPaintsAnArrowInEachHalf) {
    bar.Move(0, 0, 17 * 15, 22 * 15);
    const QImage image = Widget().grab().toImage();
    const auto darkest = [&](int from, int to) {
        int level = 255;
        for (int y = from; y < to; ++y)
            for (int x = 3; x < 14; ++x)
                level = std::min(level, qGray(image.pixel(x, y)));
        return level;
    };
    EXPECT_LT(darkest(2, 9), 120);
    EXPECT_LT(darkest(13, 20), 120);
}

TEST_F(ScrollBarTest, AFrameShowsThatItHasTheFocus) {
    ASSERT_TRUE(WaitFor([&] { return WidgetOf(window)->isActiveWindow(); }));
    TextBox other(window, "other");
    other.SetFocus();
    const QColor colour = QApplication::palette().color(QPalette::Highlight);
    for (const int height : {300, 22}) {
        bar.Height(height * 15);
        other.SetFocus();
        EXPECT_FALSE(Framed(Widget().grab().toImage(), colour)) << height;
        bar.SetFocus();
        EXPECT_TRUE(Framed(Widget().grab().toImage(), colour)) << height;
    }
}

TEST_F(ScrollBarTest, MinAboveMaxTurnsItRound) {
    bar.Max(-5);
    EXPECT_EQ(bar.Value(), 0);
    bar.Value(-3);
    EXPECT_EQ(bar.Value(), -3);
    EXPECT_EQ(ErrorOf([&] { bar.Value(1); }), 380);
}

} // namespace

} // namespace pintalux
