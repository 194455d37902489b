// The colour panel's controls and where they lie, in pixels.
#include "colour/ColourPanel.h"
#include "colour/Spectrum.h"
#include "surface/window/TextSize.h"

#include <algorithm>

namespace pintalux {

namespace {

// Pixels, as all measures here. What holds text is as large as the desktop's font wants it, and never smaller
// than this.
constexpr double kTitleHeight = 22;
constexpr double kMargin = 8;
constexpr double kGap = 4;
constexpr double kRowHeight = 22;
constexpr double kSwatchHeight = 28;
constexpr double kSwatchWidth = 25;
constexpr double kReadoutHeight = 18;
constexpr double kSpinnerRows = 3;
constexpr double kLeastBar = 26;
constexpr double kBoxAreaWidth = 131;
constexpr double kBoxAreaHeight = 417;
constexpr int kCommandIcon = 16;
constexpr double kShadesWidth = 26;
constexpr double kShadesHeight = 102; // two rows a shade: from 25 below the colour to 25 above
constexpr double kLeastBox = 32;
constexpr double kBarWidth = 16;

double TitleHeight() {
    return std::max<double>(kTitleHeight, TextHeight() + 6);
}

double RowHeight(const TextBox& text) {
    return std::max<double>(kRowHeight, WantedHeight(text));
}

double LetterWidth() {
    double widest = 0;
    for (const char* letter : {"R", "G", "B", "H", "S", "L"})
        widest = std::max<double>(widest, TextWidth(letter));
    return widest + 3;
}

double BoxWidth() {
    constexpr double kEdges = 12;
    return std::max(kLeastBox, TextWidth("255") + kEdges);
}

double SpinnerWidth() {
    return LetterWidth() + BoxWidth() + kBarWidth;
}

// The widest of the readouts decides as well, so that the panel keeps its width while the pointer moves.
double PanelWidth() {
    double inner = std::max(kBoxAreaWidth, 2 * SpinnerWidth() + kGap);
    for (const char* readout : {"RGB: 255, 255, 255", "HEX:#FF015FF", "COR: 16777215"})
        inner = std::max<double>(inner, TextWidth(readout));
    return std::max(inner + 2 * kMargin, TextWidth("Palete de Cor") + 6 + TitleHeight());
}

void LayOutSpinner(Label& label, TextBox& text, ScrollBar& bar, double left, double top, const char* name) {
    const double height = RowHeight(text);
    label.Move(left, top, LetterWidth(), height);
    text.Move(left + LetterWidth(), top, BoxWidth(), height);
    bar.Move(left + LetterWidth() + BoxWidth(), top, kBarWidth, height);
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
    Picture4.PressedByKeys([this] { SetCurrentColour(Picture4.BackColor()); });
    Picture5.PressedByKeys([this] { SetCurrentColour(Picture5.BackColor()); });
    lblColor.PressedByKeys([this] { lblColor_Click(); });
    Picture4.Click = [this] { SetCurrentColour(Picture4.BackColor()); };
    Picture5.Click = [this] { SetCurrentColour(Picture5.BackColor()); };
    lblColor.MouseDown = [this](int Button, int, double, double) {
        if (Button == kLeftButton) lblColor_Click();
    };
    ConnectBox();
    ConnectBoxKeys();
    SetCurrentColour(Picture5.BackColor());
}

void ColourPanel::LayOut() {
    const double width = PanelWidth();
    ColTB.AccessibleName("Palete de cor");
    ColTB.AccessibleRole(SpokenRole::Group);
    ColTB.Width(width * kTwipsPerPixel);
    Picture1.AsPanel();
    Picture1.Move(0, 0, width, TitleHeight());
    Command2.Picture(":/icons/close.svg");
    Command2.AccessibleName("Fechar a palete");
    Command2.ToolTipText("Fechar");
    const double side = TitleHeight() - 4;
    Command2.Move(width - side - 2, 2, side, side);
    ColTB.Header(Picture1);
    double top = LayOutSwatches(width, TitleHeight() + kGap);
    top = LayOutSpinners(width, top);
    LayOutBox(width, top);
}

// Each of these gives where the next part begins.

double ColourPanel::LayOutSwatches(double width, double top) {
    for (Surface* swatch : {&TheColor, &Picture6, &Picture4, &Picture5})
        swatch->BorderStyle(1);
    const double height = std::max<double>(kSwatchHeight, TextHeight() + 2 * kGap);
    const double current = width - 2 * kMargin - 2 * (kSwatchWidth + 2);
    TheColor.Move(kMargin, top, current, height);
    LblCurCol.Alignment(2);
    LblCurCol.Move(0, 0, current, height);
    Picture4.Move(kMargin + current + 2, top, kSwatchWidth, height);
    Picture5.Move(kMargin + current + 2 + kSwatchWidth + 2, top, kSwatchWidth, height);
    Picture4.BackColor(kWhite);
    Picture5.BackColor(kBlack);
    TheColor.AccessibleName("Cor actual");
    Picture6.AccessibleName("Cor sob o apontador");
    Picture4.AccessibleName("Branco");
    Picture4.ToolTipText("Branco");
    Picture5.AccessibleName("Preto");
    Picture5.ToolTipText("Preto");
    top += height + 2;
    const double readout = std::max<double>(kReadoutHeight, TextHeight() + 2);
    lblColor.Move(kMargin, top, width - 2 * kMargin, readout);
    lblColor.ToolTipText("Mudar a notação");
    return top + readout + kGap;
}

double ColourPanel::LayOutSpinners(double width, double top) {
    const double second = width - kMargin - SpinnerWidth();
    const double pitch = RowHeight(txtRed) + 2;
    LayOutSpinner(lblRed, txtRed, VSred, kMargin, top, "Vermelho");
    LayOutSpinner(lblGreen, txtGreen, VSgreen, kMargin, top + pitch, "Verde");
    LayOutSpinner(lblBlue, txtBlue, VSblue, kMargin, top + 2 * pitch, "Azul");
    LayOutSpinner(lblHue, txtHue, VShue, second, top, "Matiz");
    LayOutSpinner(lblSat, txtSat, VSsat, second, top + pitch, "Saturação");
    LayOutSpinner(lblLum, txtLum, VSlum, second, top + 2 * pitch, "Luminosidade");
    return top + kSpinnerRows * pitch + 2;
}

// The grid's six columns are 106 pixels wide; the spectrum stands over them, the working colour beside it.
void ColourPanel::LayOutBox(double width, double top) {
    constexpr double kSpectrumWidth = 106;
    constexpr double kSpectrumHeight = 154;
    constexpr double kWorkingLeft = kSpectrumWidth + 2;
    Toolbar3.ImageSize(kCommandIcon);
    const double bar = std::max(kLeastBar, Toolbar3.HeightFor(width));
    Toolbar3.Move(0, top, width, bar);
    Toolbar3.AccessibleName("Selecção de cores");
    ColorBox.Move(kMargin, top + bar + 2, kBoxAreaWidth, kBoxAreaHeight);
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
