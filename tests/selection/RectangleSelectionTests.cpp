// The rectangular selection: band, lift, drag, merge by a press.
#include "imageops/ImageCommands.h"
#include "selection/EditCommands.h"
#include "selection/RectangleSelection.h"
#include "selection/SelectionTest.h"
#include "surface/system/Clipboard.h"

namespace pintalux {
namespace {

using RectangleTest = SelectionTest;

TEST_F(RectangleTest, AClickWithoutMovementSelectsNothingAtAnyZoom) {
    frmImage& image = OpenRandom(120, 90);
    for (const int level : {15, 17, 30, 13, 0}) {
        ZoomToLevel(level);
        Choose("Select");
        Press(image, 4, 3);
        Release(image, 4.4, 3.4);
        EXPECT_FALSE(image.PicSelect.Visible()) << level;
        EXPECT_FALSE(CutAndCopyEnabled()) << level;
        EXPECT_TRUE(image.selecting) << level;
    }
    EXPECT_EQ(States(image), 1);
}

TEST_F(RectangleTest, AClickInsideOnePixelOfAnEnlargedImageSelectsNothing) {
    frmImage& image = OpenRandom(120, 90);
    ZoomToLevel(17);
    Choose("Select");
    Drag(image, {{30, 30}, {32, 32}});
    EXPECT_FALSE(image.PicSelect.Visible());
}

TEST_F(RectangleTest, TheBandMovesInStepsOfAnImagePixel) {
    frmImage& image = OpenRandom(120, 90);
    ZoomToLevel(17); // 3:1
    Choose("Select");
    Press(image, 31, 32);
    EXPECT_EQ(image.SelectShape.Left(), 30);
    EXPECT_EQ(image.SelectShape.Top(), 30);
    EXPECT_EQ(image.SelectShape.Width(), 0);
    MoveTo(image, 44, 41);
    EXPECT_EQ(image.SelectShape.Width(), 12);
    EXPECT_EQ(image.SelectShape.Height(), 9);
    MoveTo(image, 45, 42);
    EXPECT_EQ(image.SelectShape.Width(), 15);
    EXPECT_EQ(image.SelectShape.Height(), 12);
    MoveTo(image, 20, 10);
    EXPECT_EQ(image.SelectShape.Left(), 18);
    EXPECT_EQ(image.SelectShape.Top(), 9);
    EXPECT_EQ(image.SelectShape.Width(), 12);
    EXPECT_EQ(image.SelectShape.Height(), 21);
    Release(image, 20, 10);
    EXPECT_EQ(image.sx, 30);
    EXPECT_EQ(image.SelX, 30);
}

TEST_F(RectangleTest, TheReleaseLiftsThePieceAndRecordsNoState) {
    frmImage& image = OpenRandom(120, 90);
    SelectRectangle(image, 10, 20, 50, 45);
    EXPECT_TRUE(image.PicSelect.Visible());
    EXPECT_FALSE(image.SelectShape.Visible());
    EXPECT_EQ(image.SelectLeft, 10);
    EXPECT_EQ(image.SelectTop, 20);
    EXPECT_EQ(image.Selectwidth, 40);
    EXPECT_EQ(image.Selectheight, 25);
    EXPECT_FALSE(image.selecting);
    EXPECT_TRUE(CutAndCopyEnabled());
    ExpectSamePixels(image.SelHolder.Image(), Part(Before(), 10, 20, 40, 25));
    ExpectSamePixels(image.SelectImage.Picture(), Part(Before(), 10, 20, 40, 25));
    ExpectSamePixels(ImageOf(image), Before());
    EXPECT_EQ(States(image), 1);
}

TEST_F(RectangleTest, ThePieceHasImagePixelsAtEveryZoom) {
    frmImage& image = OpenRandom(120, 90);
    for (const int level : {17, 20}) {
        ZoomToLevel(level);
        const double f = FactorOf(level);
        SelectRectangle(image, 5 * f, 6 * f, 25 * f + 1, 16 * f + 1);
        ExpectSamePixels(image.SelHolder.Image(), Part(Before(), 5, 6, 20, 10));
        EXPECT_EQ(image.PicSelect.Width(), 20 * f);
        EXPECT_EQ(image.PicSelect.Left(), 5 * f);
        mnuEditSelectNone_Click();
    }
}

TEST_F(RectangleTest, BackwardDragsSelectTheSame) {
    frmImage& image = OpenRandom(120, 90);
    SelectRectangle(image, 50, 45, 10, 20);
    ExpectSamePixels(image.SelHolder.Image(), Part(Before(), 10, 20, 40, 25));
}

TEST_F(RectangleTest, AFirstGrabInCutModeLeavesAHoleInTheBackground) {
    frmImage& image = OpenRandom(120, 90);
    CutMode();
    image.PicSelect.BackColor(0x00FFAA);
    SelectRectangle(image, 10, 20, 50, 45);
    CarryRectangle(image, 0, 0);
    ExpectSamePixels(ImageOf(image), WithBox(Before(), 10, 20, 40, 25, 0x00FFAA));
    EXPECT_EQ(States(image), 1);
}

TEST_F(RectangleTest, TheHoleIsWholeAtEveryZoom) {
    for (const int level : {14, 13, 17, 22}) {
        frmImage& image = OpenRandom(160, 120, static_cast<unsigned>(level));
        CutMode();
        ZoomToLevel(level);
        const double f = FactorOf(level);
        SelectRectangle(image, 12 * f, 24 * f, 60 * f, 84 * f);
        CarryRectangle(image, 0, 0);
        ExpectSamePixels(ImageOf(image), WithBox(Before(), 12, 24, 48, 60, 0xFFFFFF));
    }
}

TEST_F(RectangleTest, InCopyModeAGrabLeavesTheImageAlone) {
    frmImage& image = OpenRandom(120, 90);
    CopyMode();
    SelectRectangle(image, 10, 20, 50, 45);
    CarryRectangle(image, 30, 5);
    ExpectSamePixels(ImageOf(image), Before());
    EXPECT_EQ(image.SelectLeft, 40);
    EXPECT_EQ(image.SelectTop, 25);
}

TEST_F(RectangleTest, ASecondGrabInCutModeStampsThePlaceWhereThePieceLies) {
    frmImage& image = OpenRandom(120, 90);
    CutMode();
    SelectRectangle(image, 10, 20, 50, 45);
    CarryRectangle(image, 30, 5);
    CarryRectangle(image, 0, 0);
    ExpectSamePixels(ImageOf(image),
                     WithBox(WithBox(Before(), 10, 20, 40, 25, 0xFFFFFF), 40, 25, 40, 25, 0xFFFFFF));
}

TEST_F(RectangleTest, APastedPieceStampsNothing) {
    frmImage& image = OpenRandom(120, 90);
    CutMode();
    SelectRectangle(image, 10, 20, 50, 45);
    PasteFloating = true;
    CarryRectangle(image, 30, 5);
    ExpectSamePixels(ImageOf(image), Before());
}

TEST_F(RectangleTest, TheDragSnapsToImagePixels) {
    frmImage& image = OpenRandom(120, 90);
    CopyMode();
    ZoomToLevel(17); // 3:1
    SelectRectangle(image, 30, 30, 60, 60);
    CarryRectangle(image, 10, 5); // from 400, 300: 399 to 408, 300 to 303
    EXPECT_EQ(image.PicSelect.Left(), 39);
    EXPECT_EQ(image.PicSelect.Top(), 33);
    EXPECT_EQ(image.SelectLeft, 13);
    EXPECT_EQ(image.SelectTop, 11);
}

TEST_F(RectangleTest, APressMergesThePieceOpaquelyAndTakesOneState) {
    frmImage& image = OpenRandom(120, 90);
    CutMode();
    SelectRectangle(image, 10, 20, 50, 45);
    CarryRectangle(image, 30, 5);
    Choose("Pointer");
    Press(image, 2, 2);
    EXPECT_FALSE(image.PicSelect.Visible());
    EXPECT_FALSE(CutAndCopyEnabled());
    EXPECT_FALSE(image.selecting);
    EXPECT_FALSE(PasteFloating);
    EXPECT_EQ(States(image), 2);
    Release(image, 2, 2);
    EXPECT_EQ(States(image), 3);
    ExpectSamePixels(ImageOf(image), WithPiece(WithBox(Before(), 10, 20, 40, 25, 0xFFFFFF),
                                               Part(Before(), 10, 20, 40, 25), 40, 25));
}

TEST_F(RectangleTest, ARectangleShowsNoTransparency) {
    Bitmap picture = RandomPicture(60, 40, 3, 0xFFFFFF);
    for (int x = 12; x < 18; ++x)
        picture.Set(x, 15, 0x8894A0);
    frmImage& image = OpenPicture("key.bmp", picture);
    CopyMode();
    SelectRectangle(image, 10, 10, 20, 20);
    CarryRectangle(image, 20, 0);
    Choose("Pointer");
    Press(image, 2, 2);
    ExpectSamePixels(ImageOf(image), WithPiece(picture, Part(picture, 10, 10, 10, 10), 30, 10));
}

TEST_F(RectangleTest, APieceIsCarriedByItsPictureAndByWhatHoldsIt) {
    frmImage& image = OpenRandom(120, 90);
    SelectRectangle(image, 10, 20, 50, 45);
    int left = 10;
    for (Control* under :
         {static_cast<Control*>(&image.SelectImage), static_cast<Control*>(&image.PicSelect)}) {
        Carry(*under, image.Timer1, 7, 5);
        left += 7;
        EXPECT_EQ(image.PicSelect.Left(), left) << under->Name();
        EXPECT_EQ(image.SelectLeft, left) << under->Name();
        EXPECT_FALSE(image.Timer1.Enabled()) << under->Name() << " still follows the pointer";
    }
}

TEST_F(RectangleTest, ThePressThatMergesStartsTheNextBand) {
    frmImage& image = OpenRandom(120, 90);
    SelectRectangle(image, 10, 20, 50, 45);
    Drag(image, {{60, 50}, {80, 70}});
    EXPECT_TRUE(image.PicSelect.Visible());
    EXPECT_EQ(image.SelectLeft, 60);
    EXPECT_EQ(image.Selectwidth, 20);
    EXPECT_TRUE(CutAndCopyEnabled());
    EXPECT_EQ(States(image), 2);
}

TEST_F(RectangleTest, APieceCarriedOffTheImageOnEverySideIsCutThere) {
    for (const auto& [dx, dy] : {std::pair{-30, 0}, {0, -35}, {100, 0}, {0, 70}, {-200, -200}}) {
        frmImage& image = OpenRandom(120, 90, static_cast<unsigned>(500 + dx + dy));
        CutMode();
        SelectRectangle(image, 10, 20, 50, 45);
        CarryRectangle(image, dx, dy);
        Choose("Pointer");
        Press(image, 2, 2);
        ExpectSamePixels(ImageOf(image), WithPiece(WithBox(Before(), 10, 20, 40, 25, 0xFFFFFF),
                                                   Part(Before(), 10, 20, 40, 25), 10 + dx, 20 + dy));
    }
}

TEST_F(RectangleTest, ABandThatLeavesTheImageIsCutToIt) {
    struct Case {
        double x1, y1, x2, y2;
        int left, top, width, height;
    };
    for (const Case& c : {Case{50, 30, 70, 50, 50, 30, 10, 10}, Case{20, 15, -5, -9, 0, 0, 20, 15},
                          Case{20, 15, 300, 25, 20, 15, 40, 10}}) {
        for (const int level : {15, 17}) {
            frmImage& image = OpenRandom(60, 40);
            CopyMode();
            ZoomToLevel(level);
            const double f = FactorOf(level);
            SelectRectangle(image, c.x1 * f, c.y1 * f, c.x2 * f, c.y2 * f);
            const Bitmap piece = Part(Before(), c.left, c.top, c.width, c.height);
            ExpectSamePixels(image.SelHolder.Image(), piece);
            EXPECT_EQ(image.PicSelect.Left(), c.left * f);
            EXPECT_EQ(image.PicSelect.Width(), c.width * f);
            CarryRectangle(image, static_cast<int>(-3 * f), 0);
            Choose("Pointer");
            Press(image, 2, 2);
            ExpectSamePixels(ImageOf(image), WithPiece(Before(), piece, c.left - 3, c.top));
        }
    }
}

TEST_F(RectangleTest, ABandOfNoWidthOrHeightDoesNoHarm) {
    frmImage& image = OpenRandom(60, 40);
    SelectRectangle(image, 10, 10, 10, 30);
    EXPECT_TRUE(image.PicSelect.Visible());
    CutMode();
    CarryRectangle(image, 5, 5);
    Choose("Pointer");
    Press(image, 2, 2);
    ExpectSamePixels(ImageOf(image), Before());
    EXPECT_TRUE(untrapped.empty());
}

TEST_F(RectangleTest, SelectAllTakesTheWholeImageAtEveryZoom) {
    frmImage& image = OpenRandom(101, 77);
    for (const int level : {15, 17, 13, 2}) {
        ZoomToLevel(level);
        FreeSelActive = true;
        mnuEditSelectAll_Click();
        EXPECT_EQ(image.SelectLeft, 0);
        EXPECT_EQ(image.Selectwidth, 101) << level;
        EXPECT_EQ(image.Selectheight, 77) << level;
        EXPECT_TRUE(image.selecting);
        EXPECT_FALSE(FreeSelActive);
        EXPECT_FALSE(FreePasteActive);
        EXPECT_TRUE(image.PicSelect.Visible());
        EXPECT_EQ(image.PicSelect.Left(), 0) << level;
        EXPECT_EQ(image.PicSelect.Top(), 0) << level;
        EXPECT_EQ(image.PicSelect.Width(), image.Image1.Width()) << level;
        EXPECT_EQ(image.PicSelect.Height(), image.Image1.Height()) << level;
        EXPECT_TRUE(CutAndCopyEnabled());
        ExpectSamePixels(image.SelHolder.Image(), Before());
        EXPECT_EQ(image.PicSelect.Left(), 0);
        EXPECT_EQ(image.PicSelect.Top(), 0);
        mnuEditSelectNone_Click();
    }
}

TEST_F(RectangleTest, SelectNoneDiscardsThePieceAndKeepsTheHole) {
    frmImage& image = OpenRandom(120, 90);
    CutMode();
    SelectRectangle(image, 10, 20, 50, 45);
    CarryRectangle(image, 30, 5);
    frmMain->Timer1_Timer();
    EXPECT_TRUE(frmMain->mnuEditSelectNone.Enabled());
    mnuEditSelectNone_Click();
    EXPECT_FALSE(image.PicSelect.Visible());
    EXPECT_FALSE(CutAndCopyEnabled());
    EXPECT_FALSE(frmMain->mnuEditSelectNone.Enabled());
    EXPECT_TRUE(image.selecting);
    EXPECT_EQ(States(image), 2);
    ExpectSamePixels(ImageOf(image), WithBox(Before(), 10, 20, 40, 25, 0xFFFFFF));
}

TEST_F(RectangleTest, AZoomKeepsThePieceOnItsPlaceOfTheImage) {
    frmImage& image = OpenRandom(120, 90);
    CopyMode();
    SelectRectangle(image, 10, 20, 50, 45);
    CarryRectangle(image, 20, 10);
    ZoomToLevel(17);
    EXPECT_EQ(image.PicSelect.Left(), 90);
    EXPECT_EQ(image.PicSelect.Width(), 120);
    image.NeedtoPaste();
    ExpectSamePixels(ImageOf(image), WithPiece(Before(), Part(Before(), 10, 20, 40, 25), 30, 30));
}

TEST_F(RectangleTest, APieceKeepsItsSizeWhenAZoomFollowsTheUndoOfATurn) {
    for (const bool byMenu : {true, false}) {
        frmImage& image = OpenRandom(120, 40);
        mnuRotate90_Click();
        ZoomToLevel(17);
        const Bitmap clip = RandomPicture(30, 20, 4);
        Clipboard.SetData(clip);
        mnuEditPaste_Click();
        pintalux::Choose(frmMain->mnuEditUndo);
        if (byMenu) {
            ZoomToLevel(16);
        } else {
            ZoomStep(false, image.Image1, image.PicMerge);
        }
        EXPECT_EQ(image.PicSelect.Width(), 60);
        EXPECT_EQ(image.PicSelect.Height(), 40);
        Choose("Pointer");
        Press(image, 200, 70);
        ExpectSamePixels(ImageOf(image), WithPiece(Before(), clip, 0, 0));
        ZoomToLevel(15);
    }
    Clipboard.Clear();
}

TEST_F(RectangleTest, UndoWhileAPieceFloatsLeavesItFloating) {
    frmImage& image = OpenRandom(120, 90);
    Edit(image, 0x123456);
    SelectRectangle(image, 10, 20, 50, 45);
    pintalux::Choose(frmMain->mnuEditUndo);
    EXPECT_TRUE(image.PicSelect.Visible());
    image.NeedtoPaste();
    ExpectSamePixels(ImageOf(image), WithBox(Before(), 10, 20, 40, 25, 0x123456));
}

TEST_F(RectangleTest, ClosingAndTheNextDocumentSurviveAFloatingPiece) {
    OpenRandom(120, 90);
    SelectRectangle(ActiveImage(), 10, 20, 50, 45);
    ActiveImage().Unload();
    PassEvents();
    frmImage& second = OpenRandom(40, 30);
    mnuEditSelectAll_Click();
    ExpectSamePixels(second.SelHolder.Image(), Before());
}

TEST_F(RectangleTest, ThePointerOverAPieceIsTheSizeAllCrossAndMovesTheRulers) {
    frmImage& image = OpenRandom(120, 90);
    RulersOn = true;
    SelectRectangle(image, 10, 20, 50, 45);
    image.SelectImage.MouseMove(0, 0, 3 * 15, 4 * 15);
    EXPECT_EQ(image.SelectImage.MousePointer(), kPointerSizeAll);
    EXPECT_EQ(image.lblx.Caption(), "13");
    EXPECT_EQ(image.lbly.Caption(), "24");
    image.PicFrame.MouseMove(0, 0, image.PicBG.Left() + 7, image.PicBG.Top() + 9);
    EXPECT_EQ(image.lblx.Caption(), "7");
    EXPECT_EQ(image.lbly.Caption(), "9");
    RulersOn = false;
}

} // namespace
} // namespace pintalux
