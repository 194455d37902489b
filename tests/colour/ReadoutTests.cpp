// The colour readout in its three notations.
#include "colour/ColourPanel.h"
#include "support/Program.h"

namespace pintalux {
namespace {

TEST(Readout, RgbHasABlankBeforeEachNumber) {
    EXPECT_EQ(RgbReadout(RGB(192, 192, 192)), "RGB: 192, 192, 192");
    EXPECT_EQ(RgbReadout(RGB(1, 20, 255)), "RGB: 1, 20, 255");
}

TEST(Readout, HexNamesRedFirst) {
    EXPECT_EQ(HexReadout(RGB(0xC0, 0xB1, 0xA2)), "HEX:#C0B1A2");
    EXPECT_EQ(HexReadout(0x000A0000), "HEX:#00000A");
    EXPECT_EQ(HexReadout(RGB(0x0F, 0x10, 0x09)), "HEX:#0F1009");
    EXPECT_EQ(HexReadout(kWhite), "HEX:#FFFFFF");
}

TEST(Readout, HexPadsGreenInFrontOfItsDecimalText) {
    EXPECT_EQ(HexReadout(0x00000A00), "HEX:#0001000");
    EXPECT_EQ(HexReadout(RGB(0, 15, 0)), "HEX:#0001500");
    EXPECT_EQ(HexReadout(RGB(0, 9, 0)), "HEX:#000900");
    EXPECT_EQ(HexReadout(RGB(0, 16, 0)), "HEX:#001000");
}

TEST(Readout, NoColourHasANegativeRed) {
    EXPECT_EQ(RgbReadout(-1), "RGB:-1, 0, 0");
    EXPECT_EQ(HexReadout(-1), "HEX:#FFFFFFFF0000");
}

class ReadoutTest : public ProgramTest {
  protected:
    void SetUp() override {
        ProgramTest::SetUp();
        Start();
        frmMain->SetCurrentColour(RGB(192, 192, 192));
    }
};

TEST_F(ReadoutTest, ClickGoesFromRgbToTheDecimalNumberAndStaysThere) {
    ClickWidget(WidgetFor(frmMain->lblColor));
    EXPECT_EQ(frmMain->lblColor.Caption(), "COR: 12632256");
    EXPECT_TRUE(frmMain->ColorDisplayCor);
    EXPECT_FALSE(frmMain->ColorDisplayRgb);
    ClickWidget(WidgetFor(frmMain->lblColor));
    EXPECT_EQ(frmMain->lblColor.Caption(), "COR: 12632256");
    frmMain->SetCurrentColour(RGB(1, 0, 0));
    EXPECT_EQ(frmMain->lblColor.Caption(), "COR: 1");
}

TEST_F(ReadoutTest, ClickGoesFromHexToRgb) {
    frmMain->ColorDisplayHex = true;
    frmMain->ColorDisplayRgb = false;
    frmMain->ShowReadout(frmMain->TheColor.BackColor());
    EXPECT_EQ(frmMain->lblColor.Caption(), "HEX:#C0C0C0");
    ClickWidget(WidgetFor(frmMain->lblColor));
    EXPECT_EQ(frmMain->lblColor.Caption(), "RGB: 192, 192, 192");
    EXPECT_FALSE(frmMain->ColorDisplayHex);
}

// A click shows the current colour again, whatever the pointer previewed before.
TEST_F(ReadoutTest, ClickShowsTheCurrentColour) {
    frmMain->ChangeColor(RGB(5, 0, 0));
    EXPECT_EQ(frmMain->lblColor.Caption(), "RGB: 5, 0, 0");
    ClickWidget(WidgetFor(frmMain->lblColor));
    EXPECT_EQ(frmMain->lblColor.Caption(), "COR: 12632256");
}

} // namespace
} // namespace pintalux
