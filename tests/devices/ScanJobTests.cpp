// What the interface waits for, and what it doesn't.
#include "devices/ScanJob.h"
#include "support/Waiting.h"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <thread>

namespace pintalux {
namespace {

TEST(ScanJobTest, IsDoneWhileItsDeviceComesToRestAndTheNextOneWaitsForThat) {
    std::atomic<bool> rests{false};
    const auto first = std::make_shared<ScanJob>();
    first->work = [&rests](ScanJob& job) {
        job.done = true;
        while (!rests)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
    };
    const auto next = std::make_shared<ScanJob>();
    std::atomic<bool> begun{false};
    next->work = [&begun](ScanJob&) { begun = true; };
    Start(first);
    EXPECT_TRUE(WaitFor([&] { return first->done.load(); }));
    Start(next);
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_FALSE(begun);
    rests = true;
    EXPECT_TRUE(WaitFor([&] { return next->done.load(); }));
    EXPECT_TRUE(begun);
    EXPECT_FALSE(first->failure);
}

TEST(ScanJobTest, TellsTheErrorOfItsWorkAndLetsGoOfWhatItHeld) {
    const auto held = std::make_shared<int>(1);
    const auto job = std::make_shared<ScanJob>();
    job->work = [held](ScanJob&) { throw RuntimeError(kDiskFull); };
    Start(job);
    ASSERT_TRUE(WaitFor([&] { return job->done.load(); }));
    ASSERT_TRUE(job->failure);
    EXPECT_EQ(job->failure->Number(), kDiskFull);
    EXPECT_EQ(held.use_count(), 1);
}

} // namespace
} // namespace pintalux
