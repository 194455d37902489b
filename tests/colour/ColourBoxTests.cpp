// Picking from the spectrum, the strip of shades and the grid.
#include "colour/ColourBoxTest.h"

#include "document/Globals.h"
#include "support/DialogScript.h"

#include <algorithm>
#include <cmath>

namespace pintalux {
namespace {

int Red(Colour c) {
    return c & 0xFF;
}

TEST_F(ColourBoxTest, HasTheToldMeasures) {
    EXPECT_EQ(frmMain->ColorBox.Width(), 131);
    EXPECT_EQ(frmMain->ColorBox.Height(), 417);
    EXPECT_EQ(frmMain->ColorBox.BackColor(), kEmpty);
    EXPECT_EQ(frmMain->Image1.Picture().Width(), 177);
    EXPECT_EQ(frmMain->Image1.Picture().Height(), 188);
    EXPECT_LE(frmMain->Image1.Top() + frmMain->Image1.Height(), 155);
    EXPECT_LE(frmMain->Image1.Left() + frmMain->Image1.Width(), frmMain->Picture6.Left());
    EXPECT_FALSE(frmMain->picColBlowup.Visible());
    EXPECT_EQ(frmMain->picColBlowup.Parent(), &frmMain->ColorBox);
}

// The screen holds the spectrum as it is drawn there, reduced.
TEST_F(ColourBoxTest, PointerOverTheSpectrumPreviewsWhatTheScreenShows) {
    PointAt(frmMain->Image1, 20, 70);
    const Colour shown = frmMain->Picture6.BackColor();
    EXPECT_EQ(shown, ScreenPixel(GetCursorPos()));
    EXPECT_GT(Red(shown), 150); // 20 of 106 pixels is a bit behind yellow
    EXPECT_LT(shown >> 16, 100);
    EXPECT_EQ(frmMain->lblColor.Caption(), RgbReadout(shown));
    EXPECT_EQ(frmMain->TheColor.BackColor(), kBefore);
    EXPECT_EQ(frmMain->TheColor.Point(0, 0), shown);
}

TEST_F(ColourBoxTest, WhateverIsDrawnOverTheSpectrumCounts) {
    Label cover(frmMain->ColorBox, "cover");
    cover.Move(0, 0, 40, 40);
    cover.BackColor(RGB(7, 8, 9));
    cover.BringToFront();
    PassEvents();
    PointAt(frmMain->Image1, 20, 20);
    EXPECT_EQ(frmMain->Picture6.BackColor(), RGB(7, 8, 9));
}

TEST_F(ColourBoxTest, PointerThatStandsStillSamplesNothing) {
    PointAt(frmMain->Image1, 20, 70);
    frmMain->ChangeColor(RGB(1, 2, 3));
    frmMain->picColBlowup.Visible(true);
    PointAt(frmMain->Image1, 20, 70);
    EXPECT_EQ(frmMain->Picture6.BackColor(), RGB(1, 2, 3));
    EXPECT_TRUE(frmMain->picColBlowup.Visible());
    PointAt(frmMain->Image1, 21, 70);
    EXPECT_NE(frmMain->Picture6.BackColor(), RGB(1, 2, 3));
    EXPECT_FALSE(frmMain->picColBlowup.Visible());
}

TEST_F(ColourBoxTest, PointerWithTheRightButtonHeldPreviewsNothing) {
    PointAt(frmMain->Image1, 20, 70, kRightButton);
    EXPECT_EQ(frmMain->Picture6.BackColor(), kBefore);
    PointAt(frmMain->Image1, 20, 70, kLeftButton);
    EXPECT_NE(frmMain->Picture6.BackColor(), kBefore);
}

TEST_F(ColourBoxTest, LeftPressOnTheSpectrumTakesTheColourAndCollectsIt) {
    PointAt(frmMain->Image1, 60, 50);
    const Colour shown = frmMain->Picture6.BackColor();
    ClickAt(frmMain->Image1, 60, 50);
    EXPECT_EQ(frmMain->TheColor.BackColor(), shown);
    EXPECT_EQ(frmMain->LblCurCol.ForeColor(), ContrastColor(shown));
    EXPECT_EQ(frmMain->txtRed.Text(), std::to_string(Red(shown)));
    EXPECT_EQ(frmMain->lblColor.Caption(), RgbReadout(shown));
    EXPECT_EQ(CollectionCount, 1);
    EXPECT_EQ(BoxPixel(0, 156), shown);
}

TEST_F(ColourBoxTest, LockKeepsPicksOutOfTheCollection) {
    ColorLock = true;
    PointAt(frmMain->Image1, 60, 50);
    ClickAt(frmMain->Image1, 60, 50);
    EXPECT_NE(frmMain->TheColor.BackColor(), kBefore);
    EXPECT_EQ(CollectionCount, 0);
    EXPECT_EQ(BoxPixel(0, 156), kEmpty);
}

TEST_F(ColourBoxTest, RightPressOnTheSpectrumShowsItsShades) {
    PointAt(frmMain->Image1, 50, 60);
    const Colour shown = frmMain->Picture6.BackColor();
    ClickAt(frmMain->Image1, 50, 60, kRightButton);
    const Surface& strip = frmMain->picColBlowup;
    EXPECT_TRUE(strip.Visible());
    EXPECT_NEAR(strip.Left(), 50 + frmMain->Image1.Left() - strip.Width() / 2, 0.5);
    EXPECT_NEAR(strip.Top(), 60 + frmMain->Image1.Top() - strip.Height() / 10, 0.5);
    EXPECT_EQ(Red(strip.Point(3, 0)), std::max(0, Red(shown) > 25 ? Red(shown) - 25 : 0));
    EXPECT_EQ(frmMain->TheColor.BackColor(), kBefore);
}

// The same place again is no new place: the handler ends before it shows anything.
TEST_F(ColourBoxTest, SecondRightPressAtTheSamePlaceShowsNothing) {
    PointAt(frmMain->Image1, 50, 60);
    ClickAt(frmMain->Image1, 50, 60, kRightButton);
    frmMain->picColBlowup.Visible(false);
    ClickAt(frmMain->Image1, 50, 60, kRightButton);
    EXPECT_FALSE(frmMain->picColBlowup.Visible());
}

TEST_F(ColourBoxTest, StripStaysWithinTheBoxAtBothSides) {
    PointAt(frmMain->Image1, 105, 60);
    ClickAt(frmMain->Image1, 105, 60, kRightButton);
    EXPECT_LE(frmMain->picColBlowup.Left() + frmMain->picColBlowup.Width(), frmMain->ColorBox.Width());
    PointAt(frmMain->Image1, 1, 60);
    ClickAt(frmMain->Image1, 1, 60, kRightButton);
    EXPECT_EQ(frmMain->picColBlowup.Left(), 0);
    Collect({RGB(1, 1, 1)});
    ClickAt(frmMain->ColorBox, 1, 160, kRightButton);
    EXPECT_EQ(frmMain->picColBlowup.Left(), 0);
}

// Two rows a shade: 0 and 1 the base, 2 and 3 the base plus 1, and so on.
TEST_F(ColourBoxTest, ShadesRiseByOneEverySecondRow) {
    frmMain->ColorBlowup(RGB(100, 25, 26));
    const Surface& strip = frmMain->picColBlowup;
    EXPECT_TRUE(strip.Visible());
    for (int y = 0; y < strip.ScaleHeight(); ++y) {
        const Colour expected = RGB(75 + y / 2, y / 2, 1 + y / 2);
        ASSERT_EQ(strip.Point(0, y), expected) << y;
        ASSERT_EQ(strip.Point(strip.ScaleWidth() - 1, y), expected) << y;
    }
}

TEST_F(ColourBoxTest, ShadesOfWhiteEndInWhite) {
    frmMain->ColorBlowup(kWhite);
    const Surface& strip = frmMain->picColBlowup;
    EXPECT_EQ(strip.Point(0, 0), RGB(230, 230, 230));
    EXPECT_EQ(strip.Point(0, 50), kWhite);
    EXPECT_EQ(strip.Point(0, strip.ScaleHeight() - 1), kWhite);
}

TEST_F(ColourBoxTest, StripPreviewsAndAnyPressOnItCommits) {
    frmMain->picColBlowup.Move(40, 40, frmMain->picColBlowup.Width(), frmMain->picColBlowup.Height());
    frmMain->ColorBlowup(RGB(100, 100, 100));
    PassEvents();
    PointAt(frmMain->picColBlowup, 5, 10);
    EXPECT_EQ(frmMain->Picture6.BackColor(), RGB(80, 80, 80));
    EXPECT_EQ(frmMain->lblColor.Caption(), "RGB: 80, 80, 80");
    EXPECT_EQ(frmMain->TheColor.BackColor(), kBefore);
    ClickAt(frmMain->picColBlowup, 5, 10, kRightButton);
    EXPECT_EQ(frmMain->TheColor.BackColor(), RGB(80, 80, 80));
    EXPECT_EQ(frmMain->txtBlue.Text(), "80");
    EXPECT_EQ(CollectionCount, 1);
}

TEST_F(ColourBoxTest, PointerOverTheGridPreviewsItsColours) {
    Collect({RGB(10, 20, 30), RGB(40, 50, 60)});
    frmMain->SetCurrentColour(kBefore);
    PointAt(frmMain->ColorBox, 20, 160);
    EXPECT_EQ(frmMain->Picture6.BackColor(), RGB(40, 50, 60));
    EXPECT_EQ(frmMain->lblColor.Caption(), "RGB: 40, 50, 60");
    // An empty place previews nothing: what was shown stays.
    PointAt(frmMain->ColorBox, 60, 160);
    EXPECT_EQ(frmMain->Picture6.BackColor(), RGB(40, 50, 60));
    EXPECT_EQ(frmMain->TheColor.BackColor(), kBefore);
}

TEST_F(ColourBoxTest, PressOnAColourOfTheGridTakesItAndCollectsNothing) {
    Collect({RGB(10, 20, 30)});
    frmMain->SetCurrentColour(kBefore);
    ClickAt(frmMain->ColorBox, 15, 171);
    EXPECT_EQ(frmMain->TheColor.BackColor(), RGB(10, 20, 30));
    EXPECT_EQ(frmMain->Picture6.BackColor(), RGB(10, 20, 30));
    EXPECT_EQ(frmMain->txtGreen.Text(), "20");
    EXPECT_EQ(frmMain->LblCurCol.ForeColor(), kWhite);
    EXPECT_EQ(CollectionCount, 1);
}

TEST_F(ColourBoxTest, PressOnAnEmptyCellDoesNothing) {
    for (const int button : {kLeftButton, kRightButton})
        ClickAt(frmMain->ColorBox, 5, 160, button);
    EXPECT_EQ(frmMain->TheColor.BackColor(), kBefore);
    EXPECT_FALSE(frmMain->picColBlowup.Visible());
}

TEST_F(ColourBoxTest, CellOfTheGridsOwnGreyCountsAsEmpty) {
    Collect({kEmpty});
    frmMain->SetCurrentColour(kBefore);
    PointAt(frmMain->ColorBox, 5, 160);
    EXPECT_EQ(frmMain->Picture6.BackColor(), kBefore);
    ClickAt(frmMain->ColorBox, 5, 160);
    EXPECT_EQ(frmMain->TheColor.BackColor(), kBefore);
    EXPECT_EQ(CollectionCount, 1);
}

TEST_F(ColourBoxTest, LineAt155LiesOutsideTheGrid) {
    frmMain->ColorBox.LineBF(0, 150, 130, 160, RGB(9, 9, 9));
    PointAt(frmMain->ColorBox, 108, 155);
    ClickAt(frmMain->ColorBox, 108, 155);
    EXPECT_EQ(frmMain->Picture6.BackColor(), kBefore);
    EXPECT_EQ(frmMain->TheColor.BackColor(), kBefore);
    ClickAt(frmMain->ColorBox, 108, 156);
    EXPECT_EQ(frmMain->TheColor.BackColor(), RGB(9, 9, 9));
}

TEST_F(ColourBoxTest, RightPressOnTheGridShowsShadesAboveThePointer) {
    Collect({RGB(100, 100, 100), RGB(120, 120, 120), RGB(130, 130, 130), RGB(140, 140, 140)});
    ClickAt(frmMain->ColorBox, 60, 160, kRightButton);
    const Surface& strip = frmMain->picColBlowup;
    EXPECT_TRUE(strip.Visible());
    EXPECT_EQ(strip.Left(), 60 - strip.Width() / 2);
    EXPECT_NEAR(strip.Top(), 160 - (strip.Height() - strip.Height() / 10), 0.5);
    EXPECT_EQ(strip.Point(0, 0), RGB(115, 115, 115));
}

TEST_F(ColourBoxTest, PointerOverTheBoxHidesTheStripAndFallsBack) {
    frmMain->ColorBlowup(RGB(1, 2, 3));
    frmMain->ChangeColor(RGB(1, 2, 3));
    PointAt(frmMain->ColorBox, 128, 300, kRightButton);
    EXPECT_TRUE(frmMain->picColBlowup.Visible());
    PointAt(frmMain->ColorBox, 128, 300);
    EXPECT_FALSE(frmMain->picColBlowup.Visible());
    EXPECT_EQ(frmMain->Picture6.BackColor(), kBefore);
    EXPECT_EQ(frmMain->lblColor.Caption(), RgbReadout(kBefore));
}

TEST_F(ColourBoxTest, PointerAroundTheBoxFallsBackToTheCurrentColour) {
    for (const Control* around :
         {static_cast<const Control*>(&frmMain->ColTB), static_cast<const Control*>(&frmMain->Picture4),
          static_cast<const Control*>(&frmMain->Picture5), static_cast<const Control*>(&frmMain->lblColor)}) {
        frmMain->ChangeColor(RGB(1, 2, 3));
        frmMain->ColorBlowup(RGB(1, 2, 3));
        PointAt(*around, 3, 3);
        EXPECT_EQ(frmMain->Picture6.BackColor(), kBefore) << around->Name();
        EXPECT_EQ(frmMain->lblColor.Caption(), RgbReadout(kBefore)) << around->Name();
        EXPECT_FALSE(frmMain->picColBlowup.Visible()) << around->Name();
    }
}

// Where the screen may not be looked at, the window's own painting is sampled: the same colours.
TEST_F(ColourBoxTest, WindowsOwnPaintingHasTheColoursOfTheScreen) {
    for (const auto& [x, y] : {std::pair(3, 3), {50, 80}, {104, 150}}) {
        PointAt(frmMain->Image1, x, y);
        EXPECT_EQ(RenderedPixel(GetCursorPos()), ScreenPixel(GetCursorPos())) << x << ", " << y;
    }
}

TEST_F(ColourBoxTest, ColourDialogSetsTheColour) {
    frmMain->SetCurrentColour(RGB(12, 34, 56));
    DialogScript script({PressesButton("OK")});
    frmMain->Toolbar3_ButtonClick(frmMain->Toolbar3.Buttons(4));
    EXPECT_EQ(frmMain->TheColor.BackColor(), RGB(12, 34, 56));
    EXPECT_EQ(CollectionCount, 0);
}

TEST_F(ColourBoxTest, CancelledColourDialogGivesBlack) {
    DialogScript script({PressesEscape()});
    frmMain->Toolbar3_ButtonClick(frmMain->Toolbar3.Buttons("ColDlg"));
    EXPECT_EQ(frmMain->TheColor.BackColor(), kBlack);
    EXPECT_EQ(frmMain->LblCurCol.ForeColor(), kWhite);
    EXPECT_EQ(frmMain->txtBlue.Text(), "0");
    EXPECT_EQ(frmMain->lblColor.Caption(), "RGB: 0, 0, 0");
}

TEST_F(ColourBoxTest, EyeDropperCollectsWhatItTakes) {
    frmImage& image = OpenPicture("a.bmp", Solid(60, 60, RGB(11, 22, 33)));
    CurrentTool = 22;
    MoveTo(image, 30, 20, 0);
    Press(image, 30, 20);
    Release(image, 30, 20);
    EXPECT_EQ(CollectionCount, 1);
    EXPECT_EQ(BoxPixel(5, 160), RGB(11, 22, 33));
    ColorLock = true;
    Press(image, 30, 20);
    Release(image, 30, 20);
    EXPECT_EQ(CollectionCount, 1);
}

} // namespace
} // namespace pintalux
