// Pieces on a view that has fewer pixels than they: what lies between two of them is not lost.
#include "selection/EditCommands.h"
#include "selection/SelectionTest.h"
#include "surface/system/Clipboard.h"

namespace pintalux {
namespace {

class ReducingZoomTest : public SelectionTest {
  protected:
    void TearDown() override {
        Clipboard.Clear();
        SelectionTest::TearDown();
    }
};

TEST_F(ReducingZoomTest, ALassoDraggedAwayAndBackChangesNoPixel) {
    for (int level = 0; level < 15; ++level) {
        SCOPED_TRACE(level);
        frmImage& image = OpenRandom(640, 480, static_cast<unsigned>(level));
        CopyMode();
        ZoomToLevel(level);
        SelectPath(image, {{5.5, 4.5}, {20.5, 6.5}, {23.5, 21.5}, {8.5, 22.5}});
        ASSERT_TRUE(image.PicFreeSelect.Visible());
        CarryFreehand(image, 3, 2);
        CarryFreehand(image, -3, -2);
        Choose("Pointer");
        Press(image, 1, 1);
        ExpectSamePixels(ImageOf(image), Before());
    }
}

TEST_F(ReducingZoomTest, APasteMergesWhole) {
    for (int level = 0; level < 15; ++level) {
        SCOPED_TRACE(level);
        frmImage& image = OpenRandom(640, 480, static_cast<unsigned>(level));
        const Bitmap clip = RandomPicture(101, 77, 99, 0xFFFFFF);
        ZoomToLevel(level);
        Clipboard.SetData(clip);
        mnuEditPaste_Click();
        image.NeedtoPaste();
        ExpectSamePixels(ImageOf(image), WithPiece(Before(), clip, 0, 0));
    }
}

TEST_F(ReducingZoomTest, AZoomThereAndBackChangesNothing) {
    for (int level = 0; level <= 30; ++level) {
        SCOPED_TRACE(level);
        frmImage& image = OpenRandom(131, 97, static_cast<unsigned>(level));
        CopyMode();
        SelectRectangle(image, 11, 7, 44, 28);
        CarryRectangle(image, 20, 30);
        ZoomToLevel(level);
        EXPECT_EQ(image.SelectImage.Width(), image.PicSelect.Width());
        ZoomToLevel(15);
        image.NeedtoPaste();
        ExpectSamePixels(ImageOf(image), WithPiece(Before(), Part(Before(), 11, 7, 33, 21), 31, 37));
    }
}

} // namespace
} // namespace pintalux
