// The eye-dropper.
#include "tools/ToolTest.h"

namespace pintalux {
namespace {

class ColorPickTest : public ToolTest {
  protected:
    void SetUp() override {
        ToolTest::SetUp();
        Choose("ColorPick");
    }
};

TEST_F(ColorPickTest, PreviewsTheColourUnderItsTipWithoutAButton) {
    const Picture picture = RandomPicture(60, 60, 7);
    frmImage& image = OpenPicture("pick.bmp", picture);
    MoveTo(image, 40.8, 20, 0);
    const auto sampled = static_cast<Colour>(picture.At(24, 34));
    EXPECT_EQ(frmMain->Picture6.BackColor(), sampled);
    EXPECT_EQ(frmMain->lblColor.Caption(), RgbReadout(sampled));
    EXPECT_EQ(frmMain->TheColor.BackColor(), kInk);
}

// The coordinates round, an exact half to the even pixel.
TEST_F(ColorPickTest, TipRoundsHalfToEvenAtAZoom) {
    const Picture picture = RandomPicture(60, 60, 8);
    frmImage& image = OpenPicture("pick.bmp", picture);
    ZoomToLevel(16);
    for (const auto& [X, x] : {std::pair(37, 10), {39, 12}, {41, 12}, {38, 11}}) {
        MoveTo(image, X, 6, 0);
        EXPECT_EQ(frmMain->Picture6.BackColor(), static_cast<Colour>(picture.At(x, 10))) << X;
    }
    for (const auto& [Y, y] : {std::pair(7, 10), {9, 12}, {11, 12}}) {
        MoveTo(image, 36, Y, 0);
        EXPECT_EQ(frmMain->Picture6.BackColor(), static_cast<Colour>(picture.At(10, y))) << Y;
    }
}

TEST_F(ColorPickTest, ReleaseMakesItTheCurrentColourAndTakesNoState) {
    const Colour picked = 0x30A0F0;
    frmImage& image = OpenPicture("pick.bmp", Picture(60, 60, static_cast<Pixel>(picked)));
    const int states = States(image);
    Press(image, 30, 20);
    MoveTo(image, 31, 20);
    Release(image, 31, 20);
    EXPECT_EQ(frmMain->TheColor.BackColor(), picked);
    EXPECT_EQ(image.curdrawcolor, picked);
    EXPECT_EQ(frmMain->TheColor.ForeColor(), ContrastColor(picked));
    EXPECT_EQ(frmMain->LblCurCol.ForeColor(), ContrastColor(picked));
    EXPECT_EQ(frmMain->txtRed.Text(), "240");
    EXPECT_EQ(frmMain->txtGreen.Text(), "160");
    EXPECT_EQ(frmMain->txtBlue.Text(), "48");
    EXPECT_EQ(frmMain->VSgreen.Value(), 255 - 160);
    EXPECT_EQ(frmMain->lblColor.Caption(), "RGB: 240, 160, 48");
    EXPECT_EQ(States(image), states);
    ExpectImage(image, DrawingModel(60, 60, static_cast<Pixel>(picked)));
}

TEST_F(ColorPickTest, TipOffTheImageChangesNothing) {
    const Colour shown = 0x30A0F0;
    frmImage& image = OpenPicture("pick.bmp", Picture(60, 60, static_cast<Pixel>(shown)));
    MoveTo(image, 30, 20, 0);
    // The tip lies left of the image, below it, right of it, above it.
    for (const auto& [x, y] : {std::pair(3, 20), {30, 50}, {80, 20}, {30, -20}}) {
        MoveTo(image, x, y, 0);
        EXPECT_EQ(frmMain->Picture6.BackColor(), shown) << x << ", " << y;
        EXPECT_EQ(frmMain->lblColor.Caption(), RgbReadout(shown));
        Click(image, x, y);
        EXPECT_EQ(frmMain->TheColor.BackColor(), kInk) << x << ", " << y;
    }
}

TEST_F(ColorPickTest, RightReleaseTakesAStateAndNoColour) {
    frmImage& image = NewDocument(40, 40);
    const int states = States(image);
    Press(image, 30, 10, kRightButton);
    Release(image, 30, 10, kRightButton);
    EXPECT_EQ(States(image), states + 1);
    EXPECT_EQ(frmMain->TheColor.BackColor(), kInk);
}

} // namespace
} // namespace pintalux
