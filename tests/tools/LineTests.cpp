// Lines and polylines.
#include "tools/ToolTest.h"

namespace pintalux {
namespace {

using LineTest = ToolTest;

TEST_F(LineTest, PreviewFollowsThePointerAndNoPixelChanges) {
    Choose("Line");
    frmImage& image = NewDocument(40, 40);
    EXPECT_FALSE(image.Line1.Visible());
    EXPECT_EQ(image.Line1.DrawMode(), 6);
    Press(image, 5.4, 6);
    EXPECT_TRUE(image.Line1.Visible());
    EXPECT_EQ(image.Line1.X1(), 5.4);
    EXPECT_EQ(image.Line1.Y1(), 6);
    EXPECT_EQ(image.Line1.X2(), 5.4);
    MoveTo(image, 30, 20);
    EXPECT_EQ(image.Line1.X1(), 5.4);
    EXPECT_EQ(image.Line1.X2(), 30);
    EXPECT_EQ(image.Line1.Y2(), 20);
    ExpectImage(image, DrawingModel(40, 40, 0xFFFFFF));
    Release(image, 30, 20);
    EXPECT_FALSE(image.Line1.Visible());
}

TEST_F(LineTest, ReleaseDrawsOneLineAndTakesOneState) {
    Choose("Line");
    for (const int width : {1, 2, 5}) {
        frmMain->Slider2.Value(width);
        frmImage& image = NewDocument(40, 40);
        const int states = States(image);
        Drag(image, {{5, 6}, {9, 39}, {31, 17}});
        DrawingModel model(40, 40, 0xFFFFFF);
        model.Line(5, 6, 31, 17, width, kInkPixel);
        SCOPED_TRACE(width);
        ExpectImage(image, model);
        EXPECT_EQ(States(image), states + 1);
        EXPECT_EQ(image.Image1.Picture().At(5, 6), kInkPixel);
        EXPECT_TRUE(image.Unload());
    }
}

TEST_F(LineTest, ClickWithoutADragDrawsADot) {
    Choose("Line");
    frmMain->Slider2.Value(3);
    frmImage& image = NewDocument(9, 9);
    Click(image, 4, 5);
    DrawingModel model(9, 9, 0xFFFFFF);
    model.Dot(4, 5, 3, kInkPixel);
    ExpectImage(image, model);
}

TEST_F(LineTest, EndsAreFlooredAtEveryZoom) {
    Choose("Line");
    for (const int level : {0, 13, 17, 30}) {
        frmImage& image = NewDocument(60, 60);
        ZoomToLevel(level);
        const double f = FactorOf(level);
        SCOPED_TRACE(f);
        Press(image, 10.9 * f, 12.2 * f);
        MoveTo(image, 50 * f, 3.5 * f);
        Release(image, 50.5 * f, 31.9 * f);
        DrawingModel model(60, 60, 0xFFFFFF);
        model.Line(At(10.9 * f, f), At(12.2 * f, f), At(std::floor(50.5 * f), f), At(std::floor(31.9 * f), f),
                   1, kInkPixel);
        ExpectImage(image, model);
        EXPECT_TRUE(image.Unload());
    }
}

TEST_F(LineTest, PolylineContinuesFromTheLastEnd) {
    Choose("PolyLine");
    frmImage& image = NewDocument(40, 40);
    image.curpoly = true;
    Drag(image, {{5, 5}, {20, 8}});
    // Wherever the next press happens, the segment starts where the last one ended.
    Press(image, 1, 38);
    EXPECT_EQ(image.Line1.X1(), 20);
    EXPECT_EQ(image.Line1.Y1(), 8);
    EXPECT_EQ(image.Line1.X2(), 1);
    EXPECT_EQ(image.Line1.Y2(), 38);
    Release(image, 30, 30);
    Click(image, 4, 33);
    DrawingModel model(40, 40, 0xFFFFFF);
    model.Line(5, 5, 20, 8, 1, kInkPixel);
    model.Line(20, 8, 30, 30, 1, kInkPixel);
    model.Line(30, 30, 4, 33, 1, kInkPixel);
    ExpectImage(image, model);
    EXPECT_EQ(States(image), 4);
}

TEST_F(LineTest, ChoosingThePolylineStartsANewChainInTheActiveWindowOnly) {
    frmImage& first = NewDocument(40, 40);
    frmImage& second = NewDocument(40, 40);
    Choose("PolyLine");
    EXPECT_FALSE(first.curpoly);
    EXPECT_TRUE(second.curpoly);
    Drag(second, {{5, 5}, {20, 8}});
    EXPECT_FALSE(second.curpoly);
    Choose("PolyLine");
    Drag(second, {{30, 30}, {35, 30}});
    DrawingModel model(40, 40, 0xFFFFFF);
    model.Line(5, 5, 20, 8, 1, kInkPixel);
    model.Line(30, 30, 35, 30, 1, kInkPixel);
    ExpectImage(second, model);
}

TEST_F(LineTest, PolylinePreviewStartsAtTheAnchorScaledByTheZoom) {
    frmImage& image = NewDocument(40, 40);
    Choose("PolyLine");
    ZoomToLevel(18);
    Drag(image, {{18, 22}, {43, 30}});
    EXPECT_EQ(image.sx, 10);
    EXPECT_EQ(image.sy, 7);
    Press(image, 100, 100);
    EXPECT_EQ(image.Line1.X1(), 40);
    EXPECT_EQ(image.Line1.Y1(), 28);
    Release(image, 100, 100);
    DrawingModel model(40, 40, 0xFFFFFF);
    model.Line(4, 5, 10, 7, 1, kInkPixel);
    model.Line(10, 7, 25, 25, 1, kInkPixel);
    ExpectImage(image, model);
}

} // namespace
} // namespace pintalux
