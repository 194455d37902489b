// A zoom by the menu: what floats, where the bars stand, what happens beyond the largest view.
#include "document/BarPositions.h"
#include "document/Globals.h"
#include "document/Zoom.h"
#include "support/Documents.h"
#include "support/Pictures.h"
#include "support/Program.h"

namespace pintalux {
namespace {

class ZoomMenuTest : public ProgramTest {
  protected:
    void SetUp() override {
        ProgramTest::SetUp();
        Start();
    }

    /// 600 by 600 pixels in the window of the start, whose view is 300 by 304.
    frmImage& Large() {
        frmImage& image = OpenPicture("large.bmp", Picture(600, 600, 0xFFFFFF));
        EXPECT_EQ(image.PicFrame.ScaleWidth(), 300);
        EXPECT_EQ(image.PicFrame.ScaleHeight(), 304);
        return image;
    }
};

TEST_F(ZoomMenuTest, BarsKeepTheirRelativePlace) {
    frmImage& image = Large();
    ASSERT_EQ(image.HS.Max(), 600 - (300 - 17));
    ASSERT_EQ(image.VS.Max(), 600 - (304 - 17));
    image.HS.Value(100);
    image.VS.Value(313);
    Choose(frmMain->mnuZoomInX(1));
    EXPECT_EQ(image.HS.Max(), 1200 - 283);
    EXPECT_EQ(image.HS.Value(), 291); // 917 / (318 / 101)
    EXPECT_EQ(image.VS.Value(), 913); // 1200 - 287, the end
    EXPECT_EQ(image.PicBG.Left(), -291);
    EXPECT_EQ(image.PicBG.Top(), -913);
    EXPECT_EQ(ScrollRatioH, 318.0 / 101.0);
    EXPECT_EQ(ZoomOldWidth, 600);
    EXPECT_EQ(ZoomRatio, 2);
}

TEST_F(ZoomMenuTest, BarAtItsStartMovesByAShareOfOne) {
    frmImage& image = Large();
    Choose(frmMain->mnuZoomInX(3));
    // 2400 - 283 = 2117; 2117 / 318 = 6.66; 2400 - 287 = 2113; 2113 / 314 = 6.73.
    EXPECT_EQ(image.HS.Value(), 7);
    EXPECT_EQ(image.VS.Value(), 7);
}

TEST_F(ZoomMenuTest, BarThatJustAppearedStandsAtOne) {
    frmImage& image = NewDocument(100, 100);
    ASSERT_FALSE(image.HS.Visible());
    Choose(frmMain->mnuZoomInX(5));
    ASSERT_TRUE(image.HS.Visible());
    ASSERT_TRUE(image.VS.Visible());
    EXPECT_EQ(image.HS.Value(), 1);
    EXPECT_EQ(image.VS.Value(), 1);
    EXPECT_EQ(image.PicBG.Left(), -1);
    EXPECT_EQ(image.PicBG.Top(), -1);
}

TEST_F(ZoomMenuTest, FreehandSelectionIsDroppedAndTheCleanImageComesBack) {
    frmImage& image = NewDocument(40, 40);
    const Picture clean = RandomPicture(40, 40, 5);
    image.Pic1BU.Picture(clean);
    image.PicFreeSelect.Visible(true);
    Choose(frmMain->mnuZoomInX(1));
    EXPECT_FALSE(image.PicFreeSelect.Visible());
    ExpectSamePixels(ImageOf(image), clean);
    ExpectSamePixels(image.Image1.Picture(), clean);
}

TEST_F(ZoomMenuTest, RectangularSelectionStaysWhereItWasOnTheImage) {
    frmImage& image = NewDocument(100, 100);
    image.PicSelect.Move(10, 20, 30, 41);
    image.PicSelect.Visible(true);
    Choose(frmMain->mnuZoomInX(2));
    for (const Control* box :
         {static_cast<Control*>(&image.PicSelectShape), static_cast<Control*>(&image.SelectImage)}) {
        EXPECT_EQ(box->Left(), 0);
        EXPECT_EQ(box->Top(), 0);
        EXPECT_EQ(box->Width(), 90);
        EXPECT_EQ(box->Height(), 123);
    }
    EXPECT_EQ(image.PicSelect.Left(), 30);
    EXPECT_EQ(image.PicSelect.Top(), 60);
    EXPECT_EQ(image.PicSelect.Width(), 90);
    EXPECT_EQ(image.PicSelect.Height(), 123);
    EXPECT_TRUE(image.PicSelect.Visible());
    Choose(frmMain->mnuZoomActual);
    EXPECT_EQ(image.PicSelect.Left(), 10);
    EXPECT_EQ(image.PicSelect.Height(), 41);
    image.PicSelect.Visible(false);
}

TEST_F(ZoomMenuTest, ActualSizeLeavesAFreehandPieceFloating) {
    frmImage& image = NewDocument(40, 40);
    Choose(frmMain->mnuZoomInX(2));
    image.PicFreeSelect.Move(5, 5, 9, 9);
    image.PicFreeSelect.Visible(true);
    Choose(frmMain->mnuZoomActual);
    EXPECT_TRUE(image.PicFreeSelect.Visible());
    EXPECT_EQ(image.PicFreeSelect.Width(), 9);
    image.PicFreeSelect.Visible(false);
}

TEST_F(ZoomMenuTest, ActualSizeRestoresNoShare) {
    frmImage& image = Large();
    Choose(frmMain->mnuZoomInX(1));
    image.HS.Value(200);
    image.VS.Value(150);
    Choose(frmMain->mnuZoomActual);
    EXPECT_EQ(image.HS.Value(), 200);
    EXPECT_EQ(image.VS.Value(), 150);
}

TEST_F(ZoomMenuTest, ABarThatStoodForLessThanAPixelStopsNoLaterZoom) {
    for (const bool upright : {true, false}) {
        frmImage& image = OpenPicture("a.bmp", Picture(upright ? 90 : 400, upright ? 400 : 90, 0xFFFFFF));
        image.Width(133 * 15 + 120);
        image.Height(133 * 15 + 420);
        Choose(frmMain->mnuZoomOutX(2)); // 133 and a third
        const ScrollBar& bar = upright ? image.VS : image.HS;
        ASSERT_TRUE(bar.Visible());
        ASSERT_EQ(bar.Max(), 0);
        for (const int Index : {3, 4, 2}) {
            Choose(frmMain->mnuZoomOutX(Index));
            EXPECT_TRUE(untrapped.empty());
            EXPECT_EQ(image.factorlevel, 15 - Index);
            EXPECT_FALSE(ScreenLocked());
        }
        untrapped.clear();
    }
}

TEST_F(ZoomMenuTest, ViewBeyondTheEndIsPulledBack) {
    frmImage& image = Large();
    Choose(frmMain->mnuZoomInX(1));
    image.HS.Value(900);
    image.VS.Value(900);
    Choose(frmMain->mnuZoomActual);
    // 300 - 600: the image's right edge stands at the edge of the view, before the bars are laid out.
    EXPECT_EQ(image.PicBG.Left(), -300);
    EXPECT_EQ(image.HS.Value(), 300);
    EXPECT_EQ(image.VS.Value(), 600 - 304);
}

TEST_F(ZoomMenuTest, ToolOfNumberFourBecomesTwo) {
    NewDocument(20, 20);
    CurrentTool = 4;
    Choose(frmMain->mnuZoomInX(1));
    EXPECT_EQ(CurrentTool, 2);
    CurrentTool = kPenTool;
    Choose(frmMain->mnuZoomInX(2));
    EXPECT_EQ(CurrentTool, kPenTool);
}

TEST_F(ZoomMenuTest, LevelWhoseViewExceeds32767PixelsIsNotTaken) {
    for (const auto& [width, height] : {std::pair{3000, 4}, {4, 3000}}) {
        frmImage& image = OpenPicture("long.bmp", Picture(width, height, 0xFFFFFF));
        Choose(frmMain->mnuZoomInX(9)); // 30000 pixels
        const double left = image.PicBG.Left();
        const double top = image.PicBG.Top();
        image.PicFreeSelect.Visible(true);
        CurrentTool = 4;
        Choose(frmMain->mnuZoomInX(10)); // 33000 pixels
        EXPECT_TRUE(untrapped.empty());
        EXPECT_FALSE(ScreenLocked());
        EXPECT_EQ(image.factorlevel, 24);
        EXPECT_EQ(image.factor, 10);
        EXPECT_EQ(image.Image1.Width(), 10 * width);
        EXPECT_EQ(image.Image1.Height(), 10 * height);
        EXPECT_EQ(image.PicBG.Left(), left);
        EXPECT_EQ(image.PicBG.Top(), top);
        EXPECT_TRUE(frmMain->mnuZoomInX(9).Checked());
        EXPECT_FALSE(frmMain->mnuZoomInX(10).Checked());
        EXPECT_TRUE(image.PicFreeSelect.Visible());
        EXPECT_EQ(CurrentTool, 4);
        image.PicFreeSelect.Visible(false);
        CurrentTool = kPenTool;
    }
}

TEST_F(ZoomMenuTest, LargestViewIs32767PixelsLong) {
    frmImage& image = OpenPicture("wide.bmp", Picture(2047, 3, 0xFFFFFF));
    Choose(frmMain->mnuZoomInX(15));
    EXPECT_EQ(image.Image1.Width(), 32752);
    EXPECT_EQ(image.factorlevel, 30);
    frmImage& longer = OpenPicture("longer.bmp", Picture(2048, 3, 0xFFFFFF));
    Choose(frmMain->mnuZoomInX(15)); // 32768 pixels
    EXPECT_EQ(longer.factorlevel, 15);
    EXPECT_EQ(longer.Image1.Width(), 2048);
}

TEST_F(ZoomMenuTest, EveryLevelThatWasReachedCanBeLeft) {
    for (int Index = 0; Index <= 15; ++Index) {
        frmImage& image = OpenPicture("wide.bmp", Picture(3000, 4, 0xFFFFFF));
        Choose(frmMain->mnuZoomInX(Index));
        Choose(frmMain->mnuZoomOutX(4));
        EXPECT_EQ(image.factorlevel, 11);
        EXPECT_EQ(image.Image1.Width(), 600);
        Choose(frmMain->mnuZoomInX(Index));
        const int level = image.factorlevel;
        EXPECT_EQ(level, Index <= 9 ? Index + 15 : 11);
        ZoomStep(false, image.Image1, image.PicMerge);
        EXPECT_EQ(image.factorlevel, level - 1);
        Choose(frmMain->mnuZoomActual);
        EXPECT_EQ(image.Image1.Width(), 3000);
        EXPECT_TRUE(untrapped.empty());
        EXPECT_FALSE(ScreenLocked());
        image.Unload();
    }
}

// An undo at a zoom keeps the frame, whatever the size of the state.
TEST_F(ZoomMenuTest, LevelThatAnImageHasOutgrownCanBeLeft) {
    const auto outgrown = [this]() -> frmImage& {
        frmImage& image = NewDocument(100, 100);
        Choose(frmMain->mnuZoomInX(15));
        image.PicMerge.Picture(Picture(3000, 4, 0xFFFFFF));
        return image;
    };
    frmImage& left = outgrown();
    ZoomStep(false, left.Image1, left.PicMerge);
    EXPECT_EQ(left.factorlevel, 24); // 10:1, the next one that fits
    EXPECT_EQ(left.Image1.Width(), 30000);
    frmImage& chosen = outgrown();
    Choose(frmMain->mnuZoomActual);
    EXPECT_EQ(chosen.factorlevel, 15);
    EXPECT_EQ(chosen.Image1.Width(), 3000);
    EXPECT_TRUE(untrapped.empty());
}

} // namespace
} // namespace pintalux
