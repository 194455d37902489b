// Saving where the disk gives way: the user's old file stays whole, whichever operation fails.
#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/Pictures.h"
#include "support/Program.h"

#include "surface/system/CommonDialog.h"
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
        CommonDialog1 = {};
        Start();
        frmMain->Timer1.Enabled(false); // The poll's own file operations would be counted.
    }
    void TearDown() override {
        FailFileOperation(0, 0);
        ProgramTest::TearDown();
    }
    std::string File(const std::string& name) const { return Folder("pictures") + "/" + name; }
    // How many operations the writing of a picture takes.
    int OperationsOfASave(const Picture& picture) {
        SettleStates();
        FailFileOperation(0, 0);
        SavePictureAside(picture, File("a.bmp"));
        return FileOperationCount();
    }
    void ExpectUntrapped(int number) {
        ASSERT_EQ(untrapped.size(), 1U);
        EXPECT_EQ(untrapped[0].Number(), number);
        untrapped.clear();
    }
};

using Names = std::vector<std::string>;

} // namespace

TEST_F(SaveFailureTest, AFullDiskLeavesTheOldFileAndTheErrorReachesTheTop) {
    frmImage& image = OpenPicture("a.bmp", RandomPicture(40, 30, 1));
    SettleStates();
    const int count = OperationsOfASave(RandomPicture(40, 30, 1));
    ASSERT_GT(count, 3);
    const std::string before = BytesOf(File("a.bmp"));
    Edit(image, kBlack);
    SettleStates();
    for (int n = 1; n <= count; ++n) {
        FailFileOperation(n + 1, ENOSPC); // the first one looks whether the file exists
        Choose(frmMain->mnuFileSave);
        FailFileOperation(0, 0);
        ExpectUntrapped(61);
        EXPECT_TRUE(BytesOf(File("a.bmp")) == before) << "operation " << n;
        EXPECT_EQ(NamesIn(Folder("pictures")), (Names{"a.bmp"})) << "operation " << n;
        EXPECT_FALSE(image.alreadysaved);
    }
    Choose(frmMain->mnuFileSave);
    ExpectSamePixels(LoadPicture(File("a.bmp")), Solid(40, 30, kBlack));
}

TEST_F(SaveFailureTest, TheSaveButtonKeepsTheErrorToItself) {
    frmImage& image = OpenPicture("a.bmp", Solid(40, 30, kWhite));
    SettleStates();
    const std::string before = BytesOf(File("a.bmp"));
    Edit(image, kBlack);
    SettleStates();
    FailFileOperation(3, ENOSPC);
    frmMain->TB2_ButtonClick(frmMain->TB2.Buttons("Save"));
    EXPECT_TRUE(BytesOf(File("a.bmp")) == before);
    EXPECT_FALSE(image.alreadysaved);
}

TEST_F(SaveFailureTest, SaveAsOverAFileEndsSilentlyAndLeavesIt) {
    frmImage& image = OpenPicture("a.bmp", RandomPicture(40, 30, 1));
    const int count = OperationsOfASave(RandomPicture(40, 30, 1));
    const std::string before = BytesOf(File("a.bmp"));
    Edit(image, kBlack);
    SettleStates();
    image.AFCurfile = "other.bmp";
    for (int n = 1; n <= count; ++n) {
        const DialogScript script({[&](QWidget& dialog) { ChoosesFile(File("a.bmp"))(dialog); },
                                   [n](QWidget& overwrite) {
                                       FailFileOperation(n, ENOSPC);
                                       PressButton(overwrite, "Sim");
                                   }});
        Choose(frmMain->mnuFileSaveAs);
        FailFileOperation(0, 0);
        EXPECT_TRUE(BytesOf(File("a.bmp")) == before) << "operation " << n;
        EXPECT_EQ(image.AFCurfile, "other.bmp");
        EXPECT_FALSE(image.alreadysaved);
        EXPECT_EQ(image.Caption(), "a.bmp");
    }
}

TEST_F(SaveFailureTest, SaveAsIntoAFolderThatIsGoneChangesNothing) {
    frmImage& image = NewDocument(5, 5);
    const DialogScript script({ChoosesFile(Folder("pictures") + "/gone/a.bmp")});
    Choose(frmMain->mnuFileSaveAs);
    EXPECT_EQ(image.AFCurfile, "");
    EXPECT_FALSE(image.alreadysaved);
    EXPECT_TRUE(NamesIn(Folder("pictures")).empty());
}

TEST_F(SaveFailureTest, AFullDiskBesideTheProgramLeavesTheOldJpeg) {
    SavePicture(Solid(16, 16, kWhite), File("t.bmp"));
    ASSERT_TRUE(BmpToJpeg(File("t.bmp"), File("a.jpg"), 90));
    frmImage& image = OpenPicture("u.bmp", Solid(16, 16, kBlack));
    image.AFCurfile = File("a.jpg");
    SettleStates();
    const std::string before = BytesOf(File("a.jpg"));
    // The temporary BMP cannot be made: a folder stands in its place.
    std::filesystem::create_directory(Folder("program") + "/klTmpJpg.bmp");
    Choose(frmMain->mnuFileSave);
    ExpectUntrapped(75);
    EXPECT_TRUE(BytesOf(File("a.jpg")) == before);
    EXPECT_FALSE(image.alreadysaved);
}

} // namespace pintalux
