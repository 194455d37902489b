#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/Pictures.h"
#include "support/Program.h"

#include "document/FileCommands.h"
#include "document/Globals.h"
#include "settings/frmPrefs.h"
#include "surface/system/Pictures.h"

#include <filesystem>
#include <QWidget>

namespace pintalux {

namespace {

class CloseTest : public ProgramTest {
  protected:
    void SetUp() override {
        ProgramTest::SetUp();
        Start();
    }
    std::string File(const std::string& name) const { return Folder("pictures") + "/" + name; }
    static bool CloseQuietly(frmImage& image) {
        const DialogScript nothingIsAsked;
        return image.Unload();
    }
};

const char* const kQuestion = "Pretende Salvar as alterações para ";

} // namespace

TEST_F(CloseTest, ANewDocumentClosesWithoutAWord) {
    frmImage& image = NewDocument(10, 10);
    EXPECT_EQ(EntriesOf(image.ListBUorder), std::vector<std::string>{"0"});
    EXPECT_TRUE(CloseQuietly(image));
    EXPECT_EQ(ImageCount, 0);
}

TEST_F(CloseTest, AnEditedDocumentIsAskedFor) {
    frmImage& image = NewDocument(10, 10);
    Edit(image, kBlack);
    const DialogScript script({PressesButton("Não")});
    EXPECT_TRUE(image.Unload());
    EXPECT_EQ(script.Dialog(0),
              Message("question", "Pretende Salvar as alterações para Imagem 1 ?", "Sim|Não|Cancelar"));
    EXPECT_EQ(ImageCount, 0);
}

TEST_F(CloseTest, CancelKeepsTheDocument) {
    frmImage& image = NewDocument(10, 10);
    Edit(image, kBlack);
    const DialogScript script({PressesButton("Cancelar")});
    EXPECT_FALSE(image.Unload());
    EXPECT_EQ(ImageCount, 1);
    EXPECT_FALSE(CloseCancelled);
    SettleStates();
    EXPECT_EQ(StateFileNames().size(), 2U);
    EXPECT_EQ(frmMain->ActiveForm(), &image);
}

TEST_F(CloseTest, YesSavesFirst) {
    frmImage& image = OpenPicture("a.bmp", Solid(10, 10, kWhite));
    Edit(image, kBlack);
    const DialogScript script({PressesButton("Sim")});
    EXPECT_TRUE(image.Unload());
    EXPECT_NE(script.Dialog(0).text.find(std::string(kQuestion) + "a.bmp ?"), std::string::npos);
    ExpectSamePixels(LoadPicture(File("a.bmp")), Solid(10, 10, kBlack));
}

TEST_F(CloseTest, YesSavesTheDocumentThatIsAskedAbout) {
    frmImage& first = OpenPicture("a.bmp", Solid(12, 10, kWhite));
    frmImage& second = OpenPicture("b.bmp", Solid(9, 14, kWhite));
    Edit(first, 0x0000FF);
    Edit(second, 0x00FF00);
    ASSERT_EQ(frmMain->ActiveForm(), &second);
    std::vector<std::string> activeWhenAsked;
    const auto yes = [&](QWidget& dialog) {
        activeWhenAsked.push_back(frmMain->ActiveForm()->Caption());
        PressButton(dialog, "Sim");
    };
    const DialogScript script({yes, yes});
    EXPECT_TRUE(frmMain.Unload());
    EXPECT_EQ(activeWhenAsked, (std::vector<std::string>{"a.bmp", "b.bmp"}));
    ExpectSamePixels(LoadPicture(File("a.bmp")), Solid(12, 10, 0x0000FF));
    ExpectSamePixels(LoadPicture(File("b.bmp")), Solid(9, 14, 0x00FF00));
}

TEST_F(CloseTest, EachAnswerCountsForTheDocumentThatIsAskedAbout) {
    frmImage& first = OpenPicture("a.bmp", Solid(12, 10, kWhite));
    frmImage& second = OpenPicture("b.bmp", Solid(9, 14, kWhite));
    frmImage& third = OpenPicture("c.bmp", Solid(7, 8, kWhite));
    for (frmImage* image : {&first, &second, &third})
        Edit(*image, 0x0000FF);
    {
        const DialogScript script({PressesButton("Não"), PressesButton("Sim"), PressesButton("Cancelar")});
        EXPECT_FALSE(frmMain.Unload());
    }
    EXPECT_EQ(ImageCount, 3);
    ExpectSamePixels(LoadPicture(File("a.bmp")), Solid(12, 10, kWhite));
    ExpectSamePixels(LoadPicture(File("b.bmp")), Solid(9, 14, 0x0000FF));
    ExpectSamePixels(LoadPicture(File("c.bmp")), Solid(7, 8, kWhite));
    EXPECT_EQ(CornerOf(first), 0x0000FF);
    const DialogScript script({PressesButton("Sim"), PressesButton("Não")});
    EXPECT_TRUE(frmMain.Unload());
    ExpectSamePixels(LoadPicture(File("a.bmp")), Solid(12, 10, 0x0000FF));
    ExpectSamePixels(LoadPicture(File("c.bmp")), Solid(7, 8, kWhite));
}

TEST_F(CloseTest, YesSavesAMinimisedDocumentToo) {
    frmImage& first = OpenPicture("a.bmp", Solid(12, 10, kWhite));
    frmImage& second = OpenPicture("b.bmp", Solid(9, 14, kWhite));
    Edit(first, 0x0000FF);
    Edit(second, 0x00FF00);
    first.WindowState(kMinimised);
    second.WindowState(kMinimised);
    const DialogScript script({PressesButton("Sim"), PressesButton("Sim")});
    EXPECT_TRUE(frmMain.Unload());
    ExpectSamePixels(LoadPicture(File("a.bmp")), Solid(12, 10, 0x0000FF));
    ExpectSamePixels(LoadPicture(File("b.bmp")), Solid(9, 14, 0x00FF00));
}

TEST_F(CloseTest, ADocumentThatOpensWhileTheQuestionStandsIsNotTheOneSaved) {
    frmImage& image = OpenPicture("a.bmp", Solid(12, 10, kWhite));
    Edit(image, 0x0000FF);
    SavePicture(Solid(9, 14, kBlack), File("b.bmp"));
    const DialogScript script({[&](QWidget& dialog) {
        PutBytes(HandOffFile(), File("b.bmp") + "\n");
        EXPECT_TRUE(WaitFor([] { return frmMain->ActiveForm()->Caption() == "b.bmp"; }));
        PressButton(dialog, "Sim");
    }});
    EXPECT_TRUE(image.Unload());
    ExpectSamePixels(LoadPicture(File("a.bmp")), Solid(12, 10, 0x0000FF));
    ExpectSamePixels(LoadPicture(File("b.bmp")), Solid(9, 14, kBlack));
    EXPECT_EQ(frmMain->ActiveForm()->Caption(), "b.bmp");
}

TEST_F(CloseTest, ASaveCancelledAfterYesClosesUnsaved) {
    frmImage& image = NewDocument(10, 10);
    Edit(image, kBlack);
    const DialogScript script({PressesButton("Sim"), PressesButton("Cancelar")});
    EXPECT_TRUE(image.Unload());
    EXPECT_EQ(script.Dialog(1).title, "Savar Como");
    EXPECT_EQ(ImageCount, 0);
    EXPECT_TRUE(NamesIn(Folder("pictures")).empty());
}

TEST_F(CloseTest, AfterASaveNothingIsAskedAndTheMarkGoes) {
    frmImage& image = OpenPicture("a.bmp", Solid(10, 10, kWhite));
    Edit(image, kBlack);
    Choose(frmMain->mnuFileSave);
    ASSERT_TRUE(image.alreadysaved);
    // Another document stops the exit; this one was asked before and has lost its mark.
    frmImage& other = NewDocument(10, 10);
    Edit(other, kBlack);
    {
        const DialogScript script({PressesButton("Cancelar")});
        EXPECT_FALSE(frmMain.Unload());
    }
    EXPECT_FALSE(image.alreadysaved);
    const DialogScript script({PressesButton("Não")});
    EXPECT_TRUE(image.Unload());
}

TEST_F(CloseTest, ASavedDocumentClosesWithoutAWord) {
    frmImage& image = OpenPicture("a.bmp", Solid(10, 10, kWhite));
    Edit(image, kBlack);
    Choose(frmMain->mnuFileSave);
    EXPECT_TRUE(CloseQuietly(image));
}

TEST_F(CloseTest, BackAtItsFirstStateNothingIsAsked) {
    frmImage& image = NewDocument(10, 10);
    Edit(image, kBlack);
    Choose(frmMain->mnuEditUndo);
    EXPECT_TRUE(CloseQuietly(image));
}

TEST_F(CloseTest, AfterTheLimitDroppedTheFirstStateTheOldestIsAskedForToo) {
    SetSetting("Undoredo", "0");
    frmImage& image = NewDocument(4, 4);
    for (int i = 1; i <= 6; ++i)
        Edit(image, i);
    for (int i = 0; i < 5; ++i)
        Choose(frmMain->mnuEditUndo);
    ASSERT_EQ(image.ListBUorder.ListIndex(), 0);
    ASSERT_EQ(image.ListBUorder.List(0), "1");
    const DialogScript script({PressesButton("Não")});
    EXPECT_TRUE(image.Unload());
    EXPECT_EQ(script.Count(), 1U);
}

TEST_F(CloseTest, WhoDoesNotWantToBeAskedIsNotButTheStateFilesGo) {
    frmPrefs->Check4.Value(1);
    frmImage& image = NewDocument(10, 10);
    Edit(image, kBlack);
    EXPECT_TRUE(CloseQuietly(image));
    EXPECT_EQ(ImageCount, 0);
    EXPECT_TRUE(StateFileNames().empty());
}

TEST_F(CloseTest, EveryStateFileOfTheDocumentGoes) {
    frmImage& first = NewDocument(10, 10);
    for (int i = 0; i < 4; ++i)
        Edit(first, i);
    frmImage& second = NewDocument(10, 10);
    SettleStates();
    ASSERT_EQ(StateFileNames().size(), 6U);
    std::filesystem::remove(first.ListBackup.List(1));
    Choose(frmMain->mnuEditUndo);
    frmPrefs->Check4.Value(1);
    EXPECT_TRUE(CloseQuietly(first));
    EXPECT_EQ(StateFileNames(), std::vector<std::string>{second.ListBackup.List(0)});
}

TEST_F(CloseTest, AStateFileThatIsDeletedBeforeItWasWrittenDoesNotComeBack) {
    frmImage& image = NewDocument(1500, 1500);
    for (int i = 0; i < 4; ++i)
        Edit(image, i);
    frmPrefs->Check4.Value(1);
    EXPECT_TRUE(CloseQuietly(image));
    SettleStates();
    EXPECT_TRUE(StateFileNames().empty());
}

TEST_F(CloseTest, TheMenuClosesTheActiveDocument) {
    NewDocument(10, 10);
    const frmImage& second = NewDocument(10, 10);
    ASSERT_EQ(frmMain->ActiveForm(), &second);
    const DialogScript nothingIsAsked;
    Choose(frmMain->mnuFileClose);
    EXPECT_EQ(ImageCount, 1);
    ASSERT_NE(frmMain->ActiveForm(), nullptr);
    EXPECT_EQ(frmMain->ActiveForm()->Caption(), "Imagem 1");
}

TEST_F(CloseTest, AnAmpersandInTheNameIsShownAsItIs) {
    frmImage& image = OpenPicture("sol & mar.bmp", Solid(5, 5, kWhite));
    Edit(image, kBlack);
    const DialogScript script({PressesButton("Não")});
    EXPECT_TRUE(image.Unload());
    EXPECT_NE(script.Dialog(0).text.find(std::string(kQuestion) + "sol & mar.bmp ?"), std::string::npos);
}

} // namespace pintalux
