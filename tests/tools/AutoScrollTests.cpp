// Scrolling while a selection is dragged to the edge of the view.
#include "tools/AutoScroll.h"
#include "tools/ToolTest.h"

namespace pintalux {
namespace {

class AutoScrollTest : public ToolTest {
  protected:
    /// A document that is larger than its window, scrolled to 100, 100.
    frmImage& Large() {
        frmImage& image = OpenPicture("large.bmp", Picture(600, 600, 0xFFFFFF));
        image.HS.Value(100);
        image.VS.Value(100);
        return image;
    }

    static int ScrolledX(frmImage& image, double X) {
        image.HS.Value(100);
        AutoScroll(image, X, 250);
        return image.HS.Value() - 100;
    }
    static int ScrolledY(frmImage& image, double Y) {
        image.VS.Value(100);
        AutoScroll(image, 250, Y);
        return image.VS.Value() - 100;
    }
};

TEST_F(AutoScrollTest, WithinThreeOfAnEdgeThreeAndFurtherOutTen) {
    frmImage& image = Large();
    const double right = image.HS.Width() + 100;
    const double bottom = image.VS.Height() + 100;
    for (const auto& [beyond, step] : {std::pair(-4, 0), {-3, 3}, {0, 3}, {3, 3}, {4, 10}, {400, 10}}) {
        SCOPED_TRACE(beyond);
        EXPECT_EQ(ScrolledX(image, right + beyond), step);
        EXPECT_EQ(ScrolledX(image, 100 - beyond), -step);
        EXPECT_EQ(ScrolledY(image, bottom + beyond), step);
        EXPECT_EQ(ScrolledY(image, 100 - beyond), -step);
    }
}

TEST_F(AutoScrollTest, StopsAtBothEndsOfTheRange) {
    frmImage& image = Large();
    image.HS.Value(image.HS.Max() - 1);
    image.VS.Value(4);
    AutoScroll(image, 5000, -5000);
    EXPECT_EQ(image.HS.Value(), image.HS.Max());
    EXPECT_EQ(image.VS.Value(), 0);
    AutoScroll(image, 5000, -5000);
    EXPECT_EQ(image.HS.Value(), image.HS.Max());
    EXPECT_EQ(image.PicBG.Left(), -image.HS.Max());
}

TEST_F(AutoScrollTest, OnlySelectionsScroll) {
    frmImage& image = Large();
    for (const char* key : {"Pen", "Eraser", "Line", "Shapes", "Pointer"}) {
        Choose(key);
        Press(image, 200, 200);
        MoveTo(image, 900, 200);
        Release(image, 200, 200);
        EXPECT_EQ(image.HS.Value(), 100) << key;
    }
    CurrentTool = kSelectTool;
    MoveTo(image, 900, 200, 0);
    EXPECT_EQ(image.HS.Value(), 100);
    MoveTo(image, 900, 200);
    EXPECT_EQ(image.HS.Value(), 110);
    CurrentTool = kFreeSelectTool;
    MoveTo(image, 900, 200);
    EXPECT_EQ(image.HS.Value(), 120);
}

} // namespace
} // namespace pintalux
