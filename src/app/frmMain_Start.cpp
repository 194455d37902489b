// The start of the program: settings, command line, splash, first document.
#include "app/frmMain.h"
#include "app/frmSplash.h"
#include "base/Arithmetic.h"
#include "base/NumberText.h"
#include "devices/modTwain.h"
#include "document/BarPositions.h"
#include "document/FileCommands.h"
#include "document/Globals.h"
#include "document/Recovery.h"
#include "files/FileNames.h"
#include "settings/frmPrefs.h"
#include "settings/Setting.h"
#include "surface/system/App.h"
#include "surface/system/FileLayer.h"
#include "surface/system/MsgBox.h"
#include "surface/system/Pictures.h"
#include "surface/window/Screen.h"

#include <limits>
#include <span>

namespace pintalux {

namespace {

// Gives the window the stored measure of a key; one that it refuses counts as the default.
template <class Assign>
void TakeMeasure(const char* key, double defaultTwips, Assign assign) {
    constexpr double kAny = std::numeric_limits<double>::max();
    try {
        assign(SettingNumber(key, defaultTwips, -kAny, kAny));
    } catch (const RuntimeError&) {
        assign(defaultTwips);
    }
}

} // namespace

// Intended: a missing scanner library is told once at the start, so that the user knows why scanning is off;
// the start goes on. Any other error ends the load there.
void frmMainForm::MDIForm_Load() try {
    try {
        mnuFileTwain.Enabled(TWAIN_IsAvailable() != 0);
    } catch (const RuntimeError& error) {
        if (error.Number() != kFileNotFound) throw;
        mnuFileTwain.Enabled(false);
        MsgBox("Não foi detectado nenhum Digitalizador", BoxButtons::Ok, BoxIcon::Information, kMessageTitle);
    }
    ReadGeometry();
    ReadViews();
    ReadRecentFiles();
    TakeCommandLine();
    if (handedOver_) return;
    if (KeepsRuns) BeginRun();
    StartupConfig();
} catch (...) {
    MsgBox("Erro de Arranque(Main) nº " + NumberText(CurrentError().Number()));
}

void frmMainForm::ReadGeometry() {
    TakeMeasure("MainLeft", 1000, [this](double twips) { MDIForm::Left(twips); });
    TakeMeasure("MainTop", 1000, [this](double twips) { MDIForm::Top(twips); });
    TakeMeasure("MainWidth", 6500, [this](double twips) { MDIForm::Width(twips); });
    TakeMeasure("MainHeight", 6500, [this](double twips) { MDIForm::Height(twips); });
    MoveIn();
}

// A screen that is gone must not take the window along.
void frmMainForm::MoveIn() {
    const CursorPosition stored = {static_cast<int>(MDIForm::Left() / kTwipsPerPixel),
                                   static_cast<int>(MDIForm::Top() / kTwipsPerPixel)};
    const CursorPosition reachable = Screen.Reachable(stored, PixelWidth(), PixelHeight());
    if (reachable.x != stored.x) MDIForm::Left(reachable.x * kTwipsPerPixel);
    if (reachable.y != stored.y) MDIForm::Top(reachable.y * kTwipsPerPixel);
}

void frmMainForm::ReadViews() {
    mnuViewRulers.Checked(SettingWord("Rulers", false));
    mnuViewToolbar.Checked(SettingWord("Toolbar", true));
    mnuViewColorBox.Checked(SettingWord("ColorBox", true));
    mnuViewSettingsBar.Checked(SettingWord("SettingsBar", true));
    RulersOn = mnuViewRulers.Checked();
    ToolsTB.Visible(mnuViewToolbar.Checked());
    ColTB.Visible(mnuViewColorBox.Checked());
    ToolSettings.Visible(mnuViewSettingsBar.Checked());
}

void frmMainForm::ReadRecentFiles() {
    // The Preferences, loaded here, show the stored length.
    MRUlimit = ToInt16(Val(frmPrefs->Combo1.Text()));
    AllocateMRUs();
    LoadMRUs(mnuFileMRU, mnuFileBar5);
}

void frmMainForm::TakeCommandLine() {
    const std::string command = App.Command();
    const bool secondInstance = App.PrevInstance();
    if (command.empty()) return;
    commandFile_ = LongFileName(command);
    // Intended: only a file goes to the running instance; a second start without one is a second program.
    handedOver_ = secondInstance && HandOver(commandFile_);
    commandFileGiven_ = !handedOver_;
    // The picture is read while the windows are made and the start's ticks pass.
    if (commandFileGiven_) LoadPictureAhead(commandFile_);
}

// False where the request cannot be written, or nobody is left to take it: then the file opens here.
bool frmMainForm::HandOver(const std::string& path) try {
    const std::string line = path + "\n";
    // Renamed into place: the running instance polls for it and must never read half a path.
    WritePrivateFileAside(HandOffFile(), [&](File& file) { file.Write(std::as_bytes(std::span(line))); });
    if (App.PrevInstance()) return true;
    DeleteFile(HandOffFile());
    return false;
} catch (const RuntimeError&) {
    return false;
}

void frmMainForm::StartupConfig() {
    if (frmPrefs->Check1.Value() == 1) {
        KeepOnTop(*frmSplash, true);
        frmSplash->Show();
    }
    ChooseToolButton(kPenTool);
    SetCurrentColour(Picture5.BackColor());
    PrintTitles();
    Combo2.ListIndex(0);
    if (frmPrefs->Check3.Value() == 1) {
        mnuEditClip.Checked(true);
        Timer2.Enabled(true);
        Timer1.Enabled(true);
        Show();
    } else {
        Timer1.Enabled(true);
        mnuEditClip.Checked(false);
        Show();
        OpenFirstDocument();
        cmdTools_Click(0);
        EmptyTray();
        cmdTools_Click(4);
        if (KeepsRuns) OfferRecovery();
    }
}

void frmMainForm::PrintTitles() {
    for (Surface* title : {&Picture2, &Picture1}) {
        title->Cls();
        title->CurrentX(3);
        title->CurrentY(3);
    }
    Picture2.Print("Acertos-Ferramenta");
    Picture1.Print("Palete de Cor");
}

void frmMainForm::Timer2_Timer() {
    constexpr std::int16_t kStartTick = 5;
    tickCounter_ = AddInt16(tickCounter_, 1);
    if (tickCounter_ > kStartTick) Timer2.Enabled(false); // An error ended the start before its last step.
    if (tickCounter_ != kStartTick) return;
    OpenFirstDocument();
    cmdTools_Click(0);
    EmptyTray();
    ClipHookOn(*this);
    SetClipboardViewer(*this);
    Timer2.Enabled(false);
    cmdTools_Click(4);
    if (KeepsRuns) OfferRecovery();
}

void frmMainForm::OpenFirstDocument() {
    if (commandFileGiven_) {
        OpenDocument(commandFile_);
    } else {
        mnuFileNew_Click();
    }
}

void frmMainForm::EmptyTray() {
    ClipPanelHeight = 580;
    NextClip = 0;
}

} // namespace pintalux
