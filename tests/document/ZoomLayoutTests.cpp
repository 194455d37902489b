// The layout of the view: centring, scroll bars, the corner, scrolling.
#include "document/Globals.h"
#include "document/Zoom.h"
#include "support/Documents.h"
#include "support/Program.h"

namespace pintalux {
namespace {

class ZoomLayoutTest : public ProgramTest {
  protected:
    void SetUp() override {
        ProgramTest::SetUp();
        Start();
    }

    /// A document whose view is 300 by 304, with a backing panel of this size, laid out from `left`, `top`.
    frmImage& Laid(double width, double height, double left = 0, double top = 0) {
        frmImage& image = NewDocument(10, 10);
        image.Width(4620);
        image.Height(4980);
        PassEvents();
        image.PicBG.Move(left, top, width, height);
        image.Picsize();
        EXPECT_EQ(image.PicFrame.ScaleWidth(), 300);
        EXPECT_EQ(image.PicFrame.ScaleHeight(), 304);
        return image;
    }
};

TEST_F(ZoomLayoutTest, SmallImageIsCentred) {
    frmImage& image = Laid(101, 51);
    EXPECT_EQ(image.PicBG.Left(), 99);
    EXPECT_EQ(image.PicBG.Top(), 126);
    EXPECT_FALSE(image.HS.Visible());
    EXPECT_FALSE(image.VS.Visible());
    EXPECT_FALSE(image.piccorner.Visible());
}

TEST_F(ZoomLayoutTest, ImageIsCentredUprightOnlyWithMoreThanThirteenPixelsToSpare) {
    EXPECT_EQ(Laid(300, 290, 0, 5).PicBG.Top(), 7);
    EXPECT_EQ(Laid(300, 291, 0, 5).PicBG.Top(), 5);
    EXPECT_EQ(Laid(300, 304, 0, 5).PicBG.Top(), 5);
    // Across there is no such zone.
    EXPECT_EQ(Laid(298, 304, 50, 0).PicBG.Left(), 1);
    EXPECT_EQ(Laid(299, 304, 50, 0).PicBG.Left(), 0);
}

TEST_F(ZoomLayoutTest, WhatWasScrolledUpComesBackWhenTheBarGoes) {
    EXPECT_EQ(Laid(300, 290, 0, -40).PicBG.Top(), 7);
    EXPECT_EQ(Laid(300, 291, 0, -40).PicBG.Top(), 0);
    EXPECT_EQ(Laid(300, 304, 0, -1).PicBG.Top(), 0);
}

TEST_F(ZoomLayoutTest, WideImageGetsTheLyingBar) {
    frmImage& image = Laid(301, 100, 20, 0);
    EXPECT_TRUE(image.HS.Visible());
    EXPECT_FALSE(image.VS.Visible());
    EXPECT_FALSE(image.piccorner.Visible());
    EXPECT_EQ(image.PicBG.Left(), 0);
    EXPECT_EQ(image.HS.Left(), 0);
    EXPECT_EQ(image.HS.Top(), 304 - image.HS.Height() - 2);
    EXPECT_EQ(image.HS.Width(), 300);
    EXPECT_EQ(image.HS.Min(), 0);
    EXPECT_EQ(image.HS.Max(), 1);
    EXPECT_EQ(image.HS.LargeChange(), 0);
}

TEST_F(ZoomLayoutTest, TallImageGetsTheUprightBar) {
    frmImage& image = Laid(100, 329, 0, 20);
    EXPECT_FALSE(image.HS.Visible());
    EXPECT_TRUE(image.VS.Visible());
    EXPECT_EQ(image.PicBG.Top(), 0);
    EXPECT_EQ(image.VS.Top(), 0);
    EXPECT_EQ(image.VS.Left(), 300 - image.VS.Width());
    EXPECT_EQ(image.VS.Height(), 304);
    EXPECT_EQ(image.VS.Max(), 25);
    EXPECT_EQ(image.VS.LargeChange(), 2); // 2.5 to the even number
}

TEST_F(ZoomLayoutTest, LargeImageGetsBothBarsAndTheCorner) {
    frmImage& image = Laid(600, 700);
    const double barWidth = image.VS.Width();
    const double barHeight = image.HS.Height();
    EXPECT_EQ(image.HS.Width(), 300 - barWidth);
    EXPECT_EQ(image.VS.Height(), 304 - barHeight);
    EXPECT_TRUE(image.piccorner.Visible());
    EXPECT_EQ(image.piccorner.Top(), image.HS.Top());
    EXPECT_EQ(image.piccorner.Left(), image.VS.Left());
    EXPECT_EQ(image.HS.Max(), 600 - (300 - barWidth));
    EXPECT_EQ(image.VS.Max(), 700 - (304 - barHeight));
}

TEST_F(ZoomLayoutTest, ViewSmallerThanTheBarsLeavesThemNoLength) {
    frmImage& image = NewDocument(8, 4);
    Choose(frmMain->mnuZoomInX(9));
    EXPECT_TRUE(untrapped.empty());
    EXPECT_TRUE(image.piccorner.Visible());
    EXPECT_EQ(image.HS.Width(), 0);
    EXPECT_EQ(image.VS.Height(), 0);
    EXPECT_EQ(image.HS.Max(), 80);
    EXPECT_EQ(image.VS.Max(), 40);
}

TEST_F(ZoomLayoutTest, NegativePlaceOfALargeImageStays) {
    frmImage& image = Laid(600, 700, -50, -60);
    EXPECT_EQ(image.PicBG.Left(), -50);
    EXPECT_EQ(image.PicBG.Top(), -60);
}

TEST_F(ZoomLayoutTest, BarsMoveTheImage) {
    frmImage& image = Laid(600, 700);
    image.HS.Value(33);
    image.VS.Value(44);
    EXPECT_EQ(image.PicBG.Left(), -33);
    EXPECT_EQ(image.PicBG.Top(), -44);
    image.HS.Scroll();
    image.VS.Scroll();
    EXPECT_EQ(image.PicBG.Left(), -33);
    EXPECT_EQ(image.PicBG.Top(), -44);
}

TEST_F(ZoomLayoutTest, HiddenBarMovesNothing) {
    frmImage& image = Laid(100, 100);
    image.HS.Value(33);
    image.VS.Value(44);
    EXPECT_EQ(image.PicBG.Left(), 100);
    EXPECT_EQ(image.PicBG.Top(), 102);
}

TEST_F(ZoomLayoutTest, RulersFollowTheBarsOnlyWhileTheyAreOn) {
    frmImage& image = Laid(600, 700);
    image.ImgTrule.Left(7);
    image.ImgLrule.Top(7);
    image.HS.Value(33);
    image.VS.Value(44);
    EXPECT_EQ(image.ImgTrule.Left(), 7);
    EXPECT_EQ(image.ImgLrule.Top(), 7);
    RulersOn = true;
    image.HS.Value(34);
    image.VS.Value(45);
    EXPECT_EQ(image.ImgTrule.Left(), image.LeftRuler.ScaleWidth() - 34);
    EXPECT_EQ(image.ImgLrule.Top(), -45);
    RulersOn = false;
}

TEST_F(ZoomLayoutTest, ResizeOfTheWindowCentresAgain) {
    frmImage& image = NewDocument(100, 100);
    image.Width(4620);
    image.Height(4980);
    PassEvents();
    EXPECT_EQ(image.PicBG.Left(), 100);
    EXPECT_EQ(image.PicBG.Top(), 102);
    image.Width(4620 + 15 * 40);
    PassEvents();
    EXPECT_EQ(image.PicBG.Left(), 120);
}

TEST_F(ZoomLayoutTest, ResizeGoesBackToTheTopButKeepsTheColumn) {
    frmImage& image = OpenPicture("large.bmp", Picture(600, 600, 0xFFFFFF));
    image.HS.Value(50);
    image.VS.Value(60);
    image.Height(image.Height() - 150);
    PassEvents();
    EXPECT_EQ(image.PicBG.Top(), 0);
    EXPECT_EQ(image.PicBG.Left(), -50);
}

} // namespace
} // namespace pintalux
