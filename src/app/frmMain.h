// The main window: the startup object. It is assembled from the parts that the subsystems own, and holds
// nothing of any document.
#pragma once

#include "colour/ColourPanel.h"
#include "document/CommandBar.h"
#include "document/Globals.h"
#include "document/MainMenu.h"
#include "selection/ClipTray.h"
#include "surface/window/MDIForm.h"
#include "surface/window/Timer.h"
#include "tools/ToolSettings.h"
#include "tools/ToolTable.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace pintalux {

class frmMainForm : public MDIForm,
                    public MainMenu,          // menus
                    public ToolTable,         // the tools of all subsystems
                    public CommandBar,        // tool bar TB2
                    public ToolSettingsPanel, // pages of tool settings
                    public ClipTray,          // the tray on page 4
                    public ColourPanel {      // the current colour
  public:
    frmMainForm();
    ~frmMainForm() override;

    Timer Timer1; ///< 30 ms: the hand-off file, then all menu and button states.
    Timer Timer2; ///< 20 ms: the delayed start, on its fifth tick.

    /// The command line names a file that was given to this instance; false also while it runs without one.
    bool CommandFileGiven() const { return commandFileGiven_; }
    /// The start ended early because the running instance takes the file: no window is shown, the process
    /// ends.
    bool HandedOver() const { return handedOver_; }
    /// Set when the main window goes for good.
    static inline Flag& Closing = ProgramClosing;

    void StartupConfig();
    void Timer1_Timer();
    void Timer2_Timer();
    void TB2_ButtonClick(ToolButton& button);

    /// The user logs out: the close questions where they may be asked, else every state is complete on disk.
    /// Nothing closes. False at a Cancel.
    bool LogOut(bool mayAsk);
    /// The session is over: the program ends without a question.
    void EndWithSession();

    void mnuFileExit_Click();
    void mnuEditClip_Click();
    void mnuViewToolbar_Click();
    void mnuViewColorBox_Click();
    void mnuViewSettingsBar_Click();
    void mnuViewRulers_Click();
    void mnuWindowCascade_Click();
    void mnuWindowTileHorizontal_Click();
    void mnuWindowTileVertical_Click();

  protected:
    void MDIForm_Load() override;
    void MDIForm_Unload() override;

  private:
    // frmMain_Commands.cpp
    void ConnectMenus();
    void ConnectBars();
    void ChooseToolButton(int tool);
    void AfterToolChosen(int toolBefore);
    // frmMain_Start.cpp
    void ReadGeometry();
    void MoveIn();
    void ReadViews();
    void ReadRecentFiles();
    void TakeCommandLine();
    bool HandOver(const std::string& path);
    void PrintTitles();
    void OpenFirstDocument();
    void EmptyTray();
    // frmMain_Poll.cpp
    void TakeHandOff();
    void OpenDropped(const std::vector<std::string>& paths);
    void PollPaste();
    void PollDocument();
    void PollUndo();
    void PollShown();
    void PollDisk();
    // frmMain_Recovery.cpp
    void OfferRecovery();
    // frmMain_Exit.cpp
    void SaveViews();

    /// The documents as they were when the questions of a log-out were answered; nothing before.
    std::optional<std::string> answeredFor_;
    std::string commandFile_;
    bool commandFileGiven_ = false;
    bool handedOver_ = false;
    std::int16_t tickCounter_ = 0;
    Flag toldOfDisk_; ///< The user knows that the disk refuses states.
    Flag cutWaits_;   ///< Cut and Copy come back when a document shows again.
    Registered<MDIForm>::Entry entry_{TheWorkspace.window, *this};
};

extern AutoForm<frmMainForm> frmMain;

/// The Preferences.
void mnuFileSaveOptions_Click();
/// File New.
void mnuWindowNewWindow_Click();

/// The file by which a second instance hands its picture to the one that holds the lock; empty where the user
/// has no folder for it.
std::string HandOffFile();

} // namespace pintalux
