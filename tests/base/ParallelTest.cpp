#include "base/Parallel.h"

#include "base/RuntimeError.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
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

} // namespace
} // namespace pintalux
