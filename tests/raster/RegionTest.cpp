#include "surface/raster/Region.h"

#include "base/RuntimeError.h"
#include "support/Errors.h"

#include <gtest/gtest.h>

#include <array>
#include <random>

namespace pintalux {

namespace {

// The slow twin: a grid of yes and no, 0 to 39 both ways.
struct Grid {
    static constexpr int kSize = 40;
    std::array<std::array<bool, kSize>, kSize> cells{};

    static Grid Rectangle(const Box& box) {
        Grid grid;
        for (int y = 0; y < kSize; ++y) {
            for (int x = 0; x < kSize; ++x) {
                grid.At(x, y) = x >= box.left && x < box.right && y >= box.top && y < box.bottom;
            }
        }
        return grid;
    }

    bool& At(int x, int y) { return cells[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)]; }

    static Grid Combined(Grid a, Grid b, int mode) {
        Grid result;
        for (int y = 0; y < kSize; ++y) {
            for (int x = 0; x < kSize; ++x) {
                const bool p = a.At(x, y);
                const bool q = b.At(x, y);
                const std::array<bool, 6> answers{false, p && q, p || q, p != q, p && !q, p};
                result.At(x, y) = answers.at(static_cast<std::size_t>(mode));
            }
        }
        return result;
    }

    Box Bounds() {
        Box bounds;
        for (int y = 0; y < kSize; ++y) {
            for (int x = 0; x < kSize; ++x) {
                if (!At(x, y)) continue;
                if (bounds.Empty()) bounds = {x, y, x + 1, y + 1};
                bounds = {std::min(bounds.left, x), std::min(bounds.top, y), std::max(bounds.right, x + 1),
                          std::max(bounds.bottom, y + 1)};
            }
        }
        return bounds;
    }

    int Kind() {
        const Box bounds = Bounds();
        if (bounds.Empty()) return NULLREGION;
        return Rectangle(bounds).cells == cells ? SIMPLEREGION : COMPLEXREGION;
    }
};

void ExpectSame(const Region& region, Grid& grid) {
    for (int y = -1; y <= Grid::kSize; ++y) {
        for (int x = -1; x <= Grid::kSize; ++x) {
            const bool inside = x >= 0 && y >= 0 && x < Grid::kSize && y < Grid::kSize;
            ASSERT_EQ(region.Holds(x, y), inside && grid.At(x, y)) << x << ", " << y;
        }
    }
    ASSERT_EQ(region.Bounds(), grid.Bounds());
    ASSERT_EQ(region.Kind(), grid.Kind());
}

// Sorted stripes and runs, none empty, and nothing that could be joined.
void ExpectTidy(const Region& region) {
    for (std::size_t i = 0; i < region.stripes.size(); ++i) {
        const Region::Stripe& stripe = region.stripes[i];
        ASSERT_LT(stripe.top, stripe.bottom);
        ASSERT_FALSE(stripe.runs.empty());
        for (std::size_t k = 0; k < stripe.runs.size(); ++k) {
            ASSERT_LT(stripe.runs[k].left, stripe.runs[k].right);
            if (k == 0) continue;
            ASSERT_LT(stripe.runs[k - 1].right, stripe.runs[k].left);
        }
        if (i == 0) continue;
        const Region::Stripe& above = region.stripes[i - 1];
        ASSERT_LE(above.bottom, stripe.top);
        ASSERT_FALSE(above.bottom == stripe.top && above.runs == stripe.runs);
    }
}

Box RandomBox(std::mt19937& random, bool oneRow) {
    const auto upTo = [&random](unsigned count) { return static_cast<int>(random() % count); };
    Box box{upTo(40), upTo(40), 0, 0};
    box.right = std::min(40, box.left + upTo(20));
    box.bottom = std::min(40, box.top + (oneRow ? 1 : upTo(20)));
    return box;
}

Region RegionOf(const Box& box) {
    return CreateRectRgn(box.left, box.top, box.right, box.bottom);
}

} // namespace

TEST(Region, CornersAreSortedAndEqualOnesGiveNothing) {
    EXPECT_EQ(CreateRectRgn(5, 6, 1, 2).Bounds(), (Box{1, 2, 5, 6}));
    EXPECT_EQ(CreateRectRgn(5, 6, 5, 2).Kind(), NULLREGION);
    EXPECT_EQ(CreateRectRgn(5, 6, 1, 6).Kind(), NULLREGION);
    EXPECT_EQ(CreateRectRgn(0, 0, 1, 1).Kind(), SIMPLEREGION);
}

TEST(Region, LeftAndTopBelongToItRightAndBottomDoNot) {
    const Region region = CreateRectRgn(2, 3, 5, 6);
    EXPECT_TRUE(region.Holds(2, 3));
    EXPECT_TRUE(region.Holds(4, 5));
    EXPECT_FALSE(region.Holds(5, 5));
    EXPECT_FALSE(region.Holds(4, 6));
}

TEST(Region, RandomOperationsMatchTheGrid) {
    for (unsigned seed = 1; seed <= 60; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937 random(seed);
        Region region = CreateRectRgn(0, 0, 40, 40);
        Grid grid = Grid::Rectangle({0, 0, 40, 40});
        Region other;
        Grid otherGrid;
        for (int step = 0; step < 60; ++step) {
            const Box box = RandomBox(random, step % 2 == 0);
            const int mode = step % 3 == 0 ? RGN_DIFF : 1 + static_cast<int>(random() % 5);
            const Region rectangle = RegionOf(box);
            CombineRgn(other, other, rectangle, RGN_XOR);
            otherGrid = Grid::Combined(otherGrid, Grid::Rectangle(box), RGN_XOR);
            const bool complex = random() % 4 == 0;
            const int kind = CombineRgn(region, region, complex ? other : rectangle, mode);
            grid = Grid::Combined(grid, complex ? otherGrid : Grid::Rectangle(box), mode);
            ASSERT_NO_FATAL_FAILURE(ExpectSame(region, grid));
            ASSERT_NO_FATAL_FAILURE(ExpectTidy(region));
            ASSERT_EQ(kind, region.Kind());
        }
    }
}

TEST(Region, ResultMayBeAThirdOne) {
    const Region a = CreateRectRgn(0, 0, 4, 4);
    for (const int mode : {RGN_AND, RGN_OR, RGN_XOR, RGN_DIFF, RGN_COPY}) {
        for (const Box& box : {Box{2, 1, 6, 3}, Box{0, 0, 0, 0}}) {
            SCOPED_TRACE(testing::Message() << mode << " with " << box.right);
            Region result = CreateRectRgn(30, 30, 35, 36);
            CombineRgn(result, a, RegionOf(box), mode);
            Grid grid = Grid::Combined(Grid::Rectangle({0, 0, 4, 4}), Grid::Rectangle(box), mode);
            ExpectSame(result, grid);
        }
    }
}

TEST(Region, ResultMayBeEitherOperand) {
    Region a = CreateRectRgn(0, 0, 4, 4);
    Region b = CreateRectRgn(2, 0, 6, 4);
    EXPECT_EQ(CombineRgn(b, a, b, RGN_DIFF), SIMPLEREGION);
    EXPECT_EQ(b.Bounds(), (Box{0, 0, 2, 4}));
    EXPECT_EQ(CombineRgn(a, a, a, RGN_DIFF), NULLREGION);
}

TEST(Region, UnknownModeIsError5AndChangesNothing) {
    Region a = CreateRectRgn(0, 0, 4, 4);
    for (const int mode : {0, 6}) {
        EXPECT_EQ(ErrorOf([&] { CombineRgn(a, a, a, mode); }), kInvalidArgument);
    }
    EXPECT_EQ(a.Bounds(), (Box{0, 0, 4, 4}));
}

TEST(Region, RowsOutOfAnImageLeaveItsOutline) {
    Region full = CreateRectRgn(0, 0, 6, 4);
    CombineRgn(full, full, CreateRectRgn(0, 1, 2, 2), RGN_DIFF);
    CombineRgn(full, full, CreateRectRgn(4, 1, 6, 2), RGN_DIFF);
    CombineRgn(full, full, CreateRectRgn(0, 2, 2, 3), RGN_DIFF);
    CombineRgn(full, full, CreateRectRgn(4, 2, 6, 3), RGN_DIFF);
    const std::vector<Box> expected{{0, 0, 6, 1}, {2, 1, 4, 3}, {0, 3, 6, 4}};
    EXPECT_EQ(full.Boxes(), expected);
}

TEST(Region, ReachesTheEndsOfTheNumbers) {
    const int low = -2147483647 - 1;
    const int high = 2147483647;
    Region region = CreateRectRgn(low, low, high, high);
    CombineRgn(region, region, CreateRectRgn(0, 0, 1, 1), RGN_XOR);
    EXPECT_EQ(region.Kind(), COMPLEXREGION);
    EXPECT_EQ(region.Bounds(), (Box{low, low, high, high}));
    EXPECT_TRUE(region.Holds(high - 1, 0));
    EXPECT_FALSE(region.Holds(0, 0));
}

TEST(Region, ThousandsOfRowsOfRunsAreTakenOutInTurn) {
    // Each run costs its own row only: two million of them would take hours otherwise.
    constexpr int kRows = 2000;
    constexpr int kRuns = 1000;
    Region full = CreateRectRgn(0, 0, 2 * kRuns, kRows);
    for (int y = 0; y < kRows; ++y) {
        for (int x = y % 2; x < 2 * kRuns; x += 2) {
            CombineRgn(full, full, CreateRectRgn(x, y, x + 1, y + 1), RGN_DIFF);
        }
    }
    EXPECT_EQ(full.stripes.size(), static_cast<std::size_t>(kRows));
    EXPECT_EQ(full.Boxes().size(), static_cast<std::size_t>(kRows) * kRuns);
    EXPECT_TRUE(full.Holds(1, 0));
    EXPECT_FALSE(full.Holds(0, 1998));
}

TEST(DeleteObject, GivesTheMemoryBack) {
    Region region = CreateRectRgn(0, 0, 4, 4);
    DeleteObject(region);
    EXPECT_EQ(region.Kind(), NULLREGION);
    EXPECT_EQ(region.stripes.capacity(), 0U);
}

} // namespace pintalux
