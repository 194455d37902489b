#include "imageops/FilterTestSupport.h"

namespace pintalux {
namespace {

constexpr std::int16_t kHorizontal = -1;
constexpr std::int16_t kVertical = 0;

/// `work` is the source and `live` the destination, as for the commands.
class FlipRotateTest : public FilterTest {
  protected:
    Bitmap Flipped(const Bitmap& picture, std::int16_t horizontal) {
        Load(picture);
        FlipImage(live, work, horizontal);
        ExpectSamePixels(work.Image(), picture);
        ExpectSamePixels(live.Picture(), live.Image());
        return live.Image();
    }

    Bitmap Turned(const Bitmap& picture, double degrees) {
        Load(picture);
        double angle = degrees;
        RotateImage(work, live, angle);
        EXPECT_EQ(angle, (360 - degrees) * (3.14159265358979 / 180));
        ExpectSamePixels(work.Image(), picture);
        ExpectSamePixels(live.Picture(), live.Image());
        EXPECT_TRUE(live.AutoSize());
        return live.Image();
    }

    void ExpectFlipAsModel(std::int16_t horizontal) {
        const ModelSurface source = ModelOf(work);
        ModelSurface destination = ModelOf(live);
        FlipModel(destination, source, horizontal);
        FlipImage(live, work, horizontal);
        ExpectSamePixels(live.Image(), destination.shown);
        ExpectSamePixels(live.Picture(), destination.stored);
        ExpectSamePixels(work.Image(), source.shown);
        EXPECT_TRUE(live.AutoSize());
    }

    void ExpectTurnAsModel(double degrees) {
        const ModelSurface source = ModelOf(work);
        ModelSurface destination = ModelOf(live);
        double expectedAngle = degrees;
        RotateModel(source, destination, expectedAngle);
        double angle = degrees;
        RotateImage(work, live, angle);
        EXPECT_EQ(angle, expectedAngle);
        ExpectSamePixels(live.Image(), destination.shown);
        ExpectSamePixels(live.Picture(), destination.stored);
        ExpectSamePixels(work.Image(), source.shown);
        EXPECT_TRUE(live.AutoSize());
    }

    /// A picture whose pixels all differ: 1 and up, row by row.
    static Bitmap Numbered(int width, int height) {
        Bitmap picture(width, height, 0);
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x)
                picture.Set(x, y, static_cast<Pixel>(1 + x + y * width));
        }
        return picture;
    }
};

// Flip.

TEST_F(FlipRotateTest, Flip_MirrorsLeftToRight) {
    ExpectSamePixels(Flipped(PictureOf({"rg#", "b.y"}), kHorizontal), PictureOf({"#gr", "y.b"}));
}

TEST_F(FlipRotateTest, Flip_MirrorsTopToBottom) {
    ExpectSamePixels(Flipped(PictureOf({"rg#", "b.y", "###"}), kVertical), PictureOf({"###", "b.y", "rg#"}));
}

TEST_F(FlipRotateTest, Flip_AnyOtherFlagMirrorsTopToBottom) {
    ExpectSamePixels(Flipped(PictureOf({"rg", "b."}), 1), PictureOf({"b.", "rg"}));
}

TEST_F(FlipRotateTest, Flip_TwiceGivesThePictureBack) {
    const Bitmap picture = StrewnPicture(257, 33, 1);
    ExpectSamePixels(Flipped(Flipped(picture, kHorizontal), kHorizontal), picture);
    ExpectSamePixels(Flipped(Flipped(picture, kVertical), kVertical), picture);
}

TEST_F(FlipRotateTest, Flip_BothWaysIsTheHalfTurn) {
    ExpectSamePixels(Flipped(Flipped(PictureOf({"rg#", "b.y"}), kVertical), kHorizontal),
                     PictureOf({"y.b", "#gr"}));
}

TEST_F(FlipRotateTest, Flip_TakesTheMaskColourAlong) {
    FreeSelActive = true;
    ExpectSamePixels(Flipped(PictureOf({"k.."}), kHorizontal), PictureOf({"..k"}));
}

TEST_F(FlipRotateTest, Flip_AwkwardPictures) {
    unsigned seed = 1;
    for (const PictureSize size : kAwkwardSizes) {
        for (const std::int16_t horizontal : {kHorizontal, kVertical}) {
            SCOPED_TRACE(std::to_string(size.width) + " x " + std::to_string(size.height) + ", horizontal " +
                         std::to_string(horizontal) + ", seed " + std::to_string(seed));
            Load(StrewnPicture(size.width, size.height, seed++));
            ExpectFlipAsModel(horizontal);
            if (HasFailure()) return;
        }
    }
}

TEST_F(FlipRotateTest, Flip_ToADestinationOfAnotherSize) {
    for (const std::int16_t horizontal : {kHorizontal, kVertical}) {
        work.Picture(StrewnPicture(20, 15, 1));
        live.Picture(StrewnPicture(30, 10, 2));
        ExpectFlipAsModel(horizontal);
    }
}

TEST_F(FlipRotateTest, Flip_SwitchesAutoSizeOnAtTheDestination) {
    live.AutoSize(false);
    live.Width(20);
    live.Height(15);
    work.Picture(StrewnPicture(20, 15, 1));
    live.Picture(work.Image());
    ExpectFlipAsModel(kHorizontal);
}

TEST_F(FlipRotateTest, Flip_TakesSidesAbove32767) {
    Bitmap picture = Flat(32768, 1, kWhite);
    picture.Set(0, 0, 0);
    const Bitmap result = Flipped(picture, kHorizontal);
    EXPECT_EQ(PixelAt(result, 32767, 0), kBlack);
    EXPECT_EQ(PixelAt(result, 0, 0), kWhite);
}

// Turns. The loop reaches one pixel less than half the longer side from the centre.

TEST_F(FlipRotateTest, Turn_By90OfFiveByThree) {
    //  1  2  3  4  5
    //  6  7  8  9 10
    // 11 12 13 14 15     centre 2, 1; the first and last column lie beyond the loop
    constexpr Colour w = kWhite;
    ExpectSamePixels(Turned(Numbered(5, 3), 90),
                     ColoursOf({{w, w, w}, {12, 7, 2}, {13, 8, 3}, {14, 9, 4}, {w, w, w}}));
}

TEST_F(FlipRotateTest, Turn_By270OfFiveByThree) {
    constexpr Colour w = kWhite;
    ExpectSamePixels(Turned(Numbered(5, 3), 270),
                     ColoursOf({{w, w, w}, {4, 9, 14}, {3, 8, 13}, {2, 7, 12}, {w, w, w}}));
}

TEST_F(FlipRotateTest, Turn_EvenSidesHaveTheirCentreAtTheUpperHalf) {
    // 4 by 4: centre 2, 2, reach 1: columns and rows 1 to 3.
    //  6  7  8
    // 10 11 12
    // 14 15 16
    constexpr Colour w = kWhite;
    ExpectSamePixels(Turned(Numbered(4, 4), 90),
                     ColoursOf({{w, w, w, w}, {w, 14, 10, 6}, {w, 15, 11, 7}, {w, 16, 12, 8}}));
}

TEST_F(FlipRotateTest, Turn_SmallestPictures) {
    // Half of 1 is 0, and the loop is empty.
    ExpectSamePixels(Turned(Flat(1, 1, kBlack), 90), Flat(1, 1, kWhite));
    // Half of 2 and of 3 is 1, and the centre alone is turned.
    ExpectSamePixels(Turned(Numbered(2, 2), 90), ColoursOf({{kWhite, kWhite}, {kWhite, 4}}));
    ExpectSamePixels(Turned(Numbered(3, 1), 270), ColoursOf({{kWhite}, {2}, {kWhite}}));
}

TEST_F(FlipRotateTest, Turn_HolesShowTheDestinationsBackground) {
    live.BackColor(RGB(1, 2, 3));
    ExpectSamePixels(Turned(Flat(2, 1, kBlack), 90), ColoursOf({{RGB(1, 2, 3)}, {kBlack}}));
    ExpectSamePixels(Turned(Flat(1, 1, kBlack), 90), Flat(1, 1, RGB(1, 2, 3)));
}

TEST_F(FlipRotateTest, Turn_ExchangesWidthAndHeight) {
    const Bitmap result = Turned(StrewnPicture(30, 17, 1), 90);
    EXPECT_EQ(result.Width(), 17);
    EXPECT_EQ(result.Height(), 30);
    EXPECT_EQ(live.ScaleWidth(), 17);
    EXPECT_EQ(live.ScaleHeight(), 30);
}

TEST_F(FlipRotateTest, Turn_ThereAndBackDoesNotGiveThePictureBack) {
    const Bitmap picture = Numbered(5, 5);
    const Bitmap back = Turned(Turned(picture, 90), 270);
    EXPECT_FALSE(back == picture);
    EXPECT_EQ(back.At(2, 2), picture.At(2, 2));
}

TEST_F(FlipRotateTest, Turn_LeavesTheAngleInRadians) {
    Load(Flat(3, 3, kBlack));
    double angle = 90;
    RotateImage(work, live, angle);
    EXPECT_NEAR(angle, 4.71238898038469, 1e-14);
    angle = 270;
    RotateImage(work, live, angle);
    EXPECT_NEAR(angle, 1.5707963267949, 1e-13);
}

TEST_F(FlipRotateTest, Turn_AwkwardPictures) {
    unsigned seed = 1;
    for (const PictureSize size : kAwkwardSizes) {
        for (const double degrees : {90.0, 270.0}) {
            SCOPED_TRACE(std::to_string(size.width) + " x " + std::to_string(size.height) + ", " +
                         std::to_string(degrees) + " degrees, seed " + std::to_string(seed));
            Load(StrewnPicture(size.width, size.height, seed++));
            ExpectTurnAsModel(degrees);
            if (HasFailure()) return;
        }
    }
}

TEST_F(FlipRotateTest, Turn_OtherAngles) {
    unsigned seed = 1;
    for (const double degrees : {0.0, 1.0, 30.0, 45.0, 137.5, 180.0, 300.0, 360.0}) {
        for (const PictureSize size :
             {PictureSize{1, 1}, PictureSize{9, 9}, PictureSize{24, 17}, PictureSize{70, 131}}) {
            SCOPED_TRACE(std::to_string(size.width) + " x " + std::to_string(size.height) + ", " +
                         std::to_string(degrees) + " degrees, seed " + std::to_string(seed));
            Load(StrewnPicture(size.width, size.height, seed++));
            ExpectTurnAsModel(degrees);
            if (HasFailure()) return;
        }
    }
}

TEST_F(FlipRotateTest, Turn_OntoALargerDestinationOfAnotherPicture) {
    work.Picture(StrewnPicture(20, 15, 1));
    live.Picture(StrewnPicture(50, 60, 2));
    ExpectTurnAsModel(90);
    work.Picture(StrewnPicture(20, 15, 3));
    live.BackColor(RGB(9, 8, 7));
    live.Picture(StrewnPicture(5, 6, 4));
    ExpectTurnAsModel(270);
}

TEST_F(FlipRotateTest, Turn_ASideAbove32769Overflows) {
    for (const PictureSize size : {PictureSize{32770, 1}, PictureSize{1, 32770}}) {
        Load(Flat(size.width, size.height, kBlack));
        double angle = 90;
        EXPECT_EQ(ErrorOf([&] { RotateImage(work, live, angle); }), kOverflow);
    }
}

} // namespace
} // namespace pintalux
