#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/OrdinaryUser.h"
#include "support/Pictures.h"
#include "support/Program.h"

#include "document/FileCommands.h"
#include "document/Globals.h"
#include "settings/frmPrefs.h"
#include "settings/RecentFiles.h"
#include "support/Errors.h"
#include "surface/system/Pictures.h"
#include "surface/system/Settings.h"

#include <filesystem>
#include <QWidget>
#include <sys/stat.h>

namespace pintalux {

namespace {

const char* const kKey = R"(Software\Microsoft\Windows\CurrentVersion\App Paths\Pintalux64)";

class RecentFilesTest : public ProgramTest {
  protected:
    std::string File(const std::string& name) const { return Folder("pictures") + "/" + name; }
    /// Opens small pictures, the last one becomes the newest entry.
    void Open(const std::vector<std::string>& names) {
        for (const std::string& name : names)
            OpenPicture(name, Solid(4, 3, kWhite));
    }
    /// What the menu shows, newest first.
    static std::vector<std::string> Shown() {
        std::vector<std::string> captions;
        try {
            for (int i = 0;; ++i) {
                if (frmMain->mnuFileMRU(i).Visible()) captions.push_back(frmMain->mnuFileMRU(i).Caption());
            }
        } catch (const RuntimeError&) {
            // Behind the last item.
        }
        return captions;
    }
    static std::string Stored(int position) {
        return ReadMachineValue(kKey, "MRU" + std::to_string(position), "(none)");
    }
    void Restart() {
        frmPrefs->Check4.Value(1);
        ASSERT_TRUE(frmMain.Unload());
        PassEvents();
        EndEventLoop();
        Start();
    }
};

using Names = std::vector<std::string>;

} // namespace

TEST_F(RecentFilesTest, FirstRunHidesListAndSeparator) {
    Start();
    EXPECT_FALSE(frmMain->mnuFileMRU(0).Visible());
    EXPECT_FALSE(frmMain->mnuFileBar5.Visible());
    EXPECT_EQ(MRUlimit, 5);
}

TEST_F(RecentFilesTest, OpenedFilesStandNewestFirst) {
    Start();
    Open({"a.bmp", "b.bmp", "c.bmp"});
    EXPECT_EQ(Shown(), (Names{"c.bmp", "b.bmp", "a.bmp"}));
    EXPECT_TRUE(frmMain->mnuFileBar5.Visible());
    EXPECT_EQ(Stored(0), File("c.bmp"));
    EXPECT_EQ(Stored(1), File("b.bmp"));
    EXPECT_EQ(Stored(2), File("a.bmp"));
    EXPECT_EQ(Stored(3), "(none)");
}

TEST_F(RecentFilesTest, FileOpenedTwiceKeepsItsPlace) {
    Start();
    Open({"a.bmp", "b.bmp", "a.bmp"});
    EXPECT_EQ(Shown(), (Names{"b.bmp", "a.bmp"}));
    EXPECT_EQ(Stored(0), File("b.bmp"));
}

TEST_F(RecentFilesTest, AFileOpenedAgainStaysAtWhateverPlaceItHas) {
    Start();
    const Names five = {"e.bmp", "d.bmp", "c.bmp", "b.bmp", "a.bmp"};
    Open({five.rbegin(), five.rend()});
    for (const std::string& again : five) {
        Open({again});
        EXPECT_EQ(Shown(), five) << again;
    }
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(Stored(i), File(five[static_cast<std::size_t>(i)])) << i;
}

TEST_F(RecentFilesTest, TheLastFallsOutOfAFullList) {
    SetSetting("MRUlist", "0");
    Start();
    Open({"a.bmp", "b.bmp", "c.bmp", "d.bmp"});
    EXPECT_EQ(Shown(), (Names{"d.bmp", "c.bmp", "b.bmp"}));
    EXPECT_EQ(Stored(2), File("b.bmp"));
    EXPECT_EQ(Stored(3), "(none)");
}

TEST_F(RecentFilesTest, TheListSurvivesARestart) {
    Start();
    Open({"a.bmp", "b.bmp"});
    Restart();
    EXPECT_EQ(Shown(), (Names{"b.bmp", "a.bmp"}));
    EXPECT_TRUE(frmMain->mnuFileBar5.Visible());
    EXPECT_EQ(MRUfile(1), File("a.bmp"));
}

TEST_F(RecentFilesTest, AFileDeletedAtPosition2Of4IsSkippedAtTheNextStart) {
    Start();
    Open({"a.bmp", "b.bmp", "c.bmp", "d.bmp"});
    std::filesystem::remove(File("b.bmp"));
    Restart();
    EXPECT_EQ(Shown(), (Names{"d.bmp", "c.bmp", "a.bmp"}));
    // The store stays as it is until the next update.
    EXPECT_EQ(Stored(2), File("b.bmp"));
    EXPECT_EQ(Stored(3), File("a.bmp"));
}

TEST_F(RecentFilesTest, AClickOpensTheFileAndLeavesTheList) {
    Start();
    Open({"a.bmp", "b.bmp"});
    Choose(frmMain->mnuFileMRU(1));
    EXPECT_EQ(ImageCount, 3);
    const frmImage& image = static_cast<frmImage&>(*frmMain->ActiveForm());
    EXPECT_EQ(image.AFCurfile, File("a.bmp"));
    EXPECT_EQ(image.Caption(), "a.bmp");
    EXPECT_EQ(image.ListBUorder.ListCount(), 1);
    ExpectSamePixels(ImageOf(image), Solid(4, 3, kWhite));
    EXPECT_EQ(Shown(), (Names{"b.bmp", "a.bmp"}));
    EXPECT_FALSE(ScreenLocked());
}

TEST_F(RecentFilesTest, AVanishedFileGivesTwoMessagesAndItsEntryGoes) {
    Start();
    Open({"a.bmp", "b.bmp", "c.bmp"});
    std::filesystem::remove(File("b.bmp"));
    const DialogScript script({PressesButton("OK"), PressesButton("OK")});
    Choose(frmMain->mnuFileMRU(1));
    EXPECT_EQ(script.Dialog(0), Message("exclamation", "b.bmp foi movida ou apagada."));
    EXPECT_EQ(script.Dialog(1), Message("none", "Não encontrei o ficheiro."));
    EXPECT_EQ(Shown(), (Names{"c.bmp", "a.bmp"}));
    EXPECT_EQ(Stored(1), "(none)");
    EXPECT_EQ(Stored(2), File("a.bmp"));
    EXPECT_EQ(ImageCount, 3);
}

TEST_F(RecentFilesTest, TheOnlyFileVanishedLeavesListAndSeparatorHidden) {
    Start();
    Open({"a.bmp"});
    std::filesystem::remove(File("a.bmp"));
    const DialogScript script({PressesButton("OK"), PressesButton("OK")});
    Choose(frmMain->mnuFileMRU(0));
    EXPECT_TRUE(Shown().empty());
    EXPECT_FALSE(frmMain->mnuFileBar5.Visible());
}

TEST_F(RecentFilesTest, APictureThatIsRefusedLeavesTheEmptyWindow) {
    Start();
    Open({"a.bmp"});
    PutBytes(File("a.bmp"), "garbage");
    const DialogScript nothingIsSaid;
    Choose(frmMain->mnuFileMRU(0));
    EXPECT_EQ(ImageCount, 2);
    EXPECT_EQ(frmMain->ActiveForm()->Caption(), "Imagem 2");
    EXPECT_FALSE(ScreenLocked());
}

TEST_F(RecentFilesTest, AFileThatIsNoPictureIsNeverWrittenOverByASave) {
    Start();
    Open({"a.bmp"});
    PutBytes(File("a.bmp"), "something else of the user's");
    Choose(frmMain->mnuFileMRU(0));
    ASSERT_EQ(ImageCount, 2);
    EXPECT_EQ(static_cast<frmImage&>(*frmMain->ActiveForm()).AFCurfile, "");
    const DialogScript script({PressesButton("Cancelar")});
    Choose(frmMain->mnuFileSave);
    EXPECT_EQ(script.Dialog(0).title, "Savar Como");
    EXPECT_EQ(BytesOf(File("a.bmp")), "something else of the user's");
}

TEST_F(RecentFilesTest, AFileInAClosedFolderKeepsNobodyFromStarting) {
    std::filesystem::create_directory(File("closed"));
    PutBytes(File("closed/a.bmp"), "x");
    WriteMachineValue(kKey, "MRU0", File("closed/a.bmp"));
    std::filesystem::permissions(File("closed"), std::filesystem::perms(0));
    {
        const DialogScript nothingIsSaid;
        const OrdinaryUser user;
        Start();
    }
    EXPECT_TRUE(Shown().empty());
    EXPECT_TRUE(frmMain.Loaded());
    std::filesystem::permissions(File("closed"), std::filesystem::perms(0755));
}

TEST_F(RecentFilesTest, ARaisedLimitFailsUntilTheNextStart) {
    SetSetting("MRUlist", "0");
    Start();
    Open({"a.bmp"});
    frmPrefs->Combo1.ListIndex(1);
    frmPrefs->Command1_Click();
    ASSERT_EQ(MRUlimit, 5);
    EXPECT_EQ(ErrorOf([&] { UpdateMRUs(frmMain->mnuFileMRU, frmMain->mnuFileBar5, File("b.bmp")); }), 9);
    Restart();
    Open({"b.bmp"});
    EXPECT_EQ(Shown(), (Names{"b.bmp", "a.bmp"}));
}

TEST_F(RecentFilesTest, OpeningUnderARaisedLimitEndsAtTheList) {
    SetSetting("MRUlist", "0");
    Start();
    frmPrefs->Combo1.ListIndex(1);
    frmPrefs->Command1_Click();
    const frmImage& image = OpenPicture("a.bmp", Solid(40, 30, kBlack));
    // The picture and the file are there; what comes after the list is not done.
    EXPECT_EQ(image.PicMerge.Width(), 40);
    EXPECT_EQ(image.AFCurfile, File("a.bmp"));
    EXPECT_EQ(image.Caption(), "Imagem 1");
    EXPECT_EQ(image.ListBackup.ListCount(), 0);
    EXPECT_TRUE(WaitFor([] { return WidgetFor(*frmMain).updatesEnabled(); })) << "the window is painted";
    LockWindowUpdate(nullptr);
}

TEST_F(RecentFilesTest, ALoweredLimitOnlyShortensWhatIsWalked) {
    Start();
    Open({"a.bmp", "b.bmp", "c.bmp", "d.bmp", "e.bmp"});
    frmPrefs->Combo1.ListIndex(0);
    frmPrefs->Command1_Click();
    Open({"f.bmp"});
    EXPECT_EQ(Shown(), (Names{"f.bmp", "e.bmp", "d.bmp"}));
    EXPECT_EQ(Stored(3), File("b.bmp"));
}

TEST_F(RecentFilesTest, AnAmpersandIsShownAndMarksNoAccessKey) {
    Start();
    Open({"sol & mar.bmp"});
    EXPECT_EQ(Shown(), (Names{"sol && mar.bmp"}));
}

TEST_F(RecentFilesTest, AStoreThatCannotBeWrittenKeepsTheListInMemoryOnly) {
    std::filesystem::create_directories(Folder("settings") + "/Pintalux64/machine.ini");
    const DialogScript nothingIsSaid;
    Start();
    Open({"a.bmp"});
    EXPECT_EQ(Shown(), (Names{"a.bmp"}));
    EXPECT_EQ(static_cast<frmImage&>(*frmMain->ActiveForm()).ListBackup.ListCount(), 1);
    Restart();
    EXPECT_TRUE(Shown().empty());
}

TEST_F(RecentFilesTest, AFolderInTheListOpensAnEmptyWindowAndSaysNothing) {
    std::filesystem::create_directory(File("folder.bmp"));
    WriteMachineValue(kKey, "MRU0", File("folder.bmp"));
    const DialogScript nothingIsSaid;
    Start();
    EXPECT_EQ(Shown(), (Names{"folder.bmp"}));
    Choose(frmMain->mnuFileMRU(0));
    EXPECT_EQ(ImageCount, 1);
    EXPECT_EQ(static_cast<frmImage&>(*frmMain->ActiveForm()).AFCurfile, "");
}

TEST_F(RecentFilesTest, APipeInTheListStopsNobody) {
    ASSERT_EQ(::mkfifo(File("pipe.bmp").c_str(), 0600), 0);
    WriteMachineValue(kKey, "MRU0", File("pipe.bmp"));
    const DialogScript nothingIsSaid;
    Start();
    Choose(frmMain->mnuFileMRU(0));
    EXPECT_EQ(static_cast<frmImage&>(*frmMain->ActiveForm()).AFCurfile, "");
}

TEST_F(RecentFilesTest, APathOf4000BytesIsOpenedFromTheList) {
    std::string folder = Folder("pictures");
    while (folder.size() + 200 < 3900)
        folder += "/" + std::string(190, 'f');
    std::filesystem::create_directories(folder);
    const std::string path = folder + "/" + std::string(4000 - folder.size() - 5, 'n') + ".bmp";
    ASSERT_EQ(path.size(), 4000U);
    SavePicture(Solid(4, 3, kWhite), path);
    WriteMachineValue(kKey, "MRU0", path);
    WriteMachineValue(kKey, "MRU1", File(std::string(4000, 'x'))); // a name that no folder can hold
    const DialogScript nothingIsSaid;
    Start();
    ASSERT_EQ(Shown().size(), 1U);
    Choose(frmMain->mnuFileMRU(0));
    EXPECT_EQ(static_cast<frmImage&>(*frmMain->ActiveForm()).AFCurfile, path);
}

TEST_F(RecentFilesTest, ANameThatIsNoUtf8SurvivesARestart) {
    Start();
    Open({"\xE1gua.bmp"});
    Restart();
    ASSERT_EQ(Shown(), (Names{"\xE1gua.bmp"}));
    Choose(frmMain->mnuFileMRU(0));
    ASSERT_EQ(ImageCount, 1);
    const auto& image = static_cast<frmImage&>(*frmMain->ActiveForm());
    EXPECT_EQ(image.AFCurfile, File("\xE1gua.bmp"));
    ExpectSamePixels(ImageOf(image), Solid(4, 3, kWhite));
}

TEST_F(RecentFilesTest, AStoredPathEndsAtItsFirstNul) {
    SavePicture(Solid(4, 3, kWhite), File("a.bmp"));
    WriteMachineValue(kKey, "MRU0", File("a.bmp") + std::string("\0rest", 5));
    Start();
    EXPECT_EQ(Shown(), (Names{"a.bmp"}));
    EXPECT_EQ(MRUfile(0), File("a.bmp"));
}

TEST_F(RecentFilesTest, AListEditedByHandGivesWhatIsThere) {
    SavePicture(Solid(4, 3, kWhite), File("a.bmp"));
    SavePicture(Solid(4, 3, kWhite), File("b.bmp"));
    std::filesystem::create_directories(Folder("settings") + "/Pintalux64");
    // Spaces, a missing position, one twice, one beyond the list, a path without a folder, lines that are
    // none.
    PutBytes(Folder("settings") + "/Pintalux64/machine.ini",
             "garbage\n[" + std::string(kKey) + "]\r\n  MRU1 =  " + File("a.bmp") +
                 "  \r\nMRU1=" + File("b.bmp") + "\nMRU3=" + File("b.bmp") +
                 "\nMRU4=\nMRU-1=x\nMRU99=" + File("b.bmp") + "\n=\n[[[\nMRU2=");
    const DialogScript nothingIsSaid;
    Start();
    EXPECT_EQ(Shown(), (Names{"a.bmp", "b.bmp"}));
    Open({"c.bmp"});
    EXPECT_EQ(Shown(), (Names{"c.bmp", "a.bmp", "b.bmp"}));
    Restart();
    EXPECT_EQ(Shown()[0], "c.bmp");
}

TEST_F(RecentFilesTest, GarbageInTheStoreIsNoFile) {
    WriteMachineValue(kKey, "MRU0", std::string(6000, 'x'));
    WriteMachineValue(kKey, "MRU1", std::string("\x01\x02\xFF", 3));
    const DialogScript nothingIsSaid;
    Start();
    EXPECT_TRUE(Shown().empty());
}

} // namespace pintalux
