// Strokes that go where nobody expects them: out of the window, out of the 16-bit range, on while the tool
// changes, the change is undone or the window closes. None crashes and none loses a pixel.
#include "document/UndoCommands.h"
#include "tools/ToolTest.h"

namespace pintalux {
namespace {

using StrokeEndsTest = ToolTest;

const std::vector<std::pair<double, double>> kOutside = {
    {-500, 20}, {540, 20}, {20, -480}, {20, 520}, {-30, -30}};

TEST_F(StrokeEndsTest, PenLeavesTheWindowOnEverySide) {
    Choose("Pen");
    for (const int width : {1, 5}) {
        frmMain->Slider2.Value(width);
        for (const auto& [X, Y] : kOutside) {
            frmImage& image = NewDocument(40, 40);
            Drag(image, {{20, 20}, {X, Y}, {30, 35}});
            DrawingModel model(40, 40, 0xFFFFFF);
            const int x = static_cast<int>(X);
            const int y = static_cast<int>(Y);
            model.Line(x, y, 20, 20, width, kInkPixel);
            model.Line(30, 35, x, y, width, kInkPixel);
            SCOPED_TRACE(X);
            ExpectImage(image, model);
            EXPECT_EQ(States(image), 2);
            EXPECT_TRUE(image.Unload());
        }
    }
}

TEST_F(StrokeEndsTest, LineAndShapesEndOutsideTheWindow) {
    for (const auto& [X, Y] : kOutside) {
        frmImage& image = NewDocument(40, 40);
        const int x = static_cast<int>(X);
        const int y = static_cast<int>(Y);
        DrawingModel model(40, 40, 0xFFFFFF);
        Choose("Line");
        Drag(image, {{10, 12}, {X, Y}});
        model.Line(10, 12, x, y, 1, kInkPixel);
        ExpectImage(image, model);
        Choose("Shapes");
        frmMain->ShapeType = 1;
        Drag(image, {{10, 12}, {X, Y}});
        model.Box(10, 12, x, y, 1, kInkPixel);
        ExpectImage(image, model);
        frmMain->ShapeType = 3;
        Drag(image, {{10, 12}, {X, Y}});
        model.Ellipse(10, 12, x, y, 1, kInkPixel, false);
        ExpectImage(image, model);
        EXPECT_TRUE(image.Unload());
    }
}

// At 1:16 a pointer far right of the image leaves the 16-bit range: that move ends, the stroke goes on.
TEST_F(StrokeEndsTest, PointBeyondSixteenBitsEndsOneMoveAndNotTheStroke) {
    Choose("Pen");
    frmImage& image = NewDocument(160, 160);
    ZoomToLevel(0);
    Press(image, 2, 2);
    MoveTo(image, 2100, 2);
    EXPECT_EQ(image.sx, 32);
    MoveTo(image, 5, 2);
    Release(image, 5, 2);
    DrawingModel model(160, 160, 0xFFFFFF);
    model.Line(32, 32, 80, 32, 1, kInkPixel);
    ExpectImage(image, model);
    EXPECT_EQ(States(image), 2);
    EXPECT_TRUE(untrapped.empty());
}

TEST_F(StrokeEndsTest, TipBeyondSixteenBitsKeepsTheLastPoint) {
    Choose("Pen");
    frmMain->BrushShape = 3;
    frmMain->Slider1.Value(40);
    frmImage& image = NewDocument(160, 160);
    ZoomToLevel(0);
    Press(image, 2047, 2);
    EXPECT_EQ(image.sx, 32752);
    // 32752 + 40 has no room.
    MoveTo(image, 2, 4);
    EXPECT_EQ(image.sx, 32752);
    EXPECT_EQ(image.sy, 32);
    Release(image, 2, 4);
    EXPECT_EQ(States(image), 2);
}

TEST_F(StrokeEndsTest, LineReleasedBeyondSixteenBitsIsDrawn) {
    Choose("Line");
    frmImage& image = NewDocument(160, 160);
    ZoomToLevel(0);
    Drag(image, {{2, 2}, {5, 5}, {2100, 2}});
    DrawingModel model(160, 160, 0xFFFFFF);
    model.Line(32, 32, 159, 32, 1, kInkPixel);
    ExpectImage(image, model);
    EXPECT_EQ(States(image), 2);
}

TEST_F(StrokeEndsTest, ToolChangedInTheMiddleOfADrag) {
    const char* const keys[] = {"Pointer", "Select",   "FreeSelect", "Pen",       "Eraser", "Flood",
                                "Line",    "PolyLine", "Shapes",     "ColorPick", "Mag"};
    for (const char* first : {"Pen", "Eraser", "Line", "PolyLine", "Shapes"}) {
        for (const char* second : keys) {
            Choose(first);
            frmImage& image = NewDocument(40, 40);
            image.PicMerge.LineBF(0, 0, 39, 39, 0x00FF00);
            image.PicMerge.PSet(1, 38, 0x123456);
            Press(image, 5, 5);
            MoveTo(image, 15, 5);
            Choose(second);
            MoveTo(image, 25, 15);
            Release(image, 25, 15);
            SCOPED_TRACE(std::string(first) + " then " + second);
            EXPECT_EQ(ImageOf(image).At(1, 38), 0x123456u);
            EXPECT_TRUE(image.Unload());
        }
    }
    EXPECT_TRUE(untrapped.empty());
}

TEST_F(StrokeEndsTest, PenChangedToALineEndsAsALineFromTheLastPoint) {
    Choose("Pen");
    frmImage& image = NewDocument(40, 40);
    Press(image, 5, 5);
    MoveTo(image, 15, 5);
    Choose("Line");
    MoveTo(image, 25, 15);
    Release(image, 30, 30);
    DrawingModel model(40, 40, 0xFFFFFF);
    model.Line(5, 5, 15, 5, 1, kInkPixel);
    model.Line(15, 5, 30, 30, 1, kInkPixel);
    ExpectImage(image, model);
    EXPECT_EQ(States(image), 2);
}

TEST_F(StrokeEndsTest, UndoInTheMiddleOfADragKeepsBothHalves) {
    Choose("Pen");
    frmImage& image = NewDocument(40, 40);
    Drag(image, {{2, 30}, {30, 30}});
    Press(image, 5, 5);
    MoveTo(image, 15, 5);
    mnuEditUndo_Click();
    ExpectImage(image, DrawingModel(40, 40, 0xFFFFFF));
    MoveTo(image, 15, 15);
    Release(image, 15, 15);
    DrawingModel model(40, 40, 0xFFFFFF);
    model.Line(15, 5, 15, 15, 1, kInkPixel);
    ExpectImage(image, model);
    EXPECT_EQ(States(image), 3);
    // The finished line lies in the history still.
    mnuEditUndo_Click();
    DrawingModel line(40, 40, 0xFFFFFF);
    line.Line(2, 30, 30, 30, 1, kInkPixel);
    ExpectImage(image, line);
}

TEST_F(StrokeEndsTest, CloseInTheMiddleOfADrag) {
    Choose("Line");
    frmImage& left = NewDocument(40, 40);
    frmImage& image = NewDocument(40, 40);
    Press(image, 5, 5);
    MoveTo(image, 15, 5);
    EXPECT_TRUE(image.Unload());
    PassEvents();
    EXPECT_EQ(ImageCount, 1);
    Drag(left, {{3, 3}, {20, 20}});
    DrawingModel model(40, 40, 0xFFFFFF);
    model.Line(3, 3, 20, 20, 1, kInkPixel);
    ExpectImage(left, model);
}

TEST_F(StrokeEndsTest, ZoomInTheMiddleOfADragGoesOnFromTheSameImagePoint) {
    Choose("Pen");
    frmImage& image = NewDocument(40, 40);
    Press(image, 5, 5);
    ZoomToLevel(17);
    MoveTo(image, 60, 15);
    Release(image, 60, 15);
    DrawingModel model(40, 40, 0xFFFFFF);
    model.Line(5, 5, 20, 5, 1, kInkPixel);
    ExpectImage(image, model);
}

} // namespace
} // namespace pintalux
