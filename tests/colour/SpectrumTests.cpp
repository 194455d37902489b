// The picture that colours are picked from.
#include "colour/Spectrum.h"
#include "surface/raster/Colour.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <set>

namespace pintalux {
namespace {

constexpr int kGrey = 170; // a column of the greys
constexpr int kMiddle = 94;

int ChannelOf(Pixel pixel, int bit) {
    return static_cast<int>(pixel >> bit & 0xFF);
}

TEST(Spectrum, Is177By188) {
    EXPECT_EQ(SpectrumPicture().Width(), 177);
    EXPECT_EQ(SpectrumPicture().Height(), 188);
}

TEST(Spectrum, RunsFromWhiteToBlack) {
    const Picture picture = SpectrumPicture();
    for (int x = 0; x < 177; ++x) {
        EXPECT_EQ(picture.At(x, 0), 0xFFFFFFu) << x;
        EXPECT_EQ(picture.At(x, 187), 0u) << x;
    }
}

// The middle row holds the hues at their fullest: in order red, yellow, green, cyan, blue, magenta, red.
TEST(Spectrum, MiddleHoldsTheHuesInOrder) {
    const Picture picture = SpectrumPicture();
    const auto near = [&](int x, int red, int green, int blue) {
        const Pixel pixel = picture.At(x, kMiddle);
        EXPECT_NEAR(ChannelOf(pixel, 0), red, 8) << x;
        EXPECT_NEAR(ChannelOf(pixel, 8), green, 8) << x;
        EXPECT_NEAR(ChannelOf(pixel, 16), blue, 8) << x;
    };
    near(0, 255, 0, 0);
    near(27, 255, 255, 0);
    near(55, 0, 255, 0);
    near(82, 0, 255, 255);
    near(109, 0, 0, 255);
    near(137, 255, 0, 255);
    near(164, 255, 0, 0);
}

TEST(Spectrum, EdgeHoldsEveryShadeOfGreyFromLightToDark) {
    const Picture picture = SpectrumPicture();
    for (int y = 1; y < 188; ++y) {
        const Pixel pixel = picture.At(kGrey, y);
        EXPECT_EQ(ChannelOf(pixel, 0), ChannelOf(pixel, 8));
        EXPECT_EQ(ChannelOf(pixel, 0), ChannelOf(pixel, 16));
        EXPECT_LT(ChannelOf(pixel, 0), ChannelOf(picture.At(kGrey, y - 1), 0)) << y;
    }
}

// No channel jumps between neighbours: the picture has no seams. A hue runs through 1530 steps on 165
// columns.
TEST(Spectrum, IsSmooth) {
    const Picture picture = SpectrumPicture();
    for (int y = 1; y < 188; ++y) {
        for (int x = 1; x < 165; ++x) {
            for (const int bit : {0, 8, 16}) {
                const int here = ChannelOf(picture.At(x, y), bit);
                ASSERT_LE(std::abs(here - ChannelOf(picture.At(x - 1, y), bit)), 10) << x << ", " << y;
                ASSERT_LE(std::abs(here - ChannelOf(picture.At(x, y - 1), bit)), 3) << x << ", " << y;
            }
        }
    }
}

TEST(Spectrum, HoldsThousandsOfColours) {
    const Picture picture = SpectrumPicture();
    std::set<Pixel> colours;
    for (int y = 0; y < 188; ++y) {
        for (int x = 0; x < 177; ++x)
            colours.insert(picture.At(x, y));
    }
    EXPECT_GT(colours.size(), 25000u);
}

} // namespace
} // namespace pintalux
