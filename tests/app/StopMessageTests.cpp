#include "app/StopMessage.h"

#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/Pictures.h"
#include "support/Program.h"

#include "document/FileCommands.h"
#include "document/Globals.h"
#include "surface/system/Clipboard.h"
#include "surface/system/FileLayer.h"
#include "surface/system/Pictures.h"
#include "surface/system/TempNames.h"
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
        EndProcess = [this](int code) { codes.push_back(code); };
        StopClock = [this] { return now; };
    }
    void TearDown() override {
        FailFileOperation(0, 0);
        ProgramTest::TearDown();
    }
    // Stops the program, presses a button and gives the message.
    DialogScript::Seen Stop(int number, const std::string& button = "Terminar") {
        const DialogScript script({PressesButton(button)});
        StopProgram(RuntimeError(number));
        return script.Dialog(0);
    }
    static bool Names(const DialogScript::Seen& message, const std::string& path) {
        return message.text.find(path) != std::string::npos;
    }

    // What a handler that fails shows.
    static DialogScript::Seen Fail(const std::function<void()>& handler) {
        const auto before = std::exchange(OnUntrappedError, StopProgram);
        const DialogScript script({PressesButton("Continuar")});
        RunEvent(EventKind::Ordinary, handler);
        OnUntrappedError = before;
        return script.Dialog(0);
    }

    std::vector<int> codes;
    // An hour on from one test to the next: none finds what another one was told.
    std::chrono::steady_clock::time_point now = [] {
        static std::chrono::steady_clock::time_point hour;
        return hour += std::chrono::hours(1);
    }();

  private:
};

} // namespace

TEST_F(StopMessageTest, NumberAndTextAreTold) {
    EXPECT_EQ(Stop(kOverflow),
              (DialogScript::Seen{"critical", "Pintalux64",
                                  "Erro de execução '6':\n\nExcesso de capacidade (overflow)",
                                  "Terminar|Continuar"}));
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

TEST_F(StopMessageTest, APieceThatFloatsIsRescuedWhereItLies) {
    frmImage& image = NewDocument(60, 40);
    Edit(image, kBlack);
    Choose(frmMain->mnuZoomInX(1));
    Clipboard.SetData(Solid(8, 6, 0x0000FF));
    for (const bool shape : {false, true}) {
        FreeSelActive = shape;
        Choose(frmMain->mnuEditPaste);
        Surface& piece = shape ? image.PicFreeSelect : image.PicSelect;
        ASSERT_TRUE(piece.Visible());
        piece.Move(108, 20, 16, 12);
        const std::string text = Stop(kOverflow).text;
        Picture expected = Solid(60, 40, kBlack);
        for (int y = 10; y < 16; ++y)
            for (int x = 54; x < 60; ++x)
                expected.Set(x, y, 0x0000FF);
        ExpectSamePixels(LoadPicture(text.substr(text.rfind('\n') + 1)), expected);
        EXPECT_TRUE(piece.Visible()) << "it floats on where the user goes on";
        EXPECT_EQ(image.ListBUorder.ListCount(), 2);
        Choose(frmMain->mnuEditSelectNone);
    }
    FreeSelActive = false;
    Clipboard.Clear();
}

TEST_F(StopMessageTest, APathInTheMiddleOfItsDragIsRescuedWithoutItsDashes) {
    frmImage& image = OpenPicture("a.bmp", Solid(60, 40, kWhite));
    SettleStates();
    CurrentTool = 14;
    Press(image, 10, 10);
    MoveTo(image, 50, 30);
    EXPECT_TRUE(Names(Stop(kOverflow), image.ListBackup.List(0)));
    Release(image, 50, 30);
}

TEST_F(StopMessageTest, AnUnfinishedStrokeIsRescuedToo) {
    frmImage& image = NewDocument(30, 20);
    image.PicMerge.PSet(5, 5, kBlack);
    const std::vector<RescuedImage> rescued = RescueDocuments();
    ASSERT_EQ(rescued.size(), 1U);
    EXPECT_NE(rescued[0].path, image.ListBackup.List(0));
    EXPECT_TRUE(rescued[0].madeNow);
    ExpectSamePixels(LoadPicture(rescued[0].path), ImageOf(image));
}

TEST_F(StopMessageTest, ALostStateFileIsReplacedByARescueFile) {
    const frmImage& image = NewDocument(30, 20, 0x123456);
    SettleStates();
    std::filesystem::remove(image.ListBackup.List(0));
    const std::vector<RescuedImage> rescued = RescueDocuments();
    ASSERT_EQ(rescued.size(), 1U);
    ExpectSamePixels(LoadPicture(rescued[0].path), Solid(30, 20, 0x123456));
}

TEST_F(StopMessageTest, WithoutATemporaryFolderTheRescueGoesBesideTheProgram) {
    const frmImage& image = NewDocument(30, 20);
    SettleStates();
    std::filesystem::remove_all(Folder("temporary"));
    TempFoldersForTests(false);
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
    const std::vector<RescuedImage> rescued = RescueDocuments();
    ASSERT_EQ(rescued.size(), 1U);
    ExpectSamePixels(LoadPicture(rescued[0].path), Solid(700, 700, 0x00FF00));
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

// Behind a fresh edit the writer has not yet come to its file.
TEST_F(StopMessageTest, AnEditThatIsNotYetWrittenIsRescuedWhole) {
    frmImage& image = NewDocument(1500, 1100);
    for (int i = 1; i <= 3; ++i)
        Edit(image, i);
    const std::vector<RescuedImage> rescued = RescueDocuments();
    ASSERT_EQ(rescued.size(), 1U);
    EXPECT_EQ(rescued[0].path, image.ListBackup.List(3));
    EXPECT_FALSE(rescued[0].madeNow);
    ExpectSamePixels(LoadPicture(rescued[0].path), Solid(1500, 1100, 3));
}

TEST_F(StopMessageTest, ContinuarLeavesTheHandlerAndGoesOn) {
    frmImage& image = NewDocument(30, 20);
    Edit(image, 0x0000FF);
    image.PicMerge.PSet(5, 5, kBlack);
    bool wentOnInside = false;
    const DialogScript::Seen message = Fail([&] {
        image.PicMerge.DrawWidth(0);
        wentOnInside = true;
    });
    EXPECT_TRUE(message.text.starts_with("Erro de execução '380':")) << message.text;
    EXPECT_FALSE(wentOnInside);
    EXPECT_TRUE(codes.empty());
    SettleStates();
    EXPECT_EQ(StateFileNames().size(), 2U); // the rescue file has gone
    Choose(frmMain->mnuEditUndo);
    EXPECT_EQ(CornerOf(image), kWhite);
}

TEST_F(StopMessageTest, ContinuarKeepsTheStatesThatTheMessageNamed) {
    frmImage& image = NewDocument(30, 20);
    Edit(image, 0x0000FF);
    SettleStates();
    const std::vector<std::string> states = StateFileNames();
    ASSERT_EQ(states.size(), 2U);
    EXPECT_TRUE(Names(Fail([] { throw RuntimeError(kOverflow); }), image.ListBackup.List(1)));
    EXPECT_EQ(StateFileNames(), states);
    ExpectSamePixels(LoadPicture(image.ListBackup.List(1)), Solid(30, 20, 0x0000FF));
}

TEST_F(StopMessageTest, ContinuarIsTheDefault) {
    const DialogScript script({[](QWidget& dialog) { Type(dialog, "\n"); }, PressesEscape()});
    StopProgram(RuntimeError(kOverflow));
    now += std::chrono::minutes(1);
    StopProgram(RuntimeError(kOverflow));
    EXPECT_TRUE(codes.empty());
}

TEST_F(StopMessageTest, TheSameErrorOfAHandlerIsToldOnceAMinute) {
    const auto poll = [] { throw RuntimeError(kDeviceError); };
    Fail(poll);
    now += std::chrono::seconds(59);
    const auto silent = [&](const std::function<void()>& handler) {
        const auto before = std::exchange(OnUntrappedError, StopProgram);
        const DialogScript nothingIsSaid;
        RunEvent(EventKind::Ordinary, handler);
        PassEvents();
        OnUntrappedError = before;
    };
    silent(poll);
    Fail([] { throw RuntimeError(kDeviceError); }); // another handler
    now += std::chrono::seconds(1);
    Fail(poll);
    silent(poll);
    EXPECT_TRUE(codes.empty());
}

TEST_F(StopMessageTest, AnErrorWhileTheMessageShowsAddsNothing) {
    const DialogScript script({[](QWidget& dialog) {
        StopProgram(RuntimeError(kDeviceError));
        EndWithMessage("Erro Nº: 57\n Erro", "Erro");
        PressButton(dialog, "Continuar");
    }});
    StopProgram(RuntimeError(kOverflow));
    EXPECT_EQ(script.Count(), 1U);
    EXPECT_TRUE(codes.empty());
}

TEST_F(StopMessageTest, AtTheStartAndAtTheEndThereIsTerminarAlone) {
    const auto buttons = [this] { return Stop(kOverflow).buttons; };
    EXPECT_EQ(buttons(), "Terminar|Continuar");
    frmMain->Hide();
    EXPECT_EQ(buttons(), "Terminar");
    frmMain->Show();
    frmMainForm::Closing = true;
    EXPECT_EQ(buttons(), "Terminar");
    EXPECT_EQ(codes, (std::vector<int>{1, 1, 1}));
}

TEST_F(StopMessageTest, TheEndAtOnceRescuesFirstAndNamesTheFiles) {
    frmImage& image = NewDocument(30, 20);
    Edit(image, 0x00FF00);
    const DialogScript script({PressesButton("OK")});
    EndWithMessage("Erro Nº: 57\n Erro", "Erro");
    EXPECT_EQ(script.Dialog(0),
              (DialogScript::Seen{"none", "Erro",
                                  "Erro Nº: 57\n Erro\n\nAs imagens abertas ficam guardadas em:\n" +
                                      image.ListBackup.List(1),
                                  "OK"}));
    ExpectSamePixels(LoadPicture(image.ListBackup.List(1)), Solid(30, 20, 0x00FF00));
    EXPECT_EQ(codes, std::vector<int>{1});
}

TEST_F(StopMessageTest, TheLockOfTheScreenDoesNotHideTheMessage) {
    LockWindowUpdate(frmMain->hWnd());
    Stop(kOverflow);
    EXPECT_FALSE(ScreenLocked());
}

} // namespace pintalux
