#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/Program.h"

#include "app/frmSplash.h"
#include "document/frmNew.h"
#include "document/Globals.h"
#include "settings/frmPrefs.h"

#include <QWidget>

namespace pintalux {

namespace {

class ExitTest : public ProgramTest {
  protected:
    void Exit() { Choose(frmMain->mnuFileExit); }
};

} // namespace

TEST_F(ExitTest, ViewsAndPlaceAreStored) {
    Start();
    Choose(frmMain->mnuViewRulers);
    Choose(frmMain->mnuViewColorBox);
    frmMain->Left(450);
    frmMain->Top(600);
    frmMain->Width(7500);
    frmMain->Height(6750);
    Exit();
    EXPECT_FALSE(frmMain.Loaded());
    EXPECT_EQ(StoredSetting("Rulers"), "True");
    EXPECT_EQ(StoredSetting("Toolbar"), "True");
    EXPECT_EQ(StoredSetting("ColorBox"), "False");
    EXPECT_EQ(StoredSetting("SettingsBar"), "True");
    EXPECT_EQ(StoredSetting("MainLeft"), "450");
    EXPECT_EQ(StoredSetting("MainTop"), "600");
    EXPECT_EQ(StoredSetting("MainWidth"), "7500");
    EXPECT_EQ(StoredSetting("MainHeight"), "6750");
}

TEST_F(ExitTest, SettingsThatCannotBeWrittenDoNotKeepTheProgram) {
    Start();
    std::filesystem::remove_all(Folder("settings"));
    PutBytes(Folder("settings"), "a file where the folder was");
    const DialogScript nothingIsSaid;
    Exit();
    EXPECT_FALSE(frmMain.Loaded());
}

TEST_F(ExitTest, TheNextStartFindsThem) {
    Start();
    Choose(frmMain->mnuViewSettingsBar);
    frmMain->Width(7500);
    Exit();
    PassEvents();
    EndEventLoop();
    Start();
    EXPECT_FALSE(frmMain->ToolSettings.Visible());
    EXPECT_FALSE(frmMain->mnuViewSettingsBar.Checked());
    EXPECT_TRUE(frmMain->mnuViewToolbar.Checked());
    EXPECT_EQ(frmMain->Width(), 7500);
}

TEST_F(ExitTest, WhereNoSettingCanBeWrittenTheExitIsSilent) {
    Start();
    std::filesystem::remove_all(Folder("settings") + "/Pintalux64");
    PutBytes(Folder("settings") + "/Pintalux64", "no folder");
    const DialogScript nothingIsSaid;
    Exit();
    EXPECT_FALSE(frmMain.Loaded());
}

TEST_F(ExitTest, AHiddenMainWindowStillStoresItsBarsAsShown) {
    Start();
    frmMain->Hide();
    Exit();
    EXPECT_EQ(StoredSetting("Toolbar"), "True");
    EXPECT_EQ(StoredSetting("ColorBox"), "True");
}

TEST_F(ExitTest, AMinimisedWindowStoresNoPlace) {
    Start();
    frmMain->WindowState(kMinimised);
    PassEvents();
    Exit();
    EXPECT_EQ(StoredSetting("MainLeft"), "(none)");
    EXPECT_EQ(StoredSetting("MainWidth"), "(none)");
    EXPECT_EQ(StoredSetting("Rulers"), "False");
}

TEST_F(ExitTest, AMaximisedWindowStoresItsMaximisedSize) {
    Start();
    frmMain->WindowState(kMaximised);
    PassEvents();
    Exit();
    EXPECT_NE(StoredSetting("MainWidth"), "(none)");
    EXPECT_NE(StoredSetting("MainWidth"), "6500");
}

TEST_F(ExitTest, DialogsGo) {
    Start();
    *frmNew;
    *frmPrefs;
    Exit();
    EXPECT_FALSE(frmNew.Loaded());
    EXPECT_FALSE(frmPrefs.Loaded());
    EXPECT_FALSE(frmSplash.Loaded());
    EXPECT_TRUE(frmMainForm::Closing);
}

TEST_F(ExitTest, CancelAtTheQuestionStopsTheWholeExit) {
    frmMainForm::Closing = false;
    Start();
    frmImage& first = NewDocument(10, 10);
    frmImage& second = NewDocument(10, 10);
    Edit(first, kBlack);
    Edit(second, kBlack);
    const DialogScript script({PressesButton("Não"), PressesButton("Cancelar")});
    Exit();
    EXPECT_TRUE(frmMain.Loaded());
    EXPECT_EQ(ImageCount, 2);
    EXPECT_FALSE(frmMainForm::Closing);
    EXPECT_EQ(StoredSetting("Rulers"), "(none)");
    EXPECT_TRUE(frmMain->Timer1.Enabled());
    SettleStates();
    EXPECT_EQ(StateFileNames().size(), 4U);
}

TEST_F(ExitTest, EveryEditedDocumentIsAskedForAndItsStateFilesGo) {
    Start();
    Edit(NewDocument(10, 10), kBlack);
    NewDocument(10, 10);
    Edit(NewDocument(10, 10), kBlack);
    const DialogScript script({PressesButton("Não"), PressesButton("Não")});
    Exit();
    EXPECT_EQ(script.Count(), 2U);
    EXPECT_NE(script.Dialog(0).text.find("Imagem 1 ?"), std::string::npos);
    EXPECT_NE(script.Dialog(1).text.find("Imagem 3 ?"), std::string::npos);
    EXPECT_FALSE(frmMain.Loaded());
    EXPECT_EQ(ImageCount, 0);
    EXPECT_TRUE(StateFileNames().empty());
}

TEST_F(ExitTest, TheCloseBoxOfTheWindowIsTheSameExit) {
    Start();
    Edit(NewDocument(10, 10), kBlack);
    {
        const DialogScript script({PressesButton("Cancelar")});
        WidgetFor(*frmMain).close();
        EXPECT_EQ(script.Count(), 1U);
    }
    EXPECT_TRUE(frmMain.Loaded());
    const DialogScript script({PressesButton("Não")});
    WidgetFor(*frmMain).close();
    EXPECT_FALSE(frmMain.Loaded());
}

} // namespace pintalux
