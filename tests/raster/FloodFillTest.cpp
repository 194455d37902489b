#include "surface/raster/FloodFill.h"

#include "base/RuntimeError.h"
#include "support/Errors.h"
#include "support/Pictures.h"

namespace pintalux {

namespace {

struct Pot {
    explicit Pot(Bitmap start)
        : bits(std::move(start)), hdc(bits, attributes, [this](const Box& box) {
              touched = box;
              ++touches;
          }) {
        attributes.FillStyle = kFillSolid;
        attributes.FillColor = 0x0000FF;
    }

    bool Fill(int x, int y, Colour colour = kWhite) {
        return ExtFloodFill(hdc, x, y, colour, FLOODFILLSURFACE);
    }

    Bitmap bits;
    DrawAttributes attributes;
    Box touched;
    int touches = 0;
    DeviceContext hdc;
};

// The slow twin: one pixel after the other from a list.
Box SlowFill(Bitmap& bits, int x, int y, Pixel colour, int kind, Pixel fill) {
    Box reached{x, y, x + 1, y + 1};
    std::vector<std::pair<int, int>> open{{x, y}};
    while (!open.empty()) {
        const auto [px, py] = open.back();
        open.pop_back();
        if (!bits.Holds(px, py) || bits.At(px, py) == fill) continue;
        if ((bits.At(px, py) == colour) != (kind == FLOODFILLSURFACE)) continue;
        bits.Set(px, py, fill);
        reached = {std::min(reached.left, px), std::min(reached.top, py), std::max(reached.right, px + 1),
                   std::max(reached.bottom, py + 1)};
        open.insert(open.end(), {{px + 1, py}, {px - 1, py}, {px, py + 1}, {px, py - 1}});
    }
    return reached;
}

// A white picture with every `one` of a hundred pixels black.
Bitmap Speckled(int width, int height, unsigned seed, unsigned percent) {
    std::mt19937 random(seed);
    Bitmap bits(width, height, kWhite);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            if (random() % 100 < percent) bits.Set(x, y, 0);
        }
    }
    return bits;
}

void ExpectLikeTheSlowTwin(const Bitmap& start, int x, int y, Pixel colour, int kind) {
    Pot pot(start);
    Bitmap expected = start;
    const Box reached = SlowFill(expected, x, y, colour, kind, 0x0000FF);
    EXPECT_TRUE(ExtFloodFill(pot.hdc, x, y, static_cast<Colour>(colour), kind));
    ExpectSamePixels(pot.bits, expected);
    EXPECT_EQ(pot.touched, reached);
    EXPECT_EQ(pot.touches, 1);
}

void ExpectLikeTheSlowTwin(const Bitmap& start, int x, int y) {
    ExpectLikeTheSlowTwin(start, x, y, start.At(x, y), FLOODFILLSURFACE);
}

// Corridors one pixel wide, joined at their ends in turn.
Bitmap Serpentine(int width, int height, bool upright) {
    Bitmap bits(width, height, kWhite);
    const int lanes = upright ? width : height;
    for (int lane = 1; lane < lanes; lane += 2) {
        const int gap = lane % 4 == 1 ? (upright ? height : width) - 1 : 0;
        for (int i = 0; i < (upright ? height : width); ++i) {
            if (i != gap) upright ? bits.Set(lane, i, 0) : bits.Set(i, lane, 0);
        }
    }
    return bits;
}

// Corridors one pixel wide that branch, turn and end: from each odd place a way leads left or up, or both.
Bitmap Maze(int width, int height, unsigned seed) {
    std::mt19937 random(seed);
    Bitmap bits(width, height, 0);
    for (int y = 1; y < height; y += 2) {
        for (int x = 1; x < width; x += 2) {
            bits.Set(x, y, kWhite);
            const auto way = static_cast<unsigned>(random() % 5);
            if (way != 0 && way != 1) bits.Set(x - 1, y, kWhite);
            if (way != 2 && way != 3) bits.Set(x, y - 1, kWhite);
        }
    }
    return bits;
}

} // namespace

TEST(ExtFloodFill, MatchesTheSlowTwinAroundTileBorders) {
    constexpr int kWide = Bitmap::kTileWidth;
    constexpr int kHigh = Bitmap::kTileHeight;
    unsigned seed = 1;
    for (const int width : {1, 31, 32, 33, kWide - 1, kWide, kWide + 1, 2 * kWide, 2 * kWide + 33}) {
        for (const int height : {1, kHigh - 1, kHigh, kHigh + 1, 3 * kHigh + 5}) {
            SCOPED_TRACE(testing::Message() << width << " x " << height << ", seed " << seed);
            std::mt19937 random(seed);
            // Strips along either way and squares: lanes of both kinds, and tiles of one colour.
            constexpr Pixel kColours[]{kWhite, kWhite, 0x00FF00, 0};
            Bitmap start(width, height, kWhite);
            const auto any = [&](int count) {
                return static_cast<int>(random() % static_cast<unsigned>(count));
            };
            for (int i = 0; i < width * height / 12; ++i) {
                const int x = any(width);
                const int y = any(height);
                const bool upright = any(width) < x;
                const int length = any(9);
                start.Fill(upright ? Box{x, y, x + 1, y + length} : Box{x, y, x + length, y + 1},
                           kColours[any(4)]);
            }
            const int x = any(width);
            const int y = any(height);
            start.Set(x, y, kWhite);
            ExpectLikeTheSlowTwin(start, x, y, kWhite, FLOODFILLSURFACE);
            ExpectLikeTheSlowTwin(start, x, y, 0, FLOODFILLBORDER);
            ExpectLikeTheSlowTwin(start, x, y, 0x00FF00, FLOODFILLBORDER);
            ++seed;
        }
    }
}

TEST(ExtFloodFill, MatchesTheSlowTwinWhereLanesOfBothKindsMeet) {
    // Flat corridors and upright ones by turns, tile by tile, open to each other at their ends.
    Bitmap start(4 * Bitmap::kTileWidth + 7, 4 * Bitmap::kTileHeight + 3, kWhite);
    for (int y = 0; y < start.Height(); ++y) {
        for (int x = 0; x < start.Width(); ++x) {
            const bool upright = (x / Bitmap::kTileWidth + y / Bitmap::kTileHeight) % 2 == 0;
            if ((upright ? x : y) % 2 == 1) start.Set(x, y, 0);
        }
    }
    ExpectLikeTheSlowTwin(start, 0, 0);
    ExpectLikeTheSlowTwin(start, start.Width() - 1, 0);
    ExpectLikeTheSlowTwin(start, 0, start.Height() - 1);
    ExpectLikeTheSlowTwin(start, 1, 0); // In a wall.
}

TEST(ExtFloodFill, MatchesTheSlowTwinOnStairs) {
    for (const bool falling : {false, true}) {
        Bitmap start(600, 130, 0);
        for (int y = 0; y < 130; ++y) {
            for (int x = 0; x < 600; ++x) {
                if ((falling ? x - y + 130 : x + y) % 4 < 2) start.Set(x, y, kWhite);
            }
        }
        ExpectLikeTheSlowTwin(start, 300, falling ? 64 : 65);
        start.Fill({0, 0, 600, 1}, kWhite); // All hang together at the top.
        ExpectLikeTheSlowTwin(start, 0, 0);
    }
}

TEST(ExtFloodFill, MatchesTheSlowTwinInPicturesOfManyTiles) {
    ExpectLikeTheSlowTwin(Speckled(1500, 500, 1, 2), 750, 250);
    ExpectLikeTheSlowTwin(Serpentine(1500, 500, true), 0, 0);
}

TEST(ExtFloodFill, AHugeBlankImageIsSharedNotWritten) {
    Pot pot(Bitmap(32000, 32000, kWhite));
    const Bitmap before = pot.bits;
    EXPECT_TRUE(pot.Fill(31999, 0));
    EXPECT_EQ(pot.touched, (Box{0, 0, 32000, 32000}));
    EXPECT_EQ(pot.bits, Bitmap(32000, 32000, 0x0000FF));
    EXPECT_EQ(pot.bits.Run(0, 0).data(), pot.bits.Run(31744, 31968).data());
    EXPECT_EQ(before.At(16000, 16000), static_cast<Pixel>(kWhite));
}

TEST(ExtFloodFill, DoesNotGoRoundFromOneEndOfTheTilesToTheOther) {
    // Bands of whole tiles, white all over or with a speck each, and a wall between two of them.
    for (const bool specks : {false, true}) {
        Bitmap start(2 * Bitmap::kTileWidth, 5 * Bitmap::kTileHeight, kWhite);
        for (int y = 0; specks && y < start.Height(); y += Bitmap::kTileHeight) {
            start.Set(9, y + 3, 0);
            start.Set(Bitmap::kTileWidth + 9, y + 3, 0);
        }
        const int wall = 2 * Bitmap::kTileHeight;
        start.Fill({0, wall, start.Width(), wall + Bitmap::kTileHeight}, 0);
        ExpectLikeTheSlowTwin(start, 1, 1);
        ExpectLikeTheSlowTwin(start, 1, start.Height() - 1);
    }
    // The same where the wall is a line at the border of two bands.
    Bitmap start(2 * Bitmap::kTileWidth, 2 * Bitmap::kTileHeight, kWhite);
    start.Fill({0, Bitmap::kTileHeight, start.Width(), Bitmap::kTileHeight + 1}, 0);
    start.Set(0, Bitmap::kTileHeight, kWhite);
    start.Fill({1, 5, 2, Bitmap::kTileHeight}, 0);
    start.Fill({0, 5, 2, 6}, 0);
    ExpectLikeTheSlowTwin(start, start.Width() - 1, 1);
    ExpectLikeTheSlowTwin(start, start.Width() - 1, Bitmap::kTileHeight + 1);
}

TEST(ExtFloodFill, LeavesTilesItOnlyComesByShared) {
    // Beside the filled tile the next one begins with a wall.
    Bitmap start(2 * Bitmap::kTileWidth, 4, kWhite);
    start.Fill({Bitmap::kTileWidth, 0, Bitmap::kTileWidth + 1, 4}, 0);
    start.Set(3, 3, 0);
    Pot pot(start);
    EXPECT_TRUE(pot.Fill(0, 0));
    const std::vector<Box> expected{{0, 0, Bitmap::kTileWidth, 4}};
    EXPECT_EQ(Bitmap::Difference(start, pot.bits), expected);
}

TEST(ExtFloodFill, MatchesTheSlowTwinInMazes) {
    for (unsigned seed = 1; seed <= 25; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        ExpectLikeTheSlowTwin(Maze(523, 99, seed), 261, 49);
        ExpectLikeTheSlowTwin(Maze(64, 64, seed), 63, 63);
    }
}

TEST(ExtFloodFill, FillsOverFourNeighboursOnly) {
    Pot pot(PictureOf({"...#..", "..#...", "##..#."}));
    EXPECT_TRUE(pot.Fill(0, 0));
    ExpectSamePixels(pot.bits, PictureOf({"rrr#..", "rr#...", "##..#."}));
    EXPECT_EQ(pot.touched, (Box{0, 0, 3, 2}));
    EXPECT_EQ(pot.touches, 1);
}

TEST(ExtFloodFill, WrongStartColourOrOutsideDoesNothing) {
    Pot pot(PictureOf({".#"}));
    EXPECT_FALSE(pot.Fill(1, 0));
    EXPECT_FALSE(pot.Fill(2, 0));
    EXPECT_FALSE(pot.Fill(0, -1));
    EXPECT_FALSE(pot.Fill(0, 0, -1));
    EXPECT_EQ(pot.touches, 0);
}

TEST(ExtFloodFill, SameColourChangesNothingAndSucceeds) {
    Pot pot(PictureOf({"rr"}));
    EXPECT_TRUE(pot.Fill(0, 0, 0x0000FF));
    EXPECT_EQ(pot.touches, 0);
}

TEST(ExtFloodFill, TransparentFillChangesNothingAndSucceeds) {
    Pot pot(PictureOf({".."}));
    pot.attributes.FillStyle = kFillTransparent;
    EXPECT_TRUE(pot.Fill(0, 0));
    ExpectSamePixels(pot.bits, PictureOf({".."}));
    EXPECT_EQ(pot.touches, 0);
}

TEST(ExtFloodFill, UnknownKindIsError5) {
    Pot pot(PictureOf({".."}));
    EXPECT_EQ(ErrorOf([&] { ExtFloodFill(pot.hdc, 0, 0, kWhite, 2); }), kInvalidArgument);
}

TEST(ExtFloodFill, BorderKindFillsWhateverLiesInside) {
    Pot pot(PictureOf({"#####", "#.g.#", "#b#.#", "#####", "....."}));
    EXPECT_TRUE(ExtFloodFill(pot.hdc, 1, 1, kBlack, FLOODFILLBORDER));
    ExpectSamePixels(pot.bits, PictureOf({"#####", "#rrr#", "#r#r#", "#####", "....."}));
    EXPECT_FALSE(ExtFloodFill(pot.hdc, 0, 0, kBlack, FLOODFILLBORDER));
}

TEST(ExtFloodFill, MatchesTheSlowTwinOnSpecks) {
    unsigned seed = 1;
    for (const unsigned percent : {0U, 1U, 5U, 20U, 35U, 38U, 41U, 44U, 50U, 70U}) {
        for (const auto& [width, height] :
             std::vector<std::pair<int, int>>{{1, 1}, {64, 32}, {65, 33}, {256, 32}, {257, 65}, {530, 70}}) {
            SCOPED_TRACE(testing::Message()
                         << percent << " %, " << width << " x " << height << ", seed " << seed);
            ExpectLikeTheSlowTwin(Speckled(width, height, seed, percent), width / 2, height / 2);
            ++seed;
        }
    }
}

TEST(ExtFloodFill, MatchesTheSlowTwinInCorridors) {
    for (const bool upright : {false, true}) {
        const Bitmap start = Serpentine(530, 101, upright);
        ExpectLikeTheSlowTwin(start, 0, 0);
        ExpectLikeTheSlowTwin(start, 528, 100);
        ExpectLikeTheSlowTwin(start, 262, 40);
        ExpectLikeTheSlowTwin(start, 255, 10); // In the wall, where it may not leak out.
    }
}

TEST(ExtFloodFill, MatchesTheSlowTwinInRings) {
    Bitmap start(300, 300, kWhite);
    for (int i = 0; i < 150; i += 2) {
        for (int k = i; k < 300 - i; ++k) {
            start.Set(k, i, 0);
            start.Set(k, 299 - i, 0);
            start.Set(i, k, 0);
            start.Set(299 - i, k, 0);
        }
    }
    ExpectLikeTheSlowTwin(start, 0, 0);
    ExpectLikeTheSlowTwin(start, 1, 1);
    ExpectLikeTheSlowTwin(start, 101, 150);
    start.Set(100, 150, kWhite); // A gap in one ring joins two.
    ExpectLikeTheSlowTwin(start, 101, 150);
}

TEST(ExtFloodFill, AWholeBlankImageIsSharedNotWritten) {
    Pot pot(Bitmap(8000, 8000, kWhite));
    EXPECT_TRUE(pot.Fill(4000, 4000));
    EXPECT_EQ(pot.touched, (Box{0, 0, 8000, 8000}));
    EXPECT_EQ(pot.bits, Bitmap(8000, 8000, 0x0000FF));
}

TEST(ExtFloodFill, WritesOnlyTheTilesItFills) {
    constexpr int kWide = Bitmap::kTileWidth;
    constexpr int kHigh = Bitmap::kTileHeight;
    Bitmap start(4 * kWide, 4 * kHigh, kWhite);
    start.Fill({kWide + 10, kHigh + 2, kWide + 20, kHigh + 6}, 0x00FF00);
    Pot pot(start);
    EXPECT_TRUE(pot.Fill(kWide + 15, kHigh + 3, 0x00FF00));
    const std::vector<Box> expected{{kWide, kHigh, 2 * kWide, 2 * kHigh}};
    EXPECT_EQ(Bitmap::Difference(start, pot.bits), expected);
}

TEST(ExtFloodFill, LeavesASnapshotAlone) {
    Pot pot(PictureOf({"..", ".."}));
    const Bitmap before = pot.bits;
    pot.Fill(0, 0);
    ExpectSamePixels(before, PictureOf({"..", ".."}));
    ExpectSamePixels(pot.bits, PictureOf({"rr", "rr"}));
}

} // namespace pintalux
