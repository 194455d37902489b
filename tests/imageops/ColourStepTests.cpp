#include "imageops/FilterTestSupport.h"

namespace pintalux {
namespace {

const FilterCase kStep{
    "ColourStep", ColourStep, [](FilterModel& m, int mode) { m.ColourStep(mode); }, {0, 1, 2, 3, 4, 5}};

class ColourStepTest : public FilterTest {
  protected:
    /// What one pixel of this colour becomes.
    Colour Stepped(Colour colour, std::int16_t mode) {
        return PixelAt(ResultOf(ColourStep, Flat(1, 1, colour), mode), 0, 0);
    }
};

TEST_F(ColourStepTest, WhiteStaysWhite) {
    for (std::int16_t mode = 0; mode < 6; ++mode)
        EXPECT_EQ(Stepped(kWhite, mode), kWhite) << mode;
}

TEST_F(ColourStepTest, EachModeStepsItsChannel) {
    const Colour colour = RGB(100, 110, 120);
    EXPECT_EQ(Stepped(colour, 0), RGB(120, 110, 120));
    EXPECT_EQ(Stepped(colour, 1), RGB(100, 130, 120));
    EXPECT_EQ(Stepped(colour, 2), RGB(100, 110, 140));
    EXPECT_EQ(Stepped(colour, 3), RGB(80, 110, 120));
    EXPECT_EQ(Stepped(colour, 4), RGB(100, 90, 120));
    EXPECT_EQ(Stepped(colour, 5), RGB(100, 110, 100));
}

TEST_F(ColourStepTest, StepDownIsReflectedAtZero) {
    EXPECT_EQ(Stepped(kBlack, 3), RGB(20, 0, 0));
    EXPECT_EQ(Stepped(RGB(5, 5, 5), 3), RGB(15, 5, 5));
    EXPECT_EQ(Stepped(RGB(5, 5, 5), 4), RGB(5, 15, 5));
    EXPECT_EQ(Stepped(RGB(5, 5, 5), 5), RGB(5, 5, 15));
    EXPECT_EQ(Stepped(RGB(20, 0, 0), 3), kBlack);
}

TEST_F(ColourStepTest, RedAndBlueHighAfterTheStepBringGreen255) {
    EXPECT_EQ(Stepped(RGB(225, 10, 245), 0), kWhite); // 245, 255, 245, and then the other two
    EXPECT_EQ(Stepped(RGB(220, 10, 245), 0), RGB(240, 11, 245));
}

TEST_F(ColourStepTest, ChannelsWithoutAStepDriftByTheSplit) {
    Colour colour = RGB(200, 100, 50);
    colour = Stepped(colour, 2);
    EXPECT_EQ(colour, RGB(200, 101, 70));
    colour = Stepped(colour, 2);
    EXPECT_EQ(colour, RGB(200, 102, 90));
}

TEST_F(ColourStepTest, BlueOf256IsCutAt255) {
    EXPECT_EQ(Stepped(RGB(0, 200, 255), 3), RGB(20, 200, 255));
    EXPECT_EQ(Stepped(RGB(0, 200, 255), 5), RGB(0, 200, 236)); // 256 - 20
}

TEST_F(ColourStepTest, GreenWrapsFrom255ToZero) {
    EXPECT_EQ(Stepped(RGB(150, 255, 10), 3), RGB(130, 0, 11));
    EXPECT_EQ(Stepped(RGB(150, 255, 10), 4), RGB(150, 20, 11));
}

TEST_F(ColourStepTest, MaskIsNotHonoured) {
    // The split of the mask colour is 160, 149, 137.
    FreeSelActive = true;
    EXPECT_EQ(Stepped(MaskKeyColour, 0), RGB(180, 149, 137));
    FreeSelActive = false;
    EXPECT_EQ(Stepped(MaskKeyColour, 0), RGB(180, 149, 137));
}

TEST_F(ColourStepTest, TellsTheBarTwiceTheColumns) {
    ResultOf(ColourStep, Flat(20, 3, kBlack), 0);
    EXPECT_EQ(Pb.Max(), 38);
    EXPECT_EQ(Pb.Value(), 0);
    ResultOf(ColourStep, Flat(1, 3, kBlack), 0);
    EXPECT_EQ(Pb.Max(), 0);
}

TEST_F(ColourStepTest, AwkwardPictures) {
    ExpectAsModelEverywhere(kStep);
}

TEST_F(ColourStepTest, EveryRedAndGreen) {
    const Bitmap table = ColourTable();
    for (const std::int16_t mode : kStep.levels) {
        SCOPED_TRACE(mode);
        Load(table);
        ExpectAsModel(kStep, mode);
    }
}

TEST_F(ColourStepTest, LiveSurfacesOfAnotherSize) {
    ExpectAsModelOnLiveOfSize(kStep, 25, 60);
    ExpectAsModelOnLiveOfSize(kStep, 60, 20);
}

TEST_F(ColourStepTest, ASideAbove32767Overflows) {
    ExpectOverflow(ColourStep, 0, 32768, 1);
    ExpectOverflow(ColourStep, 0, 1, 32768);
}

} // namespace
} // namespace pintalux
