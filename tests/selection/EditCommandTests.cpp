// Cut, copy, paste, paste as new.
#include "document/Selection.h"
#include "imageops/ImageCommands.h"
#include "selection/ClipTray.h"
#include "selection/EditCommands.h"
#include "selection/RectangleSelection.h"
#include "selection/SelectionTest.h"
#include "support/DialogScript.h"
#include "surface/system/Clipboard.h"

namespace pintalux {
namespace {

constexpr Pixel kKey = 0x8894A0;

class EditTest : public SelectionTest {
  protected:
    void TearDown() override {
        Clipboard.Clear();
        SelectionTest::TearDown();
    }
    static Path BoxPath(double f, int left, int top, int right, int bottom) {
        return {{(left + 0.5) * f, (top + 0.5) * f},
                {(right + 0.5) * f, (top + 0.5) * f},
                {(right + 0.5) * f, (bottom + 0.5) * f},
                {(left + 0.5) * f, (bottom + 0.5) * f}};
    }
};

TEST_F(EditTest, CopyTakesImagePixelsAtAnyZoomAndEndsTheSelection) {
    for (const int level : {15, 17, 14}) {
        frmImage& image = OpenRandom(120, 90, static_cast<unsigned>(level));
        ZoomToLevel(level);
        const double f = FactorOf(level);
        SelectRectangle(image, 10 * f, 20 * f, 50 * f, 44 * f);
        pintalux::Choose(frmMain->mnuEditCopy);
        ExpectSamePixels(Clipboard.GetData(), Part(Before(), 10, 20, 40, 24));
        EXPECT_FALSE(image.PicSelect.Visible());
        EXPECT_FALSE(image.SelectShape.Visible());
        EXPECT_FALSE(CutAndCopyEnabled());
        ExpectSamePixels(ImageOf(image), Before());
        EXPECT_EQ(States(image), 1);
    }
}

TEST_F(EditTest, ACopyBeyondAnImageThatAnUndoMadeLowerHoldsNothingOfTheOneBefore) {
    frmImage& image = OpenRandom(120, 40);
    mnuRotate90_Click();
    SelectRectangle(image, 5, 30, 35, 70);
    pintalux::Choose(frmMain->mnuEditUndo);
    pintalux::Choose(frmMain->mnuEditCopy);
    const Bitmap none(30, 40, kKey);
    ExpectSamePixels(Clipboard.GetData(), WithPiece(none, Part(Before(), 5, 30, 30, 10), 0, 0));
}

TEST_F(EditTest, CutLeavesAHoleInTheBackgroundAtAnyZoom) {
    for (const int level : {15, 17, 14, 13}) {
        frmImage& image = OpenRandom(120, 90, static_cast<unsigned>(level));
        ZoomToLevel(level);
        const double f = FactorOf(level);
        SelectRectangle(image, 12 * f, 24 * f, 48 * f, 48 * f);
        pintalux::Choose(frmMain->mnuEditCut);
        ExpectSamePixels(Clipboard.GetData(), Part(Before(), 12, 24, 36, 24));
        ExpectSamePixels(ImageOf(image), WithBox(Before(), 12, 24, 36, 24, 0xFFFFFF));
        EXPECT_EQ(image.SelHolder.Width(), 36);
        EXPECT_FALSE(image.PicSelect.Visible());
        EXPECT_EQ(States(image), 1);
    }
}

TEST_F(EditTest, ASecondCutFindsNoSelectionBecauseTheCommandIsOff) {
    frmImage& image = OpenRandom(120, 90);
    SelectRectangle(image, 10, 20, 50, 45);
    pintalux::Choose(frmMain->mnuEditCut);
    EXPECT_FALSE(CutAndCopyEnabled());
    EXPECT_FALSE(image.PicSelect.Visible());
}

TEST_F(EditTest, AFreehandCopyTakesThePieceAndPutsTheImageBack) {
    frmImage& image = OpenRandom(120, 90);
    CopyMode();
    ZoomToLevel(17);
    SelectPath(image, {{40.5 * 3, 20.5 * 3}, {60.5 * 3, 50.5 * 3}, {20.5 * 3, 50.5 * 3}});
    const Bitmap piece = image.SelHolder.Image();
    pintalux::Choose(frmMain->mnuEditCopy);
    ExpectSamePixels(Clipboard.GetData(), piece);
    EXPECT_FALSE(image.PicFreeSelect.Visible());
    EXPECT_FALSE(CutAndCopyEnabled());
    EXPECT_TRUE(FreeSelActive);
    ExpectSamePixels(ImageOf(image), Before());
    ExpectSamePixels(image.Image1.Picture(), Before());
}

TEST_F(EditTest, AFreehandCutTakesThePieceAsItIsSeen) {
    frmImage& image = OpenRandom(120, 90);
    CutMode();
    ZoomToLevel(16); // 2:1
    SelectPath(image, BoxPath(2, 10, 20, 30, 40));
    pintalux::Choose(frmMain->mnuEditCut);
    const Bitmap clip = Clipboard.GetData();
    ASSERT_EQ(clip.Width(), 42);
    EXPECT_EQ(clip.At(5, 7), Before().At(12, 23));
    EXPECT_FALSE(image.PicFreeSelect.Visible());
    EXPECT_TRUE(FreeSelActive);
    ExpectSamePixels(ImageOf(image), WithBox(Before(), 10, 20, 21, 21, 0xFFFFFF));
    ExpectSamePixels(image.Image1.Picture(), WithBox(Before(), 10, 20, 21, 21, 0xFFFFFF));
    EXPECT_EQ(States(image), 1);
}

TEST_F(EditTest, CopyWithNothingFloatingNeverTurnsTheImageBack) {
    frmImage& image = OpenRandom(60, 40);
    CopyMode();
    SelectPath(image, BoxPath(1, 10, 10, 30, 30));
    Choose("Select"); // hides the piece
    Edit(image, 0x00FF00);
    for (const auto command : {mnuEditCopy_Click, mnuEditCut_Click}) {
        EnableCutAndCopy(true); // for another document, say
        command();
        ExpectSamePixels(ImageOf(image), Solid(60, 40, 0x00FF00));
        EXPECT_FALSE(CutAndCopyEnabled());
    }
}

TEST_F(EditTest, PasteAtTwoToOneFloatsAtTwiceTheSize) {
    frmImage& image = OpenRandom(200, 150);
    ZoomToLevel(16);
    const Bitmap clip = RandomPicture(100, 50, 9, 0xFFFFFF);
    Clipboard.SetData(clip);
    mnuEditPaste_Click();
    EXPECT_EQ(image.SelHolder.Width(), 100);
    EXPECT_EQ(image.SelHolder.Height(), 50);
    EXPECT_EQ(image.PicSelect.Width(), 200);
    EXPECT_EQ(image.PicSelect.Height(), 100);
    EXPECT_EQ(image.SelectImage.Width(), 200);
    EXPECT_EQ(image.PicSelectShape.Height(), 100);
    EXPECT_EQ(image.PicSelect.Left(), 0);
    EXPECT_EQ(image.PicSelect.Top(), 0);
    EXPECT_TRUE(image.PicSelect.Visible());
    EXPECT_TRUE(PasteFloating);
    EXPECT_TRUE(image.Enabled());
    EXPECT_EQ(image.MousePointer(), kPointerDefault);
    ExpectSamePixels(ImageOf(image), Before());
    CarryRectangle(image, 20, 10);
    Choose("Pointer");
    Press(image, 390, 290);
    ExpectSamePixels(ImageOf(image), WithPiece(Before(), clip, 10, 5));
    EXPECT_FALSE(PasteFloating);
}

TEST_F(EditTest, AFreehandPasteLandsTheShapeAtTheVisibleCorner) {
    frmImage& image = OpenRandom(900, 700);
    Bitmap clip = RandomPicture(20, 10, 4, 0x7FFFFF);
    for (int x = 0; x < 10; ++x)
        clip.Set(x, 3, kKey);
    Clipboard.SetData(clip);
    ASSERT_TRUE(image.HS.Visible());
    image.HS.Value(33);
    image.VS.Value(21);
    FreeSelActive = true;
    mnuEditPaste_Click();
    EXPECT_TRUE(FreePasteActive);
    EXPECT_TRUE(image.PicFreeSelect.Visible());
    EXPECT_FALSE(image.PicSelect.Visible());
    EXPECT_EQ(image.PicFreeSelect.Left(), 33);
    EXPECT_EQ(image.PicFreeSelect.Top(), 21);
    EXPECT_FALSE(WidgetFor(image.PicFreeSelect).mask().contains(QPoint(4, 3)));
    EXPECT_TRUE(WidgetFor(image.PicFreeSelect).mask().contains(QPoint(14, 3)));
    CarryFreehand(image, 5, 6);
    ExpectSamePixels(ImageOf(image), Before());
    Press(image, 100, 100);
    ExpectSamePixels(ImageOf(image), WithPiece(Before(), clip, 38, 27, kKey));
    EXPECT_FALSE(FreeSelActive);
}

// The tray notes of each slot whether it came from a freehand selection.
TEST_F(EditTest, TheSlotThatIsReadDecidesTheShapeOfAPaste) {
    for (const bool free : {true, false}) {
        frmImage& image = OpenRandom(120, 90);
        Clipboard.SetData(RandomPicture(20, 10, 4, 0x7FFFFF));
        TheClipTray->SelectedClip = 2;
        TheClipTray->PicClip(2).Tag(free ? "free" : "");
        TheClipTray->PicClip(1).Tag(free ? "" : "free");
        FreeSelActive = false;
        mnuEditPaste_Click();
        EXPECT_EQ(image.PicFreeSelect.Visible(), free);
        EXPECT_EQ(image.PicSelect.Visible(), !free);
        EXPECT_EQ(FreeSelActive, Flag(free));
        mnuEditSelectNone_Click();
    }
}

TEST_F(EditTest, ARectangularPasteLandsAtTheImagesCornerAlsoScrolled) {
    frmImage& image = OpenRandom(900, 700);
    image.HS.Value(33);
    Clipboard.SetData(Solid(20, 10, 0xFF));
    for (int time = 0; time < 2; ++time) {
        mnuEditPaste_Click();
        EXPECT_EQ(image.PicSelect.Left(), 0);
        EXPECT_EQ(image.PicSelect.Top(), 0);
        image.PicSelect.Left(7); // the next comes to the corner all the same
        image.PicSelect.Top(5);
    }
}

TEST_F(EditTest, AFreehandPasteAtAnotherZoomIsStretched) {
    frmImage& image = OpenRandom(200, 150);
    ZoomToLevel(17);
    const Bitmap clip = RandomPicture(20, 10, 4, 0x7FFFFF);
    Clipboard.SetData(clip);
    FreeSelActive = true;
    mnuEditPaste_Click();
    EXPECT_EQ(image.PicFreeSelect.Width(), 60);
    EXPECT_EQ(image.PicFreeSelect.Height(), 30);
    EXPECT_EQ(image.PicFreeSelect.Image().At(31, 14), clip.At(10, 4));
    Press(image, 500, 400);
    ExpectSamePixels(ImageOf(image), WithPiece(Before(), clip, 0, 0, kKey));
}

TEST_F(EditTest, TheShapeOfAFreehandCopySurvivesThePaste) {
    frmImage& image = OpenRandom(120, 90);
    CopyMode();
    SelectPath(image, {{40.5, 20.5}, {60.5, 50.5}, {20.5, 50.5}});
    const Bitmap piece = image.SelHolder.Image();
    pintalux::Choose(frmMain->mnuEditCopy);
    pintalux::Choose(frmMain->mnuEditPaste);
    EXPECT_TRUE(image.PicFreeSelect.Visible());
    Press(image, 110, 80);
    ExpectSamePixels(ImageOf(image), WithPiece(Before(), piece, 0, 0, kKey));
}

TEST_F(EditTest, EveryPasteMergesTheOneBefore) {
    frmImage& image = OpenRandom(120, 90);
    Clipboard.SetData(Solid(20, 10, 0x0000FF));
    mnuEditPaste_Click();
    Clipboard.SetData(Solid(20, 10, 0x00FF00));
    mnuEditPaste_Click();
    ExpectSamePixels(ImageOf(image), WithBox(Before(), 0, 0, 20, 10, 0x0000FF));
    EXPECT_EQ(States(image), 3);
    frmMain->Timer1_Timer();
    Choose("Paste");
    ExpectSamePixels(ImageOf(image), WithBox(Before(), 0, 0, 20, 10, 0x00FF00));
    EXPECT_EQ(States(image), 5);
    EXPECT_TRUE(image.PicSelect.Visible());
}

TEST_F(EditTest, TheToolBarCutsAndCopies) {
    frmImage& image = OpenRandom(120, 90);
    SelectRectangle(image, 10, 20, 50, 45);
    Choose("Copy");
    ExpectSamePixels(Clipboard.GetData(), Part(Before(), 10, 20, 40, 25));
    SelectRectangle(image, 10, 20, 50, 45);
    Choose("Cut");
    ExpectSamePixels(ImageOf(image), WithBox(Before(), 10, 20, 40, 25, 0xFFFFFF));
}

TEST_F(EditTest, PasteAsNewOpensADocumentWithItsFirstState) {
    OpenRandom(120, 90);
    const Bitmap clip = RandomPicture(70, 30, 9, 0xFFFFFF);
    Clipboard.SetData(clip);
    pintalux::Choose(frmMain->mnuEditPasteNew);
    frmImage& image = ActiveImage();
    EXPECT_EQ(ImageCount, 2);
    ExpectSamePixels(ImageOf(image), clip);
    ExpectSamePixels(image.Image1.Picture(), clip);
    EXPECT_EQ(image.Image1.Width(), 70);
    EXPECT_EQ(States(image), 1);
    EXPECT_TRUE(image.AFCurfile.empty());
    EXPECT_EQ(image.Caption(), "Imagem 2");
    EXPECT_FALSE(ScreenLocked());
}

TEST_F(EditTest, PasteAsNewNeedsNoOpenDocument) {
    Clipboard.SetData(Solid(7, 3, 0x00FF00));
    frmMain->Timer1_Timer();
    EXPECT_TRUE(frmMain->mnuEditPasteNew.Enabled());
    EXPECT_FALSE(frmMain->mnuEditPaste.Enabled());
    pintalux::Choose(frmMain->mnuEditPasteNew);
    ExpectSamePixels(ImageOf(ActiveImage()), Solid(7, 3, 0x00FF00));
}

TEST_F(EditTest, OnePixelAndVeryWideBitmapsPaste) {
    frmImage& image = OpenRandom(60, 40);
    for (const auto& [width, height] : {std::pair{1, 1}, {32000, 1}, {1, 32000}}) {
        Clipboard.SetData(Solid(width, height, 0x00FF00));
        mnuEditPaste_Click();
        EXPECT_EQ(image.SelHolder.Width(), width);
        image.NeedtoPaste();
    }
    ExpectSamePixels(ImageOf(image), WithBox(WithBox(Before(), 0, 0, 60, 1, 0xFF00), 0, 0, 1, 40, 0xFF00));
}

// Two floating pieces, so that both roads have something that they could spoil.
TEST_F(EditTest, AClipboardWithoutAPictureEndsAPasteWithAMessageAndNothingChanged) {
    for (const auto paste : {mnuEditPaste_Click, PasteFromBar, mnuEditPasteNew_Click}) {
        frmImage& image = OpenRandom(60, 40);
        Clipboard.SetData(Solid(10, 10, 0x00FF00));
        mnuEditPaste_Click();
        CarryRectangle(image, 5, 5);
        Clipboard.Clear();
        const int documents = ImageCount;
        const DialogScript script({PressesButton("OK")});
        paste();
        EXPECT_EQ(script.Dialog(0),
                  Message("exclamation",
                          "Não foi possível obter uma imagem da área de transferência. Nada foi "
                          "colado e a imagem ficou como estava."));
        EXPECT_TRUE(image.Enabled());
        EXPECT_EQ(image.MousePointer(), kPointerDefault);
        EXPECT_FALSE(ScreenLocked());
        EXPECT_EQ(ImageCount, documents);
        EXPECT_TRUE(image.PicSelect.Visible());
        EXPECT_EQ(image.PicSelect.Left(), 5);
        EXPECT_TRUE(PasteFloating);
        EXPECT_EQ(States(image), 1);
        ExpectSamePixels(ImageOf(image), Before());
    }
}

TEST_F(EditTest, APieceWithoutExtentLeavesTheClipboardAlone) {
    frmImage& image = OpenRandom(60, 40);
    for (const auto command : {mnuEditCopy_Click, mnuEditCut_Click}) {
        Clipboard.SetData(Solid(3, 3, 0x00FF00));
        SelectRectangle(image, 10, 10, 10, 30);
        command();
        ExpectSamePixels(Clipboard.GetData(), Solid(3, 3, 0x00FF00));
    }
    ExpectSamePixels(ImageOf(image), Before());
}

TEST_F(EditTest, ThePastedPieceStampsNoHoleInCutMode) {
    frmImage& image = OpenRandom(60, 40);
    CutMode();
    Clipboard.SetData(Solid(10, 10, 0x00FF00));
    mnuEditPaste_Click();
    CarryRectangle(image, 20, 5);
    image.NeedtoPaste();
    ExpectSamePixels(ImageOf(image), WithBox(Before(), 20, 5, 10, 10, 0x00FF00));
}

} // namespace
} // namespace pintalux
