#include "imageops/ToneFilterCases.h"

#include <algorithm>
#include <cstdlib>

namespace pintalux {
namespace {

using NeighbourhoodTest = FilterTest;

// Sharpen.

TEST_F(NeighbourhoodTest, Sharpen_TurnsWhiteInto240_0_240) {
    const Bitmap result = ResultOf(SharpenFilter, Flat(4, 4, kWhite), 1);
    EXPECT_EQ(PixelAt(result, 2, 2), RGB(240, 0, 240));
    EXPECT_EQ(PixelAt(ResultOf(SharpenFilter, Flat(4, 4, kWhite), 10), 3, 3), RGB(240, 0, 240));
}

TEST_F(NeighbourhoodTest, Sharpen_LeavesFirstRowAndColumn) {
    const Bitmap result = ResultOf(SharpenFilter, Flat(4, 3, kWhite), 5);
    for (int x = 0; x < 4; ++x)
        EXPECT_EQ(PixelAt(result, x, 0), kWhite);
    for (int y = 0; y < 3; ++y)
        EXPECT_EQ(PixelAt(result, 0, y), kWhite);
    EXPECT_EQ(PixelAt(result, 1, 1), RGB(240, 0, 240));
    EXPECT_EQ(PixelAt(result, 3, 2), RGB(240, 0, 240));
}

TEST_F(NeighbourhoodTest, Sharpen_LeavesEqualNeighboursUpTo128) {
    const Bitmap picture = Flat(4, 4, RGB(128, 100, 127));
    ExpectSamePixels(ResultOf(SharpenFilter, picture, 1), picture);
}

TEST_F(NeighbourhoodTest, Sharpen_KeepsTheLiftOfTheSplitInFlatAreas) {
    EXPECT_EQ(PixelAt(ResultOf(SharpenFilter, Flat(3, 3, RGB(129, 50, 10)), 1), 1, 1), RGB(129, 51, 10));
    // A red of exactly 128 lifts an odd green only.
    EXPECT_EQ(PixelAt(ResultOf(SharpenFilter, Flat(3, 3, RGB(128, 50, 10)), 1), 1, 1), RGB(128, 50, 10));
    EXPECT_EQ(PixelAt(ResultOf(SharpenFilter, Flat(3, 3, RGB(128, 51, 10)), 1), 1, 1), RGB(128, 52, 10));
    // A green of exactly 128 over a red of 0 lifts an odd blue only; with any red it lifts each blue.
    EXPECT_EQ(PixelAt(ResultOf(SharpenFilter, Flat(3, 3, RGB(0, 128, 10)), 1), 1, 1), RGB(0, 128, 10));
    EXPECT_EQ(PixelAt(ResultOf(SharpenFilter, Flat(3, 3, RGB(0, 128, 11)), 1), 1, 1), RGB(0, 128, 12));
    EXPECT_EQ(PixelAt(ResultOf(SharpenFilter, Flat(3, 3, RGB(1, 128, 10)), 1), 1, 1), RGB(1, 128, 11));
    // Green wraps.
    EXPECT_EQ(PixelAt(ResultOf(SharpenFilter, Flat(3, 3, RGB(130, 255, 10)), 1), 1, 1), RGB(130, 0, 11));
}

TEST_F(NeighbourhoodTest, Sharpen_ValueOf201Becomes240AndOf200Stays) {
    // The split is 200, 201, 201.
    EXPECT_EQ(PixelAt(ResultOf(SharpenFilter, Flat(3, 3, GreyOf(200)), 1), 1, 1), RGB(200, 240, 240));
}

/// Black but for two greys on the diagonal, at 0, 0 and 1, 1.
Bitmap OnDiagonal(int first, int second) {
    Bitmap picture = Flat(3, 3, kBlack);
    picture.Set(0, 0, PixelOf(GreyOf(first)));
    picture.Set(1, 1, PixelOf(GreyOf(second)));
    return picture;
}

TEST_F(NeighbourhoodTest, Sharpen_AddsHalfTheLevelTimesTheDifference) {
    EXPECT_EQ(PixelAt(ResultOf(SharpenFilter, OnDiagonal(90, 100), 1), 1, 1), GreyOf(105));
    EXPECT_EQ(PixelAt(ResultOf(SharpenFilter, OnDiagonal(90, 100), 10), 1, 1), GreyOf(150));
    EXPECT_EQ(PixelAt(ResultOf(SharpenFilter, OnDiagonal(100, 90), 2), 1, 1), GreyOf(80));
}

TEST_F(NeighbourhoodTest, Sharpen_RoundsHalfToEven) {
    EXPECT_EQ(PixelAt(ResultOf(SharpenFilter, OnDiagonal(95, 100), 1), 1, 1), GreyOf(102)); // 102.5
    EXPECT_EQ(PixelAt(ResultOf(SharpenFilter, OnDiagonal(96, 101), 1), 1, 1), GreyOf(104)); // 103.5
    EXPECT_EQ(PixelAt(ResultOf(SharpenFilter, OnDiagonal(100, 95), 1), 1, 1), GreyOf(92));  // 92.5
    EXPECT_EQ(PixelAt(ResultOf(SharpenFilter, OnDiagonal(102, 99), 3), 1, 1), GreyOf(94));  // 94.5
}

TEST_F(NeighbourhoodTest, Sharpen_CutsAtBlackAndLeapsTo240) {
    EXPECT_EQ(PixelAt(ResultOf(SharpenFilter, OnDiagonal(100, 10), 10), 1, 1), kBlack);
    EXPECT_EQ(PixelAt(ResultOf(SharpenFilter, OnDiagonal(60, 100), 5), 1, 1), GreyOf(200));
    EXPECT_EQ(PixelAt(ResultOf(SharpenFilter, OnDiagonal(59, 100), 5), 1, 1), GreyOf(240)); // 202.5
}

TEST_F(NeighbourhoodTest, Sharpen_ReadsNoChangedNeighbour) {
    // 10, 20, 30 on the diagonal at level 2: 20 + 10 and 30 + 10, not 30 + 0.
    Bitmap picture = OnDiagonal(10, 20);
    picture.Set(2, 2, PixelOf(GreyOf(30)));
    const Bitmap result = ResultOf(SharpenFilter, picture, 2);
    EXPECT_EQ(PixelAt(result, 1, 1), GreyOf(30));
    EXPECT_EQ(PixelAt(result, 2, 2), GreyOf(40));
}

// Soften.

TEST_F(NeighbourhoodTest, Soften_TurnsWhiteInto230_0_230) {
    const Bitmap result = ResultOf(SoftenFilter, Flat(5, 5, kWhite), 1);
    EXPECT_EQ(PixelAt(result, 2, 2), RGB(230, 0, 230));
    EXPECT_EQ(PixelAt(result, 0, 2), kWhite);
    EXPECT_EQ(PixelAt(result, 2, 0), kWhite);
}

TEST_F(NeighbourhoodTest, Soften_SumsBlackBeyondTheRightAndBottomEdge) {
    const Bitmap result = ResultOf(SoftenFilter, Flat(5, 5, kWhite), 1);
    EXPECT_EQ(PixelAt(result, 4, 2), RGB(153, 0, 154)); // 1530 and 1536
    EXPECT_EQ(PixelAt(result, 2, 4), RGB(153, 0, 154));
    EXPECT_EQ(PixelAt(result, 4, 4), RGB(102, 0, 102)); // 1020 and 1024
}

TEST_F(NeighbourhoodTest, Soften_DarkensAFlatAreaByATenth) {
    EXPECT_EQ(PixelAt(ResultOf(SoftenFilter, Flat(8, 8, GreyOf(100)), 2), 3, 3), GreyOf(90));
}

TEST_F(NeighbourhoodTest, Soften_RoundsHalfToEven) {
    Bitmap picture = Flat(3, 3, RGB(136, 0, 0));
    picture.Set(0, 0, PixelOf(RGB(137, 0, 0)));
    // Each red lifts its green by one, so that the green's sum is 9.
    EXPECT_EQ(PixelAt(ResultOf(SoftenFilter, picture, 1), 1, 1), RGB(122, 1, 0)); // 1225
    picture = Flat(3, 3, RGB(137, 0, 0));
    picture.Set(0, 0, PixelOf(RGB(138, 0, 0)));
    picture.Set(2, 1, PixelOf(RGB(138, 0, 0)));
    EXPECT_EQ(PixelAt(ResultOf(SoftenFilter, picture, 1), 1, 1), RGB(124, 1, 0)); // 1235
}

TEST_F(NeighbourhoodTest, Soften_StrideShrinksAtTheTopLeftAndTheLoopStopsShortAtTheBottomRight) {
    // One bright pixel tells who reads it: at level 3 in 9 by 9, columns and rows 1 to 6 are written.
    Bitmap picture = Flat(9, 9, kBlack);
    picture.Set(4, 4, PixelOf(GreyOf(100)));
    const Bitmap result = ResultOf(SoftenFilter, picture, 3);
    for (int y = 0; y < 9; ++y) {
        for (int x = 0; x < 9; ++x) {
            const int d = std::min({3, x, y});
            const bool written = x >= 1 && x <= 6 && y >= 1 && y <= 6;
            const bool reads = (std::abs(x - 4) == d || x == 4) && (std::abs(y - 4) == d || y == 4);
            const Colour expected = written && reads ? GreyOf(10) : kBlack;
            EXPECT_EQ(PixelAt(result, x, y), expected) << x << ", " << y;
        }
    }
    EXPECT_EQ(PixelAt(result, 2, 2), GreyOf(10)); // stride 2
    EXPECT_EQ(PixelAt(result, 1, 1), kBlack);     // stride 1 does not reach
    EXPECT_EQ(PixelAt(result, 4, 4), GreyOf(10));
}

TEST_F(NeighbourhoodTest, Soften_LeavesTheLastColumnsAndRows) {
    const Bitmap result = ResultOf(SoftenFilter, Flat(7, 7, GreyOf(100)), 3);
    EXPECT_EQ(PixelAt(result, 3, 3), GreyOf(90));
    EXPECT_EQ(PixelAt(result, 4, 4), GreyOf(40)); // four of nine lie inside
    EXPECT_EQ(PixelAt(result, 5, 3), GreyOf(100));
    EXPECT_EQ(PixelAt(result, 3, 5), GreyOf(100));
}

TEST_F(NeighbourhoodTest, Soften_LevelAboveTheWidthOnlyLands) {
    const Bitmap picture = StrewnPicture(5, 40, 1);
    live.Picture(Flat(3, 3, kBlack));
    work.Picture(picture);
    SoftenFilter(work, live, Pb, 10);
    ExpectSamePixels(work.Image(), picture);
    ExpectSamePixels(live.Image(), picture);
}

TEST_F(NeighbourhoodTest, Soften_TellsTheBarItsShorterLoop) {
    ResultOf(SoftenFilter, Flat(20, 4, kBlack), 3);
    EXPECT_EQ(Pb.Max(), 36);
    ResultOf(SoftenFilter, Flat(3, 4, kBlack), 10);
    EXPECT_EQ(Pb.Max(), 0); // A negative one is refused.
    EXPECT_EQ(Pb.Value(), 0);
}

// Emboss.

TEST_F(NeighbourhoodTest, Emboss_MakesFlatWhiteTheLevelsGrey) {
    for (const std::int16_t level : {std::int16_t{100}, std::int16_t{120}, std::int16_t{200}})
        EXPECT_EQ(PixelAt(ResultOf(EmbossFilter, Flat(4, 4, kWhite), level), 1, 1), GreyOf(level));
}

TEST_F(NeighbourhoodTest, Emboss_FramesTheRightAndBottomEdge) {
    const Bitmap result = ResultOf(EmbossFilter, Flat(4, 3, kWhite), 120);
    // The neighbour beyond is black, and the split of white is 255, 0, 256.
    for (int y = 0; y < 3; ++y)
        EXPECT_EQ(PixelAt(result, 3, y), RGB(220, 120, 220));
    for (int x = 0; x < 4; ++x)
        EXPECT_EQ(PixelAt(result, x, 2), RGB(220, 120, 220));
    EXPECT_EQ(PixelAt(result, 2, 1), GreyOf(120));
    EXPECT_EQ(PixelAt(ResultOf(EmbossFilter, Flat(2, 2, GreyOf(50)), 100), 1, 1), GreyOf(150));
}

TEST_F(NeighbourhoodTest, Emboss_LaysTheDifferenceOnTheLevel) {
    EXPECT_EQ(PixelAt(ResultOf(EmbossFilter, OnDiagonal(10, 100), 100), 0, 0), GreyOf(10));
    EXPECT_EQ(PixelAt(ResultOf(EmbossFilter, OnDiagonal(10, 120), 100), 0, 0), GreyOf(10)); // -10, reflected
    EXPECT_EQ(PixelAt(ResultOf(EmbossFilter, OnDiagonal(10, 200), 100), 0, 0), RGB(90, 91, 91));
    EXPECT_EQ(PixelAt(ResultOf(EmbossFilter, OnDiagonal(100, 10), 130), 0, 0), GreyOf(220));
    EXPECT_EQ(PixelAt(ResultOf(EmbossFilter, OnDiagonal(100, 10), 131), 0, 0), GreyOf(220)); // 221
}

} // namespace
} // namespace pintalux
