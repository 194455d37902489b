// Colours taken apart: whole numbers against the quotients that they stand for, and what repairs bright
// pixels.
#include "imageops/GreyLevel.h"
#include "imageops/NearWhiteRule.h"
#include "imageops/ShiftRun.h"
#include "surface/raster/Bitmap.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <vector>

namespace pintalux {

static void PrintTo(const Channels& c, std::ostream* out) {
    *out << c.red << ", " << c.green << ", " << c.blue;
}

namespace {

constexpr Pixel kColours = 0x1000000;

/// The split as quotients of doubles, rounded half to even.
Channels SplitByQuotients(Pixel colour) {
    const auto green = static_cast<Pixel>(std::nearbyint(static_cast<double>(colour) / 256.0));
    const auto blue = static_cast<Pixel>(std::nearbyint(static_cast<double>(colour) / 65536.0));
    return {static_cast<Channel>(colour % 256), static_cast<Channel>(green % 256),
            static_cast<Channel>(blue)};
}

/// Compares every `step`-th colour.
void ExpectSplitsAgree(Pixel step) {
    std::int64_t wrong = 0;
    for (Pixel colour = 0; colour < kColours; colour += step)
        wrong += SplitChannels(colour) != SplitByQuotients(colour);
    EXPECT_EQ(wrong, 0);
}

/// Compares what `run` makes of every `step`-th colour with `one`, in runs whose length changes, so that
/// whole vectors and rests are met.
template <class Run, class One>
void ExpectRunsAgree(Pixel step, Run run, One one) {
    std::vector<Pixel> pixels, out;
    std::size_t length = 1;
    std::int64_t wrong = 0;
    for (Pixel colour = 0; colour < kColours; colour += step) {
        pixels.push_back(colour);
        if (pixels.size() < length && colour + step < kColours) continue;
        out.assign(pixels.size(), 0xFFFFFFFF);
        run(pixels.data(), out.data(), static_cast<int>(pixels.size()));
        for (std::size_t i = 0; i < pixels.size(); ++i)
            wrong += out[i] != one(pixels[i]);
        pixels.clear();
        length = length % Bitmap::kTileWidth + 1;
    }
    EXPECT_EQ(wrong, 0);
}

/// Compares the greys of every red and green with every `step`-th blue.
void ExpectGreysAgree(int step) {
    std::int64_t wrong = 0;
    for (int red = 0; red < 256; ++red) {
        for (int green = 0; green < 256; ++green) {
            for (int blue = 0; blue <= 256; blue += step) {
                const double grey = std::nearbyint(0.59 * green + 0.3 * red + 0.11 * blue);
                const int bright = (red >= 241) + (green >= 241) + (blue >= 241);
                const int expected = bright >= 2 ? 255 : static_cast<int>(grey);
                const Channels Px{static_cast<Channel>(red), static_cast<Channel>(green),
                                  static_cast<Channel>(blue)};
                wrong += std::min<int>(GreyLevel(Px), 255) != expected;
            }
        }
    }
    EXPECT_EQ(wrong, 0);
}

Channels AfterRule(const Channels& Px, Channels computed) {
    ApplyNearWhiteRule(Px, computed);
    const auto cut = [](Channel channel) { return std::min(channel, Channel{255}); };
    return {cut(computed.red), cut(computed.green), cut(computed.blue)};
}

/// The rule as six questions, one after the other.
Channels AfterSixSteps(const Channels& Px, Channels c) {
    if (Px.red >= 241 && Px.green >= 241) c = {255, 255, 255};
    if (Px.blue >= 241 && Px.green >= 241) c = {255, 255, 255};
    if (Px.red >= 241 && Px.blue >= 241) c = {255, 255, 255};
    if (c.red >= 241 && c.blue >= 241) c.green = 255;
    if (c.green >= 241 && c.blue >= 241) c.red = 255;
    if (c.red >= 241 && c.green >= 241) c.blue = 255;
    const auto cut = [](Channel channel) { return std::min(channel, Channel{255}); };
    return {cut(c.red), cut(c.green), cut(c.blue)};
}

TEST(SplitChannels, OfWhiteIs255And0And256) {
    EXPECT_EQ(SplitChannels(0xFFFFFF), (Channels{255, 0, 256}));
}

TEST(SplitChannels, RedAbove128LiftsGreen) {
    EXPECT_EQ(SplitChannels(0x000A81), (Channels{129, 11, 0}));
    EXPECT_EQ(SplitChannels(0x000A7F), (Channels{127, 10, 0}));
}

TEST(SplitChannels, RedOf128LiftsAnOddGreenOnly) {
    EXPECT_EQ(SplitChannels(0x000A80), (Channels{128, 10, 0}));
    EXPECT_EQ(SplitChannels(0x000B80), (Channels{128, 12, 0}));
}

TEST(SplitChannels, GreenAbove128LiftsBlue) {
    EXPECT_EQ(SplitChannels(0x058100), (Channels{0, 129, 6}));
    EXPECT_EQ(SplitChannels(0x058001), (Channels{1, 128, 6}));
    EXPECT_EQ(SplitChannels(0x048000), (Channels{0, 128, 4}));
    EXPECT_EQ(SplitChannels(0x058000), (Channels{0, 128, 6}));
}

TEST(SplitChannels, GreenWrapsFrom255To0) {
    EXPECT_EQ(SplitChannels(0x00FFFF), (Channels{255, 0, 1}));
}

TEST(SplitChannels, EqualsTheQuotients) {
    ExpectSplitsAgree(251);
    ExpectSplitsAgree(0x7F); // Meets the halves of every blue.
}

TEST(SplitChannels, DISABLED_EqualsTheQuotientsOfEveryColour) {
    ExpectSplitsAgree(1);
}

TEST(ComposePixel, CutsAt255) {
    EXPECT_EQ(ComposePixel({0x12, 0x34, 0x56}), 0x563412U);
    EXPECT_EQ(ComposePixel({255, 256, 0}), 0x00FFFFU);
    EXPECT_EQ(ComposePixel({511, 0, 32767}), 0xFF00FFU);
}

TEST(NearWhiteRule, WhiteStaysWhiteWhateverWasComputed) {
    EXPECT_EQ(AfterRule({255, 0, 256}, {20, 30, 40}), (Channels{255, 255, 255}));
}

TEST(NearWhiteRule, TwoBrightChannelsBringTheThirdTo255) {
    EXPECT_EQ(AfterRule({0, 0, 0}, {241, 7, 250}), (Channels{255, 255, 255}));
    EXPECT_EQ(AfterRule({0, 0, 0}, {7, 241, 250}), (Channels{255, 241, 255}));
    EXPECT_EQ(AfterRule({0, 0, 0}, {241, 242, 7}), (Channels{241, 242, 255}));
    EXPECT_EQ(AfterRule({0, 0, 0}, {240, 242, 7}), (Channels{240, 242, 7}));
}

TEST(NearWhiteRule, EqualsItsSixSteps) {
    const std::vector<Channel> values{0, 1, 128, 239, 240, 241, 242, 255, 256, 300, 356};
    const auto forAll = [&](const auto& look) {
        for (const Channel red : values)
            for (const Channel green : values)
                for (const Channel blue : values)
                    look(Channels{red, green, blue});
    };
    std::int64_t wrong = 0;
    forAll([&](const Channels& Px) {
        forAll([&](const Channels& computed) {
            wrong += AfterRule(Px, computed) != AfterSixSteps(Px, computed);
        });
    });
    EXPECT_EQ(wrong, 0);
}

TEST(GreyLevel, RoundsLikeTheSumOfDoubles) {
    ExpectGreysAgree(5);
}

TEST(GreyLevel, DISABLED_RoundsLikeTheSumOfDoublesForEveryColour) {
    ExpectGreysAgree(1);
}

void ExpectGreyRunsAgree(Pixel step) {
    ExpectRunsAgree(step, GreyRun, [](Pixel colour) {
        return static_cast<Pixel>(GreyLevel(SplitChannels(colour))) * 0x010101;
    });
}

TEST(GreyRun, EqualsTheLevelsOneByOne) {
    ExpectGreyRunsAgree(13);
}

TEST(GreyRun, DISABLED_EqualsTheLevelsOfEveryColour) {
    ExpectGreyRunsAgree(1);
}

TEST(ShiftRun, EqualsReflectionRuleAndCutOneByOne) {
    for (const Channels& shift : {Channels{20, 0, 0}, Channels{0, -20, 0}, Channels{-100, -100, -100}}) {
        ExpectRunsAgree(
            97, [&](const Pixel* pixels, Pixel* out, int count) { ShiftRun(pixels, shift, out, count); },
            [&](Pixel colour) {
                const Channels p = SplitByQuotients(colour);
                const auto shifted = [](Channel channel, Channel by) {
                    return static_cast<Channel>(channel + by < 0 ? -channel - by : channel + by);
                };
                const Channels c = AfterSixSteps(p, {shifted(p.red, shift.red), shifted(p.green, shift.green),
                                                     shifted(p.blue, shift.blue)});
                return static_cast<Pixel>(std::min<int>(c.red, 255) | std::min<int>(c.green, 255) << 8 |
                                          std::min<int>(c.blue, 255) << 16);
            });
    }
}

} // namespace
} // namespace pintalux
