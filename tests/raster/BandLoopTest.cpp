#include "surface/raster/BandLoop.h"

#include "surface/raster/Bitmap.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <mutex>
#include <utility>
#include <vector>

namespace pintalux {
namespace {

constexpr int kBand = Bitmap::kTileHeight;

class BandLoop : public testing::TestWithParam<Box> {
  protected:
    /// Notes a part.
    auto Note() {
        return [this](int top, int bottom) {
            const std::lock_guard hold(lock_);
            parts_.emplace_back(top, bottom);
        };
    }
    /// What was noted holds every row of the area once, and parts meet between bands alone.
    void ExpectWholeBandsOnce() {
        std::sort(parts_.begin(), parts_.end());
        int at = GetParam().top;
        for (const auto& [top, bottom] : parts_) {
            EXPECT_EQ(top, at);
            EXPECT_LT(top, bottom);
            EXPECT_TRUE(top == GetParam().top || top % kBand == 0) << top;
            at = bottom;
        }
        EXPECT_EQ(at, GetParam().bottom);
    }

    std::vector<std::pair<int, int>> parts_;

  private:
    std::mutex lock_;
};

TEST_P(BandLoop, HoldsEachRowOnceInWholeBands) {
    ForBands(GetParam(), Note());
    ExpectWholeBandsOnce();
}

TEST_P(BandLoop, InTurnGoesFromTopToBottomAndTellsTheShare) {
    std::vector<double> told;
    ForBandsInTurn(GetParam(), Note(), [&](double share) { told.push_back(share); });
    EXPECT_TRUE(std::is_sorted(parts_.begin(), parts_.end()));
    ExpectWholeBandsOnce();
    EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
    EXPECT_EQ(told.size(), parts_.size());
    EXPECT_EQ(told.back(), 1);
}

INSTANTIATE_TEST_SUITE_P(Each, BandLoop,
                         testing::Values(Box{0, 0, 1, 1}, Box{5, 40, 300, 41}, Box{0, 31, 9, 33},
                                         Box{17, 5, 900, 333}, Box{0, 0, 32000, 200}, Box{0, 63, 6000, 4000},
                                         Box{3, 10, 4, 32000}));

TEST(BandLoopOfNothing, CallsNothing) {
    const auto fail = [](int, int) { ADD_FAILURE(); };
    const auto tell = [](double) { ADD_FAILURE(); };
    ForBands({}, fail, tell);
    ForBands({5, 9, 5, 100}, fail, tell);
    ForBandsInTurn({5, 9, 100, 9}, fail, tell);
}

TEST(BandLoopOfALargeImage, TellsMoreThanOnce) {
    std::vector<double> told;
    ForBandsInTurn(
        {0, 0, 6000, 4000}, [](int, int) {}, [&](double share) { told.push_back(share); });
    EXPECT_GT(told.size(), 10U); // A progress bar moves.
}

} // namespace
} // namespace pintalux
