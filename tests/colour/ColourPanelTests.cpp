// The current colour and its six spinners.
#include "colour/HslModel.h"
#include "support/Documents.h"
#include "support/Errors.h"
#include "support/Program.h"

namespace pintalux {
namespace {

class ColourPanelTest : public ProgramTest {
  protected:
    void SetUp() override {
        ProgramTest::SetUp();
        Start();
    }

    /// The numbers that the panel shows, in the order red, green, blue, hue, saturation, luminance.
    static std::vector<std::string> Shown() {
        return {frmMain->txtRed.Text(), frmMain->txtGreen.Text(), frmMain->txtBlue.Text(),
                frmMain->txtHue.Text(), frmMain->txtSat.Text(),   frmMain->txtLum.Text()};
    }

    /// The numbers that the bars stand for: they are upside down.
    static std::vector<int> Bars() {
        std::vector<int> numbers;
        for (const ScrollBar* bar : {&frmMain->VSred, &frmMain->VSgreen, &frmMain->VSblue, &frmMain->VShue,
                                     &frmMain->VSsat, &frmMain->VSlum}) {
            numbers.push_back(bar->Max() - bar->Value());
        }
        return numbers;
    }
};

using Texts = std::vector<std::string>;
using Numbers = std::vector<int>;

TEST_F(ColourPanelTest, StartsWithBlack) {
    EXPECT_EQ(frmMain->TheColor.BackColor(), kBlack);
    EXPECT_EQ(frmMain->LblCurCol.Caption(), "ACTUAL");
    EXPECT_EQ(frmMain->LblCurCol.ForeColor(), kWhite);
    EXPECT_EQ(frmMain->lblColor.Caption(), "RGB: 0, 0, 0");
    EXPECT_EQ(Bars(), (Numbers{0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(frmMain->Picture4.BackColor(), kWhite);
    EXPECT_EQ(frmMain->Picture5.BackColor(), kBlack);
}

TEST_F(ColourPanelTest, RangesOfTheBars) {
    for (const ScrollBar* bar : {&frmMain->VSred, &frmMain->VSgreen, &frmMain->VSblue}) {
        EXPECT_EQ(bar->Min(), 0);
        EXPECT_EQ(bar->Max(), 255);
    }
    for (const ScrollBar* bar : {&frmMain->VShue, &frmMain->VSsat, &frmMain->VSlum}) {
        EXPECT_EQ(bar->Min(), 0);
        EXPECT_EQ(bar->Max(), 240);
    }
}

TEST_F(ColourPanelTest, NewColourSetsEverySpinnerTheCaptionAndTheReadout) {
    frmMain->SetCurrentColour(RGB(255, 128, 0));
    EXPECT_EQ(Shown(), (Texts{"255", "128", "0", "20", "240", "120"}));
    EXPECT_EQ(Bars(), (Numbers{255, 128, 0, 20, 240, 120}));
    EXPECT_EQ(frmMain->TheColor.BackColor(), RGB(255, 128, 0));
    EXPECT_EQ(frmMain->Picture6.BackColor(), RGB(255, 128, 0));
    EXPECT_EQ(frmMain->LblCurCol.ForeColor(), kWhite);
    EXPECT_EQ(frmMain->lblColor.Caption(), "RGB: 255, 128, 0");
    EXPECT_FALSE(frmMain->ColorUpdating);
}

TEST_F(ColourPanelTest, SameRgbThroughTxtRGBFiresNothing) {
    frmMain->SetCurrentColour(RGB(10, 20, 30));
    frmMain->TheColor.BackColor(0x123456);
    frmMain->txtRGB(RGB(10, 20, 30));
    EXPECT_EQ(frmMain->TheColor.BackColor(), 0x123456);
}

TEST_F(ColourPanelTest, TxtRGB2LeavesTheHslSide) {
    frmMain->SetCurrentColour(RGB(255, 128, 0));
    frmMain->txtRGB2(RGB(0, 0, 255));
    EXPECT_EQ(Bars(), (Numbers{0, 0, 255, 20, 240, 120}));
    EXPECT_EQ(frmMain->TheColor.BackColor(), RGB(0, 0, 255));
}

TEST_F(ColourPanelTest, RgbBarMovesColourAndHslSide) {
    frmMain->SetCurrentColour(RGB(0, 128, 0));
    frmMain->VSred.Value(0);
    EXPECT_EQ(frmMain->TheColor.BackColor(), RGB(255, 128, 0));
    EXPECT_EQ(Shown(), (Texts{"255", "128", "0", "20", "240", "120"}));
    EXPECT_EQ(frmMain->lblColor.Caption(), "RGB: 255, 128, 0");
}

TEST_F(ColourPanelTest, EveryMoveOfABarMovesTheOtherSideAgain) {
    frmMain->SetCurrentColour(kBlack);
    frmMain->VSred.Value(0);
    frmMain->VSblue.Value(0);
    EXPECT_EQ(Shown(), (Texts{"255", "0", "255", "200", "240", "120"}));
    frmMain->VShue.Value(240 - 80);
    frmMain->VShue.Value(240);
    const std::int32_t red = model::ToRgb({0, 240, 120});
    EXPECT_EQ(frmMain->TheColor.BackColor(), red);
    EXPECT_EQ(Bars(), (Numbers{red % 256, red / 256 % 256, red / 65536, 0, 240, 120}));
}

TEST_F(ColourPanelTest, HslBarMovesColourAndRgbSideAndStaysAsSet) {
    frmMain->SetCurrentColour(RGB(255, 128, 0));
    frmMain->VShue.Value(240 - 80);
    // 80, 240, 120 is 0, 255, 1; the way back would be the same hue here, but the bars are not touched at
    // all.
    EXPECT_EQ(frmMain->TheColor.BackColor(), RGB(0, 255, 1));
    EXPECT_EQ(frmMain->Picture6.BackColor(), RGB(0, 255, 1));
    EXPECT_EQ(Bars(), (Numbers{0, 255, 1, 80, 240, 120}));
    EXPECT_EQ(frmMain->PanelHsl, (HslValue{80, 240, 120}));
    EXPECT_FALSE(frmMain->ColorUpdating);
}

// 140, 120, 2 gives 1, 3, 3, whose own values are others.
TEST_F(ColourPanelTest, DriftOfTheRoundTripDoesNotMoveTheHslBars) {
    frmMain->SetCurrentColour(RGB(1, 2, 3));
    frmMain->VShue.Value(240 - 139);
    frmMain->VShue.Value(240 - 140);
    EXPECT_EQ(frmMain->TheColor.BackColor(), RGB(1, 3, 3));
    EXPECT_EQ(Bars(), (Numbers{1, 3, 3, 140, 120, 2}));
}

TEST_F(ColourPanelTest, HueOfAGreyMovesNothingButItself) {
    frmMain->SetCurrentColour(RGB(192, 192, 192));
    frmMain->VShue.Value(100);
    EXPECT_EQ(frmMain->TheColor.BackColor(), RGB(192, 192, 192));
    EXPECT_EQ(Bars(), (Numbers{192, 192, 192, 140, 0, 181}));
}

TEST_F(ColourPanelTest, HueOfAGreyThatDriftsMovesItByOne) {
    frmMain->SetCurrentColour(RGB(128, 128, 128));
    frmMain->VShue.Value(100);
    EXPECT_EQ(frmMain->TheColor.BackColor(), RGB(129, 129, 129));
    EXPECT_EQ(Bars(), (Numbers{129, 129, 129, 140, 0, 121}));
}

// While the program moves the bars itself, an HSL bar only notes its numbers.
TEST_F(ColourPanelTest, HslBarDuringAnUpdateOnlyNotesTheNumbers) {
    frmMain->SetCurrentColour(RGB(255, 128, 0));
    frmMain->ColorUpdating = true;
    frmMain->VSlum.Value(240 - 60);
    EXPECT_EQ(frmMain->PanelHsl, (HslValue{20, 240, 60}));
    EXPECT_EQ(frmMain->TheColor.BackColor(), RGB(255, 128, 0));
    frmMain->ColorUpdating = false;
}

TEST_F(ColourPanelTest, SwatchesSetWhiteAndBlack) {
    ClickWidget(WidgetFor(frmMain->Picture4));
    EXPECT_EQ(frmMain->TheColor.BackColor(), kWhite);
    EXPECT_EQ(frmMain->LblCurCol.ForeColor(), kBlack);
    EXPECT_EQ(Shown(), (Texts{"255", "255", "255", "0", "0", "240"}));
    EXPECT_EQ(frmMain->lblColor.Caption(), "RGB: 255, 255, 255");
    ClickWidget(WidgetFor(frmMain->Picture5));
    EXPECT_EQ(frmMain->TheColor.BackColor(), kBlack);
    EXPECT_EQ(frmMain->LblCurCol.ForeColor(), kWhite);
}

TEST_F(ColourPanelTest, WorkingColourLeavesTheCurrentOne) {
    frmMain->SetCurrentColour(RGB(1, 2, 3));
    frmMain->ChangeColor(RGB(9, 8, 7));
    EXPECT_EQ(frmMain->Picture6.BackColor(), RGB(9, 8, 7));
    EXPECT_EQ(frmMain->lblColor.Caption(), "RGB: 9, 8, 7");
    EXPECT_EQ(frmMain->TheColor.BackColor(), RGB(1, 2, 3));
}

TEST_F(ColourPanelTest, PanelIsShownAndHiddenByItsMenuAndItsCloseButton) {
    EXPECT_TRUE(frmMain->mnuViewColorBox.Checked());
    ClickWidget(WidgetFor(frmMain->Command2));
    EXPECT_FALSE(frmMain->ColTB.Visible());
    EXPECT_FALSE(frmMain->mnuViewColorBox.Checked());
    Choose(frmMain->mnuViewColorBox);
    EXPECT_TRUE(frmMain->ColTB.Visible());
    EXPECT_TRUE(frmMain->mnuViewColorBox.Checked());
}

// A colour that is none, from a dropper off the image, is too large for the caption's contrast.
TEST_F(ColourPanelTest, ColourOutsideTheRangeIsAnOverflow) {
    EXPECT_EQ(ErrorOf([&] { frmMain->SetCurrentColour(-1); }), kOverflow);
}

} // namespace
} // namespace pintalux
