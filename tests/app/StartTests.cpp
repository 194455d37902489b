#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/Pictures.h"
#include "support/Program.h"

#include "app/frmSplash.h"
#include "devices/sane/SaneCalls.h"
#include "document/BarPositions.h"
#include "document/FileCommands.h"
#include "document/frmNew.h"
#include "document/Globals.h"
#include "settings/frmPrefs.h"
#include "surface/system/Pictures.h"
#include "surface/window/Screen.h"

#include <QAbstractButton>
#include <QWidget>

namespace pintalux {

namespace {

class StartTest : public ProgramTest {
  protected:
    std::string File(const std::string& name) const { return Folder("pictures") + "/" + name; }
    // The start of a first instance with a command line, up to the first document.
    void StartWithFile(const std::string& commandLine) {
        StartWhole(commandLine);
        ASSERT_TRUE(WaitFor([] { return ImageCount == 1; }));
    }
    static frmImage& Image() { return static_cast<frmImage&>(*frmMain->ActiveForm()); }
    static void Set(const std::vector<std::pair<std::string, std::string>>& values) {
        for (const auto& [key, text] : values)
            SetSetting(key, text);
    }
};

} // namespace

TEST_F(StartTest, FirstRunTakesAllDefaults) {
    Start();
    EXPECT_EQ(frmMain->Left(), 1000);
    EXPECT_EQ(frmMain->Top(), 1000);
    EXPECT_EQ(frmMain->Width(), 6500);
    EXPECT_EQ(frmMain->Height(), 6500);
    EXPECT_EQ(frmMain->Caption(), "Pintalux 64");
    EXPECT_FALSE(frmMain->mnuViewRulers.Checked());
    EXPECT_TRUE(frmMain->mnuViewToolbar.Checked());
    EXPECT_TRUE(frmMain->mnuViewColorBox.Checked());
    EXPECT_TRUE(frmMain->mnuViewSettingsBar.Checked());
    EXPECT_FALSE(RulersOn);
    EXPECT_TRUE(frmMain->ToolsTB.Visible());
    EXPECT_TRUE(frmMain->ColTB.Visible());
    EXPECT_TRUE(frmMain->ToolSettings.Visible());
    EXPECT_EQ(MRUlimit, 5);
    EXPECT_FALSE(frmMain->CommandFileGiven());
}

TEST_F(StartTest, PlaceAndViewsComeFromTheSettings) {
    Set({{"MainLeft", "450"}, {"MainTop", "300"}, {"MainWidth", "9000"}, {"MainHeight", "8400"}});
    Set({{"Rulers", "True"}, {"Toolbar", "False"}, {"ColorBox", "False"}, {"SettingsBar", "False"}});
    Start();
    EXPECT_EQ(frmMain->Left(), 450);
    EXPECT_EQ(frmMain->Top(), 300);
    EXPECT_EQ(frmMain->Width(), 9000);
    EXPECT_EQ(frmMain->Height(), 8400);
    EXPECT_TRUE(RulersOn);
    EXPECT_TRUE(frmMain->mnuViewRulers.Checked());
    EXPECT_FALSE(frmMain->ToolsTB.Visible());
    EXPECT_FALSE(frmMain->ColTB.Visible());
    EXPECT_FALSE(frmMain->ToolSettings.Visible());
    EXPECT_FALSE(frmMain->mnuViewToolbar.Checked());
}

TEST_F(StartTest, GarbageInTheSettingsGivesTheDefaults) {
    Set({{"Toolbar", "yes"}, {"ColorBox", ""}, {"SettingsBar", "true"}, {"MainTop", "12abc"}});
    Set({{"MRUlist", "99"},
         {"MainWidth", "-5"},
         {"MainHeight", "1e300"},
         {"MainLeft", "1e300"},
         {"Rulers", "perhaps"}});
    const DialogScript nothingIsSaid;
    Start();
    EXPECT_EQ(MRUlimit, 5);
    EXPECT_EQ(frmMain->Left(), 1000);
    EXPECT_EQ(frmMain->Top(), 1000);
    EXPECT_EQ(frmMain->Width(), 6500);
    EXPECT_EQ(frmMain->Height(), 6500);
    EXPECT_FALSE(RulersOn);
    EXPECT_TRUE(frmMain->ToolsTB.Visible());
    EXPECT_TRUE(frmMain->mnuViewColorBox.Checked());
    EXPECT_TRUE(frmMain->ColTB.Visible());
    EXPECT_TRUE(frmMain->ToolSettings.Visible());
    EXPECT_EQ(CurrentTool, kPenTool);
}

TEST_F(StartTest, ATextThatIsNoNumberCountsAsTheDefaultLengthOfTheRecentFiles) {
    SetSetting("MRUlist", "abc");
    Start();
    EXPECT_EQ(MRUlimit, 5);
}

TEST_F(StartTest, APlaceOutsideTheScreensIsMovedIn) {
    Set({{"MainLeft", "60000"}, {"MainTop", "-9000"}, {"MainWidth", "7200"}, {"MainHeight", "5400"}});
    Start();
    // 7200 by 5400 twips are 480 by 360 pixels.
    EXPECT_EQ(frmMain->Left(), (Screen.WidthPixels() - 480) * 15);
    EXPECT_EQ(frmMain->Top(), 0);
    EXPECT_EQ(frmMain->Width(), 7200);
    EXPECT_EQ(frmMain->Height(), 5400);
}

TEST_F(StartTest, AWindowThatIsPartlyOutsideStays) {
    Set({{"MainLeft", "9000"}, {"MainTop", "7500"}});
    Start();
    EXPECT_EQ(frmMain->Left(), 9000);
    EXPECT_EQ(frmMain->Top(), 7500);
}

TEST_F(StartTest, PenBlackAndTitles) {
    Start();
    EXPECT_EQ(CurrentTool, 15);
    EXPECT_EQ(frmMain->TB2.Buttons(15).Value(), 1);
    EXPECT_EQ(CurrentColour(), kBlack);
    EXPECT_EQ(frmMain->Combo2.ListIndex(), 0);
    const auto expectTitle = [](const Surface& strip, const std::string& title) {
        ASSERT_EQ(strip.Texts().size(), 1U);
        EXPECT_EQ(strip.Texts()[0].text, title);
        EXPECT_EQ(strip.Texts()[0].x, 3);
        EXPECT_EQ(strip.Texts()[0].y, 3);
    };
    expectTitle(frmMain->Picture2, "Acertos-Ferramenta");
    expectTitle(static_cast<ColourPanel&>(*frmMain).Picture1, "Palete de Cor");
}

TEST_F(StartTest, TheFirstDocumentWaitsForTheFifthTickAndGreetsWithNew) {
    const DialogScript script({[](QWidget&) {
        EXPECT_TRUE(frmNew.Loaded());
        ClickWidget(WidgetFor(frmNew->cmdOK));
    }});
    Start();
    EXPECT_EQ(frmMain->Timer2.Interval(), 20);
    for (int tick = 1; tick <= 4; ++tick) {
        frmMain->Timer2_Timer();
        EXPECT_EQ(script.Count(), 0U);
    }
    frmMain->Timer2_Timer();
    EXPECT_EQ(script.Count(), 1U);
    EXPECT_EQ(ImageCount, 1);
    EXPECT_FALSE(frmMain->Timer2.Enabled());
    frmMain->Timer2.Enabled(true); // an error ended the start before its last step
    frmMain->Timer2_Timer();
    EXPECT_EQ(ImageCount, 1);
    EXPECT_FALSE(frmMain->Timer2.Enabled());
}

TEST_F(StartTest, TheDialogOfTheDelayedStartDoesNotStartItAgain) {
    int shown = 0;
    const DialogScript script({[&](QWidget& dialog) {
        ++shown;
        WaitFor([] { return false; }, 150);
        dialog.close();
    }});
    StartWhole();
    EXPECT_EQ(shown, 1);
    EXPECT_EQ(ImageCount, 0);
    EXPECT_EQ(frmMain->ClipPanelHeight, 580);
    EXPECT_TRUE(frmMain->mnuEditClip.Checked());
    EXPECT_TRUE(frmMain->Timer1.Enabled());
}

TEST_F(StartTest, WithoutMonitorTheFirstDocumentComesAtOnce) {
    SetSetting("Clipmon", "0");
    const DialogScript script({ClosesDialog()});
    Start();
    EXPECT_EQ(script.Count(), 1U);
    EXPECT_FALSE(frmMain->Timer2.Enabled());
    EXPECT_TRUE(frmMain->Timer1.Enabled());
    EXPECT_FALSE(frmMain->mnuEditClip.Checked());
    EXPECT_EQ(frmMain->ClipPanelHeight, 580);
}

TEST_F(StartTest, APathWithBlanksIsTakenWhole) {
    SavePicture(RandomPicture(20, 10, 1), File("sol e mar.bmp"));
    StartWithFile(File("sol e mar.bmp"));
    EXPECT_TRUE(frmMain->CommandFileGiven());
    EXPECT_EQ(Image().Caption(), "sol e mar.bmp");
    EXPECT_EQ(Image().AFCurfile, File("sol e mar.bmp"));
    EXPECT_EQ(frmMain->mnuFileMRU(0).Caption(), "sol e mar.bmp");
    ExpectSamePixels(ImageOf(Image()), RandomPicture(20, 10, 1));
    EXPECT_FALSE(ScreenLocked());
}

TEST_F(StartTest, ARelativePathIsMadeWhole) {
    SavePicture(Solid(4, 4, kBlack), File("a.bmp"));
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(Folder("pictures"));
    StartWithFile("a.bmp");
    std::filesystem::current_path(before);
    EXPECT_EQ(Image().AFCurfile, File("a.bmp"));
}

TEST_F(StartTest, QuotesAreNotRemoved) {
    SavePicture(Solid(4, 4, kBlack), File("a.bmp"));
    StartWithFile("\"" + File("a.bmp") + "\"");
    EXPECT_EQ(Image().Caption(), "Imagem 1");
    EXPECT_EQ(Image().AFCurfile, "");
    LockWindowUpdate(nullptr);
}

TEST_F(StartTest, WithoutMonitorTheWindowIsPaintedAfterAFileThatIsNoPicture) {
    SetSetting("Clipmon", "0");
    PutBytes(File("a.jpg"), "garbage");
    const DialogScript nothingIsSaid;
    StartWithFile(File("a.jpg"));
    EXPECT_TRUE(WaitFor([] { return WidgetFor(*frmMain).updatesEnabled(); }));
    LockWindowUpdate(nullptr);
}

TEST_F(StartTest, AFileThatIsGoneOrNoPictureLeavesAnEmptyWindow) {
    PutBytes(File("a.jpg"), "garbage");
    const DialogScript nothingIsSaid;
    StartWithFile(File("a.jpg"));
    EXPECT_EQ(Image().Caption(), "Imagem 1");
    EXPECT_EQ(Image().ListBackup.ListCount(), 0);
    LockWindowUpdate(nullptr);
}

TEST_F(StartTest, TheFileComesWithoutMonitorToo) {
    SetSetting("Clipmon", "0");
    SavePicture(Solid(4, 4, kBlack), File("a.bmp"));
    const DialogScript nothingIsAsked;
    StartWhole(File("a.bmp"));
    ASSERT_EQ(ImageCount, 1);
    EXPECT_EQ(Image().Caption(), "a.bmp");
}

TEST_F(StartTest, AMissingScannerLibraryIsToldAndTheStartGoesOn) {
    OpenScannerLibrary = []() -> void* { return nullptr; };
    const DialogScript script({PressesButton("OK")});
    Start();
    EXPECT_EQ(script.Dialog(0), Message("information", "Não foi detectado nenhum Digitalizador"));
    EXPECT_FALSE(frmMain->mnuFileTwain.Enabled());
    EXPECT_EQ(frmMain->Width(), 6500);
    EXPECT_EQ(CurrentTool, kPenTool);
}

TEST_F(StartTest, AnyOtherErrorIsToldAndEndsTheLoad) {
    OpenScannerLibrary = []() -> void* { throw RuntimeError(kDeviceError); };
    const DialogScript script({PressesButton("OK")});
    Start();
    EXPECT_EQ(script.Dialog(0),
              (DialogScript::Seen{"none", "Pintalux64", "Erro de Arranque(Main) nº 57", "OK"}));
    EXPECT_NE(CurrentTool, kPenTool);
    EXPECT_FALSE(frmMain->Timer1.Enabled());
}

TEST_F(StartTest, AScannerLibraryEnablesItsMenu) {
    Start();
    EXPECT_TRUE(frmMain->mnuFileTwain.Enabled());
}

TEST_F(StartTest, TheSplashShowsUnlessSwitchedOff) {
    Start();
    EXPECT_TRUE(frmSplash.Loaded());
    EXPECT_TRUE(WidgetFor(*frmSplash).isVisible());
    EXPECT_TRUE(WidgetFor(*frmSplash).windowFlags().testFlag(Qt::WindowStaysOnTopHint));
}

TEST_F(StartTest, NoSplashWhereItIsSwitchedOff) {
    SetSetting("ShowSplash", "0");
    Start();
    EXPECT_FALSE(frmSplash.Loaded());
}

TEST_F(StartTest, TheSplashGoesAtItsThirdTick) {
    *frmSplash;
    EXPECT_TRUE(frmSplash->Timer1.Enabled());
    EXPECT_EQ(frmSplash->Timer1.Interval(), 1000);
    frmSplash->Timer1.Tick();
    frmSplash->Timer1.Tick();
    EXPECT_TRUE(frmSplash.Loaded());
    frmSplash->Timer1.Tick();
    EXPECT_FALSE(frmSplash.Loaded());
}

} // namespace pintalux
