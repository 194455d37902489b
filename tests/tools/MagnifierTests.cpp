// The magnifier.
#include "surface/window/Form.h"
#include "tools/ToolTest.h"

#include <QWidget>

namespace pintalux {
namespace {

class MagnifierTest : public ToolTest {
  protected:
    void SetUp() override {
        ToolTest::SetUp();
        Choose("Mag");
    }
};

TEST_F(MagnifierTest, LeftZoomsInAndRightZoomsOut) {
    frmImage& image = NewDocument(100, 80);
    Click(image, 50, 40);
    EXPECT_EQ(image.factorlevel, 16);
    EXPECT_EQ(image.factor, 2.0);
    EXPECT_EQ(image.Image1.Width(), 200);
    EXPECT_EQ(image.Image1.Height(), 160);
    EXPECT_EQ(image.PicBG.Width(), 200);
    EXPECT_EQ(image.PicBG.Height(), 160);
    Click(image, 50, 40, kRightButton);
    Click(image, 50, 40, kRightButton);
    EXPECT_EQ(image.factorlevel, 14);
    EXPECT_EQ(image.factor, 0.5);
    EXPECT_EQ(image.Image1.Width(), 50);
}

TEST_F(MagnifierTest, TakesNoUndoStateAndDrawsNothing) {
    frmImage& image = NewDocument(30, 30);
    const int states = States(image);
    Click(image, 5, 5);
    Click(image, 5, 5, kRightButton);
    Click(image, 5, 5, kMiddleButton);
    EXPECT_EQ(States(image), states);
    EXPECT_EQ(image.factorlevel, 15);
    ExpectImage(image, DrawingModel(30, 30, 0xFFFFFF));
}

TEST_F(MagnifierTest, AtTheLastLevelNothingChanges) {
    frmImage& image = NewDocument(30, 30);
    ZoomToLevel(30);
    Click(image, 5, 5);
    EXPECT_EQ(image.factorlevel, 30);
    EXPECT_EQ(image.Image1.Width(), 480);
    EXPECT_TRUE(ScreenLocked());
    EXPECT_TRUE(WidgetFor(image.PicFrame).updatesEnabled()); // what was held back is painted
    // The lock lasts until the next release, wherever that comes.
    Click(image, 5, 5, kRightButton);
    EXPECT_FALSE(ScreenLocked());
    EXPECT_EQ(image.factorlevel, 29);
}

TEST_F(MagnifierTest, AtTheFirstLevelARightClickChangesNothing) {
    frmImage& image = NewDocument(160, 160);
    ZoomToLevel(0);
    Click(image, 5, 5, kRightButton);
    EXPECT_EQ(image.factorlevel, 0);
    EXPECT_EQ(image.Image1.Width(), 10);
    EXPECT_TRUE(WidgetFor(image.PicFrame).updatesEnabled());
    LockWindowUpdate(nullptr);
}

TEST_F(MagnifierTest, ClickedPointStaysInView) {
    frmImage& image = OpenPicture("large.bmp", Picture(300, 300, 0xFFFFFF));
    Click(image, 200, 99.5);
    ASSERT_TRUE(image.HS.Visible());
    ASSERT_TRUE(image.VS.Visible());
    // 300 pixels became 600; the bars stand at the share of the way at which the point lay.
    EXPECT_EQ(image.HS.Value(), std::nearbyint(image.HS.Max() / (301.0 / 201.0)));
    EXPECT_EQ(image.VS.Value(), std::nearbyint(image.VS.Max() / (301.0 / 100.5)));
    EXPECT_EQ(image.PicBG.Left(), -image.HS.Value());
    EXPECT_EQ(image.PicBG.Top(), -image.VS.Value());
    EXPECT_EQ(ScrollRatioH, 301.0 / 201.0);
    EXPECT_EQ(ScrollRatioV, 301.0 / 100.5);
}

TEST_F(MagnifierTest, InAndOutOnAFittedWindowKeepsThePictureInView) {
    frmImage& image = NewDocument(300, 297);
    ASSERT_FALSE(image.VS.Visible());
    Click(image, 150, 200);
    ASSERT_LT(image.PicBG.Top(), 0);
    Click(image, 300, 400, kRightButton);
    EXPECT_FALSE(image.VS.Visible());
    EXPECT_EQ(image.PicBG.Top(), 0);
}

TEST_F(MagnifierTest, LevelWhoseViewExceeds32767PixelsIsNotTaken) {
    frmImage& image = OpenPicture("wide.bmp", Picture(3000, 4, 0xFFFFFF));
    ZoomToLevel(24);
    image.HS.Value(5000);
    Click(image, 5100, 5);
    EXPECT_EQ(image.factorlevel, 24);
    EXPECT_EQ(image.Image1.Width(), 30000);
    EXPECT_EQ(image.HS.Value(), 5000);
    EXPECT_FALSE(ScreenLocked());
    EXPECT_TRUE(untrapped.empty());
    Click(image, 5100, 5, kRightButton);
    EXPECT_EQ(image.factorlevel, 23);
}

TEST_F(MagnifierTest, RectangularSelectionIsScaledAlong) {
    frmImage& image = NewDocument(100, 100);
    image.PicSelect.Move(10, 20, 30, 40);
    Click(image, 50, 50);
    EXPECT_EQ(image.PicSelect.Left(), 20);
    EXPECT_EQ(image.PicSelect.Top(), 40);
    EXPECT_EQ(image.PicSelect.Width(), 60);
    EXPECT_EQ(image.PicSelect.Height(), 80);
    EXPECT_EQ(image.PicSelectShape.Left(), 0);
    EXPECT_EQ(image.PicSelectShape.Width(), 60);
    EXPECT_EQ(image.PicSelectShape.Height(), 80);
}

TEST_F(MagnifierTest, FreehandPieceFloatsOnUnscaled) {
    frmImage& image = NewDocument(100, 100);
    image.PicFreeSelect.Move(10, 10, 20, 20);
    image.PicFreeSelect.Visible(true);
    Click(image, 50, 50);
    EXPECT_TRUE(image.PicFreeSelect.Visible());
    EXPECT_EQ(image.PicFreeSelect.Width(), 20);
    image.PicFreeSelect.Visible(false);
}

TEST_F(MagnifierTest, MenuTicksFollow) {
    frmImage& image = NewDocument(30, 30);
    Click(image, 5, 5);
    Click(image, 5, 5);
    EXPECT_TRUE(frmMain->mnuZoomInX(2).Checked());
    EXPECT_FALSE(frmMain->mnuZoomInX(1).Checked());
    EXPECT_TRUE(frmMain->mnuZoomActual.Enabled());
}

// An image that the least zoom makes vanish can be zoomed in again.
TEST_F(MagnifierTest, TinyImageComesBackFromTheLeastZoom) {
    frmImage& image = NewDocument(7, 7);
    ZoomToLevel(0);
    EXPECT_EQ(image.Image1.Width(), 7.0 / 16);
    EXPECT_EQ(image.PicBG.PixelWidth(), 0);
    Click(image, 0, 0);
    EXPECT_EQ(image.factorlevel, 1);
    ZoomToLevel(15);
    EXPECT_EQ(image.Image1.Width(), 7);
}

} // namespace
} // namespace pintalux
