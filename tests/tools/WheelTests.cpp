// The wheel over a document.
#include "document/Selection.h"
#include "selection/ImageKeyTest.h"
#include "selection/RectangleSelection.h"

namespace pintalux {
namespace {

using WheelTest = ImageKeyTest;

constexpr int kNotch = 120;

TEST_F(WheelTest, TheWheelScrollsAndWithShiftSideways) {
    frmImage& image = LargeDocument();
    Turn(image.Image1, {100, 100}, {0, -kNotch});
    EXPECT_EQ(image.VS.Value(), 60);
    EXPECT_EQ(image.PicBG.Top(), -60);
    Turn(image.Image1, {100, 100}, {0, -kNotch}, Qt::ShiftModifier);
    EXPECT_EQ(image.HS.Value(), 60);
    Turn(image.PicFrame, {10, 10}, {-2 * kNotch, 0});
    EXPECT_EQ(image.HS.Value(), 180);
    Turn(image.HS, {5, 5}, {0, kNotch});
    EXPECT_EQ(image.HS.Value(), 120) << "over the lying bar it moves that bar";
    Turn(image.Image1, {100, 100}, {0, 9 * kNotch});
    EXPECT_EQ(image.VS.Value(), 0);
}

TEST_F(WheelTest, FineStepsAddUp) {
    frmImage& image = LargeDocument();
    for (int i = 0; i < 7; ++i)
        Turn(image.Image1, {100, 100}, {0, -1}); // half a pixel each
    EXPECT_EQ(image.VS.Value(), 3);
    for (int i = 0; i < 119; ++i)
        Turn(image.Image1, {100, 100}, {0, 1}, Qt::ControlModifier);
    EXPECT_EQ(image.factorlevel, 15);
    Turn(image.Image1, {100, 100}, {0, 1}, Qt::ControlModifier);
    EXPECT_EQ(image.factorlevel, 16);
}

// A touch pad sends turns along one way between those along the other.
TEST_F(WheelTest, FineStepsOfOneWayOutlastThoseOfTheOther) {
    frmImage& image = LargeDocument();
    for (int i = 0; i < 6; ++i) {
        Turn(image.Image1, {100, 100}, {0, -1});
        Turn(image.Image1, {100, 100}, {-1, 0});
    }
    EXPECT_EQ(image.VS.Value(), 3);
    EXPECT_EQ(image.HS.Value(), 3);
    for (int i = 0; i < 60; ++i) {
        Turn(image.Image1, {100, 100}, {0, 2}, Qt::ControlModifier);
        Turn(image.Image1, {100, 100}, {2, 0}, Qt::ControlModifier);
    }
    EXPECT_EQ(image.factorlevel, 16);
}

TEST_F(WheelTest, FineStepsAddUpInEveryWay) {
    frmImage& image = LargeDocument();
    image.HS.Value(100);
    image.VS.Value(100);
    struct Way {
        QPoint step;
        int across, down;
    };
    for (const Way& way : {Way{{0, -1}, 0, 3}, {{0, 1}, 0, -3}, {{-1, 0}, 3, 0}, {{1, 0}, -3, 0}}) {
        const double across = image.HS.Value() + way.across, down = image.VS.Value() + way.down;
        for (int i = 0; i < 6; ++i)
            Turn(image.Image1, {100, 100}, way.step);
        EXPECT_EQ(image.HS.Value(), across);
        EXPECT_EQ(image.VS.Value(), down);
    }
    for (const int step : {1, -1}) {
        const int level = image.factorlevel;
        for (int i = 0; i < 120; ++i)
            Turn(image.Image1, {100, 100}, {0, step}, Qt::ControlModifier);
        EXPECT_EQ(image.factorlevel, level + step);
    }
}

TEST_F(WheelTest, ATurnBackBeginsAnew) {
    frmImage& image = LargeDocument();
    Turn(image.Image1, {100, 100}, {0, -kNotch});
    Turn(image.Image1, {100, 100}, {0, -1}); // half a pixel down
    Turn(image.Image1, {100, 100}, {0, 2});  // a whole one up
    EXPECT_EQ(image.VS.Value(), 59);
    Turn(image.Image1, {100, 100}, {0, kNotch - 1}, Qt::ControlModifier);
    Turn(image.Image1, {100, 100}, {0, -kNotch}, Qt::ControlModifier);
    EXPECT_EQ(image.factorlevel, 14);
}

TEST_F(WheelTest, WithCtrlItZoomsAtThePointer) {
    frmImage& image = LargeDocument();
    image.HS.Value(300);
    image.VS.Value(200);
    // The pixel 400, 260 lies under the pointer at 100, 60 of the view.
    for (int level = 16; level <= 20; ++level) {
        Turn(image.PicFrame, {100, 60}, {0, kNotch}, Qt::ControlModifier);
        EXPECT_EQ(image.factorlevel, level);
        EXPECT_EQ((100 - image.PicBG.Left()) / image.factor, 400) << level;
        EXPECT_EQ((60 - image.PicBG.Top()) / image.factor, 260) << level;
    }
    for (int i = 0; i < 40; ++i)
        Turn(image.PicFrame, {100, 60}, {0, -kNotch}, Qt::ControlModifier);
    EXPECT_EQ(image.factorlevel, 0);
    EXPECT_FALSE(ScreenLocked());
    EXPECT_EQ(States(image), 1);
}

TEST_F(WheelTest, TheWheelReachesTheLargestAndTheSmallestView) {
    frmImage& image = NewDocument(20, 20);
    for (int i = 0; i < 40; ++i)
        Turn(image.PicFrame, {5, 5}, {0, kNotch}, Qt::ControlModifier);
    EXPECT_EQ(image.factor, 16);
    for (int i = 0; i < 40; ++i)
        Turn(image.PicFrame, {5, 5}, {0, -kNotch}, Qt::ControlModifier);
    EXPECT_EQ(image.factor, 1.0 / 16);
}

TEST_F(WheelTest, TheWheelTreatsWhatFloatsAsTheZoomMenuDoes) {
    CopyMode();
    frmImage& image = OpenRandom(60, 40);
    SelectRectangle(image, 10, 10, 30, 20);
    Turn(image.Image1, {5, 5}, {0, kNotch}, Qt::ControlModifier);
    EXPECT_EQ(image.PicSelect.Left(), 20);
    EXPECT_EQ(image.PicSelect.Width(), 40);
    Turn(image.Image1, {5, 5}, {0, -kNotch}, Qt::ControlModifier);
    mnuEditSelectNone_Click();
    SelectPath(image, {{10, 10}, {25, 10}, {25, 20}});
    Turn(image.Image1, {5, 5}, {0, kNotch}, Qt::ControlModifier);
    EXPECT_FALSE(PieceFloats(image)) << "a shape that was only lifted goes";
    ExpectSamePixels(ImageOf(image), Before());
}

TEST_F(WheelTest, DuringAStrokeByKeysTheWheelStandsStill) {
    frmImage& image = LargeDocument();
    Choose("Line");
    GoTo(image, 50, 50);
    Down(image, Qt::Key_Space);
    Turn(image.Image1, {100, 100}, {0, -kNotch});
    Turn(image.Image1, {100, 100}, {0, kNotch}, Qt::ControlModifier);
    EXPECT_EQ(image.VS.Value(), 0);
    EXPECT_EQ(image.factorlevel, 15);
}

} // namespace
} // namespace pintalux
