// What is asked before a page is scanned, for devices of many kinds.
#include "support/Program.h"

#include "devices/frmScan.h"

#include <array>

namespace pintalux {
namespace {

using Texts = std::array<std::string, 4>;

class ScanDialogTest : public ProgramTest {
  protected:
    void SetUp() override {
        ProgramTest::SetUp();
        Start();
    }
    void TearDown() override {
        frmScan.Unload();
        ProgramTest::TearDown();
    }
    /// A device whose glass begins away from its zero.
    static ScanChoices Device(double width, double height) {
        return {
            {75, 150, 300}, 150, {"Lineart", "Gray", "Color"}, "Color", {10, 20, 10 + width, 20 + height}};
    }
    /// Left, top, width and height, as they stand in the boxes.
    static Texts Area() {
        return {frmScan->txtLeft.Text(), frmScan->txtTop.Text(), frmScan->txtWidth.Text(),
                frmScan->txtHeight.Text()};
    }
};

TEST_F(ScanDialogTest, EachPaperIsCutToTheGlass) {
    struct Glass {
        double width, height;
        std::array<Texts, 6> areas;
    };
    const Glass kinds[] = {{216,
                            297.9,
                            {{{"0", "0", "216", "297"},
                              {"0", "0", "210", "297"},
                              {"0", "0", "148", "210"},
                              {"0", "0", "105", "148"},
                              {"0", "0", "150", "100"},
                              {"0", "0", "100", "150"}}}},
                           {120,
                            110,
                            {{{"0", "0", "120", "110"},
                              {"0", "0", "120", "110"},
                              {"0", "0", "120", "110"},
                              {"0", "0", "105", "110"},
                              {"0", "0", "120", "100"},
                              {"0", "0", "100", "110"}}}}};
    const char* const papers[] = {"Vidro todo", "A4", "A5", "A6", "15 x 10 cm", "10 x 15 cm"};
    for (const Glass& glass : kinds) {
        frmScan->Offer(Device(glass.width, glass.height), {});
        EXPECT_EQ(Area(), glass.areas[0]) << "the whole glass at first";
        for (int paper = 5; paper >= 0; --paper) {
            frmScan->VSLeft.Value(0); // as far to the right as it goes
            frmScan->VSTop.Value(0);
            frmScan->cboPaper.ListIndex(paper);
            EXPECT_EQ(frmScan->cboPaper.Text(), papers[paper]);
            EXPECT_EQ(Area(), glass.areas[static_cast<std::size_t>(paper)]) << glass.width << ' ' << paper;
        }
        EXPECT_EQ(frmScan->VSLeft.Max(), frmScan->VSWidth.Max());
        EXPECT_EQ(frmScan->VSWidth.Max(), static_cast<int>(glass.width));
        EXPECT_EQ(frmScan->VSTop.Max(), frmScan->VSHeight.Max());
        EXPECT_EQ(frmScan->VSHeight.Max(), static_cast<int>(glass.height));
    }
}

TEST_F(ScanDialogTest, TheDevicesOwnChoiceIsProposedAndTheLastOneBeforeIt) {
    frmScan->Offer(Device(216, 297), {});
    EXPECT_EQ(frmScan->cboResolution.Text(), "150");
    EXPECT_EQ(frmScan->cboMode.Text(), "Cores");
    frmScan->Offer(Device(216, 297), {300, "Gray", {5, 6, 45, 36}});
    EXPECT_EQ(frmScan->cboResolution.Text(), "300");
    EXPECT_EQ(frmScan->cboMode.Text(), "Tons de cinza");
    EXPECT_EQ(Area(), (Texts{"5", "6", "40", "30"}));
    // The last one came from another device.
    frmScan->Offer(Device(120, 110), {1200, "Halftone", {130, 6, 330, 36}});
    EXPECT_EQ(frmScan->cboResolution.Text(), "150");
    EXPECT_EQ(frmScan->cboMode.Text(), "Cores");
    EXPECT_EQ(Area(), (Texts{"120", "6", "120", "30"}));
    ScanChoices odd = Device(216, 297);
    odd.resolution = 120; // nothing that it offers itself
    frmScan->Offer(odd, {});
    EXPECT_EQ(frmScan->cboResolution.Text(), "75");
}

TEST_F(ScanDialogTest, ModesSpeakPortugueseWhereTheyAreKnown) {
    ScanChoices device = Device(216, 297);
    device.modes = {"Color", "Gray", "Lineart", "Halftone", "Infrared"};
    frmScan->Offer(device, {});
    const char* const texts[] = {"Cores", "Tons de cinza", "Preto e branco", "Preto e branco, em pontos",
                                 "Infrared"};
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(frmScan->cboMode.List(i), texts[i]);
}

TEST_F(ScanDialogTest, TheChoiceIsWhatStandsInTheBoxes) {
    frmScan->Offer(Device(216, 297), {});
    EXPECT_FALSE(frmScan->Choice());
    frmScan->cboResolution.ListIndex(0);
    frmScan->cboMode.ListIndex(1);
    frmScan->txtLeft.Text("7");
    frmScan->txtTop.Text("8.5");
    frmScan->txtWidth.Text("20");
    frmScan->txtHeight.Text("30");
    frmScan->cmdOK.Click();
    ASSERT_TRUE(frmScan->Choice());
    EXPECT_EQ(frmScan->Choice()->resolution, 75);
    EXPECT_EQ(frmScan->Choice()->mode, "Gray");
    EXPECT_EQ(frmScan->Choice()->area.left, 7);
    EXPECT_EQ(frmScan->Choice()->area.top, 8.5);
    EXPECT_EQ(frmScan->Choice()->area.right, 27);
    EXPECT_EQ(frmScan->Choice()->area.bottom, 38.5);
    frmScan->Offer(Device(216, 297), {});
    EXPECT_FALSE(frmScan->Choice()) << "of the time before";
}

TEST_F(ScanDialogTest, WhatADeviceDoesNotOfferIsOffAndKeepsItsOwn) {
    const std::initializer_list<const Control*> parts = {&frmScan->cboResolution, &frmScan->cboMode,
                                                         &frmScan->cboPaper, &frmScan->fraArea};
    frmScan->Offer({}, {300, "Gray", {}});
    for (const Control* part : parts)
        EXPECT_FALSE(part->Enabled()) << part->Name();
    frmScan->cmdOK.Click();
    ASSERT_TRUE(frmScan->Choice());
    EXPECT_EQ(frmScan->Choice()->resolution, 0);
    EXPECT_EQ(frmScan->Choice()->mode, "");
    EXPECT_TRUE(frmScan->Choice()->area.Empty());
    frmScan->Offer(Device(216, 297), {});
    for (const Control* part : parts)
        EXPECT_TRUE(part->Enabled()) << part->Name();
}

} // namespace
} // namespace pintalux
