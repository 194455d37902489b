// The eraser.
#include "tools/ToolTest.h"

namespace pintalux {
namespace {

class EraserTest : public ToolTest {
  protected:
    void SetUp() override {
        ToolTest::SetUp();
        Choose("Eraser");
    }

    /// A document full of paint, whose background is another colour.
    frmImage& PaintedDocument(Colour background) {
        frmImage& image = NewDocument(40, 40, background);
        image.PicMerge.LineBF(0, 0, 39, 39, 0x00FF00);
        return image;
    }
};

TEST_F(EraserTest, ClickLeavesADotOfTheBackground) {
    frmMain->Slider2.Value(6);
    frmImage& image = PaintedDocument(0x102030);
    const int states = States(image);
    Click(image, 12, 15);
    DrawingModel model(40, 40, 0x00FF00);
    model.Dot(12, 15, 6, 0x102030);
    ExpectImage(image, model);
    EXPECT_EQ(States(image), states + 1);
}

TEST_F(EraserTest, StrokeJoinsThePointsInTheBackground) {
    for (const int width : {1, 4}) {
        frmMain->Slider2.Value(width);
        frmImage& image = PaintedDocument(0x0000FF);
        Drag(image, {{3, 5}, {30, 11}, {8, 36}});
        DrawingModel model(40, 40, 0x00FF00);
        model.Dot(3, 5, width, 0x0000FF);
        model.Line(30, 11, 3, 5, width, 0x0000FF);
        model.Line(8, 36, 30, 11, width, 0x0000FF);
        SCOPED_TRACE(width);
        ExpectImage(image, model);
        EXPECT_TRUE(image.Unload());
    }
}

TEST_F(EraserTest, WritesTheBackgroundExactlyWhateverTheCurrentColour) {
    frmMain->SetCurrentColour(0x102030);
    frmImage& image = PaintedDocument(0x102030);
    Click(image, 10, 10);
    EXPECT_EQ(ImageOf(image).At(10, 10), 0x102030u);
    Choose("Pen");
    Click(image, 20, 10);
    EXPECT_EQ(ImageOf(image).At(20, 10), 0x102034u);
}

TEST_F(EraserTest, FollowsTheZoom) {
    frmImage& image = PaintedDocument(kBlack);
    ZoomToLevel(17);
    Drag(image, {{30, 31}, {62, 31}});
    DrawingModel model(40, 40, 0x00FF00);
    model.Line(10, 10, 20, 10, 1, 0);
    ExpectImage(image, model);
}

TEST_F(EraserTest, TipOfThePenDoesNotShapeIt) {
    frmMain->BrushShape = 3;
    frmMain->Slider1.Value(10);
    frmImage& image = PaintedDocument(kBlack);
    Drag(image, {{20, 20}, {24, 20}});
    DrawingModel model(40, 40, 0x00FF00);
    model.Line(20, 20, 24, 20, 1, 0);
    ExpectImage(image, model);
}

} // namespace
} // namespace pintalux
