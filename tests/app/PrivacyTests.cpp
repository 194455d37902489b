// What the program writes where others may look: for the user alone, in folders of the user's own, made new,
// and through nobody's links.
#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/Pictures.h"
#include "support/Program.h"

#include "document/Recovery.h"
#include "files/PictureFormats.h"
#include "surface/system/App.h"
#include "surface/system/FileLayer.h"
#include "surface/system/Folders.h"
#include "surface/system/Pictures.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pintalux {
namespace {

class PrivacyTest : public ProgramTest {
  protected:
    void SetUp() override {
        ProgramTest::SetUp();
        umaskBefore_ = ::umask(0); // the rights are the program's own doing
        KeepsRuns = true;
        PutBytes(Victim(), "mine");
    }
    void TearDown() override {
        ProgramTest::TearDown();
        EndRun();
        ::umask(umaskBefore_);
    }
    std::string File(const std::string& name) const { return Folder("pictures") + "/" + name; }
    std::string Victim() const { return File("victim"); }
    void ExpectVictimUntouched() const {
        EXPECT_EQ(BytesOf(Victim()), "mine");
        EXPECT_FALSE(std::filesystem::is_symlink(Victim()));
    }
    std::string TemporaryBmp() const {
        return Folder("program") + "/klTmpJpg" + std::to_string(::getpid()) + ".bmp";
    }

    /// Everything below the folders that are not the user's pictures; how many files there were.
    int ExpectForTheUserAlone() const {
        int files = 0;
        for (const char* root : {"temporary", "state", "settings", "program"}) {
            for (const auto& entry : std::filesystem::recursive_directory_iterator(Folder(root))) {
                if (entry.path().filename().string().starts_with("Qt")) continue; // the toolkit's own
                struct stat info = {};
                EXPECT_EQ(::lstat(entry.path().c_str(), &info), 0);
                const bool folder = S_ISDIR(info.st_mode);
                // Settings are files that a user may open up: their folder is what keeps others out.
                const bool kept = entry.path().string().starts_with(SettingsFolder() + "/");
                if (kept) continue;
                EXPECT_EQ(info.st_mode & 0777U, folder ? 0700U : 0600U) << entry.path();
                files += folder ? 0 : 1;
            }
        }
        return files;
    }

  private:
    mode_t umaskBefore_ = 0;
};

TEST_F(PrivacyTest, WhatARunKeepsIsTheUsersAlone) {
    SavePicture(Solid(8, 6, kWhite), File("a.bmp"));
    StartWhole(File("a.bmp"));
    auto& image = static_cast<frmImage&>(*frmMain->ActiveForm());
    Edit(image, kBlack);
    Edit(image, 0x123456);
    SetSetting("Rulers", "True");
    SettleStates();
    // Three states, index and lock of the run, lock of the instance.
    EXPECT_GE(ExpectForTheUserAlone(), 6);
    for (const std::string& folder : {StateFolder(), SettingsFolder()}) {
        struct stat info = {};
        ASSERT_EQ(::stat(folder.c_str(), &info), 0);
        EXPECT_EQ(info.st_mode & 0777U, 0700U) << folder;
    }
    image.alreadysaved = true;
}

TEST_F(PrivacyTest, AHandOffIsTheUsersAloneAndReplacesALink) {
    SavePicture(Solid(4, 4, kBlack), File("a.bmp"));
    const int lock = ::open((Folder("program") + "/pintalux64.lock").c_str(), O_RDWR | O_CREAT, 0600);
    ASSERT_EQ(::flock(lock, LOCK_EX | LOCK_NB), 0); // an instance that runs
    std::filesystem::create_symlink(Victim(), HandOffFile());
    App.CommandForTests(File("a.bmp"));
    *frmMain;
    EXPECT_TRUE(frmMain->HandedOver());
    ExpectVictimUntouched();
    EXPECT_FALSE(std::filesystem::is_symlink(HandOffFile()));
    EXPECT_EQ(BytesOf(HandOffFile()), File("a.bmp") + "\n");
    ExpectForTheUserAlone();
    ::close(lock);
}

TEST_F(PrivacyTest, TheSampleOfAJpegGoesThroughNoLink) {
    std::filesystem::create_symlink(Victim(), TemporaryBmp());
    WritableFormat("jpg")->write(Solid(8, 6, kWhite), File("a.jpg"), 80);
    ExpectVictimUntouched();
    EXPECT_TRUE(std::filesystem::exists(File("a.jpg")));
    EXPECT_FALSE(std::filesystem::exists(TemporaryBmp()));
}

// The sample is looked at while the disk refuses its deletion, the last operation of all.
TEST_F(PrivacyTest, TheSampleOfAJpegIsTheUsersAlone) {
    const auto write = [&] { WritableFormat("jpg")->write(Solid(8, 6, kWhite), File("a.jpg"), 80); };
    write();
    FailFileOperation(0, 0);
    write();
    FailFileOperation(FileOperationCount(), EIO);
    write();
    FailFileOperation(0, 0);
    ASSERT_TRUE(std::filesystem::exists(TemporaryBmp()));
    EXPECT_GE(ExpectForTheUserAlone(), 1);
}

TEST_F(PrivacyTest, AStateWhoseFileBecameALinkIsNotWrittenThroughIt) {
    Start();
    frmImage& image = NewDocument(8, 6);
    SettleStates();
    const std::string state = image.ListBackup.List(0);
    std::filesystem::remove(state);
    std::filesystem::create_symlink(Victim(), state);
    EXPECT_THROW(WriteWholeFile(state, "x", true), RuntimeError);
    ExpectVictimUntouched();
    std::filesystem::remove(state);
}

} // namespace
} // namespace pintalux
