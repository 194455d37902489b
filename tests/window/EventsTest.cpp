#include "surface/window/Events.h"
#include "surface/window/Timer.h"
#include "window/WindowTest.h"

namespace pintalux {
namespace {

TEST(RunEvent, HandsUntrappedErrorsOver) {
    UntrappedErrors errors;
    RunEvent(EventKind::Ordinary, [] { throw RuntimeError(kOverflow); });
    RunEvent(EventKind::Ordinary, [] { throw std::bad_alloc(); });
    RunEvent(EventKind::Ordinary, [] { throw 7; });
    EXPECT_EQ(errors.numbers, (std::vector<int>{kOverflow, kOutOfMemory, kInternalError}));
}

TEST(RunEvent, NamesTheHandlerThatFailed) {
    const UntrappedErrors errors;
    const auto fail = [](const std::function<void()>& handler) {
        RunEvent(EventKind::Ordinary, handler);
        return FailedHandler();
    };
    const auto first = [] { throw RuntimeError(kOverflow); };
    const auto second = [] { throw RuntimeError(kOverflow); };
    EXPECT_EQ(fail(first), fail(first));
    EXPECT_NE(fail(first), fail(second));
}

TEST(RunEvent, PointerKindDropsOverflowOnly) {
    UntrappedErrors errors;
    RunEvent(EventKind::Pointer, [] { throw RuntimeError(kOverflow); });
    RunEvent(EventKind::Pointer, [] { throw RuntimeError(kSubscriptOutOfRange); });
    EXPECT_EQ(errors.numbers, std::vector<int>{kSubscriptOutOfRange});
}

// Nobody would hear of it otherwise: the program sets a listener before its first window.
TEST(RunEventDeathTest, ErrorWithoutAListenerEndsTheProgramAndSaysWhy) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(RunEvent(EventKind::Ordinary, [] { throw RuntimeError(kFileNotFound, "/x"); }),
                testing::KilledBySignal(SIGABRT), "53: Ficheiro não encontrado: /x");
}

TEST(Timer, TicksWhileEnabled) {
    Timer timer(1);
    int ticks = 0;
    timer.Tick = [&] { ++ticks; };
    EXPECT_FALSE(timer.Enabled());
    timer.Enabled(true);
    EXPECT_TRUE(WaitFor([&] { return ticks >= 3; }));
    timer.Enabled(false);
    const int before = ticks;
    LetEventsRun();
    EXPECT_EQ(ticks, before);
}

TEST(Timer, IntervalOutOfRangeIsRefused) {
    Timer timer(30);
    EXPECT_EQ(ErrorOf([&] { timer.Interval(-1); }), kInvalidPropertyValue);
    EXPECT_EQ(ErrorOf([&] { timer.Interval(65536); }), kInvalidPropertyValue);
    EXPECT_EQ(timer.Interval(), 30);
    timer.Interval(65535);
    EXPECT_EQ(timer.Interval(), 65535);
}

TEST(Timer, IntervalZeroStops) {
    Timer timer(0);
    Timer other(1);
    int ticks = 0;
    int otherTicks = 0;
    timer.Tick = [&] { ++ticks; };
    other.Tick = [&] { ++otherTicks; };
    timer.Enabled(true);
    other.Enabled(true);
    EXPECT_TRUE(WaitFor([&] { return otherTicks >= 3; }));
    EXPECT_EQ(ticks, 0);
    timer.Interval(1);
    EXPECT_TRUE(WaitFor([&] { return ticks >= 1; }));
}

TEST(Timer, OwnTicksDontNestButOthersGoOn) {
    Timer slow(1);
    Timer other(1);
    int depth = 0;
    int deepest = 0;
    int otherTicks = 0;
    other.Tick = [&] { ++otherTicks; };
    slow.Tick = [&] {
        deepest = std::max(deepest, ++depth);
        const int before = otherTicks;
        WaitFor([&] { return otherTicks > before + 2; });
        --depth;
    };
    slow.Enabled(true);
    other.Enabled(true);
    EXPECT_TRUE(WaitFor([&] { return otherTicks > 6; }));
    EXPECT_EQ(deepest, 1);
}

TEST(Timer, DragTimerSurvivesOverflow) {
    UntrappedErrors errors;
    Timer drag(1, EventKind::Pointer);
    int ticks = 0;
    drag.Tick = [&] {
        ++ticks;
        throw RuntimeError(kOverflow);
    };
    drag.Enabled(true);
    EXPECT_TRUE(WaitFor([&] { return ticks >= 2; }));
    EXPECT_TRUE(errors.numbers.empty());
}

} // namespace
} // namespace pintalux
