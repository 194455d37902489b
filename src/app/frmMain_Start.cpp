// The start of the program: settings, command line, splash, first document.
#include "app/frmMain.h"
#include "app/frmSplash.h"
#include "base/Arithmetic.h"
#include "base/NumberText.h"
#include "devices/modTwain.h"
#include "document/BarPositions.h"
#include "document/FileCommands.h"
#include "document/Globals.h"
#include "files/FileNames.h"
#include "settings/frmPrefs.h"
#include "surface/system/App.h"
#include "surface/system/FileLayer.h"
#include "surface/system/MsgBox.h"

#include <span>

namespace pintalux {

namespace {

bool TrueSetting(const char* key, const char* defaultWord) {
    return Setting(key, defaultWord) == "True";
}

// Gives the window the stored measure of a key; one that it refuses, after an edit by hand, counts as the
// default.
template <class Assign>
void TakeMeasure(const char* key, double defaultTwips, Assign assign) {
    try {
        assign(Val(Setting(key, NumberText(defaultTwips))));
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
    if (!handedOver_) StartupConfig();
} catch (...) {
    MsgBox("Erro de Arranque(Main) nº " + NumberText(CurrentError().Number()));
}

void frmMainForm::ReadGeometry() {
    TakeMeasure("MainLeft", 1000, [this](double twips) { MDIForm::Left(twips); });
    TakeMeasure("MainTop", 1000, [this](double twips) { MDIForm::Top(twips); });
    TakeMeasure("MainWidth", 6500, [this](double twips) { MDIForm::Width(twips); });
    TakeMeasure("MainHeight", 6500, [this](double twips) { MDIForm::Height(twips); });
}

void frmMainForm::ReadViews() {
    mnuViewRulers.Checked(TrueSetting("Rulers", "False"));
    mnuViewToolbar.Checked(TrueSetting("Toolbar", "True"));
    mnuViewColorBox.Checked(TrueSetting("ColorBox", "True"));
    mnuViewSettingsBar.Checked(TrueSetting("SettingsBar", "True"));
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
    // Intended: only a file goes to the running instance; a second start without one is a second program.
    if (secondInstance) {
        const std::string line = LongFileName(command) + "\n";
        // Renamed into place: the running instance polls for it and must never read half a path.
        WriteFileAside(HandOffFile(), [&](File& file) { file.Write(std::as_bytes(std::span(line))); });
        handedOver_ = true;
        return;
    }
    commandFileGiven_ = true;
    commandFile_ = LongFileName(command);
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
    if (tickCounter_ != kStartTick) return;
    OpenFirstDocument();
    cmdTools_Click(0);
    EmptyTray();
    ClipHookOn(*this);
    SetClipboardViewer(*this);
    Timer2.Enabled(false);
    cmdTools_Click(4);
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
