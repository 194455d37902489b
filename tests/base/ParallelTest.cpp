#include "base/Parallel.h"

#include "base/RuntimeError.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <thread>
#include <vector>

namespace pintalux {
namespace {

TEST(SplitOverCores, CoversEachNumberOnce) {
    for (const int count : {0, 1, 2, 3, 7, 64, 1001}) {
        std::vector<std::atomic<int>> times(static_cast<std::size_t>(count));
        SplitOverCores(count, [&](int begin, int end) {
            for (int i = begin; i < end; ++i)
                ++times[static_cast<std::size_t>(i)];
        });
        EXPECT_TRUE(std::all_of(times.begin(), times.end(), [](const auto& time) { return time == 1; }))
            << count;
    }
}

TEST(SplitOverCores, RaisesAnErrorAfterEveryPartEnded) {
    std::atomic<int> ended = 0;
    const auto work = [&](int begin, int) {
        ++ended;
        if (begin == 0) throw RuntimeError(kOverflow);
    };
    EXPECT_THROW(SplitOverCores(1000, work), RuntimeError);
    EXPECT_EQ(ended, std::min(1000, CoreCount()));
    // The next work is not touched by it.
    EXPECT_NO_THROW(SplitOverCores(1000, [](int, int) {}));
}

TEST(SplitOverCores, WorkInsideWorkRunsOnItsOwnThread) {
    std::atomic<int> sum = 0;
    SplitOverCores(8, [&](int begin, int end) {
        SplitOverCores(end - begin, [&](int from, int to) { sum += to - from; });
    });
    EXPECT_EQ(sum, 8);
}

struct Shares : testing::Test {
    std::vector<std::atomic<int>> times;
    std::vector<int> told;

    void Share(int count, int size) {
        times = std::vector<std::atomic<int>>(static_cast<std::size_t>(count));
        told.clear();
        ShareOverCores(
            count, size,
            [&](int begin, int end) {
                EXPECT_LE(end - begin, size);
                EXPECT_EQ(begin % size, 0);
                for (int i = begin; i < end; ++i)
                    ++times[static_cast<std::size_t>(i)];
            },
            [&](int done) { told.push_back(done); });
    }
};

TEST_F(Shares, CoverEachNumberOnceInPartsOfOneSize) {
    for (const int count : {0, 1, 2, 7, 64, 1001}) {
        for (const int size : {1, 3, 64, 5000}) {
            Share(count, size);
            EXPECT_TRUE(std::all_of(times.begin(), times.end(), [](const auto& time) { return time == 1; }))
                << count << " by " << size;
        }
    }
}

TEST_F(Shares, AreToldAsTheyGrowOnTheCallingThread) {
    const auto here = std::this_thread::get_id();
    ShareOverCores(
        40, 1, [](int, int) { std::this_thread::sleep_for(std::chrono::milliseconds(1)); },
        [&](int done) {
            EXPECT_EQ(std::this_thread::get_id(), here);
            told.push_back(done);
        });
    ASSERT_FALSE(told.empty());
    EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
    EXPECT_GE(told.front(), 1);
    EXPECT_LE(told.back(), 40);
}

TEST_F(Shares, OfOnePartAreToldOnce) {
    Share(7, 64);
    EXPECT_EQ(told, std::vector<int>{7});
}

TEST_F(Shares, RaiseAnErrorOfWorkAndOfTellingOnceAllHasEnded) {
    std::atomic<int> ended = 0;
    const auto here = std::this_thread::get_id();
    std::atomic<bool> telling = false;
    // The other cores could be done with all of it before this one has begun.
    const auto count = [&](int, int) {
        ++ended;
        while (!telling && std::this_thread::get_id() != here)
            std::this_thread::sleep_for(std::chrono::microseconds(50));
    };
    const auto tell = [&](int) {
        telling = true;
        throw RuntimeError(kOverflow);
    };
    const auto fail = [&](int begin, int) {
        ++ended;
        if (begin == 30) throw RuntimeError(kOutOfMemory);
    };
    EXPECT_THROW(ShareOverCores(100, 10, fail, [](int) {}), RuntimeError);
    EXPECT_EQ(ended, 10);
    EXPECT_THROW(ShareOverCores(1000, 1, count, tell), RuntimeError);
    EXPECT_EQ(ended, 1010);
}

TEST_F(Shares, InsideWorkAreDoneByItsOwnThreadInTurn) {
    SplitOverCores(1, [&](int, int) { Share(10, 4); });
    SplitOverCores(CoreCount(), [&](int begin, int) {
        std::vector<int> own;
        ShareOverCores(
            10, 4, [&](int from, int) { own.push_back(from); }, [&](int done) { own.push_back(done); });
        EXPECT_EQ(own, (std::vector<int>{0, 4, 4, 8, 8, 10})) << begin;
    });
}

} // namespace
} // namespace pintalux
