// The step limit of the history, and a temporary folder that gives way.
#include "support/Documents.h"
#include "support/Pictures.h"
#include "support/Program.h"

#include "document/FileCommands.h"
#include "document/States.h"
#include "settings/frmPrefs.h"
#include "surface/system/TempNames.h"

#include <filesystem>

namespace pintalux {

namespace {

class UndoLimitTest : public ProgramTest {
  protected:
    void SetUp() override {
        ProgramTest::SetUp();
        Start();
    }
    static void LimitTo(const char* listIndex) {
        SetSetting("Undoredo", "0");
        SetSetting("UndoSteps", listIndex);
    }
    static void EditTimes(frmImage& image, int times) {
        for (int i = 0; i < times; ++i)
            Edit(image, i + 1);
    }
};

using Names = std::vector<std::string>;

} // namespace

TEST_F(UndoLimitTest, ByDefaultNothingIsDropped) {
    frmImage& image = NewDocument(4, 4);
    EditTimes(image, 40);
    EXPECT_EQ(image.ListBUorder.ListCount(), 41);
    SettleStates();
    EXPECT_EQ(StateFileNames().size(), 41U);
}

TEST_F(UndoLimitTest, ALimitOf5With7EditsKeeps6States) {
    LimitTo("0");
    frmImage& image = NewDocument(4, 4);
    EditTimes(image, 5);
    EXPECT_EQ(EntriesOf(image.ListBUorder), (Names{"0", "1", "2", "3", "4", "5"}));
    EditTimes(image, 2);
    EXPECT_EQ(EntriesOf(image.ListBUorder), (Names{"2", "3", "4", "5", "6", "7"}));
    EXPECT_EQ(image.ListBUorder.ListIndex(), 5);
    EXPECT_EQ(image.ListBackup.ListCount(), 8);
    SettleStates();
    EXPECT_EQ(StateFileNames().size(), 6U);
    EXPECT_FALSE(std::filesystem::exists(image.ListBackup.List(0)));
    EXPECT_FALSE(std::filesystem::exists(image.ListBackup.List(1)));
    EXPECT_TRUE(std::filesystem::exists(image.ListBackup.List(2)));
}

TEST_F(UndoLimitTest, EachEntryOfTheListIsALimit) {
    const int limits[] = {5, 10, 15, 20, 25, 30};
    for (int i = 0; i < 6; ++i) {
        LimitTo(std::to_string(i).c_str());
        frmImage& image = NewDocument(4, 4);
        EditTimes(image, limits[i] + 2);
        EXPECT_EQ(frmPrefs->Combo2.ListIndex(), i);
        EXPECT_EQ(image.ListBUorder.ListCount(), limits[i] + 1);
    }
}

TEST_F(UndoLimitTest, FiveStepsCanBeUndoneUnderALimitOf5) {
    LimitTo("0");
    frmImage& image = NewDocument(4, 4, kWhite);
    EditTimes(image, 7);
    for (int i = 0; i < 5; ++i)
        Choose(frmMain->mnuEditUndo);
    EXPECT_EQ(CornerOf(image), 2);
    EXPECT_FALSE(frmMain->mnuEditUndo.Enabled());
    EXPECT_TRUE(frmMain->mnuEditRedo.Enabled());
}

TEST_F(UndoLimitTest, TheListOfThePreferencesGivesTheLimit) {
    LimitTo("1");
    frmImage& image = NewDocument(4, 4);
    EditTimes(image, 12);
    EXPECT_EQ(image.ListBUorder.ListCount(), 11);
}

TEST_F(UndoLimitTest, ALimitSwitchedOnLaterDropsOneStateAnEdit) {
    frmImage& image = NewDocument(4, 4);
    EditTimes(image, 9);
    LimitTo("0");
    EditTimes(image, 1);
    EXPECT_EQ(image.ListBUorder.ListCount(), 10);
    EXPECT_EQ(image.ListBUorder.List(0), "1");
    EditTimes(image, 1);
    EXPECT_EQ(image.ListBUorder.ListCount(), 10);
    EXPECT_EQ(image.ListBUorder.List(0), "2");
}

TEST_F(UndoLimitTest, ANumberOfStepsThatNoListHasCountsAsTheDefault) {
    LimitTo("77");
    frmImage& image = NewDocument(4, 4);
    EditTimes(image, 7);
    EXPECT_EQ(image.ListBUorder.ListCount(), 6);
    EXPECT_FALSE(image.alreadysaved);
}

TEST_F(UndoLimitTest, WithoutATemporaryFolderNothingIsRecordedAndNothingSaid) {
    frmImage& image = NewDocument(4, 4);
    image.alreadysaved = true;
    TempFoldersForTests(false);
    Edit(image, kBlack);
    EXPECT_EQ(image.ListBackup.ListCount(), 1);
    EXPECT_EQ(EntriesOf(image.ListBUorder), (Names{"0"}));
    EXPECT_FALSE(image.alreadysaved);
    EXPECT_FALSE(frmMain->mnuEditUndo.Enabled());
    TempFoldersForTests(true);
    Edit(image, kBlack);
    EXPECT_EQ(EntriesOf(image.ListBUorder), (Names{"0", "1"}));
}

TEST_F(UndoLimitTest, WithoutATemporaryFolderTheHistoryIsTrimmedAllTheSame) {
    frmImage& image = NewDocument(4, 4);
    EditTimes(image, 7);
    LimitTo("0");
    TempFoldersForTests(false);
    Edit(image, kBlack);
    EXPECT_EQ(EntriesOf(image.ListBUorder), (Names{"1", "2", "3", "4", "5", "6", "7"}));
    EXPECT_EQ(image.ListBUorder.ListIndex(), 6);
}

TEST_F(UndoLimitTest, AStateThatCannotBeWrittenStaysInMemory) {
    frmImage& image = NewDocument(700, 700, kBlack);
    SettleStates();
    {
        const FullDisk full(1 << 20);
        Edit(image, 0x0000FF);
        Edit(image, 0x00FF00);
        SettleStates();
        EXPECT_LT(std::filesystem::file_size(image.ListBackup.List(1)), 700U * 700 * 3);
        Choose(frmMain->mnuEditUndo);
        EXPECT_EQ(CornerOf(image), 0x0000FF);
        Choose(frmMain->mnuEditRedo);
        EXPECT_EQ(CornerOf(image), 0x00FF00);
    }
    ExpectSamePixels(ImageOf(image), Solid(700, 700, 0x00FF00));
}

TEST_F(UndoLimitTest, UndoRightAfterManyEditsShowsWholeStates) {
    frmImage& image = NewDocument(400, 300, kWhite);
    EditTimes(image, 20);
    for (int i = 19; i >= 1; --i) {
        Choose(frmMain->mnuEditUndo);
        ExpectSamePixels(ImageOf(image), Solid(400, 300, i));
    }
}

} // namespace pintalux
