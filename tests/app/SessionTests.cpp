// A log-out of the desktop: its questions, and what is kept without them.
#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/Pictures.h"
#include "support/Program.h"

#include "app/StopMessage.h"
#include "document/Globals.h"
#include "document/Recovery.h"
#include "document/States.h"
#include "files/RunIndex.h"
#include "surface/system/Pictures.h"
#include "surface/window/Waiting.h"

#include <atomic>
#include <QTimer>

namespace pintalux {

namespace {

class SessionTest : public ProgramTest {
  protected:
    void SetUp() override {
        ProgramTest::SetUp();
        EndProcess = [this](int code) { ended = code; };
        KeepsRuns = true;
        Start();
    }
    void TearDown() override {
        ProgramTest::TearDown();
        EndRun();
    }
    std::string File(const std::string& name) const { return Folder("pictures") + "/" + name; }
    frmImage& Changed(const std::string& name) {
        frmImage& image = OpenPicture(name, Solid(8, 6, kWhite));
        Edit(image, kBlack);
        return image;
    }
    /// What the next start would find.
    static std::vector<RunDocument> Left() {
        States().Settle();
        return ReadIndexFile(RunIndices().at(0)).value();
    }
    std::optional<int> ended;
};

} // namespace

TEST_F(SessionTest, ALogOutAsksAboutEachChangedDocumentAndClosesNone) {
    Changed("a.bmp");
    Changed("b.bmp");
    OpenPicture("c.bmp", Solid(4, 4, kWhite));
    const DialogScript script({PressesButton("Sim"), PressesButton("Não")});
    EXPECT_TRUE(frmMain->LogOut(true));
    EXPECT_EQ(script.Dialog(0).text, "Pretende Salvar as alterações para a.bmp ?");
    EXPECT_EQ(script.Dialog(1).text, "Pretende Salvar as alterações para b.bmp ?");
    ExpectSamePixels(LoadPicture(File("a.bmp")), Solid(8, 6, kBlack));
    ExpectSamePixels(LoadPicture(File("b.bmp")), Solid(8, 6, kWhite));
    EXPECT_EQ(ImageCount, 3);
}

TEST_F(SessionTest, CancelCallsTheLogOutOff) {
    Changed("a.bmp");
    const DialogScript script({PressesButton("Cancelar")});
    EXPECT_FALSE(frmMain->LogOut(true));
    EXPECT_EQ(ImageCount, 1);
}

TEST_F(SessionTest, WhatWasAnsweredEndsWithoutAQuestionAndLeavesNothing) {
    Changed("a.bmp");
    {
        const DialogScript script({PressesButton("Não")});
        ASSERT_TRUE(frmMain->LogOut(true));
    }
    const DialogScript nothingIsAsked;
    frmMain->EndWithSession();
    EXPECT_FALSE(frmMain.Loaded());
    EXPECT_TRUE(StateFileNames().empty());
    EXPECT_FALSE(ended);
}

TEST_F(SessionTest, WhatChangedAfterTheAnswersIsKept) {
    frmImage& image = Changed("a.bmp");
    {
        const DialogScript script({PressesButton("Não")});
        ASSERT_TRUE(frmMain->LogOut(true));
    }
    Edit(image, 0x123456);
    const DialogScript nothingIsAsked;
    frmMain->EndWithSession();
    EXPECT_EQ(ended, 0);
    ASSERT_EQ(Left().size(), 1U);
    ExpectSamePixels(LoadPicture(Left()[0].states.at(2)), Solid(8, 6, 0x123456));
}

TEST_F(SessionTest, AnAnswerCountsForItsOwnLogOutAlone) {
    Changed("a.bmp");
    const DialogScript script({PressesButton("Não"), PressesButton("Cancelar")});
    ASSERT_TRUE(frmMain->LogOut(true));
    ASSERT_FALSE(frmMain->LogOut(true));
    frmMain->EndWithSession();
    EXPECT_EQ(ended, 0);
    ASSERT_EQ(Left().size(), 1U) << "nobody gave it up the second time";
    ExpectSamePixels(LoadPicture(Left()[0].states.at(1)), Solid(8, 6, kBlack));
}

TEST_F(SessionTest, WhatFloatsSinceTheAnswersIsRecordedBeforeTheEnd) {
    frmImage& image = Changed("a.bmp");
    {
        const DialogScript script({PressesButton("Não")});
        ASSERT_TRUE(frmMain->LogOut(true));
    }
    Edit(image, 0x123456);
    image.lbltext.Caption(" texto");
    image.lbltext.FontSize(20);
    image.lbltext.Visible(true);
    EndProcess = [this](int code) {
        ended = code;
        EXPECT_EQ(ReadIndexFile(RunIndices().at(0)).value().at(0).states.size(), 4U);
    };
    frmMain->EndWithSession();
    EXPECT_EQ(ended, 0);
    EXPECT_FALSE(image.lbltext.Visible());
}

// What stands behind the window goes on when its handler returns: it must find its documents.
TEST_F(SessionTest, InTheMiddleOfADialogOrAWaitTheProgramEndsWithoutClosingAnything) {
    Changed("a.bmp");
    const DialogScript script({PressesButton("Não"), [this](QWidget& dialog) {
                                   frmMain->EndWithSession();
                                   EXPECT_EQ(ended, 0);
                                   EXPECT_EQ(ImageCount, 1);
                                   PressesEscape()(dialog);
                               }});
    ASSERT_TRUE(frmMain->LogOut(true));
    Choose(frmMain->mnuFileNew);
    ended.reset();
    std::atomic<bool> over{false};
    QTimer waits;
    QObject::connect(&waits, &QTimer::timeout, [&] {
        if (!Waiting()) return;
        waits.stop();
        frmMain->EndWithSession();
        over = true;
    });
    waits.start(5);
    WorkWhileWaiting(
        [&over](const std::stop_token&) { EXPECT_TRUE(WaitFor([&over] { return over.load(); })); });
    EXPECT_EQ(ended, 0);
    EXPECT_EQ(ImageCount, 1);
}

TEST_F(SessionTest, ALogOutThatWasCalledOffAsksAgainAtTheClose) {
    Changed("a.bmp");
    {
        const DialogScript script({PressesButton("Não")});
        ASSERT_TRUE(frmMain->LogOut(true));
    }
    const DialogScript script({PressesButton("Não")});
    EXPECT_TRUE(frmMain.Unload());
    EXPECT_EQ(script.Count(), 1U);
}

TEST_F(SessionTest, WhatWasSavedStaysSavedThroughALogOut) {
    frmImage& image = Changed("a.bmp");
    Choose(frmMain->mnuFileSave);
    const DialogScript nothingIsAsked;
    EXPECT_TRUE(frmMain->LogOut(true));
    EXPECT_TRUE(image.alreadysaved);
    EXPECT_TRUE(frmMain.Unload());
}

TEST_F(SessionTest, WithoutQuestionsEveryStateIsOnTheDisk) {
    frmImage& image = Changed("a.bmp");
    image.lbltext.Caption(" texto");
    image.lbltext.FontSize(20);
    image.lbltext.Visible(true);
    const DialogScript nothingIsAsked;
    EXPECT_TRUE(frmMain->LogOut(false));
    EXPECT_FALSE(image.lbltext.Visible()) << "what floats is recorded";
    const std::vector<RunDocument> left = Left();
    ASSERT_EQ(left.size(), 1U);
    ASSERT_EQ(left[0].states.size(), 3U);
    for (const std::string& state : left[0].states)
        EXPECT_EQ(LoadPicture(state).Bounds(), (Box{0, 0, 8, 6}));
    frmMain->EndWithSession();
    EXPECT_EQ(ended, 0) << "nobody was asked, so all of it comes back";
    EXPECT_EQ(ImageCount, 1);
    image.alreadysaved = true;
}

} // namespace pintalux
