// The end of the program: dialogs go in a fixed order, then the window's place and views are stored.
#include "app/Dialogs.h"
#include "app/frmMain.h"
#include "base/NumberText.h"
#include "base/RuntimeError.h"
#include "document/Globals.h"
#include "surface/system/App.h"
#include "surface/system/Settings.h"
#include "surface/window/Screen.h"

namespace pintalux {

namespace {

std::string Word(bool value) {
    return value ? "True" : "False";
}

// The text of a single-precision number.
std::string SingleText(double value) {
    return NumberText(static_cast<double>(static_cast<float>(value)));
}

} // namespace

void frmMainForm::MDIForm_Unload() {
    Closing = true;
    Timer1.Enabled(false);
    Timer2.Enabled(false);
    ForEachDialog([](auto& dialog) { dialog.Unload(); });
    // Who leaves can do nothing about a settings file that cannot be written.
    ResumeNext([this] { SaveViews(); });
    ClipHookOff(*this);
}

void frmMainForm::SaveViews() {
    std::vector<SettingText> values = {{"Rulers", Word(RulersOn)},
                                       {"Toolbar", Word(ToolsTB.Visible())},
                                       {"ColorBox", Word(ColTB.Visible())},
                                       {"SettingsBar", Word(ToolSettings.Visible())}};
    // Where the place is not known, the one of the last desktop that told it stays.
    if (WindowState() != kMinimised && Screen.KnowsPlaces()) {
        values.push_back({"MainLeft", SingleText(MDIForm::Left())});
        values.push_back({"MainTop", SingleText(MDIForm::Top())});
    }
    if (WindowState() != kMinimised) {
        values.push_back({"MainWidth", SingleText(MDIForm::Width())});
        values.push_back({"MainHeight", SingleText(MDIForm::Height())});
    }
    // Where nothing can be written the exit is silent: the next start has the views of the last one that
    // could.
    ResumeNext([&] { SaveSettings(App.Title(), "Settings", values); });
}

} // namespace pintalux
