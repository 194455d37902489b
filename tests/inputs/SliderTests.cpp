#include "inputs/ByHand.h"
#include "support/Waiting.h"
#include "surface/window/Display.h"
#include "surface/window/Inputs.h"

#include <QHelpEvent>
#include <QLabel>
#include <QPaintEvent>
#include <QProgressBar>
#include <QSlider>
#include <QTabWidget>
#include <QTimer>
#include <QToolTip>
#include <vector>

namespace pintalux {

namespace {

TEST(Slider, StartsAtItsLowEnd) {
    TestWindow window;
    const Slider slider(window, "Slider1", 10, 90);
    EXPECT_EQ(slider.Value(), 10);
    EXPECT_EQ(ToolkitOf<QSlider>(slider).value(), 10);
}

TEST(Slider, AssignmentRunsChangeOnlyWhenItChanges) {
    TestWindow window;
    Slider slider(window, "Slider1", 10, 90);
    std::vector<int> seen;
    slider.Change = [&] { seen.push_back(slider.Value()); };
    slider.Value(49.5);
    slider.Value(50);
    EXPECT_EQ(seen, std::vector<int>{50});
    EXPECT_EQ(ErrorOf([&] { slider.Value(91); }), 380);
    EXPECT_EQ(ErrorOf([&] { slider.Value(9); }), 380);
    EXPECT_EQ(slider.Value(), 50);
}

/// A slider that shows its value in a label.
class LabelledSliderTest : public testing::Test {
  protected:
    LabelledSliderTest() {
        label.Move(10, 10, 1800, 300);
        slider.ShowValueIn(label);
    }
    const QLabel& Beside() { return *ToolkitOf<QLabel>(label).findChild<QLabel*>(); }

    TestWindow window;
    Label label{window, "Label1", "RAIO"};
    Slider slider{window, "Slider1", 1, 100};
};

TEST_F(LabelledSliderTest, ItsValueStandsAtTheRightEndOfTheLabel) {
    const QLabel& beside = Beside();
    EXPECT_EQ(beside.text(), "1");
    slider.Value(42);
    EXPECT_EQ(beside.text(), "42");
    ToolkitOf<QSlider>(slider).setValue(100);
    EXPECT_EQ(beside.text(), "100");
    EXPECT_EQ(label.Caption(), "RAIO");
    EXPECT_FALSE(beside.isEnabled()) << "dimmed beside the caption";
    label.Width(3000);
    EXPECT_EQ(beside.geometry().right(), ToolkitOf<QLabel>(label).rect().right());
    EXPECT_EQ(beside.width(), beside.sizeHint().width()) << "the caption keeps its room";
}

TEST_F(LabelledSliderTest, ThePointerOverTheValueIsOverTheLabel) {
    EXPECT_EQ(WidgetOf(window)->childAt(Beside().mapTo(WidgetOf(window), Beside().rect().center())),
              WidgetOf(label));
}

TEST(Slider, NewRangeTakesTheValueWithIt) {
    TestWindow window;
    Slider slider(window, "Slider1", 1, 10);
    std::vector<int> seen;
    slider.Change = [&] { seen.push_back(slider.Value()); };
    slider.Max(100);
    slider.Min(10);
    EXPECT_EQ(slider.Value(), 10);
    slider.Min(200);
    EXPECT_EQ(slider.Max(), 200);
    EXPECT_EQ(seen, (std::vector<int>{10, 200}));
}

TEST(Slider, KeysMoveItBySmallAndLargeChange) {
    TestWindow window;
    Slider slider(window, "Slider1", 10, 90);
    slider.LargeChange(5);
    Key(*WidgetOf(slider), Qt::Key_Right);
    EXPECT_EQ(slider.Value(), 11);
    Key(*WidgetOf(slider), Qt::Key_PageUp);
    EXPECT_EQ(slider.Value(), 16);
    EXPECT_EQ(ErrorOf([&] { slider.LargeChange(0); }), 380);
}

TEST(Slider, ItsValueShowsInABubbleWhileAHandMovesIt) {
    TestWindow window;
    Slider slider(window, "Slider1", 10, 90);
    slider.Move(0, 0, 3000, 600);
    slider.Value(40);
    EXPECT_FALSE(QToolTip::isVisible()); // by code
    Key(*WidgetOf(slider), Qt::Key_Right);
    EXPECT_TRUE(QToolTip::isVisible());
    EXPECT_EQ(QToolTip::text(), "41");
    QToolTip::hideText();
}

TEST(Slider, ItsBubbleStaysNeitherBehindKeysNorBehindTheSlider) {
    TestWindow window;
    Slider slider(window, "Slider1", 10, 90);
    slider.Move(0, 0, 3000, 600);
    Key(*WidgetOf(slider), Qt::Key_Right);
    ASSERT_TRUE(QToolTip::isVisible());
    EXPECT_TRUE(WaitFor([] { return !QToolTip::isVisible(); }));
    ToolkitOf<QSlider>(slider).setSliderDown(true);
    ASSERT_TRUE(QToolTip::isVisible());
    slider.Visible(false);
    EXPECT_TRUE(WaitFor([] { return !QToolTip::isVisible(); }));
}

TEST(Slider, ASliderWithoutATipTellsItsValue) {
    TestWindow window;
    Slider slider(window, "Slider1", 10, 90);
    slider.Move(0, 0, 3000, 600);
    slider.Value(40);
    QHelpEvent asked(QEvent::ToolTip, QPoint(5, 5), WidgetOf(slider)->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(WidgetOf(slider), &asked);
    EXPECT_EQ(QToolTip::text(), "40");
    QToolTip::hideText();
}

TEST(Slider, ItsTipEndsWithItsValue) {
    TestWindow window;
    Slider slider(window, "Slider1", 10, 90);
    slider.Move(0, 0, 3000, 600);
    slider.ToolTipText("RAIO");
    WidgetOf(slider)->parentWidget()->setToolTip("what lies around it");
    slider.Value(40);
    QHelpEvent asked(QEvent::ToolTip, QPoint(5, 5), WidgetOf(slider)->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(WidgetOf(slider), &asked);
    EXPECT_EQ(QToolTip::text(), "RAIO: 40");
    EXPECT_EQ(slider.ToolTipText(), "RAIO");
    QToolTip::hideText();
}

TEST(Slider, DraggingRunsScrollAndTheReleaseRunsChange) {
    TestWindow window;
    Slider slider(window, "Slider1", 0, 100);
    int scrolls = 0;
    int changes = 0;
    slider.Scroll = [&] { ++scrolls; };
    slider.Change = [&] { ++changes; };
    auto& widget = ToolkitOf<QSlider>(slider);
    widget.setSliderDown(true);
    widget.setSliderPosition(30);
    EXPECT_EQ(slider.Value(), 30);
    EXPECT_EQ(scrolls, 1);
    EXPECT_EQ(changes, 0);
    widget.setSliderDown(false);
    EXPECT_EQ(changes, 1);
}

/// Counts how often a widget paints.
class PaintCounter final : public QObject {
  public:
    explicit PaintCounter(QWidget& widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    int count = 0;
};

class ProgressTest : public testing::Test {
  protected:
    ProgressTest() {
        bar.Move(0, 0, 6000, 300);
        QApplication::processEvents();
    }
    TestWindow window;
    ProgressBar bar{window, "Pb"};
};

TEST_F(ProgressTest, RefusesValuesOutside0ToMax) {
    bar.Max(10);
    bar.Value(10);
    EXPECT_EQ(ErrorOf([&] { bar.Value(10.5); }), 380);
    EXPECT_EQ(ErrorOf([&] { bar.Value(-1); }), 380);
    EXPECT_EQ(ErrorOf([&] { bar.Max(-1); }), 380);
    EXPECT_EQ(bar.Value(), 10);
    EXPECT_EQ(bar.Max(), 10);
}

TEST_F(ProgressTest, MaxOf0IsLegalAndHolds0) {
    bar.Max(0);
    bar.Value(0);
    EXPECT_EQ(ErrorOf([&] { bar.Value(1); }), 380);
}

TEST_F(ProgressTest, ShowsItsShareOfWhateverMaxIs) {
    const auto share = [this] {
        const auto& shown = ToolkitOf<QProgressBar>(bar);
        return static_cast<double>(shown.value()) / shown.maximum();
    };
    const auto shows = [&](double wanted) { return WaitFor([&] { return share() == wanted; }); };
    bar.Max(10);
    bar.Value(10);
    EXPECT_EQ(share(), 1);
    bar.Max(40);
    EXPECT_TRUE(shows(0.25));
    bar.Value(20);
    EXPECT_TRUE(shows(0.5));
    bar.Max(20);
    EXPECT_TRUE(shows(1));
    bar.Max(5);
    EXPECT_EQ(bar.Value(), 5);
    EXPECT_TRUE(shows(1));
    bar.Max(0);
    EXPECT_TRUE(shows(0));
}

TEST_F(ProgressTest, PaintsAtOnceWithoutTheEventLoop) {
    PaintCounter painted(*WidgetOf(bar));
    bar.Value(50);
    EXPECT_GE(painted.count, 1);
}

TEST_F(ProgressTest, ManyStepsPaintSeldomAndTheLastOneShows) {
    bar.Max(100000);
    bar.Value(1);
    PaintCounter painted(*WidgetOf(bar));
    for (int i = 2; i < 100000; ++i)
        bar.Value(i);
    EXPECT_LE(painted.count, 20);
    bar.Value(100000);
    EXPECT_EQ(ToolkitOf<QProgressBar>(bar).value(), ToolkitOf<QProgressBar>(bar).maximum());
    bar.Value(0);
    EXPECT_EQ(ToolkitOf<QProgressBar>(bar).value(), 0);
}

TEST_F(ProgressTest, AtRestThereIsNoBar) {
    const auto empty = [this] {
        const QImage shown = WidgetOf(bar)->grab().toImage();
        const QColor ground = WidgetOf(bar)->palette().color(QPalette::Window);
        for (int x = 0; x < shown.width(); ++x)
            if (shown.pixelColor(x, shown.height() / 2) != ground) return false;
        return true;
    };
    EXPECT_TRUE(empty());
    bar.Max(10);
    bar.Value(5);
    EXPECT_FALSE(empty());
    bar.Value(0);
    EXPECT_TRUE(empty());
}

TEST_F(ProgressTest, LetsNoEventRun) {
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ++ticks; });
    timer.start(0);
    for (int i = 1; i <= 100; ++i)
        bar.Value(i);
    EXPECT_EQ(ticks, 0);
}

TEST(SSTab, ControlsStandOnTheirPages) {
    TestWindow window;
    SSTab tabs(window, "SSTab1", {"Geral", "Memória", "JPEG"});
    tabs.Move(0, 0, 6000, 4500);
    CheckBox check(tabs.Page(1), "Check5", "");
    check.Move(150, 150, 1500, 300);
    EXPECT_FALSE(WidgetOf(check)->isVisible());
    tabs.Tab(1);
    EXPECT_TRUE(WidgetOf(check)->isVisible());
    EXPECT_EQ(WidgetOf(check)->pos(), QPoint(10, 10));
    EXPECT_EQ(tabs.Page(0).UnitsPerPixel(), 15);
    EXPECT_EQ(ErrorOf([&] { tabs.Page(3); }), 9);
    EXPECT_EQ(ErrorOf([&] { tabs.Tab(3); }), 380);
}

TEST(SSTab, ChangingThePageRunsClick) {
    TestWindow window;
    SSTab tabs(window, "SSTab1", {"Geral", "Memória"});
    std::vector<int> seen;
    tabs.Click = [&] { seen.push_back(tabs.Tab()); };
    tabs.Tab(1);
    tabs.Tab(1);
    ToolkitOf<QTabWidget>(tabs).setCurrentIndex(0);
    EXPECT_EQ(seen, (std::vector<int>{1, 0}));
}

} // namespace

} // namespace pintalux
