#include "app/StopMessage.h"

#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/Pictures.h"
#include "support/Program.h"

#include "document/FileCommands.h"
#include "surface/system/FileLayer.h"
#include "surface/system/Pictures.h"
#include "surface/window/Events.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>

namespace pintalux {

namespace {

class StopMessageTest : public ProgramTest {
  protected:
    void SetUp() override {
        ProgramTest::SetUp();
        Start();
        frmMain->Timer1.Enabled(false);
        before_ = std::exchange(EndProcess, [this](int code) { codes.push_back(code); });
    }
    void TearDown() override {
        EndProcess = before_;
        FailFileOperation(0, 0);
        ProgramTest::TearDown();
    }
    // Stops the program and gives the message.
    DialogScript::Seen Stop(int number) {
        const DialogScript script({PressesButton("OK")});
        StopProgram(RuntimeError(number));
        return script.Dialog(0);
    }
    static bool Names(const DialogScript::Seen& message, const std::string& path) {
        return message.text.find(path) != std::string::npos;
    }

    std::vector<int> codes;

  private:
    std::function<void(int)> before_;
};

} // namespace

TEST_F(StopMessageTest, NumberAndTextAreTold) {
    const DialogScript::Seen message = Stop(kOverflow);
    EXPECT_EQ(message.title, "Pintalux64");
    EXPECT_NE(message.text.find("Erro de execução '6':"), std::string::npos) << message.text;
    EXPECT_NE(message.text.find("Excesso de capacidade"), std::string::npos);
    EXPECT_EQ(codes, std::vector<int>{1});
}

TEST_F(StopMessageTest, WithoutADocumentNoPathIsNamed) {
    EXPECT_EQ(Stop(kOverflow).text.find("guardadas em"), std::string::npos);
}

TEST_F(StopMessageTest, TheStateOfEveryDocumentIsNamedAndWhole) {
    frmImage& first = NewDocument(30, 20);
    Edit(first, 0x0000FF);
    frmImage& second = NewDocument(10, 10);
    Edit(second, 0x00FF00);
    Choose(frmMain->mnuEditUndo);
    const DialogScript::Seen message = Stop(kOverflow);
    EXPECT_TRUE(Names(message, first.ListBackup.List(1)));
    EXPECT_TRUE(Names(message, second.ListBackup.List(0)));
    ExpectSamePixels(LoadPicture(first.ListBackup.List(1)), Solid(30, 20, 0x0000FF));
    ExpectSamePixels(LoadPicture(second.ListBackup.List(0)), Solid(10, 10, kWhite));
    EXPECT_EQ(StateFileNames().size(), 4U);
}

TEST_F(StopMessageTest, AnUnfinishedStrokeIsRescuedToo) {
    frmImage& image = NewDocument(30, 20);
    image.PicMerge.PSet(5, 5, kBlack);
    const std::vector<std::string> paths = RescueDocuments();
    ASSERT_EQ(paths.size(), 1U);
    EXPECT_NE(paths[0], image.ListBackup.List(0));
    ExpectSamePixels(LoadPicture(paths[0]), ImageOf(image));
}

TEST_F(StopMessageTest, ALostStateFileIsReplacedByARescueFile) {
    const frmImage& image = NewDocument(30, 20, 0x123456);
    SettleStates();
    std::filesystem::remove(image.ListBackup.List(0));
    const std::vector<std::string> paths = RescueDocuments();
    ASSERT_EQ(paths.size(), 1U);
    ExpectSamePixels(LoadPicture(paths[0]), Solid(30, 20, 0x123456));
}

TEST_F(StopMessageTest, WithoutATemporaryFolderTheRescueGoesBesideTheProgram) {
    const frmImage& image = NewDocument(30, 20);
    SettleStates();
    std::filesystem::remove_all(Folder("temporary"));
    const DialogScript::Seen message = Stop(kDiskFull);
    const auto names = NamesIn(Folder("program"));
    const auto rescued =
        std::find_if(names.begin(), names.end(), [](const auto& name) { return name.starts_with("BI"); });
    ASSERT_NE(rescued, names.end());
    EXPECT_TRUE(Names(message, Folder("program") + "/" + *rescued));
    ExpectSamePixels(LoadPicture(Folder("program") + "/" + *rescued), ImageOf(image));
}

TEST_F(StopMessageTest, AStateThatWasOnlyInMemoryIsRescued) {
    frmImage& image = NewDocument(700, 700);
    {
        const FullDisk full(1 << 20);
        Edit(image, 0x00FF00);
        SettleStates();
    }
    const std::vector<std::string> paths = RescueDocuments();
    ASSERT_EQ(paths.size(), 1U);
    ExpectSamePixels(LoadPicture(paths[0]), Solid(700, 700, 0x00FF00));
}

TEST_F(StopMessageTest, ADocumentThatCanBeWrittenNowhereIsNotNamed) {
    frmImage& image = NewDocument(700, 700);
    Edit(image, 0x00FF00);
    SettleStates();
    std::filesystem::remove(image.ListBackup.List(1));
    const FullDisk full(1 << 20);
    EXPECT_EQ(Stop(kDiskFull).text.find("guardadas em"), std::string::npos);
    EXPECT_EQ(codes, std::vector<int>{1});
}

TEST_F(StopMessageTest, ADocumentThatWasNeverFilledIsRescuedAsItStands) {
    NewImageWindow();
    EXPECT_EQ(RescueDocuments().size(), 1U);
}

TEST_F(StopMessageTest, AFailedSaveStopsTheProgramAndLosesNothing) {
    frmImage& image = OpenPicture("a.bmp", Solid(30, 20, kWhite));
    Edit(image, kBlack);
    SettleStates();
    const auto before = std::exchange(OnUntrappedError, StopProgram);
    const DialogScript script({PressesButton("OK")});
    FailFileOperation(3, ENOSPC);
    Choose(frmMain->mnuFileSave);
    OnUntrappedError = before;
    EXPECT_NE(script.Dialog(0).text.find("Erro de execução '61':"), std::string::npos)
        << script.Dialog(0).text;
    EXPECT_TRUE(Names(script.Dialog(0), image.ListBackup.List(1)));
    ExpectSamePixels(LoadPicture(image.ListBackup.List(1)), Solid(30, 20, kBlack));
    ExpectSamePixels(LoadPicture(Folder("pictures") + "/a.bmp"), Solid(30, 20, kWhite));
    EXPECT_EQ(codes, std::vector<int>{1});
}

TEST_F(StopMessageTest, TheLockOfTheScreenDoesNotHideTheMessage) {
    LockWindowUpdate(frmMain->hWnd());
    Stop(kOverflow);
    EXPECT_FALSE(ScreenLocked());
}

} // namespace pintalux
