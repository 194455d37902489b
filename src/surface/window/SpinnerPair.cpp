#include "surface/window/SpinnerPair.h"

#include "base/NumberText.h"
#include "surface/window/Accessible_native.h"
#include "surface/window/Control_native.h"

#include <algorithm>
#include <QVariant>

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

void StepByKeys(TextBox& text, ScrollBar& bar) {
    text.KeyDown = [&bar](int KeyCode, int Shift) {
        constexpr int kUp = 38;
        constexpr int kDown = 40;
        if ((KeyCode != kUp && KeyCode != kDown) || Shift != 0) return;
        // The bar stands upside down.
        const int value = bar.Value() + (KeyCode == kUp ? -1 : 1);
        bar.Value(std::clamp(value, bar.Min(), bar.Max()));
    };
}

void BindSpinner(TextBox& text, ScrollBar& bar) {
    constexpr double kWidth = 17 * kTwipsPerPixel;
    constexpr double kHeight = 26 * kTwipsPerPixel;
    bar.Width(kWidth);
    bar.Height(kHeight);
    if (QWidget* box = WidgetOf(text); box && WidgetOf(bar)) {
        box->setProperty(kSpinnerBar, QVariant::fromValue<QObject*>(WidgetOf(bar)));
        NameForReaders(*box, box->accessibleName());
    }
    DigitsOnly(text);
    StepByKeys(text, bar);
    text.Change = [&text, &bar] {
        if (Val(text.Text()) > bar.Max()) text.Text(NumberText(bar.Max()));
    };
    text.KeyUp = [&text, &bar](int, int) { bar.Value(bar.Max() - Val(text.Text())); };
    bar.Change = bar.Scroll = [&text, &bar] { text.Text(SpinnerText(bar)); };
}

} // namespace pintalux
