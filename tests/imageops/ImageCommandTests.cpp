// The commands that need no dialog: flips, turns, colour steps.
#include "imageops/FloatingPieces.h"
#include "support/Documents.h"
#include "support/Pictures.h"
#include "support/Program.h"

#include "document/BarPositions.h"
#include "document/Zoom.h"
#include "surface/system/TempNames.h"
#include "surface/window/ProgressBar.h"

#include <QToolButton>

namespace pintalux {
namespace {

class ImageCommandTest : public ProgramTest {
  protected:
    void SetUp() override {
        ProgramTest::SetUp();
        Start();
        // Room for windows that a turn makes wider.
        frmMain->Width(15000);
        frmMain->Height(12000);
        PassEvents();
    }
    static int StateCount(const frmImage& image) { return image.ListBUorder.ListCount(); }
    /// The colour of the middle of an image in one colour after a command.
    Colour After(const MenuItem& command, Colour before) {
        frmImage& image = NewDocument(9, 9, before);
        Choose(command);
        const Colour result = image.PicMerge.Point(4, 4);
        ExpectSamePixels(ImageOf(image), Solid(9, 9, result));
        return result;
    }
};

} // namespace

TEST_F(ImageCommandTest, HorizontalFlipMirrorsLeftToRight) {
    frmImage& image = OpenPicture("a.bmp", PictureOf({"#r..b", "g...y"}));
    Choose(frmMain->mnuFlipH);
    ExpectSamePixels(ImageOf(image), PictureOf({"b..r#", "y...g"}));
    ExpectSamePixels(image.Image1.Picture(), ImageOf(image));
}

TEST_F(ImageCommandTest, VerticalFlipMirrorsTopToBottom) {
    frmImage& image = OpenPicture("a.bmp", PictureOf({"#r..b", ".....", "g...y"}));
    Choose(frmMain->mnuFlipV);
    ExpectSamePixels(ImageOf(image), PictureOf({"g...y", ".....", "#r..b"}));
}

TEST_F(ImageCommandTest, FlippedTwiceIsTheImageAgain) {
    const Picture before = RandomPicture(61, 43, 7);
    frmImage& image = OpenPicture("a.bmp", before);
    for (const MenuItem* flip : {&frmMain->mnuFlipH, &frmMain->mnuFlipV}) {
        Choose(*flip);
        Choose(*flip);
        ExpectSamePixels(ImageOf(image), before);
    }
}

TEST_F(ImageCommandTest, HalfTurnIsExactAndOneState) {
    frmImage& image = OpenPicture("a.bmp", PictureOf({"#r..b", "g...y"}));
    Choose(frmMain->mnuRotate180);
    ExpectSamePixels(ImageOf(image), PictureOf({"y...g", "b..r#"}));
    EXPECT_EQ(StateCount(image), 2);
}

TEST_F(ImageCommandTest, EveryCommandTakesOneState) {
    frmImage& image = NewDocument(30, 20, 0x204060);
    const MenuItem* commands[] = {&frmMain->mnuFlipH,     &frmMain->mnuFlipV,     &frmMain->mnuRotate90,
                                  &frmMain->mnuRotate180, &frmMain->mnuRotate270, &frmMain->mnuColInc(0),
                                  &frmMain->mnuColRed(2)};
    int states = 1;
    for (const MenuItem* command : commands) {
        Choose(*command);
        EXPECT_EQ(StateCount(image), ++states) << command->Caption();
    }
}

TEST_F(ImageCommandTest, FlipsAndTurnsTakeNoNoticeOfASelection) {
    frmImage& image = OpenPicture("a.bmp", PictureOf({"#r..b", "g...y"}));
    FloatRectangle(image, 0, 0, 2, 1);
    Choose(frmMain->mnuFlipH);
    ExpectSamePixels(ImageOf(image), PictureOf({"b..r#", "y...g"}));
    EXPECT_TRUE(image.PicSelect.Visible());
    EXPECT_TRUE(frmMain->mnuEditCut.Enabled());
    ExpectSamePixels(image.SelHolder.Image(), PictureOf({"#r"}));
    Choose(frmMain->mnuRotate90);
    EXPECT_TRUE(image.PicSelect.Visible());
}

TEST_F(ImageCommandTest, AQuarterTurnIsClockwiseAndExchangesTheSides) {
    frmImage& image = NewDocument(60, 40);
    image.PicMerge.LineBF(0, 0, 29, 39, 0x0000FF); // the left half red
    image.PicMerge.Picture(image.PicMerge.Image());
    Choose(frmMain->mnuRotate90);
    EXPECT_EQ(image.PicMerge.ScaleWidth(), 40);
    EXPECT_EQ(image.PicMerge.ScaleHeight(), 60);
    EXPECT_EQ(image.PicMerge.Point(20, 10), 0x0000FF);
    EXPECT_EQ(image.PicMerge.Point(20, 50), kWhite);
    ExpectSamePixels(image.Image1.Picture(), ImageOf(image));
}

TEST_F(ImageCommandTest, ThreeQuartersBringTheLeftDown) {
    frmImage& image = NewDocument(60, 40);
    image.PicMerge.LineBF(0, 0, 29, 39, 0x0000FF);
    Choose(frmMain->mnuRotate270);
    EXPECT_EQ(image.PicMerge.ScaleWidth(), 40);
    EXPECT_EQ(image.PicMerge.Point(20, 10), kWhite);
    EXPECT_EQ(image.PicMerge.Point(20, 50), 0x0000FF);
}

TEST_F(ImageCommandTest, ATurnGivesTheWindowTheSizeOfTheImage) {
    frmImage& image = NewDocument(120, 80);
    Choose(frmMain->mnuRotate90);
    EXPECT_EQ(image.Width(), 80 * 15 + 120);
    EXPECT_EQ(image.Height(), 120 * 15 + 420);
    EXPECT_EQ(image.Image1.Width(), 80);
    EXPECT_EQ(image.Image1.Height(), 120);
    EXPECT_EQ(image.PicBG.Width(), 80);
    EXPECT_EQ(image.PicBG.Height(), 120);
}

TEST_F(ImageCommandTest, ATurnWithRulersAddsTheStrips) {
    frmImage& image = NewDocument(120, 80);
    RulersOn = true;
    ASSERT_TRUE(WaitFor([&] { return image.LeftRuler.Visible(); }));
    Choose(frmMain->mnuRotate90);
    EXPECT_EQ(image.Width(), image.LeftRuler.Width() + 80 * 15 + 120);
    EXPECT_EQ(image.Height(), image.TopRuler.Height() + 120 * 15 + 420);
    EXPECT_EQ(image.PicFrame.ScaleWidth(), 80);
    EXPECT_EQ(image.PicFrame.ScaleHeight(), 120);
}

TEST_F(ImageCommandTest, ATurnKeepsAWindowThatGrowsWithinTheWorkspace) {
    frmImage& image = OpenPicture("wide.bmp", Picture(5000, 200, 0xFFFFFF));
    Choose(frmMain->mnuRotate90);
    PassEvents();
    const QWidget& window = WidgetFor(image);
    const QRect room = window.parentWidget()->rect();
    EXPECT_TRUE(room.contains(window.geometry()));
    EXPECT_EQ(window.height(), room.height());
    EXPECT_EQ(image.Image1.Height(), 5000);
    EXPECT_TRUE(image.VS.Visible());
    EXPECT_EQ(image.PicFrame.ScaleWidth(), 200);
}

TEST_F(ImageCommandTest, ATurnLeavesAMaximisedWindowAlone) {
    frmImage& image = NewDocument(120, 80);
    image.WindowState(kMaximised);
    PassEvents();
    const double width = image.Width();
    const double height = image.Height();
    Choose(frmMain->mnuRotate90);
    EXPECT_EQ(image.Width(), width);
    EXPECT_EQ(image.Height(), height);
    EXPECT_EQ(image.Image1.Width(), 80);
}

TEST_F(ImageCommandTest, ATurnAtAZoomLeadsToOneToOne) {
    frmImage& image = NewDocument(60, 40);
    Choose(frmMain->mnuZoomInX(2));
    ASSERT_EQ(image.factor, 3);
    Choose(frmMain->mnuRotate90);
    EXPECT_EQ(image.Image1.Width(), 40);
    EXPECT_EQ(image.Image1.Height(), 60);
    EXPECT_EQ(image.PicBG.Width(), 40);
    EXPECT_EQ(image.factor, 1);
    EXPECT_EQ(image.factorlevel, 15);
    EXPECT_FALSE(frmMain->mnuZoomInX(2).Checked());
    EXPECT_FALSE(frmMain->mnuZoomActual.Enabled());
    // Tools hit what they point at.
    frmMain->SetCurrentColour(0x0000FF);
    CurrentTool = kPenTool;
    Press(image, 30, 50);
    Release(image, 30, 50);
    EXPECT_EQ(ImageOf(image).At(30, 50), 0x0000FFU);
}

TEST_F(ImageCommandTest, UndoOfATurnBringsTheShapeBack) {
    const Picture before = RandomPicture(33, 21, 3);
    frmImage& image = OpenPicture("a.bmp", before);
    Choose(frmMain->mnuRotate270);
    EXPECT_EQ(image.PicMerge.ScaleWidth(), 21);
    Choose(frmMain->mnuEditUndo);
    ExpectSamePixels(ImageOf(image), before);
    EXPECT_EQ(image.Image1.Width(), 33);
}

TEST_F(ImageCommandTest, OnePixelCanBeFlippedTurnedAndStepped) {
    frmImage& image = NewDocument(1, 1, 0x102030);
    for (const MenuItem* command : {&frmMain->mnuFlipH, &frmMain->mnuFlipV, &frmMain->mnuRotate180})
        Choose(*command);
    ExpectSamePixels(ImageOf(image), Solid(1, 1, 0x102030));
    Choose(frmMain->mnuColInc(0));
    ExpectSamePixels(ImageOf(image), Solid(1, 1, 0x102044));
    Choose(frmMain->mnuRotate90);
    EXPECT_EQ(image.PicMerge.ScaleWidth(), 1);
    EXPECT_EQ(image.PicMerge.ScaleHeight(), 1);
}

TEST_F(ImageCommandTest, ASideAbove32769CannotBeTurned) {
    NewDocument(32772, 2);
    Choose(frmMain->mnuRotate90);
    ASSERT_EQ(untrapped.size(), 1U);
    EXPECT_EQ(untrapped[0].Number(), kOverflow);
    untrapped.clear();
}

TEST_F(ImageCommandTest, ASideOf32768CannotBeStepped) {
    frmImage& image = NewDocument(32768, 1, 0x102030);
    Choose(frmMain->mnuColInc(0));
    ASSERT_EQ(untrapped.size(), 1U);
    EXPECT_EQ(untrapped[0].Number(), kOverflow);
    untrapped.clear();
    EXPECT_EQ(StateCount(image), 1);
    EXPECT_EQ(CornerOf(image), 0x102030);
}

TEST_F(ImageCommandTest, EachStepMovesItsChannelBy20) {
    // Red 100, green 50, blue 20: no channel is high enough to lift the one above it.
    constexpr Colour before = 0x143264;
    EXPECT_EQ(After(frmMain->mnuColInc(0), before), 0x143278);
    EXPECT_EQ(After(frmMain->mnuColInc(1), before), 0x144664);
    EXPECT_EQ(After(frmMain->mnuColInc(2), before), 0x283264);
    EXPECT_EQ(After(frmMain->mnuColRed(0), before), 0x143250);
    EXPECT_EQ(After(frmMain->mnuColRed(1), before), 0x141E64);
    EXPECT_EQ(After(frmMain->mnuColRed(2), before), 0x003264);
}

TEST_F(ImageCommandTest, WhiteStaysWhiteAtEveryIncrease) {
    for (int channel = 0; channel < 3; ++channel)
        EXPECT_EQ(After(frmMain->mnuColInc(channel), kWhite), kWhite) << channel;
}

TEST_F(ImageCommandTest, BlackReducedInRedBrightens) {
    EXPECT_EQ(After(frmMain->mnuColRed(0), kBlack), 0x000014);
}

TEST_F(ImageCommandTest, RedAndBlueHighAfterTheStepGiveWhite) {
    // Red 225 and 20 more is 245, blue is 246: green becomes 255, which then lifts the other two.
    EXPECT_EQ(After(frmMain->mnuColInc(0), 0xF60AE1), kWhite);
    EXPECT_EQ(After(frmMain->mnuColInc(0), 0xF00AE1), 0xF00BF5);
}

TEST_F(ImageCommandTest, AStepOnARectangleChangesOnlyThatAndEndsIt) {
    frmImage& image = NewDocument(20, 10, 0x143264);
    FloatRectangle(image, 3, 2, 5, 4);
    Choose(frmMain->mnuColInc(1));
    ExpectSamePixels(ImageOf(image), With(Solid(20, 10, 0x143264), 3, 2, Solid(5, 4, 0x144664)));
    ExpectSamePixels(image.Image1.Picture(), ImageOf(image));
    EXPECT_TRUE(SelectionEnded(image));
    EXPECT_EQ(StateCount(image), 2);
    EXPECT_FALSE(ScreenLocked());
}

TEST_F(ImageCommandTest, AStepOnARectangleIsRightAtEveryZoom) {
    for (const double factor : {3.0, 0.5, 0.25}) {
        frmImage& image = NewDocument(64, 32, 0x143264);
        ShowAtFactor(image, factor);
        FloatRectangle(image, 8, 4, 16, 12);
        const double width = image.PicSelect.Width();
        Choose(frmMain->mnuColRed(2));
        ExpectSamePixels(ImageOf(image), With(Solid(64, 32, 0x143264), 8, 4, Solid(16, 12, 0x003264)));
        EXPECT_EQ(image.PicSelect.Width(), width);
    }
}

TEST_F(ImageCommandTest, AStepOnAFreehandPieceKeepsItsOutside) {
    frmImage& image = NewDocument(12, 8, 0x143264);
    FloatFreehand(image, 2, 3, {".##.", "####", ".#.."});
    Choose(frmMain->mnuColInc(0));
    Picture expected = Solid(12, 8, 0x143264);
    for (const auto& [x, y] : {std::pair(3, 3), {4, 3}, {2, 4}, {3, 4}, {4, 4}, {5, 4}, {3, 5}})
        expected.Set(x, y, 0x143278);
    ExpectSamePixels(ImageOf(image), expected);
    ExpectSamePixels(image.Image1.Picture(), expected);
    EXPECT_TRUE(SelectionEnded(image));
    EXPECT_TRUE(FreeSelActive);
    EXPECT_EQ(StateCount(image), 2);
    EXPECT_EQ(frmMain->Pb.Value(), 0);
    EXPECT_EQ(frmMain->Pb.Max(), 4);
}

TEST_F(ImageCommandTest, AFreehandStepTakesThePieceInItsOwnSizeAtEveryZoom) {
    for (const double factor : {1.0, 2.0, 3.0, 16.0, 1 / 2.0, 1 / 3.0, 1 / 7.0, 1 / 16.0}) {
        frmImage& image = NewDocument(24, 20, 0x143264);
        ShowAtFactor(image, factor);
        FloatFreehand(image, 4, 8, {"##.#", "####", "#.##"});
        Choose(frmMain->mnuColInc(0));
        Picture expected = Solid(24, 20, 0x143264);
        for (const auto& [x, y] :
             {std::pair(4, 8), {5, 8}, {7, 8}, {4, 9}, {5, 9}, {6, 9}, {7, 9}, {4, 10}, {6, 10}, {7, 10}})
            expected.Set(x, y, 0x143278);
        ExpectSamePixels(ImageOf(image), expected);
    }
}

TEST_F(ImageCommandTest, AFreehandStepGoesByWhatFloatsWhateverTheNextPasteWouldBe) {
    frmImage& image = NewDocument(8, 8, 0x143264);
    FloatFreehand(image, 2, 3, {"##"});
    FreeSelActive = false;
    Choose(frmMain->mnuColInc(0));
    ExpectSamePixels(ImageOf(image), With(Solid(8, 8, 0x143264), 2, 3, Solid(2, 1, 0x143278)));
}

TEST_F(ImageCommandTest, AFlagWithoutAPieceNeverTakesTheFreehandRoad) {
    frmImage& image = NewDocument(8, 8, 0x143264);
    image.Pic1BU.Picture(Solid(8, 8, kBlack));
    FreeSelActive = true;
    Choose(frmMain->mnuColInc(0));
    ExpectSamePixels(ImageOf(image), Solid(8, 8, 0x143278));
    FloatRectangle(image, 2, 2, 3, 3);
    Choose(frmMain->mnuColInc(2));
    ExpectSamePixels(ImageOf(image), With(Solid(8, 8, 0x143278), 2, 2, Solid(3, 3, 0x283278)));
    EXPECT_TRUE(SelectionEnded(image));
}

TEST_F(ImageCommandTest, APastedPieceLandsWhereItFloats) {
    frmImage& image = NewDocument(20, 20);
    image.SelHolder.Picture(Solid(4, 3, 0x143264));
    image.PicSelect.Move(0, 0, 4, 3);
    image.PicSelect.Visible(true);
    PasteFloating = true;
    Choose(frmMain->mnuColInc(0));
    ExpectSamePixels(ImageOf(image), With(Solid(20, 20, kWhite), 0, 0, Solid(4, 3, 0x143278)));
    EXPECT_FALSE(PasteFloating);
}

TEST_F(ImageCommandTest, WithoutATemporaryFolderTheImageChangesAllTheSame) {
    frmImage& image = NewDocument(8, 8, 0x143264);
    TempFoldersForTests(false);
    Choose(frmMain->mnuColInc(0));
    Choose(frmMain->mnuFlipH);
    TempFoldersForTests(true);
    ExpectSamePixels(ImageOf(image), Solid(8, 8, 0x143278));
    EXPECT_EQ(StateCount(image), 1);
}

// The progress bar.

TEST_F(ImageCommandTest, TheProgressBarNeverCoversAButton) {
    NewDocument(20, 20);
    for (const int width : {300, 433, 560, 700, 800, 900, 1400}) {
        frmMain->MDIForm::Width(width * 15);
        PassEvents();
        const QRect bar = WidgetFor(frmMain->Pb).geometry();
        EXPECT_GT(bar.width(), 20) << width;
        EXPECT_TRUE(WidgetFor(frmMain->ToolsTB).rect().contains(bar)) << width;
        const QWidget& buttons = WidgetFor(frmMain->TB2);
        EXPECT_TRUE(WidgetFor(frmMain->ToolsTB).rect().contains(buttons.geometry())) << width;
        for (const QToolButton* button : buttons.findChildren<QToolButton*>())
            EXPECT_FALSE(bar.intersects(button->geometry().translated(buttons.pos()))) << width;
    }
}

} // namespace pintalux
