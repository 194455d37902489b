// The keys over a document: drawing without a pointer, moving what floats, giving up.
#include "document/FileCommands.h"
#include "document/Selection.h"
#include "document/UndoCommands.h"
#include "selection/ImageKeyTest.h"
#include "selection/RectangleSelection.h"
#include "surface/system/Clipboard.h"

#include <algorithm>

namespace pintalux {
namespace {

TEST_F(ImageKeyTest, TheImageHasTheFocusAndTheScrollBarsTakeNone) {
    frmImage& image = NewDocument(900, 900);
    PassEvents();
    EXPECT_EQ(WidgetFor(image).focusWidget(), &WidgetFor(image.Image1));
    EXPECT_TRUE(image.VS.Visible());
    EXPECT_EQ(WidgetFor(image.VS).focusPolicy(), Qt::NoFocus);
    EXPECT_EQ(WidgetFor(image.HS).focusPolicy(), Qt::NoFocus);
}

TEST_F(ImageKeyTest, ArrowsMoveTheCrossByAPixelAndWithShiftByTen) {
    frmImage& image = NewDocument(60, 40);
    Choose("Pen");
    GoTo(image, 20, 10);
    Tap(image, Qt::Key_Right);
    Tap(image, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_TRUE(image.CrossX.Visible());
    EXPECT_EQ(image.crossX, 21);
    EXPECT_EQ(image.crossY, 20);
    EXPECT_EQ(image.CrossY.X1(), 21.5);
    EXPECT_EQ(image.CrossX.Y1(), 20.5);
    Tap(image, Qt::Key_Home);
    Tap(image, Qt::Key_Left);
    EXPECT_EQ(image.crossX, 0) << "it stays on the image";
    EXPECT_EQ(States(image), 1);
}

TEST_F(ImageKeyTest, TheCrossBeginsInTheMiddleOfWhatIsSeen) {
    frmImage& small = NewDocument(60, 40);
    Choose("Pen");
    Tap(small, Qt::Key_Right);
    EXPECT_EQ(small.crossX, 31);
    EXPECT_EQ(small.crossY, 20);
    for (const int level : {15, 16}) {
        frmImage& image = LargeDocument();
        ZoomToLevel(level);
        image.HS.Value(300);
        image.VS.Value(200);
        Tap(image, Qt::Key_Down);
        const double factor = FactorOf(level);
        EXPECT_EQ(image.crossX, At(300 + image.PicFrame.ScaleWidth() / 2, factor)) << level;
        EXPECT_EQ(image.crossY, At(200 + image.PicFrame.ScaleHeight() / 2, factor) + 1) << level;
    }
}

TEST_F(ImageKeyTest, SpaceHoldsTheButtonAsLongAsItIsHeld) {
    frmImage& image = NewDocument(60, 40);
    Choose("Pen");
    GoTo(image, 20, 10);
    Down(image, Qt::Key_Space);
    Down(image, Qt::Key_Space, Qt::NoModifier, true); // repeated while it is held
    Times(image, Qt::Key_Right, 5);
    EXPECT_EQ(States(image), 1);
    Up(image, Qt::Key_Space);
    EXPECT_EQ(States(image), 2);
    ExpectSamePixels(ImageOf(image), WithBox(Solid(60, 40, kWhite), 20, 10, 6, 1, kInkPixel));
}

TEST_F(ImageKeyTest, EnterPressesAndLetsGo) {
    frmImage& image = NewDocument(60, 40);
    Choose("Line");
    GoTo(image, 5, 7);
    Tap(image, Qt::Key_Return);
    Tap(image, Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_TRUE(image.Line1.Visible());
    Tap(image, Qt::Key_Return);
    EXPECT_FALSE(image.Line1.Visible());
    ExpectSamePixels(ImageOf(image), WithBox(Solid(60, 40, kWhite), 5, 7, 11, 1, kInkPixel));
    EXPECT_EQ(States(image), 2);
}

TEST_F(ImageKeyTest, TheDropperTakesWhatTheCrossIsOnWithoutAnyMove) {
    frmImage& image = OpenPicture("grid.bmp", RandomPicture(30, 30, 3));
    Choose("ColorPick");
    for (const int x : {7, 21}) {
        GoTo(image, x, 13);
        Tap(image, Qt::Key_Space);
        EXPECT_EQ(PixelOf(CurrentColour()), image.PicMerge.Image().At(x, 13)) << x;
    }
}

TEST_F(ImageKeyTest, TheCrossIsWhereBucketAndDropperActAtAnyZoom) {
    for (const int level : {15, 16, 17, 20, 30}) {
        frmImage& image = OpenPicture("grid.bmp", RandomPicture(30, 30, 3));
        ZoomToLevel(level);
        const Pixel wanted = image.PicMerge.Image().At(7, 13);
        Choose("ColorPick");
        GoTo(image, 6, 13);
        Tap(image, Qt::Key_Right);
        Tap(image, Qt::Key_Space);
        EXPECT_EQ(PixelOf(CurrentColour()), wanted) << level;
        frmMain->SetCurrentColour(kInk);
        Choose("Flood");
        GoTo(image, 7, 13);
        Tap(image, Qt::Key_Space);
        EXPECT_EQ(image.PicMerge.Image().At(7, 13), kInkPixel) << level;
        frmPrefs->Check4.Value(1);
        image.Unload();
    }
}

TEST_F(ImageKeyTest, InAReducedViewTheCrossStepsByAPixelOfTheView) {
    frmImage& image = NewDocument(200, 100);
    Choose("Line");
    ZoomToLevel(12); // 1:4
    GoTo(image, 41, 21);
    Tap(image, Qt::Key_Right);
    EXPECT_EQ(image.crossX, 44);
    Tap(image, Qt::Key_Return);
    Times(image, Qt::Key_Right, 3);
    Tap(image, Qt::Key_Return);
    ExpectSamePixels(ImageOf(image), WithBox(Solid(200, 100, kWhite), 44, 20, 13, 1, kInkPixel));
}

TEST_F(ImageKeyTest, TheViewFollowsTheCross) {
    frmImage& image = LargeDocument();
    Choose("Pen");
    GoTo(image, 3, 3);
    Tap(image, Qt::Key_End);
    EXPECT_EQ(image.crossX, 1499);
    const double x = 1499.5 + image.PicBG.Left();
    EXPECT_LT(x, image.HS.Width());
    for (int i = 0; i < 20; ++i)
        Tap(image, Qt::Key_PageDown);
    EXPECT_EQ(image.crossY, 1199);
    EXPECT_EQ(image.VS.Value(), image.VS.Max());
}

TEST_F(ImageKeyTest, PagesAreAsHighAsWhatIsSeenAndHomeAndEndGoToTheSides) {
    frmImage& image = LargeDocument(3000);
    Choose("Pen");
    struct Zoom {
        int level, pixels, views; // so many view pixels show so many of the image
    };
    for (const Zoom& zoom : {Zoom{15, 1, 1}, Zoom{17, 1, 3}, Zoom{14, 2, 1}}) {
        SCOPED_TRACE(zoom.level);
        ZoomToLevel(zoom.level);
        PassEvents();
        const int grain = zoom.pixels;
        const int page = WidgetFor(image.PicFrame).height() / zoom.views * zoom.pixels;
        ASSERT_GT(page, 10);
        ASSERT_LT(page, 1000);
        GoTo(image, 600, 1600);
        Tap(image, Qt::Key_PageUp);
        EXPECT_EQ(image.crossY, 1600 - page);
        Tap(image, Qt::Key_PageDown);
        Tap(image, Qt::Key_PageDown, Qt::ShiftModifier);
        EXPECT_EQ(image.crossY, 1600 + page);
        EXPECT_EQ(image.crossX, 600);
        Tap(image, Qt::Key_Home);
        EXPECT_EQ(image.crossX, 0);
        Tap(image, Qt::Key_Right);
        EXPECT_EQ(image.crossX, grain);
        Tap(image, Qt::Key_End);
        EXPECT_EQ(image.crossX / grain, 1499 / grain);
        Tap(image, Qt::Key_Home);
        EXPECT_EQ(image.crossX, 0) << "all the way";
        EXPECT_EQ(image.crossY, 1600 + page);
        Times(image, Qt::Key_PageUp, 3000 / page + 1);
        EXPECT_EQ(image.crossY, 0);
    }
}

TEST_F(ImageKeyTest, PlusAndMinusZoomAtTheCross) {
    frmImage& image = LargeDocument();
    Choose("Pen");
    GoTo(image, 700, 600);
    Tap(image, Qt::Key_Right);
    Tap(image, Qt::Key_Left); // it is in the view now
    const auto seenAt = [&image] {
        return std::pair{image.PicBG.Left() + image.CrossY.X1(), image.PicBG.Top() + image.CrossX.Y1()};
    };
    auto before = seenAt();
    struct Step {
        int key, level;
    };
    for (const Step& step :
         {Step{Qt::Key_Plus, 16}, Step{Qt::Key_Plus, 17}, Step{Qt::Key_Minus, 16}, Step{Qt::Key_Minus, 15}}) {
        Tap(image, step.key);
        EXPECT_EQ(image.factorlevel, step.level);
        EXPECT_EQ(image.crossX, 700);
        EXPECT_EQ(image.crossY, 600);
        EXPECT_EQ(image.CrossY.X1(), 700.5 * image.factor);
        EXPECT_EQ(image.CrossX.Y1(), 600.5 * image.factor);
        // The view lies on whole pixels.
        EXPECT_NEAR(seenAt().first, before.first, 0.5);
        EXPECT_NEAR(seenAt().second, before.second, 0.5);
        before = seenAt();
    }
    Down(image, Qt::Key_Plus, Qt::NoModifier, true);
    Tap(image, Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(image.factorlevel, 15) << "neither a repeated key nor a short cut";
    EXPECT_EQ(States(image), 1);
}

TEST_F(ImageKeyTest, ABandByKeysReachesTheLastRowAndColumn) {
    frmImage& image = OpenRandom(30, 20);
    Choose("Select");
    GoTo(image, 20, 12);
    Down(image, Qt::Key_Space);
    Times(image, Qt::Key_Right, 12);
    Times(image, Qt::Key_Down, 12);
    Up(image, Qt::Key_Space);
    ASSERT_TRUE(image.PicSelect.Visible());
    ExpectSamePixels(image.SelHolder.Image(), Part(Before(), 20, 12, 10, 8));
}

// Escape

TEST_F(ImageKeyTest, EscapeEndsWhatIsBeingDrawnWithoutATrace) {
    for (const char* tool : {"Line", "PolyLine", "Shapes", "Select", "FreeSelect"}) {
        frmImage& image = OpenRandom(60, 40);
        Choose(tool);
        Press(image, 10, 10);
        MoveTo(image, 30, 25);
        MoveTo(image, 12, 30);
        Tap(image, Qt::Key_Escape);
        EXPECT_FALSE(image.Line1.Visible() || image.ShSquare.Visible() || image.SelectShape.Visible())
            << tool;
        MoveTo(image, 40, 30);
        Release(image, 40, 30);
        ExpectSamePixels(ImageOf(image), Before());
        ExpectSamePixels(image.Image1.Picture(), Before());
        EXPECT_EQ(States(image), 1) << tool;
        EXPECT_FALSE(PieceFloats(image)) << tool;
        // The next one is drawn as ever.
        Drag(image, {{5, 5}, {9, 5}, {9, 9}});
        EXPECT_TRUE(PieceFloats(image) || States(image) == 2) << tool;
        image.Unload();
    }
}

TEST_F(ImageKeyTest, EscapeEndsWhatIsBeingDrawnByKeys) {
    frmImage& image = OpenRandom(60, 40);
    Choose("Shapes");
    GoTo(image, 10, 10);
    Down(image, Qt::Key_Space);
    Tap(image, Qt::Key_Right, Qt::ShiftModifier);
    Tap(image, Qt::Key_Escape);
    Up(image, Qt::Key_Space);
    EXPECT_EQ(States(image), 1);
    ExpectSamePixels(ImageOf(image), Before());
    Tap(image, Qt::Key_Space); // a shape of one pixel
    EXPECT_EQ(States(image), 2);
}

TEST_F(ImageKeyTest, AChainOfLinesGoesOnWhereItWasBeforeAnAbandonedOne) {
    frmImage& image = NewDocument(60, 40);
    Choose("PolyLine");
    Press(image, 3, 3);
    Tap(image, Qt::Key_Escape);
    Release(image, 3, 3);
    Drag(image, {{10, 10}, {20, 10}}); // still the first: it starts where it was pressed
    Press(image, 40, 30);
    Tap(image, Qt::Key_Escape);
    Release(image, 40, 30);
    Drag(image, {{50, 35}, {20, 20}}); // from 20, 10
    Bitmap expected = WithBox(Solid(60, 40, kWhite), 10, 10, 11, 1, kInkPixel);
    expected = WithBox(expected, 20, 10, 1, 11, kInkPixel);
    ExpectSamePixels(ImageOf(image), expected);
}

TEST_F(ImageKeyTest, EscapeTakesNothingFromAStrokeThatIsPaint) {
    frmImage& image = NewDocument(60, 40);
    Choose("Pen");
    Press(image, 10, 10);
    MoveTo(image, 20, 10);
    Tap(image, Qt::Key_Escape);
    Release(image, 20, 10);
    EXPECT_EQ(States(image), 2);
    ExpectSamePixels(ImageOf(image), WithBox(Solid(60, 40, kWhite), 10, 10, 11, 1, kInkPixel));
}

// What floats

TEST_F(ImageKeyTest, DeleteDiscardsAPieceAsSelectNoneDoes) {
    CutMode();
    frmImage& image = OpenRandom(60, 40);
    SelectRectangle(image, 10, 10, 30, 20);
    Tap(image, Qt::Key_Delete);
    EXPECT_FALSE(PieceFloats(image));
    EXPECT_EQ(States(image), 1);
    ExpectSamePixels(ImageOf(image), Before());
    SelectRectangle(image, 10, 10, 30, 20);
    Tap(image, Qt::Key_Right); // grabs it
    Tap(image, Qt::Key_Delete);
    EXPECT_EQ(States(image), 2) << "the hole stays, and a state to undo it";
    ExpectSamePixels(ImageOf(image), WithBox(Before(), 10, 10, 20, 10, 0xFFFFFF));
    mnuEditUndo_Click();
    ExpectSamePixels(ImageOf(image), Before());
    Tap(image, Qt::Key_Delete);
    EXPECT_EQ(States(image), 2) << "with nothing floating it does nothing";
}

TEST_F(ImageKeyTest, ArrowsCarryARectangleByImagePixels) {
    CutMode();
    frmImage& image = OpenRandom(60, 40);
    ZoomToLevel(17); // 3:1
    SelectRectangle(image, 30, 30, 90, 60);
    const Bitmap piece = Part(Before(), 10, 10, 20, 10);
    Times(image, Qt::Key_Right, 2);
    Tap(image, Qt::Key_Up);
    Tap(image, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(image.PicSelect.Left(), 36);
    EXPECT_EQ(image.PicSelect.Top(), 57);
    Tap(image, Qt::Key_Return);
    EXPECT_FALSE(PieceFloats(image));
    EXPECT_EQ(States(image), 2);
    // One hole, where it was taken, and no trail.
    const Bitmap hole = WithBox(Before(), 10, 10, 20, 10, 0xFFFFFF);
    ExpectSamePixels(ImageOf(image), WithPiece(hole, piece, 12, 19));
}

TEST_F(ImageKeyTest, ArrowsCarryAShapeToo) {
    CutMode();
    frmImage& image = OpenRandom(60, 40);
    SelectPath(image, {{10, 10}, {25, 10}, {25, 20}, {10, 20}});
    ASSERT_TRUE(image.PicFreeSelect.Visible());
    const Bitmap piece = image.SelHolder.Image();
    Times(image, Qt::Key_Left, 3);
    Tap(image, Qt::Key_Space);
    EXPECT_EQ(States(image), 2);
    const Bitmap hole = WithBox(Before(), 10, 10, 16, 11, 0xFFFFFF);
    ExpectSamePixels(ImageOf(image), WithPiece(hole, piece, 7, 10, MaskKeyColour));
    Drag(image, {{30, 10}, {45, 10}, {45, 20}});
    EXPECT_TRUE(PieceFloats(image)) << "the next path is drawn as ever";
}

TEST_F(ImageKeyTest, APieceStaysWithAPixelOverTheImage) {
    CopyMode();
    frmImage& image = OpenRandom(60, 40);
    SelectRectangle(image, 10, 10, 30, 20);
    for (int i = 0; i < 9; ++i)
        Tap(image, Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(image.PicSelect.Left(), -19);
    for (int i = 0; i < 9; ++i) {
        Tap(image, Qt::Key_Right, Qt::ShiftModifier);
        Tap(image, Qt::Key_Down, Qt::ShiftModifier);
    }
    EXPECT_EQ(image.PicSelect.Left(), 59);
    EXPECT_EQ(image.PicSelect.Top(), 39);
}

TEST_F(ImageKeyTest, APieceBeyondTheEdgeComesBackByPixelsAndGoesNoFarther) {
    CopyMode();
    frmImage& image = OpenRandom(60, 40);
    for (const bool shape : {false, true}) {
        SCOPED_TRACE(shape);
        if (shape) {
            SelectPath(image, {{10, 10}, {29, 10}, {29, 19}, {10, 19}});
        } else {
            SelectRectangle(image, 10, 10, 30, 20);
        }
        Surface& piece = shape ? image.PicFreeSelect : image.PicSelect;
        ASSERT_EQ(piece.Width(), 20);
        ASSERT_EQ(piece.Height(), 10);
        piece.Move(-30, 60, 20, 10);
        Tap(image, Qt::Key_Right);
        Tap(image, Qt::Key_Up);
        Tap(image, Qt::Key_Left);
        Tap(image, Qt::Key_Down);
        EXPECT_EQ(piece.Left(), -29);
        EXPECT_EQ(piece.Top(), 59);
        piece.Move(70, -20, 20, 10);
        Tap(image, Qt::Key_Left);
        Tap(image, Qt::Key_Down);
        Tap(image, Qt::Key_Right);
        Tap(image, Qt::Key_Up);
        EXPECT_EQ(piece.Left(), 69);
        EXPECT_EQ(piece.Top(), -19);
        Tap(image, Qt::Key_Delete);
    }
}

TEST_F(ImageKeyTest, APieceThatKeysMovedIsHeldByNoPointer) {
    CutMode();
    frmImage& image = OpenRandom(60, 40);
    SelectRectangle(image, 10, 10, 30, 20);
    Tap(image, Qt::Key_Right);
    EXPECT_FALSE(image.Timer1.Enabled());
    EXPECT_EQ(image.PicSelect.ScaleMode(), kScalePixels);
    EXPECT_EQ(image.SelectLeft, 11);
    EXPECT_EQ(image.SelectTop, 10);
    Tap(image, Qt::Key_Delete);
    SelectPath(image, {{10, 10}, {25, 10}, {25, 20}, {10, 20}});
    Tap(image, Qt::Key_Right);
    EXPECT_FALSE(image.TimerFS.Enabled());
    EXPECT_EQ(image.PicFreeSelect.ScaleMode(), kScalePixels);
}

TEST_F(ImageKeyTest, EnterPrintsTextWhereItFloats) {
    frmImage& image = NewDocument(80, 40);
    image.lbltext.Caption("W");
    image.lbltext.Left(0);
    image.lbltext.Top(0);
    image.lbltext.Visible(true);
    Choose("Pen");
    Times(image, Qt::Key_Right, 30);
    EXPECT_EQ(image.lbltext.Left(), 30);
    Tap(image, Qt::Key_Delete);
    EXPECT_TRUE(image.lbltext.Visible()) << "text is no selection, and nothing would bring it back";
    Tap(image, Qt::Key_Return);
    EXPECT_FALSE(image.lbltext.Visible());
    EXPECT_EQ(States(image), 2);
    const Picture printed = ImageOf(image);
    int left = 80;
    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 80; ++x)
            if (printed.At(x, y) != 0xFFFFFF) left = std::min(left, x);
    EXPECT_GE(left, 30);
    EXPECT_LT(left, 45);
}

// Strange moments

TEST_F(ImageKeyTest, EveryOtherKeyLetsGoFirst) {
    for (const int key : {Qt::Key_Control, Qt::Key_Alt, Qt::Key_F5, Qt::Key_Delete, Qt::Key_C}) {
        frmImage& image = NewDocument(60, 40);
        Choose("Pen");
        GoTo(image, 20, 10);
        Down(image, Qt::Key_Space);
        Tap(image, Qt::Key_Right);
        Tap(image, key);
        EXPECT_EQ(States(image), 2) << key;
        Up(image, Qt::Key_Space);
        EXPECT_EQ(States(image), 2) << key;
        image.Unload();
    }
}

TEST_F(ImageKeyTest, WhatTakesTheFocusAwayRecordsTheStroke) {
    frmImage& image = NewDocument(60, 40);
    PassEvents();
    image.Image1.SetFocus();
    Choose("Pen");
    GoTo(image, 20, 10);
    Down(image, Qt::Key_Space);
    Tap(image, Qt::Key_Right);
    QFocusEvent away(QEvent::FocusOut);
    QCoreApplication::sendEvent(&WidgetFor(image.Image1), &away);
    EXPECT_EQ(States(image), 2);
    EXPECT_FALSE(image.byKeys);
    EXPECT_FALSE(image.CrossX.Visible());
}

TEST_F(ImageKeyTest, ADocumentThatClosesDuringAStrokeAsksForIt) {
    frmPrefs->Check4.Value(0);
    frmImage& image = NewDocument(60, 40);
    image.alreadysaved = true;
    Choose("Pen");
    GoTo(image, 20, 10);
    Down(image, Qt::Key_Space);
    {
        const DialogScript script({PressesButton("Cancelar")});
        EXPECT_FALSE(image.Unload());
    }
    EXPECT_EQ(States(image), 2);
    EXPECT_EQ(image.PicMerge.Image().At(20, 10), kInkPixel);
}

TEST_F(ImageKeyTest, AClickTakesOverFromTheKeys) {
    frmImage& image = NewDocument(60, 40);
    Choose("Pen");
    GoTo(image, 20, 10);
    Down(image, Qt::Key_Return);
    Click(image, 40, 30);
    EXPECT_EQ(States(image), 3) << "the stroke by keys and the click";
    EXPECT_FALSE(image.byKeys);
}

// Tools

TEST_F(ImageKeyTest, ALetterChoosesATool) {
    frmImage& image = NewDocument(60, 40);
    const std::pair<int, int> letters[] = {
        {Qt::Key_A, kPointerTool},   {Qt::Key_S, kSelectTool},    {Qt::Key_M, kFreeSelectTool},
        {Qt::Key_C, kPenTool},       {Qt::Key_B, kEraserTool},    {Qt::Key_E, kFloodTool},
        {Qt::Key_L, kLineTool},      {Qt::Key_P, kPolyLineTool},  {Qt::Key_F, kShapesTool},
        {Qt::Key_V, kColorWandTool}, {Qt::Key_G, kColorPickTool}, {Qt::Key_U, kMagTool}};
    frmMain->Timer1_Timer(); // switches on what works on a document
    for (const auto& [key, tool] : letters) {
        Tap(image, key);
        EXPECT_EQ(CurrentTool, tool);
        EXPECT_EQ(frmMain->TB2.Buttons(tool).Value(), 1);
    }
    Tap(image, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(CurrentTool, kMagTool) << "a short cut is no letter";
    const DialogScript script({ClosesDialog()});
    Tap(image, Qt::Key_T);
    EXPECT_EQ(script.Dialog(0).title, "Inserir texto");
    EXPECT_EQ(CurrentTool, kMagTool);
}

// A window without a picture

TEST_F(ImageKeyTest, AnEmptyWindowTakesEveryKeyAndTurn) {
    PutBytes(Folder("pictures") + "/none.bmp", "no picture");
    OpenDocument(Folder("pictures") + "/none.bmp");
    frmImage& image = static_cast<frmImage&>(*frmMain->ActiveForm());
    for (const int key : {Qt::Key_Left, Qt::Key_PageDown, Qt::Key_Space, Qt::Key_Escape, Qt::Key_Delete,
                          Qt::Key_Plus, Qt::Key_Minus, Qt::Key_Return, Qt::Key_Return, Qt::Key_F6})
        Tap(image, key);
    Turn(image.Image1, {1, 1}, {0, 120});
    Turn(image.Image1, {1, 1}, {0, 120}, Qt::ControlModifier);
    EXPECT_TRUE(untrapped.empty());
}

// Other areas

TEST_F(ImageKeyTest, UpAndDownInAColourBoxStepIt) {
    frmMain->SetCurrentColour(RGB(10, 255, 0));
    Type(WidgetFor(frmMain->txtRed), "");
    const auto key = [](Control& box, int code) {
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, code, Qt::NoModifier);
            QCoreApplication::sendEvent(&WidgetFor(box), &event);
        }
    };
    key(frmMain->txtRed, Qt::Key_Up);
    EXPECT_EQ(CurrentColour(), RGB(11, 255, 0));
    key(frmMain->txtGreen, Qt::Key_Up);
    EXPECT_EQ(CurrentColour(), RGB(11, 255, 0)) << "255 is the most";
    key(frmMain->txtGreen, Qt::Key_Down);
    key(frmMain->txtBlue, Qt::Key_Down);
    EXPECT_EQ(CurrentColour(), RGB(11, 254, 0));
    frmMain->SetCurrentColour(RGB(200, 100, 50));
    const std::string before = frmMain->txtSat.Text();
    key(frmMain->txtSat, Qt::Key_Down);
    EXPECT_EQ(std::stoi(frmMain->txtSat.Text()), std::stoi(before) - 1) << "by its own number, not the hue's";
}

TEST_F(ImageKeyTest, ArrowsWalkTheGridOfColoursAndEnterPicks) {
    for (int i = 0; i < 8; ++i) {
        frmMain->SetCurrentColour(RGB(10 * i, 20, 30));
        frmMain->loadselected();
    }
    frmMain->SetCurrentColour(kBlack);
    const auto key = [](int code) {
        QKeyEvent event(QEvent::KeyPress, code, Qt::NoModifier);
        QCoreApplication::sendEvent(&WidgetFor(frmMain->ColorBox), &event);
    };
    key(Qt::Key_Right);
    EXPECT_EQ(frmMain->Picture6.BackColor(), RGB(10, 20, 30)) << "looked at";
    EXPECT_EQ(CurrentColour(), kBlack);
    key(Qt::Key_Down);
    key(Qt::Key_Right); // the last one stays the last one
    key(Qt::Key_Down);
    key(Qt::Key_Return);
    EXPECT_EQ(CurrentColour(), RGB(70, 20, 30));
    key(Qt::Key_Up);
    key(Qt::Key_Space);
    EXPECT_EQ(CurrentColour(), RGB(10, 20, 30));
    EXPECT_EQ(CollectionCount, 8) << "a pick from the grid adds nothing to it";
}

TEST_F(ImageKeyTest, SwatchesAndSlotsOfTheTrayArePressedByKeys) {
    const auto press = [](Control& control, int code) {
        EXPECT_NE(WidgetFor(control).focusPolicy() & Qt::TabFocus, 0);
        QKeyEvent event(QEvent::KeyPress, code, Qt::NoModifier);
        QCoreApplication::sendEvent(&WidgetFor(control), &event);
    };
    press(frmMain->Picture4, Qt::Key_Space);
    EXPECT_EQ(CurrentColour(), kWhite);
    press(frmMain->Picture5, Qt::Key_Return);
    EXPECT_EQ(CurrentColour(), kBlack);
    press(frmMain->lblColor, Qt::Key_Space);
    EXPECT_EQ(frmMain->lblColor.Caption(), "COR: 0");
    Clipboard.SetData(Solid(3, 2, kInk));
    frmMain->LoadClipboard();
    Clipboard.SetData(Solid(5, 5, kWhite));
    press(frmMain->PicClipBG(0), Qt::Key_Return);
    EXPECT_EQ(Clipboard.GetData(CF_BITMAP).Width(), 3);
}

} // namespace
} // namespace pintalux
