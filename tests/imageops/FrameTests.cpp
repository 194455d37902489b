// The frames beside their models, and what stands in their description.
#include "colour/ModHSL.h"
#include "imageops/FilterTestSupport.h"
#include "imageops/FrameModels.h"
#include "imageops/Frames.h"

namespace pintalux {

namespace {

constexpr Colour kFlatColour = 0x20A0E0;

/// What a frame is painted with.
struct FrameSettings {
    std::int16_t size = 0, highlight = 0, shadow = 0, frameSize = 0;
    bool outer = false, inner = false;
};

struct FrameCase {
    std::string name;
    std::function<void(Surface& work, Surface& live, ProgressBar& Pb, FrameSettings s)> routine;
    std::function<void(FrameModel& model, const FrameSettings& s)> model;
};

void PrintTo(const FrameCase& frame, std::ostream* out) {
    *out << frame.name;
}

std::ostream& operator<<(std::ostream& out, const FrameSettings& s) {
    return out << "size " << s.size << ", highlight " << s.highlight << ", shadow " << s.shadow
               << ", frame size " << s.frameSize << ", outer " << s.outer << ", inner " << s.inner;
}

void RunRidge(Surface& work, Surface& live, ProgressBar& Pb, FrameSettings s, bool inward) {
    const std::int16_t entry = s.size;
    RidgeFrame(work, live, s.size, s.outer, s.inner, inward, Pb);
    EXPECT_EQ(s.size, entry);
}

const FrameCase kFrames[] = {
    {"Bevel",
     [](Surface& work, Surface& live, ProgressBar& Pb, FrameSettings s) {
         BevelFrame(work, live, s.size, s.highlight, s.shadow, s.outer, s.inner, Pb);
     },
     [](FrameModel& model, const FrameSettings& s) {
         model.Bevel(s.size, s.highlight, s.shadow, s.outer, s.inner);
     }},
    {"FadedBevel",
     [](Surface& work, Surface& live, ProgressBar& Pb, FrameSettings s) {
         FadedBevelFrame(work, live, s.size, s.highlight, s.shadow, s.outer, s.inner, Pb);
     },
     [](FrameModel& model, const FrameSettings& s) {
         model.FadedBevel(s.size, s.highlight, s.shadow, s.outer, s.inner);
     }},
    {"Mould",
     [](Surface& work, Surface& live, ProgressBar& Pb, FrameSettings s) {
         const std::int16_t entry = s.size;
         MouldFrame(work, live, s.size, s.frameSize, kFlatColour, Pb);
         EXPECT_EQ(s.size, entry);
     },
     [](FrameModel& model, const FrameSettings& s) { model.Mould(s.size, s.frameSize, kFlatColour); }},
    {"Plain",
     [](Surface& work, Surface& live, ProgressBar& Pb, FrameSettings s) {
         PlainFrame(work, live, s.size, kFlatColour, s.outer, s.inner, Pb);
     },
     [](FrameModel& model, const FrameSettings& s) { model.Plain(s.size, kFlatColour, s.outer, s.inner); }},
    {"RidgeInward",
     [](Surface& work, Surface& live, ProgressBar& Pb, const FrameSettings& s) {
         RunRidge(work, live, Pb, s, true);
     },
     [](FrameModel& model, const FrameSettings& s) { model.Ridge(s.size, s.outer, s.inner, true); }},
    {"RidgeOutward",
     [](Surface& work, Surface& live, ProgressBar& Pb, const FrameSettings& s) {
         RunRidge(work, live, Pb, s, false);
     },
     [](FrameModel& model, const FrameSettings& s) { model.Ridge(s.size, s.outer, s.inner, false); }},
};

class FrameTest : public FilterTest {
  protected:
    /// Runs a frame and its model over a random picture and compares both surfaces, shown and stored.
    void ExpectAsModel(const FrameCase& frame, int width, int height, unsigned seed,
                       const FrameSettings& settings) {
        SCOPED_TRACE(testing::Message() << frame.name << ", " << width << " x " << height << ", seed " << seed
                                        << ", " << settings);
        Load(StrewnPicture(width, height, seed));
        FrameModel expected(ModelOf(work), ModelOf(live));
        frame.model(expected, settings);
        frame.routine(work, live, Pb, settings);
        ExpectSamePixels(live.Image(), expected.live.shown);
        ExpectSamePixels(work.Image(), expected.work.shown);
        ExpectSamePixels(live.Picture(), expected.live.stored);
        ExpectSamePixels(work.Picture(), expected.work.stored);
        EXPECT_EQ(Pb.Value(), 0);
        EXPECT_EQ(Pb.Max(), std::max(0, 2 * (width - 1)));
    }
    /// What a frame makes of a picture.
    Bitmap Framed(const Bitmap& picture, const std::function<void()>& frame) {
        Load(picture);
        frame();
        return live.Image();
    }
};

class FrameModelTest : public FrameTest, public testing::WithParamInterface<FrameCase> {};

INSTANTIATE_TEST_SUITE_P(Frames, FrameModelTest, testing::ValuesIn(kFrames),
                         [](const testing::TestParamInfo<FrameCase>& frame) { return frame.param.name; });

// Every small size of image with sizes up to beyond the whole of it. Of moulds and ridges a size counts an
// eighth.
TEST_P(FrameModelTest, SmallPicturesAreAsTheModel) {
    unsigned seed = 1;
    for (int width = 1; width <= 12; ++width) {
        for (int height = 1; height <= 12; ++height) {
            for (const int size : {0, 1, 2, 3, 4, 5, 6, 7, 9, 12, 13, 20, 28, 36, 44, 60, 100}) {
                std::mt19937 random(++seed);
                const auto below = [&](unsigned limit) {
                    return static_cast<std::int16_t>(random() % limit);
                };
                ExpectAsModel(GetParam(), width, height, seed,
                              {static_cast<std::int16_t>(size), below(101), below(201), below(16),
                               below(2) == 1, below(2) == 1});
                if (HasFailure()) return;
            }
        }
    }
}

// Sizes from 1 by 1 to 40 by 40 and beyond a tile, wide and tall, drawn by lot.
TEST_P(FrameModelTest, DrawnPicturesAreAsTheModel) {
    std::mt19937 random(20);
    const auto between = [&](int low, int high) {
        return low + static_cast<int>(random() % static_cast<unsigned>(high - low + 1));
    };
    for (unsigned seed = 1000; seed < 1700; ++seed) {
        const bool large = seed % 7 == 0;
        const int width = large ? between(200, 300) : between(1, 40);
        const int height = large ? between(20, 90) : between(1, 40);
        const auto drawn = [&](int high) { return static_cast<std::int16_t>(between(0, high)); };
        ExpectAsModel(GetParam(), width, height, seed,
                      {drawn(seed % 2 == 0 ? 100 : 24), drawn(100), drawn(200),
                       drawn(seed % 3 == 0 ? 100 : 30), between(0, 1) == 1, between(0, 1) == 1});
        if (HasFailure()) return;
    }
}

TEST_P(FrameModelTest, TheEndsOfTheSlidersAreAsTheModel) {
    unsigned seed = 1;
    for (const PictureSize size : kAwkwardSizes) {
        for (const int end : {0, 1, 100}) {
            const auto low = static_cast<std::int16_t>(end);
            for (const bool lines : {false, true}) {
                ExpectAsModel(GetParam(), size.width, size.height, ++seed,
                              {low, 100, 200, static_cast<std::int16_t>(100 - low), lines, lines});
                ExpectAsModel(GetParam(), size.width, size.height, ++seed,
                              {50, low, static_cast<std::int16_t>(2 * low), low, lines, !lines});
                if (HasFailure()) return;
            }
        }
    }
}

// More pixels than a frame takes at a time.
TEST_P(FrameModelTest, ALargePictureIsAsTheModel) {
    ExpectAsModel(GetParam(), 8200, 320, 17, {90, 60, 140, 70, true, true});
}

TEST_P(FrameModelTest, ASideAbove32767IsAnOverflowWithNothingDrawn) {
    for (const PictureSize size : {PictureSize{32769, 1}, PictureSize{1, 32769}}) {
        const Bitmap picture = Flat(size.width, size.height, 0x102030);
        Load(picture);
        EXPECT_EQ(ErrorOf([&] {
                      GetParam().routine(work, live, Pb, {8, 10, 10, 8, true, true});
                  }),
                  kOverflow);
        EXPECT_TRUE(live.Image() == picture);
    }
}

TEST_P(FrameModelTest, OnlyTheTilesOfTheBandsAreDetached) {
    // 4 by 40 tiles; what no band of 12 pixels touches stays shared.
    const Bitmap picture = StrewnPicture(1024, 1280, 3);
    Load(picture);
    GetParam().routine(work, live, Pb, {12, 50, 50, 12, true, false});
    for (const Box& box : Bitmap::Difference(picture, live.Image())) {
        EXPECT_TRUE(box.left < 12 || box.top < 12 || box.right > 1012 || box.bottom > 1268)
            << box.left << ' ' << box.top;
        EXPECT_TRUE(box.top < 32 || box.bottom > 1248 || box.Width() <= 256) << box.left << ' ' << box.top;
    }
}

} // namespace

// The four bands meet in diagonals; with size 3 they are two pixels deep, counted from row and column 1.
TEST_F(FrameTest, APlainFrameLeavesRowAndColumnZero) {
    const Bitmap result =
        Framed(Flat(8, 7, kWhite), [&] { PlainFrame(work, live, 3, kBlack, false, false, Pb); });
    ExpectSamePixels(result, PictureOf({"........", //
                                        ".#######", //
                                        ".#######", //
                                        ".##..###", //
                                        ".##..###", //
                                        ".#######", //
                                        ".#######"}));
}

TEST_F(FrameTest, TheOuterLineCoversRowAndColumnZero) {
    const Bitmap result =
        Framed(Flat(6, 5, kWhite), [&] { PlainFrame(work, live, 0, kBlack, true, false, Pb); });
    ExpectSamePixels(result, PictureOf({"######", //
                                        "#....#", //
                                        "#....#", //
                                        "#....#", //
                                        "######"}));
}

// The frame is red; its bottom band begins in row 6 and its right one in column 7, where the line stands too.
TEST_F(FrameTest, TheInnerLineStandsAtTheSizeOnAllSides) {
    const Bitmap result =
        Framed(Flat(10, 9, kWhite), [&] { PlainFrame(work, live, 3, 0x0000FF, false, true, Pb); });
    ExpectSamePixels(result, PictureOf({"..........", //
                                        ".rrrrrrrrr", //
                                        ".rrrrrrrrr", //
                                        ".rr#####rr", //
                                        ".rr#...#rr", //
                                        ".rr#...#rr", //
                                        ".rr#####rr", //
                                        ".rrrrrrrrr", //
                                        ".rrrrrrrrr"}));
}

TEST_F(FrameTest, AnInsetOfZeroLosesItsRightAndBottomLine) {
    Load(Flat(4, 3, kWhite));
    DrawInsetRect(live, 0, kBlack);
    ExpectSamePixels(live.Image(), PictureOf({"####", "#...", "#..."}));
}

TEST_F(FrameTest, AnInsetBeyondTheMiddleDrawsNothing) {
    Load(Flat(5, 5, kWhite));
    DrawInsetRect(live, 3, kBlack);
    ExpectSamePixels(live.Image(), Flat(5, 5, kWhite));
}

// Grey 128 is hue 0, saturation 0, luminance 121. 60 is a lift of 20: m2 = 20 + 121 - (20 * 121 + 0.5) / 240
// = 130.91, m1 = 111.09. Red is m2 * 255 / 240, green half a step above m1, blue m1.
TEST_F(FrameTest, ABevelRaisesTheSaturationAndCutsTheShadowAt160) {
    std::int16_t highlight = 60;
    std::int16_t shadow = 60;
    const Bitmap result =
        Framed(Flat(9, 9, 0x808080), [&] { BevelFrame(work, live, 3, highlight, shadow, false, false, Pb); });
    HslValue grey = RgbToHsl(0x808080);
    EXPECT_EQ(PixelAt(result, 4, 0), 0x808080);
    EXPECT_EQ(PixelAt(result, 4, 1), RGB(139, 119, 118));
    EXPECT_EQ(PixelAt(result, 1, 4), RGB(139, 119, 118));
    EXPECT_EQ(PixelAt(result, 4, 7), RGB(107, 107, 107)); // 101 * 255 / 240
    EXPECT_EQ(PixelAt(result, 7, 4), RGB(107, 107, 107));
    EXPECT_EQ(grey.Lum, 121);
    const Bitmap white =
        Framed(Flat(9, 9, kWhite), [&] { BevelFrame(work, live, 3, highlight, shadow, false, false, Pb); });
    EXPECT_EQ(PixelAt(white, 4, 7), RGB(160, 160, 160));
}

TEST_F(FrameTest, ABevelKeepsItsIntensitiesForTheNextTime) {
    std::int16_t highlight = 45; // A third is 15.
    std::int16_t shadow = 100;   // 33.3
    BWizHighlight = BWizShadow = 0;
    Load(Flat(9, 9, kWhite));
    BevelFrame(work, live, 3, highlight, shadow, false, false, Pb);
    EXPECT_EQ(BWizHighlight, 45);
    EXPECT_EQ(BWizShadow, 100);
    EXPECT_EQ(highlight, 15);
    EXPECT_EQ(shadow, 33);
    highlight = 7;
    FadedBevelFrame(work, live, 3, highlight, shadow, false, false, Pb);
    EXPECT_EQ(BWizHighlight, 7);
    EXPECT_EQ(BWizShadow, 33);
    EXPECT_EQ(highlight, 14);
    EXPECT_EQ(shadow, 33);
}

// A bottom band deeper than the image is high begins above it, and what is read there ends it.
TEST_F(FrameTest, ABevelDeeperThanTheImageIsHighHasNoBottomBandThere) {
    std::int16_t highlight = 0;
    std::int16_t shadow = 150;
    const Bitmap result = Framed(Flat(20, 3, 0x404040),
                                 [&] { BevelFrame(work, live, 8, highlight, shadow, false, false, Pb); });
    EXPECT_NE(PixelAt(result, 3, 1), PixelAt(result, 10, 1)); // Depth 3 is shaded, depth 7 is not.
    EXPECT_EQ(PixelAt(result, 10, 0), 0x404040);
}

// With size 4 and light 20 the fade is 40, 30, 20; the shadow 80 is 80, 60, 40 from the edge inward.
TEST_F(FrameTest, AFadedBevelFadesInward) {
    std::int16_t highlight = 20;
    std::int16_t shadow = 80;
    const Bitmap result = Framed(
        Flat(20, 20, 0x808080), [&] { FadedBevelFrame(work, live, 4, highlight, shadow, false, false, Pb); });
    const auto lit = [](int by) { return HslToRgb({0, static_cast<std::int16_t>(by), 121}); };
    const auto shaded = [](int by) { return HslToRgb({0, 0, static_cast<std::int16_t>(121 - by)}); };
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(PixelAt(result, 10, 1 + i), lit(40 - 10 * i)) << i;
        EXPECT_EQ(PixelAt(result, 1 + i, 10), lit(40 - 10 * i)) << i;
        EXPECT_EQ(PixelAt(result, 10, 19 - i), shaded(80 - 20 * i)) << i;
    }
    // The right band grows from its inner edge: 20, 40, 60, 80.
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(PixelAt(result, 16 + i, 10), shaded(20 * (i + 1))) << i;
}

TEST_F(FrameTest, AFadedBevelOfSizeZeroDrawsItsLinesOnly) {
    std::int16_t highlight = 20;
    std::int16_t shadow = 80;
    const Bitmap result = Framed(Flat(4, 4, kWhite),
                                 [&] { FadedBevelFrame(work, live, 0, highlight, shadow, true, false, Pb); });
    ExpectSamePixels(result, PictureOf({"####", "#..#", "#..#", "####"}));
}

// Size 32 makes s 4: row 4, the innermost of an even size, keeps the picture.
TEST_F(FrameTest, ARidgeOfEvenSizeLeavesItsInnermostRow) {
    std::int16_t size = 32;
    const Bitmap result =
        Framed(Flat(20, 20, 0x0000FF), [&] { RidgeFrame(work, live, size, false, false, true, Pb); });
    const std::vector<Colour> down = {0x0000FF, kWhite, kWhite, RGB(192, 192, 192), 0x0000FF};
    for (int y = 0; y < 5; ++y)
        EXPECT_EQ(PixelAt(result, 10, y), down[static_cast<std::size_t>(y)]) << y;
    const std::vector<Colour> up = {kBlack, kBlack, RGB(128, 128, 128), 0x0000FF};
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(PixelAt(result, 10, 19 - i), up[static_cast<std::size_t>(i)]) << i;
}

TEST_F(FrameTest, AnOutwardRidgeExchangesLightAndDark) {
    std::int16_t size = 32;
    const Bitmap result =
        Framed(Flat(20, 20, 0x0000FF), [&] { RidgeFrame(work, live, size, false, false, false, Pb); });
    EXPECT_EQ(PixelAt(result, 10, 1), kBlack);
    EXPECT_EQ(PixelAt(result, 10, 3), RGB(128, 128, 128));
    EXPECT_EQ(PixelAt(result, 10, 17), RGB(192, 192, 192));
    EXPECT_EQ(PixelAt(result, 10, 19), kWhite);
}

// Size 32 makes s 4, the flat colour runs from 4 to 11, the inner moulding from 12 to 15.
TEST_F(FrameTest, AMouldHasTwoMouldingsAndAFlatColourBetween) {
    std::int16_t size = 32;
    const Bitmap result =
        Framed(Flat(60, 60, 0x0000FF), [&] { MouldFrame(work, live, size, 12, 0xC0C0C0, Pb); });
    const std::vector<Colour> across = {0x0000FF, kWhite,   0xCCCCCC, 0xCCCCCC, 0xC0C0C0, 0xC0C0C0,
                                        0xC0C0C0, 0xC0C0C0, 0xC0C0C0, 0xC0C0C0, 0xC0C0C0, 0xC0C0C0,
                                        0x808080, 0x808080, 0x404040, 0x404040, 0x0000FF};
    for (int x = 0; x < 17; ++x)
        EXPECT_EQ(PixelAt(result, x, 30), across[static_cast<std::size_t>(x)]) << x;
}

} // namespace pintalux
