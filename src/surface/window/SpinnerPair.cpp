#include "surface/window/SpinnerPair.h"

#include "base/NumberText.h"

namespace pintalux {

namespace {

constexpr int kBackspace = 8;

} // namespace

std::string SpinnerText(const ScrollBar& bar) {
    return KeepAlnum(FormattedNumber(bar.Max() - bar.Value()));
}

void DigitsOnly(TextBox& text) {
    text.KeyPress = [](int& KeyAscii) {
        if (KeyAscii != kBackspace && (KeyAscii < '0' || KeyAscii > '9')) KeyAscii = 0;
    };
}

void BindSpinner(TextBox& text, ScrollBar& bar) {
    constexpr double kWidth = 17 * kTwipsPerPixel;
    constexpr double kHeight = 26 * kTwipsPerPixel;
    bar.Width(kWidth);
    bar.Height(kHeight);
    DigitsOnly(text);
    text.Change = [&text, &bar] {
        if (Val(text.Text()) > bar.Max()) text.Text(NumberText(bar.Max()));
    };
    text.KeyUp = [&text, &bar](int, int) { bar.Value(bar.Max() - Val(text.Text())); };
    bar.Change = bar.Scroll = [&text, &bar] { text.Text(SpinnerText(bar)); };
}

} // namespace pintalux
