// Saving where the disk gives way: the user's old file stays whole, whichever operation fails.
#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/OrdinaryUser.h"
#include "support/Pictures.h"
#include "support/Program.h"

#include "document/Globals.h"
#include "files/FileNames.h"
#include "surface/system/FileLayer.h"
#include "surface/system/Pictures.h"

#include <cerrno>
#include <filesystem>
#include <QWidget>

namespace pintalux {

namespace {

class SaveFailureTest : public ProgramTest {
  protected:
    void SetUp() override {
        ProgramTest::SetUp();
        Start();
        frmMain->Timer1.Enabled(false); // The poll's own file operations would be counted.
    }
    void TearDown() override {
        FailFileOperation(0, 0);
        ProgramTest::TearDown();
    }
    std::string File(const std::string& name) const { return Folder("pictures") + "/" + name; }
    // How many operations the writing of a picture over a file takes.
    int OperationsOfASave(const Picture& picture) {
        SettleStates();
        FailFileOperation(0, 0);
        SavePictureAside(picture, File("a.bmp"));
        return FileOperationCount();
    }
    // How many operations come before the writing: whether the file exists, and the quality of the
    // Preferences.
    int OperationsBefore() {
        FailFileOperation(0, 0);
        FileExists(File("a.bmp"));
        StoredSetting("JPGsaveQuality");
        return FileOperationCount();
    }
    // Those that store the folder of a save dialog, again, and read the quality.
    int OperationsAfterTheDialog() {
        SetSetting("DialogFolder", Folder("pictures"));
        FailFileOperation(0, 0);
        SetSetting("DialogFolder", Folder("pictures"));
        StoredSetting("JPGsaveQuality");
        return FileOperationCount();
    }
};

constexpr int kModeOperation = 3; // of a save over a file: stat, open, mode; its refusal is no failure

using Names = std::vector<std::string>;

} // namespace

TEST_F(SaveFailureTest, AFullDiskLeavesTheOldFileAndIsTold) {
    frmImage& image = OpenPicture("a.bmp", RandomPicture(40, 30, 1));
    SettleStates();
    const int count = OperationsOfASave(RandomPicture(40, 30, 1));
    ASSERT_GT(count, 3);
    const int first = OperationsBefore();
    const std::string before = BytesOf(File("a.bmp"));
    Edit(image, kBlack);
    SettleStates();
    for (const int n : {1, count}) {
        const DialogScript script({PressesButton("OK")});
        FailFileOperation(first + n, ENOSPC);
        Choose(frmMain->mnuFileSave);
        FailFileOperation(0, 0);
        EXPECT_NE(script.Dialog(0).text.find("Não foi possível salvar a imagem.\nDisco cheio: " +
                                             File("a.bmp") + " (não há espaço no disco)"),
                  std::string::npos)
            << script.Dialog(0).text;
        EXPECT_TRUE(BytesOf(File("a.bmp")) == before) << "operation " << n;
        EXPECT_EQ(NamesIn(Folder("pictures")), (Names{"a.bmp"})) << "operation " << n;
        EXPECT_FALSE(image.alreadysaved);
    }
    Choose(frmMain->mnuFileSave);
    ExpectSamePixels(LoadPicture(File("a.bmp")), Solid(40, 30, kBlack));
    EXPECT_TRUE(image.alreadysaved);
}

TEST_F(SaveFailureTest, AFileSystemWithoutModesTakesTheSave) {
    frmImage& image = OpenPicture("a.bmp", Solid(40, 30, kWhite));
    Edit(image, kBlack);
    SettleStates();
    const DialogScript nothingIsSaid;
    FailFileOperation(OperationsBefore() + kModeOperation, EPERM);
    Choose(frmMain->mnuFileSave);
    FailFileOperation(0, 0);
    ExpectSamePixels(LoadPicture(File("a.bmp")), Solid(40, 30, kBlack));
    EXPECT_TRUE(image.alreadysaved);
}

TEST_F(SaveFailureTest, TheSaveButtonTellsTheSame) {
    frmImage& image = OpenPicture("a.bmp", Solid(40, 30, kWhite));
    SettleStates();
    const std::string before = BytesOf(File("a.bmp"));
    Edit(image, kBlack);
    SettleStates();
    const DialogScript script({PressesButton("OK")});
    FailFileOperation(OperationsBefore() + 1, ENOSPC);
    frmMain->TB2_ButtonClick(frmMain->TB2.Buttons("Save"));
    EXPECT_EQ(script.Count(), 1U);
    EXPECT_TRUE(BytesOf(File("a.bmp")) == before);
    EXPECT_FALSE(image.alreadysaved);
}

TEST_F(SaveFailureTest, ASaveThatFailsAtTheQuestionKeepsTheDocumentOpen) {
    frmImage& image = OpenPicture("a.bmp", Solid(40, 30, kWhite));
    Edit(image, kBlack);
    std::filesystem::remove(File("a.bmp"));
    std::filesystem::create_directory(File("a.bmp"));
    const DialogScript script({PressesButton("Sim"), PressesButton("OK")});
    EXPECT_FALSE(image.Unload());
    EXPECT_NE(script.Dialog(1).text.find(File("a.bmp") + " (é uma pasta)"), std::string::npos);
    EXPECT_EQ(ImageCount, 1);
    EXPECT_FALSE(image.alreadysaved);
    EXPECT_FALSE(CloseCancelled);
}

TEST_F(SaveFailureTest, ASaveAsThatFailsAtTheQuestionKeepsTheDocumentOpen) {
    frmImage& image = NewDocument(10, 10);
    Edit(image, kBlack);
    std::filesystem::create_directory(File("a.jpg"));
    const DialogScript script(
        {PressesButton("Sim"), ChoosesFile(File("a"), 2), PressesButton("Sim"), PressesButton("OK")});
    EXPECT_FALSE(image.Unload());
    EXPECT_EQ(ImageCount, 1);
    EXPECT_EQ(image.AFCurfile, "");
}

TEST_F(SaveFailureTest, ASaveThatFailsStopsTheExit) {
    frmImage& image = OpenPicture("a.bmp", Solid(40, 30, kWhite));
    Edit(image, kBlack);
    std::filesystem::remove(File("a.bmp"));
    std::filesystem::create_directory(File("a.bmp"));
    const DialogScript script({PressesButton("Sim"), PressesButton("OK")});
    EXPECT_FALSE(frmMain.Unload());
    EXPECT_EQ(ImageCount, 1);
    EXPECT_EQ(CornerOf(image), kBlack);
}

TEST_F(SaveFailureTest, AFailedSaveAsOverAFileLeavesItAndTheDocument) {
    frmImage& image = OpenPicture("a.bmp", RandomPicture(40, 30, 1));
    const int count = OperationsOfASave(RandomPicture(40, 30, 1));
    const int first = OperationsAfterTheDialog();
    const std::string before = BytesOf(File("a.bmp"));
    Edit(image, kBlack);
    SettleStates();
    image.AFCurfile = "other.bmp";
    for (const int n : {1, count}) {
        const DialogScript script({ChoosesFile(File("a.bmp")),
                                   [&](QWidget& overwrite) {
                                       FailFileOperation(first + n, ENOSPC);
                                       PressButton(overwrite, "Sim");
                                   },
                                   PressesButton("OK")});
        Choose(frmMain->mnuFileSaveAs);
        FailFileOperation(0, 0);
        EXPECT_NE(script.Dialog(2).text.find(File("a.bmp")), std::string::npos) << script.Dialog(2).text;
        EXPECT_TRUE(BytesOf(File("a.bmp")) == before) << "operation " << n;
        EXPECT_EQ(image.AFCurfile, "other.bmp");
        EXPECT_FALSE(image.alreadysaved);
        EXPECT_EQ(image.Caption(), "a.bmp");
    }
}

TEST_F(SaveFailureTest, SaveAsIntoAFolderThatIsGoneChangesNothing) {
    frmImage& image = NewDocument(5, 5);
    const DialogScript script({ChoosesFile(Folder("pictures") + "/gone/a.bmp"), PressesButton("OK")});
    Choose(frmMain->mnuFileSaveAs);
    EXPECT_NE(script.Dialog(1).text.find(Folder("pictures") + "/gone/a.bmp (não existe)"), std::string::npos);
    EXPECT_EQ(image.AFCurfile, "");
    EXPECT_FALSE(image.alreadysaved);
    EXPECT_TRUE(NamesIn(Folder("pictures")).empty());
}

TEST_F(SaveFailureTest, AFullDiskLeavesTheOldJpeg) {
    frmImage& image = OpenPicture("u.bmp", RandomPicture(160, 120, 1));
    PutBytes(File("a.jpg"), "old");
    image.AFCurfile = File("a.jpg");
    SettleStates();
    const DialogScript script({PressesButton("OK")});
    {
        const FullDisk full(1000); // neither the BMP nor the JPEG has room
        Choose(frmMain->mnuFileSave);
    }
    EXPECT_NE(script.Dialog(0).text.find(File("a.jpg")), std::string::npos) << script.Dialog(0).text;
    EXPECT_EQ(BytesOf(File("a.jpg")), "old");
    EXPECT_FALSE(image.alreadysaved);
}

TEST_F(SaveFailureTest, AFolderThatTakesNoNewFileHasItsOldOneWritten) {
    frmImage& image = OpenPicture("a.bmp", Solid(40, 30, kWhite));
    Edit(image, kBlack);
    SettleStates();
    std::filesystem::permissions(File("a.bmp"), std::filesystem::perms(0666));
    std::filesystem::permissions(Folder("pictures"), std::filesystem::perms(0555));
    std::filesystem::permissions(Folder("temporary"), std::filesystem::perms(0777));
    {
        const DialogScript nothingIsSaid;
        const OrdinaryUser user;
        Choose(frmMain->mnuFileSave);
    }
    std::filesystem::permissions(Folder("pictures"), std::filesystem::perms(0755));
    ExpectSamePixels(LoadPicture(File("a.bmp")), Solid(40, 30, kBlack));
    EXPECT_TRUE(image.alreadysaved);
    EXPECT_EQ(StateFileNames().size(), 2U) << "the copy goes";
}

TEST_F(SaveFailureTest, FiftySavesLeaveNoFileOpen) {
    const auto openFiles = [] { return NamesIn("/proc/self/fd").size(); };
    frmImage& bmp = OpenPicture("a.bmp", Solid(40, 30, kWhite));
    SavePicture(Solid(40, 30, kWhite), File("t.bmp"));
    BmpToJpeg(File("t.bmp"), File("b.jpg"), 90);
    Choose(frmMain->mnuFileSave);
    SettleStates();
    const std::size_t before = openFiles();
    // What is being brought to the disk aside is open for a moment.
    const auto nothingStaysOpen = [&] { return WaitFor([&] { return openFiles() <= before; }); };
    for (int i = 0; i < 50; ++i) {
        bmp.AFCurfile = File(i % 2 == 0 ? "a.bmp" : "b.jpg");
        Choose(frmMain->mnuFileSave);
    }
    EXPECT_TRUE(nothingStaysOpen()) << openFiles() - before;
    bmp.AFCurfile = File("a.bmp");
    for (int i = 0; i < 50; ++i) {
        const DialogScript script({PressesButton("OK")});
        FailFileOperation(OperationsBefore() + 4 + i % 3, ENOSPC);
        Choose(frmMain->mnuFileSave);
    }
    EXPECT_TRUE(nothingStaysOpen()) << openFiles() - before;
}

} // namespace pintalux
