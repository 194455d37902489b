// The window that asks how a page is to be, without any device.
#include "devices/frmScan.h"
#include "support/DialogScript.h"
#include "support/Program.h"

#include <QWidget>

namespace pintalux {
namespace {

class ScanFormTest : public ProgramTest {
  protected:
    void TearDown() override {
        frmScan.Unload();
        ProgramTest::TearDown();
    }
    /// Left, top, width and height as they are shown.
    static std::vector<std::string> Area() {
        return {frmScan->txtLeft.Text(), frmScan->txtTop.Text(), frmScan->txtWidth.Text(),
                frmScan->txtHeight.Text()};
    }
};

using Texts = std::vector<std::string>;

TEST_F(ScanFormTest, ModesAreToldInPortugueseAndUnknownOnesInTheDevicesOwnWords) {
    ScanChoices choices;
    choices.modes = {"Color", "Gray", "Lineart", "Halftone", "True Gray"};
    choices.mode = "Gray";
    frmScan->Offer(choices, {});
    Texts shown;
    for (int i = 0; i < frmScan->cboMode.ListCount(); ++i)
        shown.push_back(frmScan->cboMode.List(i));
    EXPECT_EQ(shown,
              (Texts{"Cores", "Tons de cinza", "Preto e branco", "Preto e branco, em pontos", "True Gray"}));
    EXPECT_EQ(frmScan->cboMode.Text(), "Tons de cinza") << "what the device proposes";
    const DialogScript script({[](QWidget&) {
        frmScan->cboMode.ListIndex(4);
        ClickWidget(WidgetFor(frmScan->cmdOK));
    }});
    frmScan->ShowModal();
    ASSERT_TRUE(frmScan->Choice());
    EXPECT_EQ(frmScan->Choice()->mode, "True Gray");
    EXPECT_EQ(frmScan->Choice()->resolution, 0);
    EXPECT_TRUE(frmScan->Choice()->area.Empty());
}

TEST_F(ScanFormTest, PapersSetTheAreaAsFarAsTheGlassReaches) {
    ScanChoices choices;
    choices.glass = {5, 10, 220.9, 306.4}; // 215.9 by 296.4 millimetres
    frmScan->Offer(choices, {});
    const std::pair<const char*, Texts> papers[] = {
        {"Vidro todo", {"0", "0", "215", "296"}}, {"A4", {"0", "0", "210", "296"}},
        {"A5", {"0", "0", "148", "210"}},         {"A6", {"0", "0", "105", "148"}},
        {"15 x 10 cm", {"0", "0", "150", "100"}}, {"10 x 15 cm", {"0", "0", "100", "150"}}};
    ASSERT_EQ(frmScan->cboPaper.ListCount(), 6);
    EXPECT_EQ(frmScan->cboPaper.ListIndex(), 0);
    EXPECT_EQ(Area(), papers[0].second);
    for (int i = 5; i >= 0; --i) {
        frmScan->VSLeft.Value(0); // as far to the right as it goes
        frmScan->VSTop.Value(0);
        frmScan->cboPaper.ListIndex(i);
        EXPECT_EQ(frmScan->cboPaper.Text(), papers[i].first);
        EXPECT_EQ(Area(), papers[i].second) << i;
    }
}

TEST_F(ScanFormTest, WhatWasChosenTheLastTimeStandsThereWhereTheDeviceStillHasIt) {
    ScanChoices choices;
    choices.resolutions = {75, 150, 300};
    choices.resolution = 150;
    choices.modes = {"Gray", "Color"};
    choices.mode = "Color";
    choices.glass = {0, 0, 100, 80};
    frmScan->Offer(choices, {300, "Gray", {10, 20, 40, 200}});
    EXPECT_EQ(frmScan->cboResolution.Text(), "300");
    EXPECT_EQ(frmScan->cboMode.Text(), "Tons de cinza");
    EXPECT_EQ(Area(), (Texts{"10", "20", "30", "80"}));
    frmScan->Offer(choices, {600, "Lineart", {}});
    EXPECT_EQ(frmScan->cboResolution.Text(), "150");
    EXPECT_EQ(frmScan->cboMode.Text(), "Cores");
    EXPECT_EQ(Area(), (Texts{"0", "0", "100", "80"}));
    choices.resolution = 120; // nothing that it offers itself
    frmScan->Offer(choices, {});
    EXPECT_EQ(frmScan->cboResolution.Text(), "75");
}

} // namespace
} // namespace pintalux
