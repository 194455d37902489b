// The three pointer handlers: the order of their checks, buttons, pointer shapes, undo states.
#include "tools/Image1_Pointer.h"
#include "tools/ToolTest.h"

#include <QCursor>
#include <QImage>
#include <QPixmap>
#include <QWidget>

namespace pintalux {
namespace {

class PointerTest : public ToolTest {
  protected:
    void SetUp() override {
        ToolTest::SetUp();
        steps_ = TheFloatingSteps;
        TheFloatingSteps = {[this](frmImage& image) { Ran("text by press", image); },
                            [this](frmImage& image) { Ran("text by command", image); },
                            [this](frmImage& image) { Ran("rectangle", image); },
                            [this](frmImage& image) { Ran("freehand", image); }};
    }
    void TearDown() override {
        TheFloatingSteps = steps_;
        ToolTest::TearDown();
    }

    std::vector<std::string> ran;

  private:
    void Ran(const char* step, frmImage& image) {
        ran.emplace_back(step);
        image.lbltext.Visible(false);
        image.PicSelect.Visible(false);
        image.PicFreeSelect.Visible(false);
    }
    FloatingSteps steps_;
};

TEST_F(PointerTest, RightPressNeverDrawsAndItsReleaseTakesOneState) {
    for (const char* key : {"Pen", "Eraser", "Flood", "Line", "PolyLine", "Shapes", "Pointer"}) {
        Choose(key);
        frmImage& image = NewDocument(40, 40, kBlack);
        image.PicMerge.LineBF(0, 0, 39, 39, 0x00FF00);
        const int states = States(image);
        SCOPED_TRACE(key);
        Press(image, 20, 20, kRightButton);
        MoveTo(image, 30, 22, kRightButton);
        Release(image, 30, 22, kRightButton);
        EXPECT_FALSE(image.Line1.Visible());
        EXPECT_FALSE(image.ShSquare.Visible());
        ExpectImage(image, DrawingModel(40, 40, 0x00FF00));
        EXPECT_EQ(States(image), states + 1);
        EXPECT_TRUE(image.Unload());
    }
}

TEST_F(PointerTest, AnyOtherPressShowsTheImage) {
    Choose("Pen");
    frmImage& image = NewDocument(20, 20);
    image.PicMerge.PSet(5, 5, kInk);
    Press(image, 9, 9, kMiddleButton);
    EXPECT_EQ(image.Image1.Picture().At(5, 5), kInkPixel);
    Release(image, 9, 9, kMiddleButton);
}

TEST_F(PointerTest, PressWithTwoButtonsKeepsTheStroke) {
    Choose("Pen");
    frmImage& image = NewDocument(40, 40);
    const int states = States(image);
    Press(image, 5, 5);
    MoveTo(image, 15, 5);
    Press(image, 15, 5, kRightButton);
    MoveTo(image, 15, 15, kLeftButton | kRightButton);
    Release(image, 15, 15, kRightButton);
    MoveTo(image, 30, 15);
    Release(image, 30, 15);
    DrawingModel model(40, 40, 0xFFFFFF);
    model.Line(5, 5, 15, 5, 1, kInkPixel);
    model.Line(15, 5, 15, 15, 1, kInkPixel);
    model.Line(15, 15, 30, 15, 1, kInkPixel);
    ExpectImage(image, model);
    EXPECT_EQ(States(image), states + 2);
}

TEST_F(PointerTest, TwoButtonsInALineDrawItOnce) {
    Choose("Line");
    frmImage& image = NewDocument(40, 40);
    Press(image, 5, 5);
    Press(image, 5, 5, kRightButton);
    MoveTo(image, 30, 20, kLeftButton | kRightButton);
    Release(image, 30, 20, kRightButton);
    ExpectImage(image, DrawingModel(40, 40, 0xFFFFFF));
    EXPECT_TRUE(image.Line1.Visible());
    Release(image, 30, 20);
    DrawingModel model(40, 40, 0xFFFFFF);
    model.Line(5, 5, 30, 20, 1, kInkPixel);
    ExpectImage(image, model);
    EXPECT_FALSE(image.Line1.Visible());
}

TEST_F(PointerTest, ShapeOfThePointerForEveryTool) {
    frmImage& image = NewDocument(40, 40);
    for (int number = kFirstTool; number <= kLastTool; ++number) {
        if (number == kTextTool) continue; // Never the current tool.
        const std::string name = TheTools->Row(number).key;
        const char* key = name.c_str();
        Choose(name);
        MoveTo(image, 5, 5, 0);
        const bool custom = name == "ColorPick" || name == "Flood" || name == "Mag";
        const int expected = name == "Select" ? kPointerCross : custom ? kPointerCustom : kPointerDefault;
        EXPECT_EQ(image.Image1.MousePointer(), expected) << key;
        if (custom) {
            EXPECT_FALSE(image.Image1.MouseIcon().resource.empty()) << key;
        }
    }
}

TEST_F(PointerTest, ThePicturesOfThePointersPointAtThePixelTheyActOn) {
    frmImage& image = NewDocument(40, 40);
    const auto shown = [&image](int number, int fromTip) {
        const Tool& tool = TheTools->Row(number);
        Choose(tool.key);
        MoveTo(image, 5, 5, 0);
        const QCursor pointer = WidgetFor(image.Image1).cursor();
        const QPoint tip = pointer.hotSpot() + QPoint(tool.tipX + fromTip, tool.tipY);
        return pointer.pixmap().toImage().pixel(tip);
    };
    const QRgb darkDot = qRgb(0x1C, 0x27, 0x34);
    EXPECT_EQ(shown(kFloodTool, 0), darkDot);
    EXPECT_EQ(shown(kColorPickTool, 0), darkDot);
    // The lens is the same on both sides of what it enlarges.
    for (int distance = 1; distance < 6; ++distance)
        EXPECT_EQ(shown(kMagTool, distance), shown(kMagTool, -distance)) << distance;
    EXPECT_NE(shown(kMagTool, 1), shown(kMagTool, 5));
}

TEST_F(PointerTest, FloatingTextIsCommittedAndThePressPaintsNothing) {
    Choose("Pen");
    frmImage& image = NewDocument(40, 40);
    image.lbltext.Visible(true);
    image.PicSelect.Visible(true);
    Press(image, 5, 5);
    EXPECT_EQ(ran, std::vector<std::string>{"text by press"});
    ExpectImage(image, DrawingModel(40, 40, 0xFFFFFF));
    Release(image, 5, 5);
}

TEST_F(PointerTest, FloatingTextIsCommittedByACommandInItsOwnWay) {
    frmImage& image = NewDocument(40, 40);
    image.lbltext.Visible(true);
    image.NeedtoPaste();
    EXPECT_EQ(ran, std::vector<std::string>{"text by command"});
    EXPECT_FALSE(image.lbltext.Visible());
}

TEST_F(PointerTest, FloatingRectangleIsMergedAndThePressPaints) {
    Choose("Pen");
    frmImage& image = NewDocument(40, 40);
    image.PicSelect.Visible(true);
    Click(image, 5, 5);
    EXPECT_EQ(ran, std::vector<std::string>{"rectangle"});
    EXPECT_EQ(ImageOf(image).At(5, 5), kInkPixel);
}

TEST_F(PointerTest, FloatingFreehandPieceIsMergedAndThePressPaintsNothing) {
    Choose("Pen");
    frmImage& image = NewDocument(40, 40);
    image.PicFreeSelect.Visible(true);
    Press(image, 5, 5);
    EXPECT_EQ(ran, std::vector<std::string>{"freehand"});
    ExpectImage(image, DrawingModel(40, 40, 0xFFFFFF));
    Release(image, 5, 5);
}

// Pen, line and polyline would draw from where the stroke before ended.
TEST_F(PointerTest, APressThatMergedTextOrAFreehandPieceDrawsNothingUntilItsRelease) {
    for (const char* key : {"Pen", "Eraser", "Line", "PolyLine", "Shapes", "Select"}) {
        SCOPED_TRACE(key);
        for (const bool text : {true, false}) {
            Choose(key);
            frmImage& image = NewDocument(40, 40, kBlack);
            image.sx = image.sy = 3;
            image.curpoly = false;
            (text ? static_cast<Control&>(image.lbltext) : image.PicFreeSelect).Visible(true);
            Drag(image, {{20, 9}, {30, 22}, {12, 35}});
            ExpectImage(image, DrawingModel(40, 40, 0));
            EXPECT_FALSE(image.PicSelect.Visible());
            EXPECT_EQ(image.sx, 3);
            EXPECT_TRUE(image.Unload());
        }
    }
}

TEST_F(PointerTest, TheStrokeAfterASwallowedOneDraws) {
    Choose("Line");
    frmImage& image = NewDocument(40, 40);
    image.PicFreeSelect.Visible(true);
    Drag(image, {{20, 9}, {30, 22}});
    Drag(image, {{5, 5}, {30, 20}});
    DrawingModel model(40, 40, 0xFFFFFF);
    model.Line(5, 5, 30, 20, 1, kInkPixel);
    ExpectImage(image, model);
}

TEST_F(PointerTest, ARightButtonInBetweenDoesNotEndTheSwallowing) {
    Choose("Pen");
    frmImage& image = NewDocument(40, 40);
    image.lbltext.Visible(true);
    Press(image, 5, 5);
    Press(image, 5, 5, kRightButton);
    Release(image, 8, 9, kRightButton);
    MoveTo(image, 30, 9);
    Release(image, 30, 9);
    ExpectImage(image, DrawingModel(40, 40, 0xFFFFFF));
}

TEST_F(PointerTest, PrintedTextTakesOneStateWithToolsWhoseReleaseTakesOne) {
    for (const char* key : {"Pointer", "Pen", "Line"}) {
        Choose(key);
        frmImage& image = NewDocument(40, 40);
        const int states = States(image);
        TheFloatingSteps.commitTextByPress = [](frmImage& printed) {
            printed.PicMerge.PSet(7, 9, kInk);
            printed.lbltext.Visible(false);
        };
        image.lbltext.Visible(true);
        Click(image, 20, 15);
        EXPECT_EQ(States(image), states + 1) << key;
        EXPECT_EQ(image.Image1.Picture().At(7, 9), kInkPixel) << key;
        EXPECT_TRUE(image.Unload());
    }
}

TEST_F(PointerTest, PreviewsGoAtALeftReleaseWhateverToolIsCurrentThen) {
    frmImage& image = NewDocument(60, 40);
    for (const char* drawing : {"Line", "Shapes", "Select"}) {
        for (const char* later : {"Pen", "FreeSelect", "ColorPick", "Mag"}) {
            SCOPED_TRACE(std::string(drawing) + ", then " + later);
            Choose(drawing);
            Press(image, 20, 5);
            MoveTo(image, 50, 30);
            ASSERT_TRUE(image.Line1.Visible() || image.ShSquare.Visible() || image.SelectShape.Visible());
            Choose(later);
            Release(image, 50, 30);
            EXPECT_FALSE(image.Line1.Visible());
            EXPECT_FALSE(image.ShSquare.Visible());
            EXPECT_FALSE(image.SelectShape.Visible());
        }
    }
}

TEST_F(PointerTest, RightPressLeavesWhatFloats) {
    Choose("Pen");
    frmImage& image = NewDocument(40, 40);
    image.PicSelect.Visible(true);
    Click(image, 5, 5, kRightButton);
    EXPECT_TRUE(ran.empty());
    EXPECT_TRUE(image.PicSelect.Visible());
    image.PicSelect.Visible(false);
}

TEST_F(PointerTest, EveryPressTakesTheColoursOfTheStroke) {
    Choose("Pointer");
    frmImage& image = NewDocument(40, 40, 0x010203);
    frmMain->Slider2.Value(12);
    Press(image, 5, 5, kRightButton);
    EXPECT_EQ(image.curtranscolor, 0x010203);
    EXPECT_EQ(image.curdrawcolor, kInk);
    EXPECT_EQ(image.PicMerge.DrawWidth(), 12);
    Release(image, 5, 5, kRightButton);
}

TEST_F(PointerTest, PointerToolPaintsNothingAndStillTakesAState) {
    Choose("Pointer");
    frmImage& image = NewDocument(40, 40);
    const int states = States(image);
    Drag(image, {{5, 5}, {20, 20}});
    ExpectImage(image, DrawingModel(40, 40, 0xFFFFFF));
    EXPECT_EQ(States(image), states + 1);
}

TEST_F(PointerTest, RulerMarksAndReadoutsMoveOnlyWithTheRulersOn) {
    frmImage& image = NewDocument(200, 200);
    ZoomToLevel(16);
    image.PicBG.Left(-10);
    MoveTo(image, 51, 33, 0);
    EXPECT_EQ(image.lblx.Caption(), "");
    EXPECT_EQ(image.LineX.X1(), 0);
    RulersOn = true;
    MoveTo(image, 51, 33, 0);
    EXPECT_EQ(image.lblx.Caption(), "25");
    EXPECT_EQ(image.lbly.Caption(), "16");
    EXPECT_EQ(image.LineX.X1(), image.LineX.X2());
    EXPECT_EQ(image.LineX.X1(), image.LeftRuler.ScaleWidth() - 10 + 51);
    EXPECT_EQ(image.LineY.Y1(), image.LineY.Y2());
    EXPECT_EQ(image.LineY.Y1(), image.PicBG.Top() + 33);
    MoveTo(image, -500, -400, 0);
    EXPECT_EQ(image.LineX.X1(), 0);
    EXPECT_EQ(image.LineY.Y1(), 0);
    EXPECT_EQ(image.lblx.Caption(), "-250");
    RulersOn = false;
}

} // namespace
} // namespace pintalux
