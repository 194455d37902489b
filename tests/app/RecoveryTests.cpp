// What a run that died left behind: asked about at the next start, opened with its history.
#include "document/Recovery.h"

#include "document/FileCommands.h"
#include "document/Globals.h"
#include "document/States.h"
#include "document/UndoCommands.h"
#include "support/Ages.h"
#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/Memory.h"
#include "support/Pictures.h"
#include "support/Program.h"
#include "surface/system/FileLayer.h"
#include "surface/system/Folders.h"
#include "surface/system/Pictures.h"

#include <gtest/gtest.h>

namespace pintalux {
namespace {

class RecoveryTest : public ProgramTest {
  protected:
    void SetUp() override {
        ProgramTest::SetUp();
        KeepsRuns = true;
    }
    void TearDown() override {
        ProgramTest::TearDown();
        EndRun();
    }
    std::string File(const std::string& name) const { return Folder("pictures") + "/" + name; }

    /// A state file as a run before wrote it.
    std::string State(const Picture& picture) const {
        static int number = 0;
        const std::string path = Folder("temporary") + "/BI" + std::to_string(1000 + ++number) + ".tmp";
        SavePicture(picture, path);
        return path;
    }
    /// The index of a run that died with these documents open.
    static void LeaveRun(const std::vector<RunDocument>& documents) {
        MakeFolders(StateFolder());
        PutBytes(Index(), IndexText(documents));
    }
    static std::string Index() { return StateFolder() + "/run-1-1.index"; }
    /// A start with a file on its command line, so that no New dialog asks.
    void StartAfter(const std::vector<DialogScript::Step>& answers) {
        SavePicture(Solid(4, 4, kBlack), File("first.bmp"));
        const DialogScript script(answers);
        StartWhole(File("first.bmp"));
        EXPECT_EQ(script.Count(), answers.size());
        for (std::size_t i = 0; i < script.Count(); ++i)
            asked_.push_back(script.Dialog(i));
    }
    void StartAfterRun(const std::vector<RunDocument>& documents,
                       const std::vector<DialogScript::Step>& answers) {
        LeaveRun(documents);
        StartAfter(answers);
    }
    /// What an index on disk lists.
    static std::vector<RunDocument> Listed(const std::string& index) {
        return ReadIndexFile(index).value_or(std::vector<RunDocument>{});
    }
    static std::vector<RunDocument> Noted() {
        States().Settle();
        return Listed(RunIndices().at(0));
    }
    static void RemoveStates(const RunDocument& document) {
        for (const std::string& state : document.states)
            std::filesystem::remove(state);
    }
    static void ExpectStates(const RunDocument& document, bool there) {
        for (const std::string& state : document.states)
            EXPECT_EQ(std::filesystem::exists(state), there) << state;
    }
    static frmImage& Document(int place) {
        return static_cast<frmImage&>(*TheWorkspace.window->Children()[static_cast<std::size_t>(place)]);
    }
    /// Three states, the second one current.
    RunDocument Three(const std::string& file) const {
        return {file,     "Imagem 7",
                false,    1,
                0,        {State(Solid(8, 6, kWhite)), State(Solid(8, 6, 0x11)), State(Solid(8, 6, 0x22))},
                {0, 1, 2}};
    }
    static DialogScript::Seen Question(const std::string& text) {
        return Message("question", text, "Apagar|Não|Sim");
    }
    std::vector<DialogScript::Seen> asked_; ///< At the start.
};

TEST_F(RecoveryTest, YesOpensEachChangedDocumentWithItsHistory) {
    StartAfterRun({Three(""), Three(File("gone.bmp"))}, {PressesButton("Sim")});
    ASSERT_EQ(ImageCount, 3);
    EXPECT_EQ(Document(1).Caption(), "Imagem 7");
    EXPECT_EQ(Document(2).AFCurfile, File("gone.bmp"));
    frmImage& image = Document(2);
    ExpectSamePixels(ImageOf(image), Solid(8, 6, 0x11));
    EXPECT_FALSE(image.alreadysaved);
    mnuEditRedo_Click();
    ExpectSamePixels(ImageOf(image), Solid(8, 6, 0x22));
    mnuEditUndo_Click();
    mnuEditUndo_Click();
    ExpectSamePixels(ImageOf(image), Solid(8, 6, kWhite));
    EXPECT_FALSE(std::filesystem::exists(Index()));
}

TEST_F(RecoveryTest, ADocumentThatCameBackIsAskedAboutAtItsClose) {
    RunDocument document = Three("");
    document.cursor = 0;
    document.states[0] =
        State(RandomPicture(8, 6, 3)); // a pasted picture: it has no file and no earlier state
    StartAfterRun({document}, {PressesButton("Sim")});
    ASSERT_EQ(ImageCount, 2);
    const DialogScript script({PressesButton("Cancelar")});
    EXPECT_FALSE(Document(1).Unload());
    EXPECT_EQ(script.Count(), 1U);
}

TEST_F(RecoveryTest, WhatCameBackStandsInTheIndexOfThisRun) {
    const RunDocument document = Three("");
    StartAfterRun({document}, {PressesButton("Sim")});
    EXPECT_EQ(RunIndices().size(), 1U);
    const std::vector<RunDocument> noted = Noted();
    ASSERT_EQ(noted.size(), 2U);
    EXPECT_EQ(noted[1].caption, "Imagem 7");
    EXPECT_EQ(noted[1].states,
              (std::vector<std::string>{"", document.states[0], document.states[1], document.states[2]}));
    EXPECT_EQ(noted[1].order, (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(noted[1].cursor, 1);
}

TEST_F(RecoveryTest, AWindowWithoutAnyStateIsNotListed) {
    StartAfterRun({}, {});
    NewImageWindow();
    NoteDocuments();
    EXPECT_EQ(Noted().size(), 1U);
}

TEST_F(RecoveryTest, TheIndexTellsWhatWasSeenBeforeTheLastEdit) {
    StartAfterRun({}, {});
    frmImage& image = Document(0);
    const auto before = [] { return Noted().at(0).before; };
    EXPECT_EQ(before(), -1);
    for (const int expected : {0, 1}) {
        image.Backup();
        EXPECT_EQ(before(), expected);
    }
    mnuEditUndo_Click();
    mnuEditUndo_Click();
    image.Backup();
    EXPECT_EQ(before(), 0);
}

// A kill between quick undos brings back what was shown, or what was shown one undo before.
TEST_F(RecoveryTest, TheIndexIsOneUndoBehindAtMost) {
    RunDocument document = Three("");
    for (int i = 3; i < 40; ++i) {
        document.states.push_back(State(Solid(8, 6, static_cast<Colour>(i))));
        document.order.push_back(i);
    }
    document.cursor = 39;
    StartAfterRun({document}, {PressesButton("Sim")});
    States().Settle();
    const std::string index = RunIndices().at(0);
    for (int cursor = 38; cursor >= 0; --cursor) {
        mnuEditUndo_Click();
        const std::vector<RunDocument> listed = Listed(index);
        ASSERT_EQ(listed.size(), 2U);
        EXPECT_LE(listed[1].cursor, cursor + 1);
    }
}

// Else a kill right after the undo would find neither the undo in the index nor the state that it left.
TEST_F(RecoveryTest, AnUndoLeavesNoHalfStateBehind) {
    StartAfterRun({}, {});
    frmImage& image = Document(0);
    image.PicMerge.Picture(Solid(5000, 4000, 0x11));
    image.Backup();
    image.PicMerge.Picture(Solid(5000, 4000, 0x22));
    image.Backup();
    const std::string left = image.ListBackup.List(image.ListBackup.ListCount() - 1);
    mnuEditUndo_Click();
    ExpectSamePixels(LoadPicture(left), Solid(5000, 4000, 0x22));
}

TEST_F(RecoveryTest, NoKeepsEverythingForTheNextStart) {
    const RunDocument document = Three("");
    StartAfterRun({document}, {PressesButton("Não")});
    EXPECT_EQ(ImageCount, 1);
    EXPECT_EQ(Listed(Index()), std::vector<RunDocument>{document});
    EXPECT_EQ(FindLeftDocuments().documents.size(), 1U);
}

class RecoveryQuestionTest : public RecoveryTest, public testing::WithParamInterface<int> {};

TEST_P(RecoveryQuestionTest, NamesTwelveDocuments) {
    std::vector<RunDocument> left;
    std::string names;
    for (int i = 1; i <= GetParam(); ++i) {
        left.push_back(Three(i % 2 == 0 ? "" : File(std::to_string(i) + ".bmp")));
        if (i <= 12) names += "\n" + (i % 2 == 0 ? "Imagem 7" : left.back().file);
    }
    if (GetParam() > 12) names += "\n...";
    StartAfterRun(left, {PressesButton("Não")});
    EXPECT_EQ(asked_[0], Question("O programa não terminou como devia e ficaram " +
                                  std::to_string(GetParam()) + " imagens por salvar:" + names +
                                  "\n\nDeseja abri-las? \"Não\" guarda-as para o próximo arranque."));
}

INSTANTIATE_TEST_SUITE_P(Counts, RecoveryQuestionTest, testing::Values(2, 12, 13));

TEST_F(RecoveryTest, DeletingAsksOnceMore) {
    const RunDocument document = Three("");
    StartAfterRun({document}, {PressesButton("Apagar"), PressesButton("Não")});
    EXPECT_EQ(asked_[0], Question("O programa não terminou como devia e ficou uma imagem por salvar:\n"
                                  "Imagem 7\n\nDeseja abri-la? \"Não\" guarda-a para o próximo arranque."));
    EXPECT_EQ(asked_[1],
              Message("exclamation", "Apagar de vez o que ficou por salvar? Depois não há como voltar atrás.",
                      "Apagar|Não"));
    EXPECT_TRUE(std::filesystem::exists(document.states[1]));
    EXPECT_TRUE(std::filesystem::exists(Index()));
}

TEST_F(RecoveryTest, DeletingTakesStatesAndIndex) {
    const RunDocument document = Three("");
    StartAfterRun({document}, {PressesButton("Apagar"), PressesButton("Apagar")});
    ExpectStates(document, false);
    EXPECT_FALSE(std::filesystem::exists(Index()));
}

// A name that was free again may have come to a document of this run meanwhile.
TEST_F(RecoveryTest, AnIndexDeletesNoStateOfAnOpenDocument) {
    const RunDocument document = Three("");
    StartAfterRun({document}, {[&document](QWidget& dialog) {
                                   Document(0).ListBackup.AddItem(document.states[2]);
                                   PressButton(dialog, "Apagar");
                               },
                               PressesButton("Apagar")});
    EXPECT_FALSE(std::filesystem::exists(document.states[0]));
    EXPECT_TRUE(std::filesystem::exists(document.states[2]));
}

TEST_F(RecoveryTest, AnIndexDeletesNothingButStates) {
    SavePicture(Solid(3, 3, kBlack), File("photo.bmp"));
    RunDocument document = Three("");
    document.states.push_back(File("photo.bmp"));
    StartAfterRun({document}, {PressesButton("Apagar"), PressesButton("Apagar")});
    EXPECT_TRUE(std::filesystem::exists(File("photo.bmp")));
}

TEST_F(RecoveryTest, ABrokenStateFallsBackToTheOneBefore) {
    RunDocument document = Three("");
    document.cursor = 2;
    document.before = 1;
    std::filesystem::resize_file(document.states[2], 60);
    StartAfterRun({document}, {PressesButton("Sim")});
    ExpectSamePixels(ImageOf(Document(1)), Solid(8, 6, 0x11));
    EXPECT_EQ(Document(1).ListBUorder.ListCount(), 2);
}

// It was undone to the first one and edited: what was undone lies between them in the history.
TEST_F(RecoveryTest, ABrokenStateFallsBackToWhatWasSeenBeforeIt) {
    RunDocument document = Three("");
    document.cursor = 2;
    document.before = 0;
    std::filesystem::resize_file(document.states[2], 60);
    StartAfterRun({document}, {PressesButton("Sim")});
    ASSERT_EQ(ImageCount, 2);
    ExpectSamePixels(ImageOf(Document(1)), Solid(8, 6, kWhite));
    EXPECT_EQ(Document(1).ListBUorder.ListCount(), 2);
}

TEST_F(RecoveryTest, WithNothingWholeBeforeItTheNextStateAfterItComesBack) {
    RunDocument document = Three("");
    document.cursor = 0;
    document.before = -1;
    document.states[1] = State(RandomPicture(8, 6, 3));
    std::filesystem::resize_file(document.states[0], 60);
    StartAfterRun({document}, {PressesButton("Sim")});
    ASSERT_EQ(ImageCount, 2);
    ExpectSamePixels(ImageOf(Document(1)), RandomPicture(8, 6, 3));
}

TEST_F(RecoveryTest, WhatWasSavedOrNeverChangedIsNotAskedAbout) {
    RunDocument saved = Three(File("a.bmp"));
    saved.saved = true;
    RunDocument opened = Three(File("b.bmp"));
    opened.cursor = 0;
    RunDocument blank = Three("");
    blank.cursor = 0;
    StartAfterRun({saved, opened, blank}, {});
    EXPECT_EQ(ImageCount, 1);
    EXPECT_FALSE(std::filesystem::exists(Index()));
    for (const RunDocument& document : {saved, opened, blank})
        ExpectStates(document, false);
}

// A bitmap that was pasted as a new image, say.
TEST_F(RecoveryTest, OnePixelOfAnotherColourIsWorthAQuestion) {
    std::vector<RunDocument> left;
    for (const auto& [x, y] : {std::pair{0, 0}, {7, 0}, {0, 5}, {7, 5}}) {
        Picture picture = Solid(8, 6, kWhite);
        picture.Set(x, y, 0xFFFFFE);
        left.push_back({"", "Imagem 7", false, 0, 0, {State(picture)}, {0}});
    }
    StartAfterRun(left, {PressesButton("Sim")});
    EXPECT_EQ(ImageCount, 5);
}

TEST_F(RecoveryTest, WhoComesBackAfterAMonthIsStillAsked) {
    const RunDocument document = Three("");
    LeaveRun({document});
    for (const std::string& path : {Index(), document.states[0], document.states[1], document.states[2]})
        MakeOld(path, 40);
    StartAfter({PressesButton("Sim")});
    ASSERT_EQ(ImageCount, 2);
    ExpectSamePixels(ImageOf(Document(1)), Solid(8, 6, 0x11));
}

TEST_F(RecoveryTest, NoKeepsForAnotherMonth) {
    const RunDocument document = Three("");
    LeaveRun({document});
    for (const std::string& path : {Index(), document.states[0], document.states[1], document.states[2]})
        MakeOld(path, 40);
    StartAfter({PressesButton("Não")});
    SweepOldFiles({}, {});
    ExpectStates(document, true);
    EXPECT_EQ(Listed(Index()), std::vector<RunDocument>{document});
}

TEST_F(RecoveryTest, AnIndexThatCannotBeReadStays) {
    MakeFolders(StateFolder());
    PutBytes(Index(), "garbage");
    StartAfter({});
    EXPECT_EQ(BytesOf(Index()), "garbage");
}

// As in a folder that is not mounted today.
TEST_F(RecoveryTest, AChangedDocumentThatCannotBeReadStays) {
    const RunDocument gone = Three("");
    RemoveStates(gone);
    RunDocument saved = Three(File("a.bmp"));
    saved.saved = true;
    StartAfterRun({gone, saved}, {});
    EXPECT_EQ(Listed(Index()), (std::vector<RunDocument>{gone, saved}));
}

TEST_F(RecoveryTest, WhatMakesNoSenseStays) {
    RunDocument odd = Three("");
    odd.cursor = 3;
    StartAfterRun({odd}, {});
    ExpectStates(odd, true);
    EXPECT_EQ(Listed(Index()), std::vector<RunDocument>{odd});
}

TEST_F(RecoveryTest, WhatCannotBeReadStaysWhereAnotherIsOpened) {
    const RunDocument gone = Three("");
    RemoveStates(gone);
    StartAfterRun({Three(""), gone}, {PressesButton("Sim")});
    EXPECT_EQ(ImageCount, 2);
    EXPECT_EQ(Listed(Index()), std::vector<RunDocument>{gone});
}

TEST_F(RecoveryTest, WhatCannotBeReadStaysWhereAnotherIsDeleted) {
    const RunDocument gone = Three("");
    RemoveStates(gone);
    const RunDocument document = Three("");
    StartAfterRun({document, gone}, {PressesButton("Apagar"), PressesButton("Apagar")});
    ExpectStates(document, false);
    EXPECT_EQ(Listed(Index()), std::vector<RunDocument>{gone});
}

// It cannot be told whether there is something to see in it; and it cannot be opened today.
TEST_F(RecoveryTest, APictureThatTheMemoryHasNoRoomForStays) {
    RunDocument pasted = Three("");
    pasted.cursor = 0;
    pasted.states[0] = State(RandomPicture(900, 700, 3));
    const SupposedMemory little(900 * 700 * 4 * 2 - 1);
    StartAfterRun({pasted, Three("")}, {PressesButton("Sim")});
    EXPECT_EQ(ImageCount, 2);
    EXPECT_EQ(Listed(Index()), std::vector<RunDocument>{pasted});
    ExpectStates(pasted, true);
}

TEST_F(RecoveryTest, WhereTheDiskRefusesOurIndexTheOldOneStays) {
    const RunDocument document = Three("");
    LeaveRun({document});
    const auto refuse = [&](QWidget& question) {
        States().Settle();
        for (const std::string& index : RunIndices())
            if (index != Index())
                std::filesystem::create_directory(index + ".new"); // it cannot be made aside
        PressButton(question, "Sim");
    };
    StartAfter({refuse});
    EXPECT_EQ(ImageCount, 2);
    EXPECT_EQ(Listed(Index()), std::vector<RunDocument>{document});
}

TEST_F(RecoveryTest, PartsOfSavesGoFromTheFoldersOfThePictures) {
    std::filesystem::create_directory(Folder("pictures") + "/left");
    const std::string beside = File(".pintalux-0123456789ab");
    const std::string there = File("left/.pintalux-0123456789ab");
    const std::string young = File(".pintalux-0123456789cd");
    for (const std::string& path : {beside, there, young})
        PutBytes(path, "half a picture");
    MakeOld(beside, 31);
    MakeOld(there, 31);
    StartAfterRun({Three(File("left/a.bmp"))}, {PressesButton("Não")});
    EXPECT_FALSE(std::filesystem::exists(beside)) << "first.bmp is among the recent files";
    EXPECT_FALSE(std::filesystem::exists(there));
    EXPECT_TRUE(std::filesystem::exists(young));
}

TEST_F(RecoveryTest, ARunThatGoesOnIsNobodysToOpen) {
    const RunFiles other = MakeRunFiles();
    PutBytes(other.index, IndexText({Three("")}));
    StartAfter({});
    EXPECT_EQ(ImageCount, 1);
    EXPECT_TRUE(std::filesystem::exists(other.index));
}

TEST_F(RecoveryTest, TheIndexFollowsEditsUndoSaveAndClose) {
    StartAfter({});
    frmImage& image = Document(0);
    EXPECT_EQ(Noted().at(0).file, File("first.bmp"));
    Edit(image, 0x123456);
    EXPECT_EQ(Noted().at(0).cursor, 1);
    mnuEditUndo_Click();
    EXPECT_EQ(Noted().at(0).cursor, 0);
    mnuEditRedo_Click();
    EXPECT_FALSE(Noted().at(0).saved);
    mnuFileSave_Click();
    EXPECT_TRUE(Noted().at(0).saved);
    image.Unload();
    EXPECT_TRUE(Noted().empty());
}

TEST_F(RecoveryTest, ACleanEndLeavesNothing) {
    StartAfter({});
    EXPECT_TRUE(frmMain.Unload());
    EndRun();
    EXPECT_TRUE(std::filesystem::is_empty(StateFolder()));
    EXPECT_TRUE(StateFileNames().empty());
}

TEST_F(RecoveryTest, ASignalBeforeTheWindowFindsNothingToRecord) {
    EXPECT_NO_THROW(SettleDocuments());
}

TEST_F(RecoveryTest, WhatFloatsIsRecordedBeforeTheEnd) {
    StartAfter({});
    frmImage& image = Document(0);
    image.lbltext.Caption(" texto");
    image.lbltext.FontSize(20);
    image.lbltext.Visible(true);
    SettleDocuments();
    EXPECT_FALSE(image.lbltext.Visible());
    EXPECT_EQ(Listed(RunIndices().at(0)).at(0).cursor, 1);
    image.alreadysaved = true;
}

} // namespace
} // namespace pintalux
