// The colour panel's controls and where they lie, in pixels.
#include "colour/ColourPanel.h"
#include "colour/Spectrum.h"

namespace pintalux {

namespace {

constexpr double kWidth = 148;
constexpr double kTitleHeight = 22;
constexpr double kMargin = 8;
constexpr double kRowHeight = 22;
constexpr double kSwatchTop = kTitleHeight + 4;
constexpr double kSwatchHeight = 28;
constexpr double kReadoutTop = kSwatchTop + kSwatchHeight + 2;
constexpr double kReadoutHeight = 18;
constexpr double kSpinnerTop = kReadoutTop + kReadoutHeight + 4;
constexpr double kSpinnerRows = 3;
constexpr double kBarTop = kSpinnerTop + kSpinnerRows * (kRowHeight + 2) + 2;
constexpr double kBarHeight = 26;
constexpr double kBoxTop = kBarTop + kBarHeight + 2;
constexpr double kBoxAreaWidth = 131;
constexpr double kBoxAreaHeight = 417;
constexpr int kCommandIcon = 16;
constexpr double kShadesWidth = 26;
constexpr double kShadesHeight = 102; // two rows a shade: from 25 below the colour to 25 above
constexpr double kBoxWidth = 34;
constexpr double kBarWidth = 16;

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

ColourPanel::ColourPanel(Container& window) : window_(window) {
    // Both belong to the program, which starts with an unlocked, empty grid.
    ColorLock = false;
    CollectionCount = 0;
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
    ConnectBox();
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
    LayOutBox();
}

void ColourPanel::LayOutSwatches() {
    for (Surface* swatch : {&TheColor, &Picture6, &Picture4, &Picture5})
        swatch->BorderStyle(1);
    TheColor.Move(kMargin, kSwatchTop, 78, kSwatchHeight);
    LblCurCol.Alignment(2);
    LblCurCol.Move(0, 5, 78, 18);
    Picture4.Move(kMargin + 80, kSwatchTop, 25, kSwatchHeight);
    Picture5.Move(kMargin + 106, kSwatchTop, 25, kSwatchHeight);
    Picture4.BackColor(kWhite);
    Picture5.BackColor(kBlack);
    TheColor.AccessibleName("Cor actual");
    Picture6.AccessibleName("Cor sob o apontador");
    Picture4.AccessibleName("Branco");
    Picture4.ToolTipText("Branco");
    Picture5.AccessibleName("Preto");
    Picture5.ToolTipText("Preto");
    lblColor.Move(kMargin, kReadoutTop, kBoxAreaWidth, kReadoutHeight);
    lblColor.ToolTipText("Mudar a notação");
}

void ColourPanel::LayOutSpinners() {
    constexpr double kTop = kSpinnerTop;
    constexpr double kSecond = kMargin + 68;
    constexpr double kPitch = kRowHeight + 2;
    LayOutSpinner(lblRed, txtRed, VSred, kMargin, kTop, "Vermelho");
    LayOutSpinner(lblGreen, txtGreen, VSgreen, kMargin, kTop + kPitch, "Verde");
    LayOutSpinner(lblBlue, txtBlue, VSblue, kMargin, kTop + 2 * kPitch, "Azul");
    LayOutSpinner(lblHue, txtHue, VShue, kSecond, kTop, "Matiz");
    LayOutSpinner(lblSat, txtSat, VSsat, kSecond, kTop + kPitch, "Saturação");
    LayOutSpinner(lblLum, txtLum, VSlum, kSecond, kTop + 2 * kPitch, "Luminosidade");
}

// The grid's six columns are 106 pixels wide; the spectrum stands over them, the working colour beside it.
void ColourPanel::LayOutBox() {
    constexpr double kSpectrumWidth = 106;
    constexpr double kSpectrumHeight = 154;
    constexpr double kWorkingLeft = kSpectrumWidth + 2;
    Toolbar3.Move(0, kBarTop, kWidth, kBarHeight);
    Toolbar3.ImageSize(kCommandIcon);
    Toolbar3.AccessibleName("Selecção de cores");
    ColorBox.Move(kMargin, kBoxTop, kBoxAreaWidth, kBoxAreaHeight);
    ColorBox.BackColor(RGB(192, 192, 192));
    ColorBox.AccessibleName("As minhas cores");
    Image1.Picture(SpectrumPicture());
    Image1.Move(0, 0, kSpectrumWidth, kSpectrumHeight);
    Image1.AccessibleName("Espectro de cores");
    Picture6.Move(kWorkingLeft, 0, kBoxAreaWidth - kWorkingLeft, kSpectrumHeight);
    picColBlowup.Visible(false);
    picColBlowup.Move(0, 0, kShadesWidth, kShadesHeight);
    picColBlowup.AccessibleName("Tons próximos");
}

} // namespace pintalux
