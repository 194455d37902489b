#include "app/frmMain.h"

#include "app/ImageKeys.h"
#include "document/Workspace.h"
#include "selection/Floating.h"
#include "selection/SelectionTools.h"
#include "surface/system/App.h"
#include "surface/system/Clipboard.h"
#include "surface/window/HelpWindow.h"
#include "tools/Image1_Pointer.h"
#include "tools/PaintingTools.h"
#include "tools/Text.h"

namespace pintalux {

AutoForm<frmMainForm> frmMain;

namespace {

constexpr int kPollInterval = 30;  // milliseconds
constexpr int kStartInterval = 20; // milliseconds

// Pixels: what a scroll bar and the narrowest view of a picture take beside the panels; the least height,
// from which the panels scroll.
constexpr int kLeastBetween = 85;
constexpr int kLeastHeight = 320;

} // namespace

frmMainForm::frmMainForm()
    : MDIForm("frmMain"), ToolTable({PaintingTools, SelectionTools}),
      CommandBar(static_cast<Container&>(*this), ToolTable::Buttons()),
      ToolSettingsPanel(static_cast<Container&>(*this)), ClipTray(static_cast<ToolSettingsPanel&>(*this)),
      ColourPanel(static_cast<Container&>(*this)), Timer1(kPollInterval), Timer2(kStartInterval) {
    MDIForm::Caption("Pintalux 64");
    IconResource(":/app.svg");
    TheWorkspace.ConnectTools = [](frmImage& image) {
        ConnectTools(image);
        ConnectSelection(image);
        ConnectKeys(image);
    };
    TheWorkspace.MergeByCommand = [](frmImage& image) { image.NeedtoPaste(); };
    ConnectFloatingSteps();
    ConnectTextSteps();
    const double panels = (ToolSettings.Width() + ColTB.Width()) / kTwipsPerPixel;
    LeastInside(static_cast<int>(panels) + kLeastBetween, kLeastHeight);
    MainMenu::AddTo(*this);
    AlignPanel(ToolsTB, Align::Top);
    AlignPanel(ToolSettings, Align::Left);
    AlignPanel(ColTB, Align::Right);
    FocusAreas({{&ToolsTB},
                {&ToolSettings, &cmdTools(kPenPage)},
                {&PicTools(kClipPage)},
                {nullptr},
                {&ColTB, &txtRed}});
    const HelpPage help = {"Pintalux 64: ajuda", ":/help.html", "dialog"};
    OnKey("F1", [help] { ShowHelpPage(help); });
    HelpInDialogs(help);
    ConnectMenus();
    ConnectBars();
    FilesDropped = [this](const std::vector<std::string>& paths) { OpenDropped(paths); };
    Timer1.Tick = [this] { Timer1_Timer(); };
    Timer2.Tick = [this] { Timer2_Timer(); };
}

frmMainForm::~frmMainForm() {
    // A window that goes leaves those that hear of the clipboard.
    SetClipboardViewer({});
}

std::string HandOffFile() {
    const std::string& folder = App.RunFolder();
    return folder.empty() ? folder : folder + "/KLdde.tmp";
}

} // namespace pintalux
