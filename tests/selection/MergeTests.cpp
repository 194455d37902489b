// Merging by command: what is recorded, and what is not.
#include "selection/RectangleSelection.h"
#include "selection/SelectionTest.h"
#include "tools/Image1_Pointer.h"

namespace pintalux {
namespace {

using MergeTest = SelectionTest;

TEST_F(MergeTest, WithNothingFloatingOneStateIsTakenAndNoPixelChanges) {
    frmImage& image = OpenRandom(60, 40);
    image.NeedtoPaste();
    EXPECT_EQ(States(image), 2);
    ExpectSamePixels(ImageOf(image), Before());
}

TEST_F(MergeTest, TextThatHasLandedIsNotPrintedAgain) {
    frmImage& image = OpenRandom(60, 40);
    image.lbltext.Caption("W");
    image.lbltext.FontSize(20);
    image.lbltext.Visible(true);
    image.NeedtoPaste();
    EXPECT_NE(ImageOf(image), Before());
    Edit(image, 0x3264C8);
    image.NeedtoPaste();
    ExpectSamePixels(ImageOf(image), Solid(60, 40, 0x3264C8));
}

// What was drawn and not yet shown is seen, at the latest, when a merge is asked for.
TEST_F(MergeTest, WithNothingFloatingTheImageIsShown) {
    frmImage& image = OpenRandom(60, 40);
    image.PicMerge.PSet(20, 30, 0x0000FF);
    image.NeedtoPaste();
    EXPECT_EQ(image.Image1.Picture().At(20, 30), 0x0000FFU);
}

TEST_F(MergeTest, ARectangleTakesTwoStates) {
    frmImage& image = OpenRandom(60, 40);
    CopyMode();
    SelectRectangle(image, 5, 5, 25, 20);
    CarryRectangle(image, 10, 4);
    PasteFloating = true;
    image.NeedtoPaste();
    EXPECT_EQ(States(image), 3);
    EXPECT_FALSE(PasteFloating);
    EXPECT_FALSE(image.selecting);
    EXPECT_FALSE(CutAndCopyEnabled());
    EXPECT_EQ(image.SelectLeft, 15);
    const Bitmap expected = WithPiece(Before(), Part(Before(), 5, 5, 20, 15), 15, 9);
    ExpectSamePixels(ImageOf(image), expected);
    ExpectSamePixels(image.Image1.Picture(), expected);
}

TEST_F(MergeTest, AFreehandPieceTakesTwoStatesAndEndsTheFreehandSelection) {
    frmImage& image = OpenRandom(60, 40);
    CutMode();
    SelectPath(image, {{5.5, 5.5}, {25.5, 5.5}, {25.5, 20.5}, {5.5, 20.5}});
    CarryFreehand(image, 10, 4);
    PasteFloating = true;
    image.NeedtoPaste();
    EXPECT_EQ(States(image), 3);
    EXPECT_FALSE(PasteFloating);
    EXPECT_FALSE(FreeSelActive);
    EXPECT_TRUE(image.FreeSelDrawing);
    ExpectSamePixels(ImageOf(image), WithPiece(WithBox(Before(), 5, 5, 21, 16, 0xFFFFFF),
                                               Part(Before(), 5, 5, 21, 16), 15, 9));
}

TEST_F(MergeTest, ARectangleGoesBeforeAFreehandPiece) {
    frmImage& image = OpenRandom(60, 40);
    CopyMode();
    SelectPath(image, {{5.5, 5.5}, {25.5, 5.5}, {25.5, 20.5}});
    image.SelHolder.Picture(Solid(4, 4, 0x00FF00));
    image.PicSelect.Move(30, 30, 4, 4);
    image.PicSelect.Visible(true);
    image.NeedtoPaste();
    EXPECT_FALSE(image.PicSelect.Visible());
    EXPECT_TRUE(image.PicFreeSelect.Visible());
    EXPECT_EQ(ImageOf(image).At(31, 31), 0x00FF00U);
}

TEST_F(MergeTest, APlaceBetweenTwoPixelsGoesToTheEvenOne) {
    frmImage& image = OpenRandom(60, 40);
    ZoomToLevel(16); // 2:1
    image.SelHolder.Picture(Solid(4, 4, 0x00FF00));
    image.PicSelect.Move(21, 23, 8, 8); // 10.5 and 11.5
    image.PicSelect.Visible(true);
    image.NeedtoPaste();
    ExpectSamePixels(ImageOf(image), WithBox(Before(), 10, 12, 4, 4, 0x00FF00));
}

// Whatever floats, and by whatever road it lands: what is seen is what the image holds.
TEST_F(MergeTest, WhatHasLandedIsSeen) {
    const auto lifts = {+[](frmImage& image) { SelectRectangle(image, 5, 5, 25, 20); },
                        +[](frmImage& image) {
                            SelectPath(image, {{5.5, 5.5}, {25.5, 5.5}, {25.5, 20.5}, {5.5, 20.5}});
                        }};
    const auto lands = {+[](frmImage& image) { LayDown(image); },
                        +[](frmImage& image) { image.NeedtoPaste(); },
                        +[](frmImage& image) { Press(image, 50, 35); },
                        +[](frmImage& image) {
                            Choose("Line");
                            Press(image, 50, 35);
                        },
                        +[](frmImage& image) { Press(image, 50, 35, kRightButton); },
                        +[](frmImage&) { mnuEditSelectAll_Click(); }};
    for (const bool cut : {false, true}) {
        for (const auto lift : lifts) {
            for (const auto land : lands) {
                frmImage& image = OpenRandom(60, 40);
                cut ? CutMode() : CopyMode();
                lift(image);
                Control& piece =
                    image.PicSelect.Visible() ? static_cast<Control&>(image.PicSelect) : image.PicFreeSelect;
                image.piece = PieceState::Grabbed;
                piece.Move(15, 9, piece.Width(), piece.Height());
                land(image);
                ExpectSamePixels(image.Image1.Picture(), ImageOf(image));
                image.Unload();
            }
        }
    }
}

TEST_F(MergeTest, APressMergesTheRectangleAndThenTheFreehandPiece) {
    frmImage& image = OpenRandom(60, 40);
    CopyMode();
    SelectPath(image, {{5.5, 5.5}, {25.5, 5.5}, {25.5, 20.5}});
    image.PicSelect.Move(30, 30, 4, 4);
    image.PicSelect.Visible(true);
    Choose("Pen");
    Press(image, 50, 30);
    EXPECT_FALSE(image.PicSelect.Visible());
    EXPECT_FALSE(image.PicFreeSelect.Visible());
    EXPECT_EQ(States(image), 3);
}

TEST_F(MergeTest, OnlyTheActiveDocumentIsTouched) {
    frmImage& first = OpenRandom(60, 40);
    SelectRectangle(first, 5, 5, 25, 20);
    frmImage& second = NewDocument(30, 30, 0x0000FF);
    second.NeedtoPaste();
    EXPECT_TRUE(first.PicSelect.Visible());
    EXPECT_EQ(States(first), 1);
    EXPECT_EQ(States(second), 2);
}

} // namespace
} // namespace pintalux
