#include "imageops/ToneFilterCases.h"

namespace pintalux {
namespace {

using ToneTest = FilterTest;

// Brightness.

TEST_F(ToneTest, Brightness_ReflectsWhatWouldFallBelowBlack) {
    EXPECT_EQ(PixelAt(ResultOf(BrightnessFilter, Flat(1, 1, GreyOf(5)), -30), 0, 0), GreyOf(25));
    EXPECT_EQ(PixelAt(ResultOf(BrightnessFilter, Flat(1, 1, RGB(5, 100, 200)), -30), 0, 0), RGB(25, 70, 170));
    EXPECT_EQ(PixelAt(ResultOf(BrightnessFilter, Flat(1, 1, kBlack), -100), 0, 0), GreyOf(100));
}

TEST_F(ToneTest, Brightness_LeavesWhite) {
    for (const std::int16_t level :
         {std::int16_t{10}, std::int16_t{100}, std::int16_t{-10}, std::int16_t{-100}})
        EXPECT_EQ(PixelAt(ResultOf(BrightnessFilter, Flat(2, 2, kWhite), level), 1, 1), kWhite) << level;
}

TEST_F(ToneTest, Brightness_TwoHighChannelsBeforeTheStepMakeWhite) {
    EXPECT_EQ(PixelAt(ResultOf(BrightnessFilter, Flat(1, 1, RGB(241, 241, 0)), -50), 0, 0), kWhite);
    // The lift of the split makes 240 into 241.
    EXPECT_EQ(PixelAt(ResultOf(BrightnessFilter, Flat(1, 1, RGB(241, 240, 0)), -50), 0, 0), kWhite);
    EXPECT_EQ(PixelAt(ResultOf(BrightnessFilter, Flat(1, 1, RGB(0, 241, 241)), -50), 0, 0), kWhite);
    EXPECT_EQ(PixelAt(ResultOf(BrightnessFilter, Flat(1, 1, RGB(241, 0, 241)), -50), 0, 0), kWhite);
    // A red of 240 is not high; the split is 240, 242, 1.
    EXPECT_EQ(PixelAt(ResultOf(BrightnessFilter, Flat(1, 1, RGB(240, 241, 0)), -50), 0, 0),
              RGB(190, 192, 49));
}

TEST_F(ToneTest, Brightness_TwoHighChannelsAfterTheStepRaiseTheThird) {
    // Red and blue at 250: green becomes 255, and then so do the other two.
    EXPECT_EQ(PixelAt(ResultOf(BrightnessFilter, Flat(1, 1, RGB(220, 100, 220)), 30), 0, 0), kWhite);
    // Green and blue at 245: red becomes 255, then blue by red and green; green was asked before.
    EXPECT_EQ(PixelAt(ResultOf(BrightnessFilter, Flat(1, 1, RGB(10, 215, 214)), 30), 0, 0),
              RGB(255, 245, 255));
    // Red and green at 245: only blue is left to ask.
    EXPECT_EQ(PixelAt(ResultOf(BrightnessFilter, Flat(1, 1, RGB(215, 214, 10)), 30), 0, 0),
              RGB(245, 245, 255));
    // 240 is not high.
    EXPECT_EQ(PixelAt(ResultOf(BrightnessFilter, Flat(1, 1, RGB(210, 209, 10)), 30), 0, 0),
              RGB(240, 240, 41));
}

TEST_F(ToneTest, Brightness_CutsOneHighChannelAt255) {
    EXPECT_EQ(PixelAt(ResultOf(BrightnessFilter, Flat(1, 1, RGB(10, 20, 200)), 100), 0, 0),
              RGB(110, 120, 255));
}

// Grey.

TEST_F(ToneTest, Grey_LeavesWhite) {
    ExpectSamePixels(ResultOf(GreyFilter, Flat(3, 3, kWhite)), Flat(3, 3, kWhite));
}

TEST_F(ToneTest, Grey_WeighsGreenRedAndBlue) {
    EXPECT_EQ(PixelAt(ResultOf(GreyFilter, Flat(1, 1, RGB(0, 255, 0))), 0, 0),
              GreyOf(151)); // 0, 255, 1: 150.56
    EXPECT_EQ(PixelAt(ResultOf(GreyFilter, Flat(1, 1, RGB(255, 0, 0))), 0, 0),
              GreyOf(77)); // 255, 1, 0: 77.09
    EXPECT_EQ(PixelAt(ResultOf(GreyFilter, Flat(1, 1, RGB(0, 0, 255))), 0, 0), GreyOf(28));   // 28.05
    EXPECT_EQ(PixelAt(ResultOf(GreyFilter, Flat(1, 1, RGB(100, 50, 20))), 0, 0), GreyOf(62)); // 61.7
}

TEST_F(ToneTest, Grey_RoundsHalfToEven) {
    EXPECT_EQ(PixelAt(ResultOf(GreyFilter, Flat(1, 1, RGB(0, 50, 0))), 0, 0), GreyOf(30)); // 29.5
    EXPECT_EQ(PixelAt(ResultOf(GreyFilter, Flat(1, 1, RGB(5, 0, 0))), 0, 0), GreyOf(2));   // 1.5
    EXPECT_EQ(PixelAt(ResultOf(GreyFilter, Flat(1, 1, RGB(15, 0, 0))), 0, 0), GreyOf(4));  // 4.5
}

TEST_F(ToneTest, Grey_TwoHighChannelsMakeWhite) {
    EXPECT_EQ(PixelAt(ResultOf(GreyFilter, Flat(1, 1, RGB(241, 0, 241))), 0, 0), kWhite);
    EXPECT_EQ(PixelAt(ResultOf(GreyFilter, Flat(1, 1, RGB(241, 240, 0))), 0, 0), kWhite);
    EXPECT_EQ(PixelAt(ResultOf(GreyFilter, Flat(1, 1, RGB(0, 241, 240))), 0, 0), kWhite);
    EXPECT_EQ(PixelAt(ResultOf(GreyFilter, Flat(1, 1, RGB(241, 0, 240))), 0, 0),
              GreyOf(99)); // 241, 1, 240: 99.29
}

TEST_F(ToneTest, Grey_EverySumThatEndsOnAHalfRoundsLikeThreeDoublesAddedInTurn) {
    // 59 green + 30 red + 11 blue ends on 50 for one colour in a hundred; what the doubles add up to may lie
    // on either side of the half.
    std::vector<Colour> colours;
    for (Colour colour = 0; colour <= kWhite; ++colour) {
        const auto [red, green, blue] = SplitOf(colour);
        if ((59 * green + 30 * red + 11 * blue) % 100 == 50) colours.push_back(colour);
    }
    const int width = 512;
    Bitmap picture = Flat(width, static_cast<int>(colours.size()) / width + 1, kBlack);
    for (std::size_t i = 0; i < colours.size(); ++i) {
        picture.Set(static_cast<int>(i % width), static_cast<int>(i / width), static_cast<Pixel>(colours[i]));
    }
    Load(picture);
    ExpectAsModel(kGrey, 0);
}

// Invert.

TEST_F(ToneTest, Invert_TurnsAllBits) {
    const Bitmap result =
        ResultOf(InvertFilter, ColoursOf({{kWhite, kBlack, 0x123456}, {0xFF, 0xFF00, 0xFF0000}}));
    ExpectSamePixels(result, ColoursOf({{kBlack, kWhite, 0xEDCBA9}, {0xFFFF00, 0xFF00FF, 0x00FFFF}}));
}

TEST_F(ToneTest, Invert_TurnsTheMaskColourToo) {
    FreeSelActive = true;
    EXPECT_EQ(PixelAt(ResultOf(InvertFilter, Flat(2, 2, MaskKeyColour)), 1, 1), 0x776B5F);
}

TEST_F(ToneTest, Invert_TwiceGivesThePictureBack) {
    const Bitmap picture = StrewnPicture(300, 70, 2);
    ResultOf(InvertFilter, picture);
    ExpectSamePixels(ResultOf(InvertFilter, live.Image()), picture);
}

TEST_F(ToneTest, Invert_LooksLikeItsModel) {
    const FilterCase invert{"Invert", InvertFilter, [](FilterModel& m, int) { m.Invert(); }, {0}};
    Pb.Max(100);
    ExpectAsModelEverywhere(invert);
    ExpectAsModelOnLiveOfSize(invert, 25, 60);
    ExpectAsModelOnLiveOfSize(invert, 60, 20);
}

TEST_F(ToneTest, Invert_ReadsTheStoredPictureOfTheWorkSurface) {
    Load(Flat(4, 4, kWhite));
    work.PSet(1, 1, RGB(1, 2, 3));
    InvertFilter(work, live, Pb, 0);
    ExpectSamePixels(live.Image(), Flat(4, 4, kBlack));
    ExpectSamePixels(work.Image(), Flat(4, 4, kBlack));
}

TEST_F(ToneTest, Invert_TakesSidesAbove32767) {
    ExpectSamePixels(ResultOf(InvertFilter, Flat(32768, 1, kWhite)), Flat(32768, 1, kBlack));
    ExpectSamePixels(ResultOf(InvertFilter, Flat(1, 32768, kWhite)), Flat(1, 32768, kBlack));
}

} // namespace
} // namespace pintalux
