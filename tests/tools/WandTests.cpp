// The colour wand.
#include "tools/Wand.h"

#include "support/Errors.h"
#include "tools/ToolTest.h"

#include <map>

namespace pintalux {
namespace {

/// The pass as it is told, pixel by pixel and ring by ring.
void SlowWand(Picture& picture, int X, int Y, const WandShift& shift, int radius, int steps) {
    std::map<std::pair<int, int>, bool> done;
    for (int n = 1; n <= steps; ++n) {
        const double exact = static_cast<double>(radius) / steps * n;
        double r = std::floor(exact);
        if (exact - r > 0.5 || (exact - r == 0.5 && std::fmod(r, 2) == 1)) r += 1;
        const int reach = static_cast<int>(r);
        for (int a = -reach; a <= reach; ++a) {
            for (int b = -reach; b <= reach; ++b) {
                if (done[{a, b}] || a * a + b * b > reach * reach) continue;
                done[{a, b}] = true;
                if (!picture.Holds(X + a, Y + b)) continue;
                const Pixel c = picture.At(X + a, Y + b);
                int channels[] = {static_cast<int>(c & 255), static_cast<int>(c >> 8 & 255),
                                  static_cast<int>(c >> 16 & 255)};
                const int parts[] = {shift.red, shift.green, shift.blue};
                for (int i = 0; i < 3; ++i) {
                    channels[i] += (steps - n) * parts[i];
                    if (channels[i] < 0) channels[i] = 0;
                    if (channels[i] > 255) channels[i] = 255;
                }
                picture.Set(X + a, Y + b,
                            static_cast<Pixel>(channels[0] + channels[1] * 256 + channels[2] * 65536));
            }
        }
    }
}

class WandTest : public ToolTest {
  protected:
    void SetUp() override {
        ToolTest::SetUp();
        Choose("ColorWand");
    }

    static void Settings(int mode, int strength, int radius, int steps) {
        frmMain->Combo2.ListIndex(mode);
        frmMain->Slider4.Value(strength);
        frmMain->Slider5.Value(radius);
        frmMain->Slider6.Value(steps);
    }

    /// One pass over the picture of a document.
    static void Apply(frmImage& image, int X, int Y, const WandShift& shift, int radius, int steps) {
        WandStopped = false;
        image.picsource.Picture(image.PicMerge.Image());
        WandApply(image.PicMerge, image.picsource, image.picsource.hDC(), static_cast<float>(X),
                  static_cast<float>(Y), shift, static_cast<std::int16_t>(radius),
                  static_cast<std::int16_t>(steps));
    }

    /// What moves of the wand over view pixels make of a picture.
    static Picture Passed(Picture picture, const Path& views, double factor, const WandShift& shift,
                          int radius, int steps) {
        for (const auto& [x, y] : views)
            SlowWand(picture, At(x, factor), At(y, factor), shift, radius, steps);
        return picture;
    }
};

TEST_F(WandTest, DiscsMatchThePlainLoops) {
    constexpr unsigned kSeed = 20;
    std::mt19937 random(kSeed);
    const auto between = [&](int low, int high) {
        return low + static_cast<int>(random() % static_cast<unsigned>(high - low + 1));
    };
    for (int round = 0; round < 60; ++round) {
        const int width = between(1, 300);
        const int height = between(1, 80);
        const Picture start = RandomPicture(width, height, static_cast<unsigned>(random()));
        frmImage& image = NewDocument(width, height);
        image.PicMerge.Picture(start);
        const int X = between(-20, width + 20);
        const int Y = between(-20, height + 20);
        const WandShift shift{between(-10, 10), between(-10, 10), between(-10, 10)};
        const int radius = between(1, 60);
        const int steps = between(1, 50);
        SCOPED_TRACE(::testing::Message()
                     << "seed " << kSeed << ", round " << round << ": " << width << " x " << height << ", "
                     << X << ", " << Y << ", radius " << radius << ", steps " << steps);
        Apply(image, X, Y, shift, radius, steps);
        Picture expected = start;
        SlowWand(expected, X, Y, shift, radius, steps);
        if (!ExpectSamePixels(ImageOf(image), expected)) return;
        ExpectSamePixels(image.picsource.Image(), expected);
        image.Unload();
    }
}

TEST_F(WandTest, CornersAndEdgesOfTheImageCutTheDisc) {
    const Picture start = RandomPicture(40, 30, 3);
    for (const auto& [X, Y] :
         Path{{0, 0}, {39, 0}, {0, 29}, {39, 29}, {20, 0}, {-5, 15}, {44, 34}, {200, 9}}) {
        frmImage& image = NewDocument(40, 30);
        image.PicMerge.Picture(start);
        Apply(image, static_cast<int>(X), static_cast<int>(Y), {3, -2, 1}, 9, 12);
        Picture expected = start;
        SlowWand(expected, static_cast<int>(X), static_cast<int>(Y), {3, -2, 1}, 9, 12);
        ExpectSamePixels(ImageOf(image), expected);
        image.Unload();
    }
}

// Radius 4 in two rings: r is 2, then 4. The first is shifted once, the second not at all.
TEST_F(WandTest, RimIsWrittenBackUnchanged) {
    frmImage& image = NewDocument(11, 11, 0x646464);
    Apply(image, 5, 5, {10, 10, 10}, 4, 2);
    const Picture result = ImageOf(image);
    EXPECT_EQ(result.At(5, 5), 0x6E6E6Eu);
    EXPECT_EQ(result.At(7, 5), 0x6E6E6Eu);
    EXPECT_EQ(result.At(6, 6), 0x6E6E6Eu);
    EXPECT_EQ(result.At(8, 5), 0x646464u);
    EXPECT_EQ(result.At(9, 5), 0x646464u);
    EXPECT_EQ(result.At(7, 6), 0x646464u); // 4 + 1 is more than 4
}

TEST_F(WandTest, OneStepChangesNothing) {
    const Picture start = RandomPicture(30, 30, 4);
    frmImage& image = NewDocument(30, 30);
    image.PicMerge.Picture(start);
    Apply(image, 15, 15, {10, 10, 10}, 20, 1);
    ExpectSamePixels(ImageOf(image), start);
}

// Radius 1 in 50 steps: r is 0 up to the 25th, whose half rounds to the even 0, and 1 from the 26th on.
TEST_F(WandTest, SmallestRadiusHasARingOfFourPixels) {
    frmImage& image = NewDocument(5, 5, 0x000000);
    Apply(image, 2, 2, {1, 1, 1}, 1, 50);
    EXPECT_EQ(ImageOf(image).At(2, 2), 0x313131u); // 49
    EXPECT_EQ(ImageOf(image).At(1, 2), 0x181818u); // 24
    EXPECT_EQ(ImageOf(image).At(2, 3), 0x181818u);
    EXPECT_EQ(ImageOf(image).At(1, 1), 0u);
}

TEST_F(WandTest, ImageOfOnePixel) {
    frmImage& image = NewDocument(1, 1, 0x102030);
    Apply(image, 0, 0, {1, 0, -1}, 100, 10);
    // 9 shifts: red rises from 48, blue falls from 16.
    EXPECT_EQ(ImageOf(image).At(0, 0), 0x072039u);
    // Half off the image, the smallest disc with the most rings: the pixel beside the centre has 24 shifts.
    frmImage& other = NewDocument(1, 1, 0x000000);
    Apply(other, 1, 0, {1, 1, 1}, 1, 50);
    EXPECT_EQ(ImageOf(other).At(0, 0), 0x181818u);
}

TEST_F(WandTest, ChannelsStayWithinTheirRange) {
    frmImage& image = NewDocument(9, 9, RGB(250, 3, 128));
    Apply(image, 4, 4, {10, -10, 0}, 3, 10);
    EXPECT_EQ(ImageOf(image).At(4, 4), static_cast<Pixel>(RGB(255, 0, 128)));
    frmImage& other = NewDocument(9, 9, RGB(250, 3, 128));
    Apply(other, 4, 4, {INT32_MAX, INT32_MIN, 0}, 3, 50);
    EXPECT_EQ(ImageOf(other).At(4, 4), static_cast<Pixel>(RGB(255, 0, 128)));
}

TEST_F(WandTest, RadiusAbove181IsAnOverflow) {
    frmImage& image = NewDocument(9, 9, 0x808080);
    EXPECT_NO_THROW(Apply(image, 4, 4, {1, 1, 1}, 181, 10));
    const Picture before = ImageOf(image);
    EXPECT_EQ(ErrorOf([&] { Apply(image, 4, 4, {1, 1, 1}, 182, 10); }), kOverflow);
    ExpectSamePixels(ImageOf(image), before);
}

TEST_F(WandTest, StoppedWandChangesNothing) {
    frmImage& image = NewDocument(9, 9, 0x808080);
    image.picsource.Picture(image.PicMerge.Image());
    WandStopped = true;
    WandApply(image.PicMerge, image.picsource, image.picsource.hDC(), 4, 4, {1, 1, 1}, 200, 10);
    ExpectSamePixels(ImageOf(image), Picture(9, 9, 0x808080));
}

TEST_F(WandTest, ModesShiftTheChannelsOfTheirNames) {
    frmMain->SetCurrentColour(RGB(255, 128, 51));
    struct Row {
        int mode;
        WandShift shift;
    };
    // At strength 5 the current colour's shares are 5, 2.51 and exactly 1.
    for (const Row& row : {Row{0, {5, 5, 5}},
                           {1, {-5, -5, -5}},
                           {2, {5, -1, -1}},
                           {3, {-1, 5, -1}},
                           {4, {-1, -1, 5}},
                           {5, {5, 3, 1}}}) {
        Settings(row.mode, 5, 10, 10);
        const WandShift shift = ChosenShift();
        EXPECT_EQ(shift.red, row.shift.red) << row.mode;
        EXPECT_EQ(shift.green, row.shift.green) << row.mode;
        EXPECT_EQ(shift.blue, row.shift.blue) << row.mode;
    }
}

TEST_F(WandTest, WithoutAModeItChangesNothing) {
    const Picture start = RandomPicture(60, 60, 6);
    frmImage& image = OpenPicture("wand.bmp", start);
    Settings(-1, 10, 10, 10);
    Drag(image, {{30, 30}, {31, 30}});
    ExpectSamePixels(ImageOf(image), start);
}

// 51 / 255 * 10 is 2; 64 / 255 * 10 is 2.5098; 153 / 255 * 2.5 does not occur, but 255 / 255 * 1 does.
TEST_F(WandTest, ShareOfTheCurrentColourRoundsHalfToEven) {
    frmMain->SetCurrentColour(RGB(51, 64, 255));
    Settings(5, 10, 10, 10);
    EXPECT_EQ(ChosenShift().red, 2);
    EXPECT_EQ(ChosenShift().green, 3);
    EXPECT_EQ(ChosenShift().blue, 10);
}

TEST_F(WandTest, ModesAreNamedAsTheyAct) {
    const std::vector<std::string> names = {"Brilho", "Escurecer", "Vermelho", "Verde", "Azul", "Cor actual"};
    ASSERT_EQ(frmMain->Combo2.ListCount(), 6);
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(frmMain->Combo2.List(i), names[static_cast<std::size_t>(i)]);
}

// The point of a press is fifteen times too far out.
TEST_F(WandTest, PressActsAtFifteenTimesItsPlace) {
    const Picture start = RandomPicture(320, 320, 5);
    frmImage& image = OpenPicture("wand.bmp", start);
    Settings(0, 10, 8, 10);
    Press(image, 20, 10);
    Picture expected = start;
    SlowWand(expected, 300, 150, {10, 10, 10}, 8, 10);
    ExpectSamePixels(ImageOf(image), expected);
    ExpectSamePixels(image.Image1.Picture(), expected);
    Release(image, 20, 10);
    ExpectSamePixels(ImageOf(image), expected);
}

TEST_F(WandTest, PressAndReleaseOffTheImageChangesNothingAndTakesAState) {
    const Picture start = RandomPicture(60, 60, 6);
    frmImage& image = OpenPicture("wand.bmp", start);
    Settings(0, 10, 20, 10);
    const int states = States(image);
    Click(image, 30, 30);
    ExpectSamePixels(ImageOf(image), start);
    EXPECT_EQ(States(image), states + 1);
}

// Every whole view pixel comes through its fifteenth and back unchanged, 31 and 62 among them.
TEST_F(WandTest, MoveActsOnThePixelUnderThePointer) {
    const Picture start = RandomPicture(140, 70, 7);
    for (const int x : {0, 1, 31, 62, 123, 124, 125, 139}) {
        frmImage& image = NewDocument(140, 70);
        image.PicMerge.Picture(start);
        Settings(2, 4, 3, 10);
        const Path path = {{x, 31}};
        Press(image, 139, 69);
        MoveTo(image, x, 31);
        ExpectSamePixels(ImageOf(image), Passed(start, path, 1, {4, -1, -1}, 3, 10));
        Release(image, x, 31);
        image.Unload();
    }
}

TEST_F(WandTest, StrokeAddsUpMoveByMoveAndTakesOneState) {
    const Picture start = RandomPicture(120, 90, 8);
    frmImage& image = OpenPicture("wand.bmp", start);
    Settings(3, 2, 12, 17);
    const int states = States(image);
    const Path path = {{40, 40}, {45, 42}, {50, 45}, {119, 89}};
    Press(image, 100, 80);
    for (const auto& [x, y] : path) {
        MoveTo(image, x, y);
        ExpectSamePixels(image.Image1.Picture(), ImageOf(image));
    }
    EXPECT_EQ(States(image), states);
    Release(image, 119, 89);
    ExpectSamePixels(ImageOf(image), Passed(start, path, 1, {-1, 2, -1}, 12, 17));
    EXPECT_EQ(States(image), states + 1);
    EXPECT_TRUE(WandStopped);
    EXPECT_TRUE(image.PicMerge.AutoRedraw());
}

TEST_F(WandTest, PictureIsRedrawnOnlyAfterTheRelease) {
    frmImage& image = NewDocument(50, 50);
    Press(image, 40, 40);
    EXPECT_FALSE(image.PicMerge.AutoRedraw());
    EXPECT_FALSE(WandStopped);
    Release(image, 40, 40);
    EXPECT_TRUE(image.PicMerge.AutoRedraw());
}

TEST_F(WandTest, ZoomedMovesHitTheImagePixelUnderThePointer) {
    const Picture start = RandomPicture(60, 50, 9);
    for (const int level : {17, 14, 22, 12}) {
        frmImage& image = NewDocument(60, 50);
        image.PicMerge.Picture(start);
        ZoomToLevel(level);
        Settings(1, 3, 6, 10);
        const double factor = FactorOf(level);
        const Path path = {{10, 8}, {11, 9}, {13, 9}};
        Press(image, 14, 11);
        for (const auto& [x, y] : path)
            MoveTo(image, x, y);
        Release(image, 13, 9);
        // The press itself may have hit, fifteenfold.
        Picture expected = start;
        SlowWand(expected, At(15 * 14, factor), At(15 * 11, factor), {-3, -3, -3}, 6, 10);
        ExpectSamePixels(ImageOf(image), Passed(expected, path, factor, {-3, -3, -3}, 6, 10));
        image.Unload();
    }
}

TEST_F(WandTest, UndoBringsBackWhatWasBeforeTheStroke) {
    const Picture start = RandomPicture(50, 50, 10);
    frmImage& image = OpenPicture("wand.bmp", start);
    Settings(0, 10, 20, 10);
    Drag(image, {{45, 45}, {20, 20}, {25, 25}});
    EXPECT_FALSE(ImageOf(image) == start);
    pintalux::Choose(frmMain->mnuEditUndo);
    ExpectSamePixels(ImageOf(image), start);
}

// Only tiles that the disc meets are copied: all others are the same memory as before.
TEST_F(WandTest, PixelsOutsideTheDiscAreNeitherCopiedNorWritten) {
    frmImage& image = NewDocument(2048, 640, 0x405060);
    for (int y = 0; y < 640; y += 32) {
        for (int x = 0; x < 2048; x += 256)
            image.PicMerge.PSet(x, y, 0x112233);
    }
    image.PicMerge.Picture(image.PicMerge.Image());
    const Picture before = ImageOf(image);
    Apply(image, 700, 300, {1, 1, 1}, 40, 10);
    for (const Box& box : Bitmap::Difference(before, ImageOf(image))) {
        EXPECT_GE(box.right, 660);
        EXPECT_LE(box.left, 740);
        EXPECT_GT(box.bottom, 260);
        EXPECT_LE(box.top, 340);
    }
}

} // namespace
} // namespace pintalux
