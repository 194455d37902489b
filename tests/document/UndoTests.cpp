#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/Pictures.h"
#include "support/Program.h"

#include "document/FileCommands.h"
#include "document/Globals.h"
#include "document/States.h"
#include "document/Zoom.h"
#include "settings/frmPrefs.h"
#include "surface/system/Pictures.h"

#include <filesystem>

namespace pintalux {

namespace {

constexpr Colour kA = 0x000010, kB = 0x000020, kC = 0x000030, kD = 0x000040;

class UndoTest : public ProgramTest {
  protected:
    void SetUp() override {
        ProgramTest::SetUp();
        Start();
    }
    Colour Undo(frmImage& image) {
        Choose(frmMain->mnuEditUndo);
        return CornerOf(image);
    }
    Colour Redo(frmImage& image) {
        Choose(frmMain->mnuEditRedo);
        return CornerOf(image);
    }
    static void ExpectEnabled(bool undo, bool redo) {
        EXPECT_EQ(frmMain->mnuEditUndo.Enabled(), undo);
        EXPECT_EQ(frmMain->TB2.Buttons(9).Enabled(), undo);
        EXPECT_EQ(frmMain->mnuEditRedo.Enabled(), redo);
        EXPECT_EQ(frmMain->TB2.Buttons(10).Enabled(), redo);
    }
    // An edit that changes the size of the image.
    static void Resize(frmImage& image, int width, int height) {
        image.PicMerge.Picture(Solid(width, height, kB));
        image.Image1.Picture(image.PicMerge.Image());
        image.Backup();
    }
};

using Names = std::vector<std::string>;

} // namespace

TEST_F(UndoTest, ANewDocumentHasOneStateAndNothingToUndo) {
    const frmImage& image = NewDocument(10, 10);
    EXPECT_EQ(EntriesOf(image.ListBUorder), (Names{"0"}));
    EXPECT_EQ(image.ListBUorder.ListIndex(), 0);
    ExpectEnabled(false, false);
}

TEST_F(UndoTest, EachStateIsAWholeBmpInTheTemporaryFolder) {
    frmImage& image = NewDocument(10, 10, kA);
    Edit(image, kB);
    SettleStates();
    ASSERT_EQ(image.ListBackup.ListCount(), 2);
    EXPECT_EQ(StateFileNames().size(), 2U);
    EXPECT_TRUE(image.ListBackup.List(1).starts_with(Folder("temporary") + "/BI"));
    EXPECT_EQ(image.sfilename, image.ListBackup.List(1));
    EXPECT_EQ(BytesOf(image.sfilename).size(), 54U + 10 * 32);
    ExpectSamePixels(LoadPicture(image.ListBackup.List(0)), Solid(10, 10, kA));
    ExpectSamePixels(LoadPicture(image.ListBackup.List(1)), Solid(10, 10, kB));
}

TEST_F(UndoTest, UndoAndRedoWalkTheStates) {
    frmImage& image = NewDocument(10, 10, kA);
    Edit(image, kB);
    Edit(image, kC);
    ExpectEnabled(true, false);
    EXPECT_EQ(Undo(image), kB);
    ExpectEnabled(true, true);
    EXPECT_EQ(Undo(image), kA);
    ExpectEnabled(false, true);
    EXPECT_EQ(Redo(image), kB);
    ExpectEnabled(true, true);
    EXPECT_EQ(Redo(image), kC);
    ExpectEnabled(true, false);
    ExpectSamePixels(image.Image1.Picture(), Solid(10, 10, kC));
    EXPECT_EQ(image.ListBackup.ListCount(), 3);
}

TEST_F(UndoTest, UndoAfterUndoAndEditWalksTheUndoneStates) {
    frmImage& image = NewDocument(10, 10, kA);
    Edit(image, kB);
    Edit(image, kC);
    Undo(image);
    Edit(image, kD);
    EXPECT_EQ(EntriesOf(image.ListBUorder), (Names{"0", "1", "2", "3"}));
    EXPECT_EQ(image.ListBUorder.ListIndex(), 3);
    EXPECT_EQ(Undo(image), kC);
    EXPECT_EQ(Undo(image), kB);
    EXPECT_EQ(Undo(image), kA);
    EXPECT_EQ(Redo(image), kB);
    EXPECT_EQ(Redo(image), kC);
    EXPECT_EQ(Redo(image), kD);
}

TEST_F(UndoTest, UndoRestoresTheSizeToo) {
    frmImage& image = NewDocument(40, 30, kA);
    Resize(image, 80, 60);
    FitImageWindow();
    EXPECT_EQ(Undo(image), kA);
    ExpectSamePixels(ImageOf(image), Solid(40, 30, kA));
    EXPECT_EQ(image.PicBG.Width(), 40);
    EXPECT_EQ(image.Image1.Height(), 30);
    EXPECT_EQ(image.Width(), 40 * 15 + 120);
}

TEST_F(UndoTest, AtAnotherZoomTheFrameKeepsItsSize) {
    frmImage& image = NewDocument(40, 30, kA);
    Resize(image, 80, 60);
    FitImageWindow();
    mnuZoomInX_Click(1);
    ASSERT_EQ(image.PicBG.Width(), 160);
    Undo(image);
    EXPECT_EQ(image.PicMerge.Width(), 40);
    EXPECT_EQ(image.PicBG.Width(), 160);
    EXPECT_EQ(image.Image1.Width(), 160);
    ExpectSamePixels(image.Image1.Picture(), Solid(40, 30, kA));
    mnuZoomInX_Click(1);
    EXPECT_EQ(image.Image1.Width(), 80);
}

TEST_F(UndoTest, UndoAndRedoRecordNothingAndKeepTheSavedMark) {
    frmImage& image = OpenPicture("a.bmp", Solid(10, 10, kA));
    Edit(image, kB);
    image.alreadysaved = true;
    Undo(image);
    EXPECT_TRUE(image.alreadysaved);
    Redo(image);
    EXPECT_TRUE(image.alreadysaved);
    EXPECT_EQ(image.ListBackup.ListCount(), 2);
    Edit(image, kC);
    EXPECT_FALSE(image.alreadysaved);
}

TEST_F(UndoTest, ANeverSavedDocumentAtItsFirstStateOffersNoImageCommands) {
    frmImage& image = NewDocument(10, 10, kA);
    Edit(image, kB);
    EXPECT_TRUE(frmMain->mnuFlipH.Enabled());
    Undo(image);
    EXPECT_FALSE(frmMain->mnuFlipH.Enabled());
    EXPECT_FALSE(frmMain->mnuFileSave.Enabled());
    EXPECT_FALSE(frmMain->mnuFileClose.Enabled());
    Redo(image);
    EXPECT_TRUE(frmMain->mnuFlipH.Enabled());
    EXPECT_TRUE(frmMain->mnuFileClose.Enabled());
}

TEST_F(UndoTest, ADocumentWithAFileKeepsItsCommandsAtTheFirstState) {
    frmImage& image = OpenPicture("a.bmp", Solid(10, 10, kA));
    Edit(image, kB);
    Undo(image);
    EXPECT_TRUE(frmMain->mnuFlipH.Enabled());
    EXPECT_TRUE(frmMain->mnuFileSave.Enabled());
}

TEST_F(UndoTest, UndoOfALostStateLeavesImageAndCursorAndSaysWhy) {
    frmImage& image = NewDocument(40, 30, kA);
    Edit(image, kB);
    SettleStates();
    std::filesystem::remove(image.ListBackup.List(0));
    const double width = image.Width();
    const DialogScript script({PressesButton("OK")});
    EXPECT_EQ(Undo(image), kB);
    EXPECT_EQ(script.Dialog(0),
              Message("exclamation", "Não consegui ler o estado guardado. A imagem fica como está.\n\n"
                                     "Ficheiro não encontrado: " +
                                         image.ListBackup.List(0)));
    EXPECT_EQ(image.ListBUorder.ListIndex(), 1);
    EXPECT_EQ(image.PicMerge.Width(), 40);
    EXPECT_EQ(image.Width(), width);
    EXPECT_FALSE(ScreenLocked());
    ExpectEnabled(true, false);
}

TEST_F(UndoTest, AStateOfTheRightLengthThatIsNoPictureIsNotWalkedTo) {
    frmImage& image = NewDocument(40, 30, kA);
    Edit(image, kB);
    Edit(image, kC);
    SettleStates();
    PutBytes(image.ListBackup.List(1),
             std::string(std::filesystem::file_size(image.ListBackup.List(1)), 'x'));
    const DialogScript script({PressesButton("OK")});
    EXPECT_EQ(Undo(image), kC);
    EXPECT_EQ(image.ListBUorder.ListIndex(), 2);
}

TEST_F(UndoTest, BlankmeEmptiesTheImageAndShrinksTheWindow) {
    frmImage& image = NewDocument(40, 30, kA);
    image.Blankme();
    EXPECT_TRUE(image.PicMerge.Picture().Empty());
    EXPECT_EQ(image.Width(), 40 + 120);
    EXPECT_EQ(image.Height(), 30 + 420);
}

TEST_F(UndoTest, WithRulersTheirTwipsAreAddedToTheShrunkenWindow) {
    frmImage& image = NewDocument(40, 30);
    RulersOn = true;
    image.Blankme();
    EXPECT_EQ(image.Width(), image.LeftRuler.Width() + 40 + 120);
    EXPECT_EQ(image.Height(), image.TopRuler.Height() + 30 + 420);
}

TEST_F(UndoTest, RedoOfALostStateChangesNothing) {
    frmImage& image = NewDocument(40, 30, kA);
    Edit(image, kB);
    Undo(image);
    SettleStates();
    std::filesystem::remove(image.ListBackup.List(1));
    const DialogScript script({PressesButton("OK")});
    EXPECT_EQ(Redo(image), kA);
    EXPECT_EQ(script.Dialog(0),
              Message("exclamation", "Não consegui ler o estado guardado. A imagem fica como "
                                     "está.\n\nFicheiro não encontrado: " +
                                         image.ListBackup.List(1)));
    EXPECT_EQ(image.ListBUorder.ListIndex(), 0);
    EXPECT_EQ(image.PicMerge.Width(), 40);
    EXPECT_FALSE(ScreenLocked());
}

TEST_F(UndoTest, AStateFileOfAnotherLengthCountsAsLost) {
    frmImage& image = NewDocument(40, 30, kA);
    Edit(image, kB);
    Undo(image);
    SettleStates();
    std::filesystem::resize_file(image.ListBackup.List(1), 100);
    const DialogScript script({PressesButton("OK")});
    EXPECT_EQ(Redo(image), kA);
}

TEST_F(UndoTest, TheButtonsRunTheSameCommands) {
    frmImage& image = NewDocument(10, 10, kA);
    Edit(image, kB);
    frmMain->TB2_ButtonClick(frmMain->TB2.Buttons("Undo"));
    EXPECT_EQ(CornerOf(image), kA);
    frmMain->TB2_ButtonClick(frmMain->TB2.Buttons("Redo"));
    EXPECT_EQ(CornerOf(image), kB);
}

TEST_F(UndoTest, EachWindowHasItsOwnHistory) {
    frmImage& first = NewDocument(10, 10, kA);
    Edit(first, kB);
    frmImage& second = NewDocument(10, 10, kC);
    Edit(second, kD);
    EXPECT_EQ(Undo(second), kC);
    EXPECT_EQ(CornerOf(first), kB);
    EXPECT_EQ(EntriesOf(first.ListBUorder), (Names{"0", "1"}));
}

TEST_F(UndoTest, WithoutADocumentTheCommandsDoNothing) {
    Choose(frmMain->mnuEditUndo);
    Choose(frmMain->mnuEditRedo);
    EXPECT_EQ(ImageCount, 0);
    EXPECT_FALSE(ScreenLocked());
}

} // namespace pintalux
