// Long work that the user waits for: what the interface does meanwhile, and what it does not.
#include "surface/window/Waiting.h"

#include "surface/window/Control.h"
#include "surface/window/Events_native.h"
#include "surface/window/Screen.h"
#include "surface/window/Timer.h"
#include "window/WindowTest.h"

#include <atomic>
#include <chrono>
#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QPushButton>
#include <thread>

namespace pintalux {
namespace {

using namespace std::chrono_literals;

/// Work that goes on until it may end or is asked to stop.
class Held {
  public:
    void operator()(const std::stop_token& stop) {
        while (!released_ && !stop.stop_requested())
            std::this_thread::sleep_for(1ms);
        stopped = stop.stop_requested();
    }
    void Release() { released_ = true; }
    std::atomic<bool> stopped = false;

  private:
    std::atomic<bool> released_ = false;
};

/// Waits for held work and does `step` in the midst of the visible wait, then releases the work.
void StepWhileWaiting(Held& held, const std::function<void()>& step) {
    QTimer::singleShot(0, qApp, [&] {
        step();
        // What the step has posted comes first.
        QTimer::singleShot(20, qApp, [&] { held.Release(); });
    });
    WorkWhileWaiting([&](const std::stop_token& stop) { held(stop); });
}

void PressKey(QWidget& widget, Qt::Key key) {
    QCoreApplication::postEvent(&widget, new QKeyEvent(QEvent::ShortcutOverride, key, Qt::NoModifier));
    QCoreApplication::postEvent(&widget, new QKeyEvent(QEvent::KeyPress, key, Qt::NoModifier));
    QCoreApplication::postEvent(&widget, new QKeyEvent(QEvent::KeyRelease, key, Qt::NoModifier));
}

TEST(Waiting, ShortWorkIsDoneBeforeAnythingElseHappens) {
    bool passed = false;
    QTimer::singleShot(0, qApp, [&] { passed = true; });
    std::thread::id there;
    WorkWhileWaiting([&](const std::stop_token&) {
        there = std::this_thread::get_id();
        EXPECT_FALSE(Waiting());
    });
    EXPECT_NE(there, std::this_thread::get_id());
    EXPECT_FALSE(passed);
    EXPECT_EQ(Screen.MousePointer(), kPointerDefault);
    LetEventsRun();
}

TEST(Waiting, AnErrorOfTheWorkIsRaised) {
    EXPECT_EQ(ErrorOf([] {
                  WorkWhileWaiting([](const std::stop_token&) { throw RuntimeError(kInvalidPicture); });
              }),
              481);
    Held held;
    EXPECT_EQ(ErrorOf([&] {
                  QTimer::singleShot(0, qApp, [&] { held.Release(); });
                  WorkWhileWaiting([&](const std::stop_token& stop) {
                      held(stop);
                      throw RuntimeError(kInvalidPicture);
                  });
              }),
              481);
    EXPECT_FALSE(Waiting());
}

TEST(Waiting, LongWorkShowsTheWaitPointerAndThenTheOneBefore) {
    Held held;
    int during = -1;
    StepWhileWaiting(held, [&] {
        during = Screen.MousePointer();
        EXPECT_TRUE(Waiting());
    });
    EXPECT_EQ(during, kPointerHourglass);
    EXPECT_EQ(Screen.MousePointer(), kPointerDefault);
    EXPECT_FALSE(Waiting());
}

TEST(Waiting, EscapeAsksForAStopAndOtherKeysDoNot) {
    QPushButton button;
    button.show();
    Held held;
    StepWhileWaiting(held, [&] { PressKey(button, Qt::Key_Return); });
    EXPECT_FALSE(held.stopped);
    Held stoppable;
    QTimer::singleShot(0, qApp, [&] { PressKey(button, Qt::Key_Escape); });
    WorkWhileWaiting([&](const std::stop_token& stop) { stoppable(stop); });
    EXPECT_TRUE(stoppable.stopped);
}

TEST(Waiting, PressesAndClosesAreDropped) {
    QPushButton button;
    button.show();
    int clicks = 0;
    QObject::connect(&button, &QPushButton::clicked, &button, [&] { ++clicks; });
    Held held;
    StepWhileWaiting(held, [&] {
        for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent event(type, QPointF(3, 3), QPointF(3, 3), Qt::LeftButton, Qt::LeftButton,
                              Qt::NoModifier);
            QCoreApplication::sendEvent(&button, &event);
        }
        PressKey(button, Qt::Key_Space);
        button.close();
    });
    EXPECT_EQ(clicks, 0);
    EXPECT_TRUE(button.isVisible());
    button.click();
    EXPECT_EQ(clicks, 1);
}

/// What the toolkit hears of an event that comes meanwhile.
TEST(Waiting, NobodyElseActsOnAHandAndNothingIsPromised) {
    QWidget window;
    window.setAcceptDrops(true);
    int heard = 0;
    class Listener : public QObject {
      public:
        explicit Listener(int& count) : count_(count) {}
        bool eventFilter(QObject*, QEvent*) override {
            ++count_;
            return true;
        }

      private:
        int& count_;
    } listener(heard);
    window.installEventFilter(&listener);
    const QMimeData files;
    Held held;
    StepWhileWaiting(held, [&] {
        const auto accepted = [&](QEvent&& event) {
            for (const bool before : {false, true}) {
                event.setAccepted(before);
                QCoreApplication::sendEvent(&window, &event);
                if (event.isAccepted() != before) return event.isAccepted();
            }
            ADD_FAILURE() << "left as it was";
            return false;
        };
        heard = 0;
        EXPECT_TRUE(accepted(QKeyEvent(QEvent::ShortcutOverride, Qt::Key_S, Qt::ControlModifier)));
        EXPECT_TRUE(accepted(QContextMenuEvent(QContextMenuEvent::Mouse, {1, 1}, {1, 1})));
        EXPECT_FALSE(accepted(QCloseEvent()));
        EXPECT_FALSE(accepted(QDragEnterEvent({1, 1}, Qt::CopyAction, &files, Qt::LeftButton, {})));
        EXPECT_EQ(heard, 0);
    });
}

TEST(Waiting, WindowsArePainted) {
    struct Painted : QWidget {
        int times = 0;
        void paintEvent(QPaintEvent*) override { ++times; }
    } window;
    window.show();
    LetEventsRun();
    const int before = window.times;
    Held held;
    StepWhileWaiting(held, [&] { window.update(); });
    EXPECT_GT(window.times, before);
}

TEST(Waiting, NoTimerOfTheProgramTicksUntilItIsOver) {
    Timer timer(1);
    int ticks = 0;
    timer.Tick = [&] { ++ticks; };
    timer.Enabled(true);
    Held held;
    StepWhileWaiting(held, [] {});
    EXPECT_EQ(ticks, 0);
    EXPECT_TRUE(WaitFor([&] { return ticks > 0; }));
}

TEST(Waiting, WorkInsideAWaitIsDoneAtOnce) {
    Held held;
    std::thread::id there;
    StepWhileWaiting(
        held, [&] { WorkWhileWaiting([&](const std::stop_token&) { there = std::this_thread::get_id(); }); });
    EXPECT_EQ(there, std::this_thread::get_id());
}

TEST(Waiting, WhatIsLeftForIdleTimeWaitsToo) {
    Held held;
    bool idle = false;
    bool idleDuring = true;
    StepWhileWaiting(held, [&] {
        WhenIdle([&] { idle = true; });
        QTimer::singleShot(10, qApp, [&] { idleDuring = idle; });
    });
    EXPECT_FALSE(idleDuring);
    EXPECT_TRUE(WaitFor([&] { return idle; }));
}

} // namespace
} // namespace pintalux
