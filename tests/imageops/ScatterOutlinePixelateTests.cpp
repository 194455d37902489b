#include "imageops/FilterTestSupport.h"

#include <algorithm>

namespace pintalux {
namespace {

/// The model draws from where the program's sequence stands; the routine, which runs after it, moves it on.
void ScatterOnModel(FilterModel& model, int level) {
    RandomNumbers random = TheRandomNumbers;
    model.Scatter(level, random);
}

const FilterCase kScatter{"Scatter", ScatterFilter, ScatterOnModel, {1, 2, 5, 10}};
const FilterCase kOutline{
    "Outline", OutlineFilter, [](FilterModel& m, int level) { m.Outline(level); }, {50, 150, 250}};
const FilterCase kPixelate{
    "Pixelate", PixelateFilter, [](FilterModel& m, int level) { m.Pixelate(level); }, {5, 10, 27, 50}};

using DirectModel = FilterModelTest;

TEST_P(DirectModel, AwkwardPictures) {
    ExpectAsModelEverywhere(GetParam());
}

TEST_P(DirectModel, LiveSurfacesOfAnotherSize) {
    ExpectAsModelOnLiveOfSize(GetParam(), 25, 60);
    ExpectAsModelOnLiveOfSize(GetParam(), 60, 20);
}

TEST_P(DirectModel, WorkSurfaceOfAnotherBackground) {
    work.BackColor(RGB(10, 200, 30));
    live.BackColor(RGB(30, 20, 100));
    Load(StrewnPicture(40, 35, 3));
    ExpectAsModel(GetParam(), GetParam().levels.front());
}

INSTANTIATE_TEST_SUITE_P(Filters, DirectModel, testing::Values(kScatter, kOutline, kPixelate), NameOfCase);

// Scatter. At level 1 a pixel comes from at most one column and row further, so that a flat picture tells
// what becomes of its colour.

class ScatterTest : public FilterTest {
  protected:
    /// What a flat picture of this colour becomes inside.
    Colour Scattered(Colour colour) {
        const Bitmap result = ResultOf(ScatterFilter, Flat(12, 9, colour), 1);
        for (int y = 1; y < 7; ++y) {
            for (int x = 1; x < 10; ++x)
                EXPECT_EQ(result.At(x, y), result.At(1, 1)) << x << ", " << y;
        }
        return PixelAt(result, 1, 1);
    }
};

TEST_F(ScatterTest, BlackStaysBlack) {
    EXPECT_EQ(Scattered(kBlack), kBlack);
}

TEST_F(ScatterTest, WhiteTurnsGrey) {
    EXPECT_EQ(Scattered(kWhite), GreyOf(200));
}

TEST_F(ScatterTest, PureRedTurnsBlue) {
    EXPECT_EQ(Scattered(RGB(255, 0, 0)), RGB(0, 0, 255));
    EXPECT_EQ(Scattered(RGB(9, 0, 0)), RGB(0, 0, 9));
}

TEST_F(ScatterTest, PureGreenTurnsBlue) {
    EXPECT_EQ(Scattered(RGB(0, 255, 0)), RGB(0, 0, 255));
}

TEST_F(ScatterTest, ChannelsShiftWithoutTheLeadingZeros) {
    EXPECT_EQ(Scattered(0x0ABCDE), RGB(0xE, 0xCD, 0xAB)); // ABCDE
    EXPECT_EQ(Scattered(0x00BCDE), RGB(0, 0xDE, 0xBC));   // BCDE
    EXPECT_EQ(Scattered(0x000CDE), RGB(0, 0xE, 0xCD));    // CDE
    EXPECT_EQ(Scattered(0x0FFFFF), RGB(0xF, 0xFF, 0xFF)); // FFFFF: red is 15, no cap
}

TEST_F(ScatterTest, SixDigitsKeepTheirPlaces) {
    EXPECT_EQ(Scattered(0x102030), 0x102030);
    EXPECT_EQ(Scattered(MaskKeyColour), MaskKeyColour);
}

TEST_F(ScatterTest, BrightRedSetsTheOthersTo200Or0) {
    EXPECT_EQ(Scattered(RGB(241, 100, 100)), RGB(200, 0, 0));
    EXPECT_EQ(Scattered(RGB(241, 241, 100)), RGB(200, 200, 0));
    EXPECT_EQ(Scattered(RGB(255, 240, 255)), RGB(200, 0, 200));
    EXPECT_EQ(Scattered(RGB(240, 100, 100)), RGB(240, 100, 100));
}

TEST_F(ScatterTest, BrightGreenOrBlueAloneChangesNothing) {
    EXPECT_EQ(Scattered(RGB(16, 255, 255)), RGB(16, 255, 255));
}

TEST_F(ScatterTest, FirstAndLastTwoRowsAndColumnsStay) {
    const Bitmap result = ResultOf(ScatterFilter, Flat(12, 9, kWhite), 1);
    for (int y = 0; y < 9; ++y) {
        for (int x = 0; x < 12; ++x) {
            const bool inside = x >= 1 && x <= 9 && y >= 1 && y <= 6;
            EXPECT_EQ(PixelAt(result, x, y), inside ? GreyOf(200) : kWhite) << x << ", " << y;
        }
    }
}

TEST_F(ScatterTest, WhatIsFetchedFromOutsideIsGrey) {
    const Bitmap result = ResultOf(ScatterFilter, Flat(40, 40, kBlack), 10);
    int greys = 0;
    for (int y = 0; y < 40; ++y) {
        for (int x = 0; x < 40; ++x) {
            if (PixelAt(result, x, y) == kBlack) continue;
            EXPECT_EQ(PixelAt(result, x, y), GreyOf(200));
            EXPECT_TRUE(x >= 30 || y >= 30) << x << ", " << y;
            ++greys;
        }
    }
    EXPECT_GT(greys, 0);
}

TEST_F(ScatterTest, SmallSurfacesOnlyLandAndDrawNoNumber) {
    for (const PictureSize size :
         {PictureSize{3, 20}, PictureSize{20, 3}, PictureSize{2, 2}, PictureSize{1, 1}}) {
        TheRandomNumbers.Seed(5);
        const Bitmap picture = StrewnPicture(size.width, size.height, 4);
        live.Picture(Flat(5, 5, kBlack));
        work.Picture(picture);
        ScatterFilter(work, live, Pb, 10);
        ExpectSamePixels(work.Image(), picture);
        ExpectSamePixels(live.Image(), picture);
        EXPECT_EQ(Pb.Max(), std::max(0, size.height - 3));
        RandomNumbers untouched(5);
        EXPECT_EQ(TheRandomNumbers.Next(), untouched.Next());
    }
}

TEST_F(ScatterTest, TheSequenceGoesOnOverTheCalls) {
    const Bitmap picture = RandomPicture(40, 30, 11, 0x7F7F7F);
    TheRandomNumbers.Seed(0);
    const Bitmap first = ResultOf(ScatterFilter, picture, 10);
    const Bitmap second = ResultOf(ScatterFilter, picture, 10);
    EXPECT_FALSE(first == second);
    TheRandomNumbers.Seed(0);
    ExpectSamePixels(ResultOf(ScatterFilter, picture, 10), first);
    ExpectSamePixels(ResultOf(ScatterFilter, picture, 10), second);
}

TEST_F(ScatterTest, EachPixelDrawsTwoNumbersMaskedOrNot) {
    for (const bool freehand : {false, true}) {
        FreeSelActive = freehand;
        TheRandomNumbers.Seed(3);
        ResultOf(ScatterFilter, Flat(12, 9, MaskKeyColour), 1);
        RandomNumbers expected = RandomNumbers(3).Ahead(2 * 9 * 6);
        EXPECT_EQ(TheRandomNumbers.Next(), expected.Next());
    }
}

TEST_F(ScatterTest, MaskIsAskedWithColumnAndRowExchanged) {
    FreeSelActive = true;
    // A white picture with the mask colour at column 9, row 3: it protects the white pixel at column 3,
    // row 9.
    Bitmap picture = Flat(10, 14, kWhite);
    picture.Set(9, 3, Pixel{0x8894A0});
    const Bitmap result = ResultOf(ScatterFilter, picture, 1);
    for (int y = 1; y <= 11; ++y) {
        for (int x = 1; x <= 7; ++x) {
            const bool shielded = x == 3 && y == 9;
            EXPECT_EQ(PixelAt(result, x, y), shielded ? kWhite : GreyOf(200)) << x << ", " << y;
        }
    }
}

TEST_F(ScatterTest, TellsTheBarTheRows) {
    ResultOf(ScatterFilter, Flat(20, 10, kBlack), 1);
    EXPECT_EQ(Pb.Max(), 7);
    EXPECT_EQ(Pb.Value(), 0);
}

TEST_F(ScatterTest, SidesWhoseLoopLeaves16BitsOverflow) {
    ExpectOverflow(ScatterFilter, 1, 32771, 4);
    ExpectOverflow(ScatterFilter, 1, 4, 32771);
}

// Outline.

using OutlineTest = FilterTest;

TEST_F(OutlineTest, FlatPictureGivesABlankInTheBackground) {
    ExpectSamePixels(ResultOf(OutlineFilter, Flat(8, 8, RGB(1, 2, 3)), 50), Flat(8, 8, kWhite));
    work.BackColor(RGB(200, 190, 180));
    ExpectSamePixels(ResultOf(OutlineFilter, Flat(8, 8, RGB(1, 2, 3)), 50), Flat(8, 8, RGB(200, 190, 180)));
}

TEST_F(OutlineTest, OnePixelMarksItselfAndWhatLiesBelowAndRight) {
    Bitmap picture = Flat(5, 5, kWhite);
    picture.Set(2, 2, 0);
    ExpectSamePixels(ResultOf(OutlineFilter, picture, 50),
                     PictureOf({".....", ".....", "..##.", "..#..", "....."}));
}

TEST_F(OutlineTest, FirstRowAndColumnStayBlank) {
    Bitmap picture = Flat(4, 4, kWhite);
    picture.Fill({0, 0, 1, 4}, 0);
    picture.Fill({0, 0, 4, 1}, 0);
    ExpectSamePixels(ResultOf(OutlineFilter, picture, 250), PictureOf({"....", ".###", ".#..", ".#.."}));
}

TEST_F(OutlineTest, LimitIsTheLevelsCubeAndMustBePassed) {
    // Whether the outline sees the step from black to `colour`.
    const auto seen = [&](Colour colour, std::int16_t level) {
        Bitmap picture = Flat(3, 3, kBlack);
        picture.Set(1, 1, PixelOf(colour));
        return PixelAt(ResultOf(OutlineFilter, picture, level), 1, 1) == kBlack;
    };
    EXPECT_TRUE(seen(RGB(0, 0, 2), 50));
    EXPECT_FALSE(seen(RGB(0, 0, 1), 50));
    EXPECT_FALSE(seen(RGB(255, 255, 0), 50));
    EXPECT_FALSE(seen(125000, 50));
    EXPECT_TRUE(seen(125001, 50));
    EXPECT_FALSE(seen(RGB(0, 0, 238), 250));
    EXPECT_TRUE(seen(RGB(0, 0, 239), 250));
    EXPECT_FALSE(seen(15625000, 250));
    EXPECT_TRUE(seen(15625001, 250));
}

TEST_F(OutlineTest, ReadsTheLiveSurface) {
    Bitmap picture = Flat(4, 4, kWhite);
    picture.Set(1, 1, 0);
    live.Picture(picture);
    work.Picture(StrewnPicture(4, 4, 9));
    OutlineFilter(work, live, Pb, 50);
    const Bitmap expected = PictureOf({"....", ".##.", ".#..", "...."});
    ExpectSamePixels(work.Image(), expected);
    ExpectSamePixels(live.Image(), expected);
}

TEST_F(OutlineTest, FreehandSelectionEndsBlank) {
    FreeSelActive = true;
    ExpectSamePixels(ResultOf(OutlineFilter, StrewnPicture(30, 20, 3), 50), Flat(30, 20, kWhite));
}

TEST_F(OutlineTest, TellsTheBarTheColumns) {
    ResultOf(OutlineFilter, Flat(20, 10, kBlack), 50);
    EXPECT_EQ(Pb.Max(), 19);
    EXPECT_EQ(Pb.Value(), 0);
}

TEST_F(OutlineTest, ASideAbove32767Overflows) {
    ExpectOverflow(OutlineFilter, 50, 32768, 2);
    ExpectOverflow(OutlineFilter, 50, 2, 32768);
}

// Pixelate.

class PixelateTest : public FilterTest {
  protected:
    /// The live surface after the routine ran over `picture`.
    Bitmap Pixelated(const Bitmap& picture, std::int16_t level) {
        Load(picture);
        PixelateFilter(work, live, Pb, level);
        ExpectSamePixels(work.Image(), picture);
        EXPECT_EQ(Pb.Value(), 0);
        return live.Image();
    }
};

TEST_F(PixelateTest, BoxTakesTheColourOneRightAndDownOfItsCorner) {
    Bitmap picture = Flat(7, 7, kWhite);
    picture.Set(1, 1, NamedPixel('r'));
    picture.Set(6, 1, NamedPixel('g'));
    picture.Set(1, 6, NamedPixel('b'));
    picture.Set(6, 6, NamedPixel('y'));
    ExpectSamePixels(Pixelated(picture, 5), PictureOf({"rrrrrgg", "rrrrrgg", "rrrrrgg", "rrrrrgg", "rrrrrgg",
                                                       "bbbbbyy", "bbbbbyy"}));
}

TEST_F(PixelateTest, SizeOfWholeBoxesGetsWhiteLastColumnAndRow) {
    Bitmap picture = Flat(10, 10, kBlack);
    picture.Set(1, 1, NamedPixel('r'));
    picture.Set(6, 1, NamedPixel('g'));
    picture.Set(1, 6, NamedPixel('b'));
    picture.Set(6, 6, NamedPixel('y'));
    const std::string_view upper = "rrrrrgggg.";
    const std::string_view lower = "bbbbbyyyy.";
    ExpectSamePixels(Pixelated(picture, 5), PictureOf({upper, upper, upper, upper, upper, lower, lower, lower,
                                                       lower, ".........."}));
}

TEST_F(PixelateTest, CornerInTheLastPixelReadsOutsideAndIsWhite) {
    ExpectSamePixels(Pixelated(Flat(6, 6, kBlack), 5),
                     PictureOf({"#####.", "#####.", "#####.", "#####.", "#####.", "......"}));
    ExpectSamePixels(Pixelated(Flat(1, 1, kBlack), 5), Flat(1, 1, kWhite));
    ExpectSamePixels(Pixelated(Flat(1, 4, kBlack), 5), Flat(1, 4, kWhite));
}

TEST_F(PixelateTest, LevelAboveTheSizeGivesOneBox) {
    Bitmap picture = StrewnPicture(4, 3, 6);
    picture.Set(1, 1, NamedPixel('y'));
    ExpectSamePixels(Pixelated(picture, 50), Flat(4, 3, RGB(255, 255, 0)));
}

TEST_F(PixelateTest, LevelOfTheSizeGivesOneBoxAndTheLastColumnAndRow) {
    Bitmap picture = Flat(5, 5, kBlack);
    picture.Set(1, 1, NamedPixel('y'));
    ExpectSamePixels(Pixelated(picture, 5), PictureOf({"yyyy.", "yyyy.", "yyyy.", "yyyy.", "....."}));
}

TEST_F(PixelateTest, NothingLands) {
    const Bitmap picture = StrewnPicture(20, 20, 2);
    const Bitmap before = StrewnPicture(20, 20, 3);
    work.Picture(picture);
    live.Picture(before);
    PixelateFilter(work, live, Pb, 7);
    ExpectSamePixels(work.Picture(), picture);
    ExpectSamePixels(live.Picture(), before);
    EXPECT_FALSE(live.Image() == before);
    live.Cls();
    ExpectSamePixels(live.Image(), before);
}

TEST_F(PixelateTest, BoxesGoOverTheEdgeOfTheWorkSurface) {
    work.Picture(Flat(4, 4, kBlack));
    live.Picture(Flat(12, 9, kWhite));
    PixelateFilter(work, live, Pb, 5);
    Bitmap expected = Flat(12, 9, kWhite);
    expected.Fill({0, 0, 6, 6}, 0);
    ExpectSamePixels(live.Image(), expected);
}

TEST_F(PixelateTest, MaskIsNotHonoured) {
    FreeSelActive = true;
    Bitmap picture = Flat(7, 7, MaskKeyColour);
    picture.Set(1, 1, NamedPixel('r'));
    EXPECT_EQ(PixelAt(Pixelated(picture, 5), 3, 3), RGB(255, 0, 0));
}

TEST_F(PixelateTest, BoxesOfSideOneEnd) {
    // Each pixel takes the colour right and down of it; beyond the edge it is white.
    const Bitmap picture = RandomPicture(6, 5, 1);
    Bitmap expected = Flat(6, 5, kWhite);
    for (int y = 0; y < 4; ++y) {
        for (int x = 0; x < 5; ++x)
            expected.Set(x, y, picture.At(x + 1, y + 1));
    }
    ExpectSamePixels(Pixelated(picture, 1), expected);
}

TEST_F(PixelateTest, SmallLevelsOfAPreview) {
    for (const std::int16_t level : {std::int16_t{1}, std::int16_t{2}, std::int16_t{3}, std::int16_t{4}}) {
        for (const PictureSize size : kAwkwardSizes) {
            SCOPED_TRACE(std::to_string(size.width) + " x " + std::to_string(size.height) + ", level " +
                         std::to_string(level));
            work.Picture(StrewnPicture(size.width, size.height, 1));
            live.Picture(StrewnPicture(size.width, size.height, 2));
            ExpectAsModel(kPixelate, level);
            if (HasFailure()) return;
        }
    }
}

TEST_F(PixelateTest, TellsTheBarTheWidthAndABox) {
    Pixelated(Flat(20, 10, kBlack), 7);
    EXPECT_EQ(Pb.Max(), 27);
}

TEST_F(PixelateTest, ASideAbove32767Overflows) {
    for (const PictureSize size : {PictureSize{32768, 2}, PictureSize{2, 32768}}) {
        Load(Flat(size.width, size.height, kBlack));
        EXPECT_EQ(ErrorOf([&] { PixelateFilter(work, live, Pb, 5); }), kOverflow);
    }
}

} // namespace
} // namespace pintalux
