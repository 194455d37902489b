// Hue, saturation and luminance.
#include "base/RuntimeError.h"
#include "colour/HslModel.h"
#include "colour/ModHSL.h"
#include "support/Errors.h"

#include <gtest/gtest.h>

namespace pintalux {
namespace {

struct HslCase {
    const char* name;
    Colour colour;
    HslValue hsl;
    Colour back;
};

const HslCase kTable[] = {
    {"Red", RGB(255, 0, 0), {0, 240, 120}, RGB(255, 1, 0)},
    {"Green", RGB(0, 255, 0), {80, 240, 120}, RGB(0, 255, 1)},
    {"Blue", RGB(0, 0, 255), {160, 240, 120}, RGB(0, 0, 255)},
    {"Orange", RGB(255, 128, 0), {20, 240, 120}, RGB(255, 128, 0)},
    {"White", RGB(255, 255, 255), {0, 0, 240}, RGB(255, 255, 255)},
    {"Black", RGB(0, 0, 0), {0, 0, 0}, RGB(0, 0, 0)},
    {"MiddleGrey", RGB(128, 128, 128), {0, 0, 121}, RGB(129, 129, 129)},
    {"LightGrey", RGB(192, 192, 192), {0, 0, 181}, RGB(192, 192, 192)},
    {"NearBlack", RGB(1, 2, 3), {140, 120, 2}, RGB(1, 3, 3)},
};

int NumberOfError(Colour colour) {
    return ErrorOf([&] { RgbToHsl(colour); });
}

TEST(Hsl, TableBothWays) {
    for (const HslCase& row : kTable) {
        EXPECT_EQ(RgbToHsl(row.colour), row.hsl) << row.name;
        EXPECT_EQ(HslToRgb(row.hsl), row.back) << row.name;
    }
}

TEST(Hsl, PureRedTakesTheUpperBranchOfLuminance) {
    // (255 * 240 + 255) / 510 is 120.5: above 120 for the saturation, and 120 as the even neighbour.
    EXPECT_EQ(RgbToHsl(RGB(255, 0, 0)).Lum, 120);
    EXPECT_EQ(RgbToHsl(RGB(255, 0, 0)).Sat, 240);
}

TEST(Hsl, LastHueOfTheScaleComesFromARealColour) {
    EXPECT_EQ(RgbToHsl(RGB(255, 0, 1)).Hue, 240);
}

TEST(Hsl, HueOf240IsTheHueOf0) {
    EXPECT_EQ(HslToRgb({240, 200, 100}), HslToRgb({0, 200, 100}));
}

TEST(Hsl, HueIsIgnoredWithoutSaturation) {
    for (std::int16_t hue = 0; hue <= 240; ++hue)
        EXPECT_EQ(HslToRgb({hue, 0, 181}), RGB(192, 192, 192));
}

TEST(Hsl, TiesGoToRedThenGreen) {
    EXPECT_EQ(RgbToHsl(RGB(200, 200, 0)).Hue, 40);
    EXPECT_EQ(RgbToHsl(RGB(0, 200, 200)).Hue, 120);
    EXPECT_EQ(RgbToHsl(RGB(200, 0, 200)).Hue, 200);
}

TEST(Hsl, Channels) {
    EXPECT_EQ(RedOf(0x123456), 0x56);
    EXPECT_EQ(GreenOf(0x123456), 0x34);
    EXPECT_EQ(BlueOf(0x123456), 0x12);
    EXPECT_EQ(RedOf(-1), 255);
    EXPECT_EQ(BlueOf(-1), 255);
    EXPECT_EQ(MaxOf(-3, 2), 2);
    EXPECT_EQ(MinOf(-3, 2), -3);
}

TEST(Hsl, ColourBeyond24BitsOverflowsInGreen) {
    EXPECT_EQ(NumberOfError(0x1000000), kOverflow);
    EXPECT_EQ(NumberOfError(0x1000003), kOverflow);
    EXPECT_EQ(NumberOfError(-1), kOverflow);
    EXPECT_EQ(NumberOfError(0x2000000), 0);
    EXPECT_THROW(GreenOf(0x1000000), RuntimeError);
}

TEST(Hsl, HueToRgbOnItsFourStretches) {
    EXPECT_EQ(HueToRgb(10, 90, 0), 10.5);
    EXPECT_EQ(HueToRgb(10, 90, 20), 50.5);
    EXPECT_EQ(HueToRgb(10, 90, 40), 90);
    EXPECT_EQ(HueToRgb(10, 90, 119.5), 90);
    EXPECT_EQ(HueToRgb(10, 90, 120), 90.5);
    EXPECT_EQ(HueToRgb(10, 90, 140), 50.5);
    EXPECT_EQ(HueToRgb(10, 90, 160), 10);
    EXPECT_EQ(HueToRgb(10, 90, 240), 10);
}

TEST(Hsl, HueIsCorrectedByOneTurnOnly) {
    EXPECT_EQ(HueToRgb(10, 90, -200), 90);
    EXPECT_EQ(HueToRgb(10, 90, 320), 90);
    EXPECT_EQ(HueToRgb(10, 90, -300), ((90 - 10) * -60.0 + 20) / 40 + 10);
    EXPECT_EQ(HueToRgb(10, 90, 600), 10);
}

TEST(Hsl, ContrastTurnsAboveALuminanceOf120) {
    EXPECT_EQ(ContrastColor(kBlack), kWhite);
    EXPECT_EQ(ContrastColor(RGB(255, 0, 0)), kWhite);
    EXPECT_EQ(ContrastColor(RGB(127, 127, 127)), kWhite);
    EXPECT_EQ(ContrastColor(RGB(128, 128, 128)), kBlack);
    EXPECT_EQ(ContrastColor(kWhite), kBlack);
}

void CompareWithModel(Colour colour) {
    const HslValue hsl = RgbToHsl(colour);
    const model::Hsl expected = model::FromRgb(colour);
    ASSERT_EQ(hsl.Hue, expected[0]) << std::hex << colour;
    ASSERT_EQ(hsl.Sat, expected[1]) << std::hex << colour;
    ASSERT_EQ(hsl.Lum, expected[2]) << std::hex << colour;
}

void CompareWithModel(const HslValue& hsl) {
    ASSERT_EQ(HslToRgb(hsl), model::ToRgb({hsl.Hue, hsl.Sat, hsl.Lum}))
        << hsl.Hue << ", " << hsl.Sat << ", " << hsl.Lum;
}

TEST(Hsl, StepsOfEachChannelAgreeWithTheModel) {
    for (int red = 0; red < 256; red += 5)
        for (int green = 0; green < 256; green += 3)
            for (int blue = 0; blue < 256; blue += 5)
                CompareWithModel(RGB(red, green, blue));
    for (std::int16_t hue = 0; hue <= 240; hue += 3)
        for (std::int16_t sat = 0; sat <= 240; sat += 4)
            for (std::int16_t lum = 0; lum <= 240; lum += 5)
                CompareWithModel(HslValue{hue, sat, lum});
}

// Takes a while: run it with --gtest_also_run_disabled_tests after a change of the conversions.
TEST(Hsl, DISABLED_AllColoursAgreeWithTheModel) {
    for (Colour colour = 0; colour <= kWhite; ++colour) {
        CompareWithModel(colour);
        if (HasFatalFailure()) return;
    }
}

TEST(Hsl, DISABLED_AllHslValuesAgreeWithTheModel) {
    for (std::int16_t hue = 0; hue <= 240; ++hue)
        for (std::int16_t sat = 0; sat <= 240; ++sat)
            for (std::int16_t lum = 0; lum <= 240; ++lum) {
                CompareWithModel(HslValue{hue, sat, lum});
                if (HasFatalFailure()) return;
            }
}

} // namespace
} // namespace pintalux
