#include "colour/ColourPanel.h"

#include "base/Arithmetic.h"
#include "base/NumberText.h"
#include "files/FileNames.h"
#include "surface/window/KeyCodes.h"
#include "surface/window/SpinnerPair.h"

#include <algorithm>

namespace pintalux {

namespace {

// Channels by whole-number arithmetic, as the panel splits them.
struct Channels {
    int red, green, blue;
};

Channels Split(Colour c) {
    return {c % 256, c / 256 % 256, c / 256 / 256 % 256};
}

std::string DecimalText(int number) {
    return KeepAlnum(FormattedNumber(number));
}

// Capital letters; a negative number shows as its 32 bits.
std::string Hex(int number) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    std::string text;
    auto rest = static_cast<std::uint32_t>(number);
    do {
        text.insert(text.begin(), kDigits[rest % 16]);
        rest /= 16;
    } while (rest != 0);
    return text;
}

std::string TwoDigits(int number) {
    return (Hex(number).size() == 1 ? "0" : "") + Hex(number);
}

std::string CorReadout(Colour c) {
    return "COR:" + FormattedNumber(c);
}

} // namespace

std::string RgbReadout(Colour c) {
    const Channels channels = Split(c);
    return "RGB:" + FormattedNumber(channels.red) + "," + FormattedNumber(channels.green) + "," +
           FormattedNumber(channels.blue);
}

std::string HexReadout(Colour c) {
    const Channels channels = Split(c);
    const std::string green =
        Hex(channels.green).size() == 1 ? "0" + NumberText(channels.green) : Hex(channels.green);
    return "HEX:#" + TwoDigits(channels.red) + green + TwoDigits(channels.blue);
}

void ColourPanel::ShowReadout(Colour c) {
    if (ColorDisplayHex) lblColor.Caption(HexReadout(c));
    if (ColorDisplayRgb) lblColor.Caption(RgbReadout(c));
    if (ColorDisplayCor) lblColor.Caption(CorReadout(c));
    lblColor.AccessibleName("Notação da cor, " + lblColor.Caption());
}

void ColourPanel::lblColor_Click() {
    const std::string shown = lblColor.Caption().substr(0, 3);
    const auto choose = [this](Flag hex, Flag rgb, Flag cor) {
        ColorDisplayHex = hex;
        ColorDisplayRgb = rgb;
        ColorDisplayCor = cor;
        ShowReadout(TheColor.BackColor());
    };
    // Intended: the decimal notation is the last stop until the next start, so that a readout in use does not
    // change under a stray click.
    if (shown == "HEX") {
        choose(false, true, false);
    } else if (shown == "RGB") {
        choose(false, false, true);
    } else if (shown == "LON") {
        choose(true, false, false);
    }
}

void ColourPanel::ShowCaptionContrast() {
    const Colour contrast = ContrastColor(TheColor.BackColor());
    LblCurCol.ForeColor(contrast);
    TheColor.ForeColor(contrast); // For what is printed on it; its caption is a label.
    LblCurCol.Refresh();
}

void ColourPanel::SetCurrentColour(Colour c) {
    TheColor.BackColor(c);
    ShowCaptionContrast();
    txtRGB(c);
    ShowReadout(c);
}

void ColourPanel::ChangeColor(Colour c) {
    Picture6.BackColor(c);
    ShowReadout(Picture6.BackColor());
}

void ColourPanel::SetRgbSide(Colour c) {
    const Channels channels = Split(c);
    txtRed.Text(DecimalText(channels.red));
    txtGreen.Text(DecimalText(channels.green));
    txtBlue.Text(DecimalText(channels.blue));
    VSred.Value(VSred.Max() - channels.red);
    VSgreen.Value(VSgreen.Max() - channels.green);
    VSblue.Value(VSblue.Max() - channels.blue);
}

void ColourPanel::SetHslSide(Colour c) {
    VShue.Value(VShue.Max() - RgbToHsl(c).Hue);
    VSsat.Value(VSsat.Max() - RgbToHsl(c).Sat);
    VSlum.Value(VSlum.Max() - RgbToHsl(c).Lum);
}

void ColourPanel::txtRGB(Colour c) {
    ColorUpdating = true;
    SetRgbSide(c);
    SetHslSide(c);
    ColorUpdating = false;
}

void ColourPanel::txtRGB2(Colour c) {
    ColorUpdating = true;
    SetRgbSide(c);
    ColorUpdating = false;
}

namespace {

// A number that was pasted by a menu stands in its box as it is, until a key of that box is released.
std::int16_t Shown(const TextBox& text, const ScrollBar& bar) {
    return ToInt16(std::min<double>(Val(text.Text()), bar.Max()));
}

} // namespace

void ColourPanel::UpdateColScrolls() {
    Picture6.BackColor(RGB(Shown(txtRed, VSred), Shown(txtGreen, VSgreen), Shown(txtBlue, VSblue)));
    TheColor.BackColor(Picture6.BackColor());
    LblCurCol.ForeColor(ContrastColor(TheColor.BackColor()));
    ShowReadout(TheColor.BackColor());
    if (ColorUpdating) return;
    ColorUpdating = true;
    SetHslSide(Picture6.BackColor());
    ColorUpdating = false;
}

void ColourPanel::UpdateHSLscrolls() {
    PanelHsl = {Shown(txtHue, VShue), Shown(txtSat, VSsat), Shown(txtLum, VSlum)};
    if (ColorUpdating) return;
    TheColor.BackColor(Picture6.BackColor());
    LblCurCol.ForeColor(ContrastColor(TheColor.BackColor()));
    LblCurCol.Refresh();
    ShowReadout(TheColor.BackColor());
    Picture6.BackColor(HslToRgb(PanelHsl));
    // A bar that this moves brings `TheColor` to the new colour by its own event.
    txtRGB2(Picture6.BackColor());
}

// Intended: the limit is 255 for the HSL boxes too; what a bar of 240 then refuses is an error the user hears
// of.
void ColourPanel::Typed(TextBox& tested, const TextBox& read, ScrollBar& bar) {
    constexpr int kLargest = 255;
    if (Val(tested.Text()) > kLargest) tested.Text(FormattedNumber(kLargest));
    TypedValue = ToInt16(std::min<double>(Val(KeepAlnum(read.Text())), kLargest));
    bar.Value(bar.Max() - TypedValue);
}

namespace {

/// Whether the release of a key ends some typing. Tab, Shift and the arrows type nothing, and a box that was
/// only passed through must not touch the colour; the box of the saturation would.
bool EndsTyping(const TextBox& text, const ScrollBar& bar, int KeyCode, int Shift) {
    const bool digit = KeyCode >= '0' && KeyCode <= '9' && (Shift & (kCtrlMask | kAltMask)) == 0;
    // Pasted numbers, and digits of keyboards that have them on other keys.
    const bool differs = text.Text() != SpinnerText(bar);
    return digit || differs || KeyCode == kBackspace || KeyCode == kDelete;
}

} // namespace

void ColourPanel::ConnectRgb(TextBox& text, ScrollBar& bar) {
    bar.Max(255);
    DigitsOnly(text);
    StepByKeys(text, bar);
    text.KeyUp = [this, &text, &bar](int KeyCode, int Shift) {
        if (EndsTyping(text, bar, KeyCode, Shift)) Typed(text, text, bar);
    };
    bar.Change = bar.Scroll = [this, &text, &bar] {
        text.Text(SpinnerText(bar));
        UpdateColScrolls();
    };
}

void ColourPanel::ConnectHsl(TextBox& text, ScrollBar& bar) {
    bar.Max(240);
    DigitsOnly(text);
    StepByKeys(text, bar);
    // Intended: what is typed as saturation takes the number of the hue box, so that a saturation follows the
    // hue as it always did; the spinner's arrows set it freely.
    const TextBox& read = &text == &txtSat ? txtHue : text;
    text.KeyUp = [this, &text, &read, &bar](int KeyCode, int Shift) {
        if (EndsTyping(text, bar, KeyCode, Shift)) Typed(text, read, bar);
    };
    bar.Change = bar.Scroll = [this, &text, &bar] {
        text.Text(SpinnerText(bar));
        UpdateHSLscrolls();
    };
}

} // namespace pintalux
