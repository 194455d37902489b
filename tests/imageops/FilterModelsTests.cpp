// The models themselves against numbers worked out by hand.
#include "imageops/FilterModels.h"

#include "support/Pictures.h"

#include <gtest/gtest.h>

namespace pintalux {
namespace {

using Split = std::array<std::int32_t, 3>;

FilterModel Over(const Bitmap& picture, bool freehand = false) {
    return {ModelSurface(picture), ModelSurface(picture), freehand};
}

Bitmap One(Colour colour) {
    return {1, 1, PixelOf(colour)};
}

Bitmap All(int width, int height, Colour colour) {
    return {width, height, PixelOf(colour)};
}

TEST(FilterModels, SplitLiftsTheNextChannel) {
    EXPECT_EQ(SplitOf(kWhite), (Split{255, 0, 256}));
    EXPECT_EQ(SplitOf(RGB(128, 50, 10)), (Split{128, 50, 10}));
    EXPECT_EQ(SplitOf(RGB(128, 51, 10)), (Split{128, 52, 10}));
    EXPECT_EQ(SplitOf(RGB(129, 50, 10)), (Split{129, 51, 10}));
    EXPECT_EQ(SplitOf(RGB(0, 128, 10)), (Split{0, 128, 10}));
    EXPECT_EQ(SplitOf(RGB(0, 128, 11)), (Split{0, 128, 12}));
    EXPECT_EQ(SplitOf(RGB(255, 0, 0)), (Split{255, 1, 0}));
}

TEST(FilterModels, NearWhiteRuleRunsInItsOrder) {
    const auto brightened = [](Colour colour) {
        FilterModel model = Over(One(colour));
        model.Brightness(30);
        return model.work.GetPixel(0, 0);
    };
    EXPECT_EQ(brightened(RGB(220, 100, 220)), kWhite);
    EXPECT_EQ(brightened(RGB(10, 215, 214)), RGB(255, 245, 255));
    EXPECT_EQ(brightened(RGB(215, 214, 10)), RGB(245, 245, 255));
    EXPECT_EQ(brightened(kWhite), kWhite);
}

TEST(FilterModels, SoftenOfWhiteIs230_0_230) {
    FilterModel model = Over(All(5, 5, kWhite));
    model.Soften(1);
    EXPECT_EQ(model.work.GetPixel(2, 2), RGB(230, 0, 230));
    EXPECT_EQ(model.work.GetPixel(4, 4), RGB(102, 0, 102));
    EXPECT_EQ(model.work.GetPixel(0, 4), kWhite);
    EXPECT_EQ(model.pbMax, 8);
}

TEST(FilterModels, SharpenAndEmbossOfWhite) {
    FilterModel sharpened = Over(All(3, 3, kWhite));
    sharpened.Sharpen(4);
    EXPECT_EQ(sharpened.live.GetPixel(1, 1), RGB(240, 0, 240));
    FilterModel embossed = Over(All(3, 3, kWhite));
    embossed.Emboss(120);
    EXPECT_EQ(embossed.live.GetPixel(1, 1), RGB(120, 120, 120));
    EXPECT_EQ(embossed.live.GetPixel(2, 2), RGB(220, 120, 220));
}

TEST(FilterModels, GreyOfPureGreenIs151) {
    FilterModel model = Over(One(RGB(0, 255, 0)));
    model.Grey();
    EXPECT_EQ(model.work.GetPixel(0, 0), RGB(151, 151, 151));
}

TEST(FilterModels, MaskStaysExceptInColourStepAndInvert) {
    FilterModel darkened = Over(One(kMaskKey), true);
    darkened.Brightness(-50);
    EXPECT_EQ(darkened.work.GetPixel(0, 0), kMaskKey);
    FilterModel stepped = Over(One(kMaskKey), true);
    stepped.ColourStep(0);
    EXPECT_EQ(stepped.work.GetPixel(0, 0), RGB(180, 149, 137));
    FilterModel inverted = Over(One(kMaskKey), true);
    inverted.Invert();
    EXPECT_EQ(inverted.work.GetPixel(0, 0), 0x776B5F);
}

TEST(FilterModels, ScatterGoesThroughHexadecimalText) {
    const auto scattered = [](Colour colour) {
        RandomNumbers random;
        FilterModel model = Over(All(6, 6, colour));
        model.Scatter(1, random);
        return model.work.GetPixel(2, 2);
    };
    EXPECT_EQ(scattered(kBlack), kBlack);
    EXPECT_EQ(scattered(kWhite), RGB(200, 200, 200));
    EXPECT_EQ(scattered(RGB(255, 0, 0)), RGB(0, 0, 255));
    EXPECT_EQ(scattered(0x00FF00), 0xFF0000);
    EXPECT_EQ(scattered(0x0ABCDE), RGB(0xE, 0xCD, 0xAB));
    EXPECT_EQ(scattered(RGB(241, 255, 16)), RGB(200, 200, 0));
}

TEST(FilterModels, ScatterFetchesGreyFromOutside) {
    RandomNumbers random;
    FilterModel model = Over(All(6, 6, kBlack));
    model.Scatter(10, random);
    int greys = 0;
    for (int y = 1; y <= 3; ++y) {
        for (int x = 1; x <= 3; ++x)
            greys += model.work.GetPixel(x, y) == RGB(200, 200, 200) ? 1 : 0;
    }
    EXPECT_GT(greys, 0);
    EXPECT_EQ(model.work.GetPixel(4, 4), kBlack);
}

TEST(FilterModels, OutlineMarksAPixelAndItsLowerAndRightNeighbour) {
    FilterModel model = Over(PictureOf({".....", ".....", "..#..", ".....", "....."}));
    model.Outline(50);
    ExpectSamePixels(model.work.shown, PictureOf({".....", ".....", "..##.", "..#..", "....."}));
    ExpectSamePixels(model.live.shown, model.work.shown);
}

TEST(FilterModels, PixelateOfSixBySixLeavesAWhiteEdge) {
    FilterModel model = Over(All(6, 6, kBlack));
    model.Pixelate(5);
    ExpectSamePixels(model.live.shown,
                     PictureOf({"#####.", "#####.", "#####.", "#####.", "#####.", "......"}));
    ExpectSamePixels(model.live.stored, All(6, 6, kBlack));
}

TEST(FilterModels, PixelateOfWholeBoxesGoesBackOnePixel) {
    FilterModel model = Over(PictureOf({"#####", "#y###", "#####", "#####", "#####"}));
    model.Pixelate(5);
    ExpectSamePixels(model.live.shown, PictureOf({"yyyy.", "yyyy.", "yyyy.", "yyyy.", "....."}));
}

TEST(FilterModels, TurnOfFiveByThreeLosesItsEnds) {
    const ModelSurface source(PictureOf({"rg#b.", "y.kr#", "bb#yk"}));
    ModelSurface destination(All(2, 2, kBlack));
    double angle = 90;
    RotateModel(source, destination, angle);
    ExpectSamePixels(destination.shown, PictureOf({"...", "b.g", "#k#", "yrb", "..."}));
    EXPECT_NEAR(angle, 4.71238898038469, 1e-14);
}

TEST(FilterModels, FlipMirrors) {
    const ModelSurface source(PictureOf({"rg#", "b.y"}));
    ModelSurface destination = source;
    FlipModel(destination, source, -1);
    ExpectSamePixels(destination.shown, PictureOf({"#gr", "y.b"}));
    FlipModel(destination, source, 0);
    ExpectSamePixels(destination.shown, PictureOf({"b.y", "rg#"}));
}

TEST(FilterModels, LandingKeepsTheSizeOfALiveSurfaceOfItsOwn) {
    FilterModel model(ModelSurface(All(2, 2, kBlack)), ModelSurface(All(3, 3, kWhite), 0x0000FF, false));
    model.Grey();
    ExpectSamePixels(model.live.shown, PictureOf({"##r", "##r", "rrr"}));
    ExpectSamePixels(model.live.stored, All(2, 2, kBlack));
}

} // namespace
} // namespace pintalux
