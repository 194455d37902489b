// The colour panel's controls and where they lie, in pixels.
#include "colour/ColourPanel.h"

namespace pintalux {

namespace {

constexpr double kWidth = 148;
constexpr double kTitleHeight = 22;
constexpr double kMargin = 8;
constexpr double kRowHeight = 22;
constexpr double kBoxWidth = 34;
constexpr double kBarWidth = 16;
constexpr ScrollBar::Direction kUpright = ScrollBar::Direction::Vertical;

void LayOutSpinner(Label& label, TextBox& text, ScrollBar& bar, double left, double top, const char* name) {
    constexpr double kLabelWidth = 14;
    label.Move(left, top + 3, kLabelWidth, kRowHeight - 4);
    text.Move(left + kLabelWidth, top, kBoxWidth, kRowHeight);
    bar.Move(left + kLabelWidth + kBoxWidth, top, kBarWidth, kRowHeight);
    text.MaxLength(6);
    text.AccessibleName(name);
    text.ToolTipText(name);
    bar.AccessibleName(name);
    bar.ToolTipText(name);
}

} // namespace

ColourPanel::ColourPanel(Container& window)
    : ColTB(window, "ColTB"), Picture1(ColTB, "Picture1"), Command2(Picture1, "Command2", ""),
      TheColor(ColTB, "TheColor"), LblCurCol(TheColor, "LblCurCol", "ACTUAL"), Picture6(ColTB, "Picture6"),
      Picture4(ColTB, "Picture4"), Picture5(ColTB, "Picture5"), lblColor(ColTB, "lblColor"),
      lblRed(ColTB, "lblRed", "R"), lblGreen(ColTB, "lblGreen", "G"), lblBlue(ColTB, "lblBlue", "B"),
      lblHue(ColTB, "lblHue", "H"), lblSat(ColTB, "lblSat", "S"), lblLum(ColTB, "lblLum", "L"),
      txtRed(ColTB, "txtRed"), VSred(ColTB, "VSred", kUpright), txtGreen(ColTB, "txtGreen"),
      VSgreen(ColTB, "VSgreen", kUpright), txtBlue(ColTB, "txtBlue"), VSblue(ColTB, "VSblue", kUpright),
      txtHue(ColTB, "txtHue"), VShue(ColTB, "VShue", kUpright), txtSat(ColTB, "txtSat"),
      VSsat(ColTB, "VSsat", kUpright), txtLum(ColTB, "txtLum"), VSlum(ColTB, "VSlum", kUpright) {
    ConnectRgb(txtRed, VSred);
    ConnectRgb(txtGreen, VSgreen);
    ConnectRgb(txtBlue, VSblue);
    ConnectHsl(txtHue, VShue);
    ConnectHsl(txtSat, VSsat);
    ConnectHsl(txtLum, VSlum);
    LayOut();
    Picture4.Click = [this] { SetCurrentColour(Picture4.BackColor()); };
    Picture5.Click = [this] { SetCurrentColour(Picture5.BackColor()); };
    lblColor.MouseDown = [this](int Button, int, double, double) {
        if (Button == kLeftButton) lblColor_Click();
    };
    SetCurrentColour(Picture5.BackColor());
}

void ColourPanel::LayOut() {
    ColTB.BackColor(kButtonFaceColour);
    ColTB.Width(kWidth * kTwipsPerPixel);
    Picture1.BackColor(kButtonFaceColour);
    Picture1.Move(0, 0, kWidth, kTitleHeight);
    Command2.Picture(":/icons/close.svg");
    Command2.AccessibleName("Fechar a palete");
    Command2.ToolTipText("Fechar");
    Command2.Move(kWidth - 20, 2, 18, 18);
    LayOutSwatches();
    LayOutSpinners();
}

void ColourPanel::LayOutSwatches() {
    constexpr double kTop = kTitleHeight + 4;
    for (Surface* swatch : {&TheColor, &Picture6, &Picture4, &Picture5})
        swatch->BorderStyle(1);
    TheColor.Move(kMargin, kTop, 76, 40);
    LblCurCol.Alignment(2);
    LblCurCol.Move(0, 11, 76, 18);
    Picture6.Move(kMargin + 82, kTop, 50, 18);
    Picture4.Move(kMargin + 82, kTop + 22, 24, 18);
    Picture5.Move(kMargin + 108, kTop + 22, 24, 18);
    Picture4.BackColor(kWhite);
    Picture5.BackColor(kBlack);
    TheColor.AccessibleName("Cor actual");
    Picture6.AccessibleName("Cor sob o apontador");
    Picture4.AccessibleName("Branco");
    Picture4.ToolTipText("Branco");
    Picture5.AccessibleName("Preto");
    Picture5.ToolTipText("Preto");
    lblColor.Move(kMargin, kTop + 46, kWidth - 2 * kMargin, 18);
    lblColor.ToolTipText("Mudar a notação");
}

void ColourPanel::LayOutSpinners() {
    constexpr double kTop = kTitleHeight + 74;
    constexpr double kSecond = kMargin + 70;
    constexpr double kPitch = kRowHeight + 4;
    LayOutSpinner(lblRed, txtRed, VSred, kMargin, kTop, "Vermelho");
    LayOutSpinner(lblGreen, txtGreen, VSgreen, kMargin, kTop + kPitch, "Verde");
    LayOutSpinner(lblBlue, txtBlue, VSblue, kMargin, kTop + 2 * kPitch, "Azul");
    LayOutSpinner(lblHue, txtHue, VShue, kSecond, kTop, "Matiz");
    LayOutSpinner(lblSat, txtSat, VSsat, kSecond, kTop + kPitch, "Saturação");
    LayOutSpinner(lblLum, txtLum, VSlum, kSecond, kTop + 2 * kPitch, "Luminosidade");
}

} // namespace pintalux
