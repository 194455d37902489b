// What may be used at a given moment: the poll of the main window.
#include "support/Documents.h"
#include "support/Pictures.h"
#include "support/Program.h"

#include "document/FileCommands.h"
#include "document/Globals.h"
#include "document/ImageMenus.h"
#include "document/States.h"
#include "support/DialogScript.h"
#include "surface/system/Clipboard.h"
#include "surface/system/Pictures.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QWidget>

namespace pintalux {

namespace {

class PollTest : public ProgramTest {
  protected:
    void SetUp() override {
        ProgramTest::SetUp();
        Clipboard.Clear();
        Start();
    }
    // What the running timer does every 30 ms.
    void Poll() { frmMain->Timer1_Timer(); }
    static std::vector<MenuItem*> ImageItems() {
        frmMainForm& m = *frmMain;
        return {&m.mnuAddBorders,
                &m.mnuImageProperties,
                &m.mnuFlipH,
                &m.mnuFlipV,
                &m.mnuRotate90,
                &m.mnuRotate180,
                &m.mnuRotate270,
                &m.mnuResize,
                &m.mnuBorderWiz,
                &m.mnuFiltBrow,
                &m.mnuIncCol,
                &m.mnuRedCol,
                &m.mnuZoomIn,
                &m.mnuZoomOut,
                &m.mnuWindowCascade,
                &m.mnuWindowTileHorizontal,
                &m.mnuWindowTileVertical,
                &m.mnuFileClose,
                &m.mnuFileSave,
                &m.mnuFileSaveAs};
    }
    static void ExpectImageItems(bool enabled) {
        for (const MenuItem* item : ImageItems())
            EXPECT_EQ(item->Enabled(), enabled && item->HasCommand()) << item->Name();
        for (const int position : {22, 23, 24})
            EXPECT_EQ(frmMain->TB2.Buttons(position).Enabled(), enabled) << position;
    }
    static void ExpectPaste(bool paste, bool pasteNew) {
        EXPECT_EQ(frmMain->mnuEditPaste.Enabled(), paste);
        EXPECT_EQ(frmMain->mnuEditPasteNew.Enabled(), pasteNew);
        EXPECT_EQ(frmMain->TB2.Buttons(7).Enabled(), pasteNew);
    }
    // Those that need a document in sight.
    static void ExpectSightCommands(bool enabled) {
        EXPECT_EQ(frmMain->mnuEditCut.Enabled(), enabled);
        EXPECT_EQ(frmMain->mnuEditCopy.Enabled(), enabled);
        EXPECT_EQ(frmMain->TB2.Buttons("Cut").Enabled(), enabled);
        EXPECT_EQ(frmMain->TB2.Buttons("Copy").Enabled(), enabled);
        EXPECT_EQ(frmMain->mnuZoomActual.Enabled(), enabled);
    }
    static void ExpectUndo(bool undo, bool redo) {
        EXPECT_EQ(frmMain->mnuEditUndo.Enabled(), undo);
        EXPECT_EQ(frmMain->TB2.Buttons(9).Enabled(), undo);
        EXPECT_EQ(frmMain->mnuEditRedo.Enabled(), redo);
        EXPECT_EQ(frmMain->TB2.Buttons(10).Enabled(), redo);
    }
};

} // namespace

TEST_F(PollTest, ItRunsByItself) {
    EXPECT_EQ(frmMain->Timer1.Interval(), 30);
    EXPECT_TRUE(WaitFor([] { return !frmMain->mnuFileSave.Enabled(); }, 1000));
    NewDocument(10, 10);
    EXPECT_TRUE(WaitFor([] { return frmMain->mnuFileSave.Enabled(); }, 1000));
}

TEST_F(PollTest, WithoutADocumentImageCommandsAreOff) {
    frmMain->mnuEditSelectNone.Enabled(true);
    Poll();
    ExpectImageItems(false);
    EXPECT_FALSE(frmMain->mnuEditSelectAll.Enabled());
    EXPECT_FALSE(frmMain->mnuEditSelectNone.Enabled());
    EXPECT_FALSE(frmMain->TB2.Buttons(3).Enabled());
    EXPECT_FALSE(frmMain->mnuFilePrinterPrint.Enabled());
    EXPECT_TRUE(frmMain->mnuFilePrinterSetup.Enabled());
    EXPECT_TRUE(frmMain->mnuFileNew.Enabled());
    EXPECT_TRUE(frmMain->mnuFileOpen.Enabled());
}

TEST_F(PollTest, WithADocumentTheyAreOn) {
    NewDocument(10, 10);
    Poll();
    ExpectImageItems(true);
    EXPECT_TRUE(frmMain->mnuEditSelectAll.Enabled());
    EXPECT_TRUE(frmMain->TB2.Buttons(3).Enabled());
    EXPECT_TRUE(frmMain->mnuFilePrinterPrint.Enabled());
}

TEST_F(PollTest, AfterTheLastDocumentClosedTheyAreOffAgain) {
    frmImage& image = NewDocument(10, 10);
    Poll();
    ASSERT_TRUE(image.Unload());
    Poll();
    ExpectImageItems(false);
}

TEST_F(PollTest, ADocumentLeftMinimisedWhenTheOtherOneClosesKeepsItsCommands) {
    frmImage& one = NewDocument(10, 10);
    frmImage& two = NewDocument(20, 10);
    one.WindowState(kMinimised);
    PassEvents();
    ASSERT_TRUE(two.Unload());
    PassEvents();
    EXPECT_EQ(&ActiveImage(), &one);
    Poll();
    ExpectImageItems(true);
    Edit(one, kBlack);
    Poll();
    ExpectUndo(true, false);
    Choose(frmMain->mnuEditUndo);
    EXPECT_EQ(CornerOf(one), kWhite);
}

TEST_F(PollTest, WhatIsOutOfSightIsNeitherCutNorCopiedNorShownAtItsSize) {
    frmImage& image = NewDocument(20, 10);
    Choose(frmMain->mnuZoomInX(2));
    Choose(frmMain->mnuEditSelectAll);
    ExpectSightCommands(true);
    image.WindowState(kMinimised);
    PassEvents();
    Poll();
    Poll();
    ExpectSightCommands(false);
    for (const MenuItem* item : {&frmMain->mnuEditCut, &frmMain->mnuEditCopy, &frmMain->mnuZoomActual})
        Choose(*item);
    EXPECT_TRUE(image.PicSelect.Visible());
    EXPECT_FALSE(IsClipboardFormatAvailable(CF_BITMAP));
    EXPECT_EQ(image.factor, 3);
    image.WindowState(kNormal);
    PassEvents();
    Poll();
    ExpectSightCommands(true);
}

TEST_F(PollTest, WithoutADocumentCutCopyAndTheNaturalSizeDoNothing) {
    frmImage& image = NewDocument(20, 10);
    Choose(frmMain->mnuZoomInX(2));
    Choose(frmMain->mnuEditSelectAll);
    ASSERT_TRUE(image.Unload());
    Poll();
    ExpectSightCommands(false);
    for (const MenuItem* item : {&frmMain->mnuEditCut, &frmMain->mnuEditCopy, &frmMain->mnuZoomActual})
        Choose(*item);
    EXPECT_FALSE(IsClipboardFormatAvailable(CF_BITMAP));
    NewDocument(20, 10);
    Poll();
    EXPECT_FALSE(frmMain->mnuEditCut.Enabled()) << "nothing floats in the new one";
}

TEST_F(PollTest, ABitmapOnTheClipboardAllowsPastingAsNew) {
    Clipboard.SetData(Solid(3, 3, kBlack));
    Poll();
    ExpectPaste(false, true);
}

TEST_F(PollTest, ABitmapOnTheClipboardAllowsPastingIntoADocument) {
    Clipboard.SetData(Solid(3, 3, kBlack));
    frmImage& image = NewDocument(10, 10);
    Poll();
    ExpectPaste(true, true);
    ASSERT_TRUE(image.Unload());
    Poll();
    ExpectPaste(false, true);
}

TEST_F(PollTest, TextOnTheClipboardAllowsNoPasting) {
    Clipboard.SetData(Solid(3, 3, kBlack));
    NewDocument(10, 10);
    Poll();
    QGuiApplication::clipboard()->setText("sol e mar");
    PassEvents();
    Poll();
    ExpectPaste(false, false);
}

TEST_F(PollTest, AShownSelectionCanBeDropped) {
    frmImage& image = NewDocument(10, 10);
    frmMain->mnuEditSelectNone.Enabled(false);
    Poll();
    EXPECT_FALSE(frmMain->mnuEditSelectNone.Enabled());
    image.PicSelect.Visible(true);
    Poll();
    EXPECT_TRUE(frmMain->mnuEditSelectNone.Enabled());
    // The poll alone never takes it back.
    image.PicSelect.Visible(false);
    Poll();
    EXPECT_TRUE(frmMain->mnuEditSelectNone.Enabled());
    frmMain->mnuEditSelectNone.Enabled(false);
    image.PicFreeSelect.Visible(true);
    Poll();
    EXPECT_TRUE(frmMain->mnuEditSelectNone.Enabled());
}

TEST_F(PollTest, UndoFollowsTheCursor) {
    frmImage& image = NewDocument(10, 10);
    Poll();
    ExpectUndo(false, false);
    Edit(image, 1);
    Edit(image, 2);
    Poll();
    ExpectUndo(true, false);
    image.ListBUorder.ListIndex(1);
    Poll();
    ExpectUndo(true, true);
    image.ListBUorder.ListIndex(0);
    Poll();
    ExpectUndo(false, true);
}

TEST_F(PollTest, ADocumentWithoutStatesHasNoUndo) {
    frmImage& first = NewDocument(10, 10);
    Edit(first, 1);
    Edit(first, 2);
    Choose(frmMain->mnuEditUndo);
    ExpectUndo(true, true);
    NewImageWindow();
    Poll();
    ExpectUndo(false, false);
}

TEST_F(PollTest, ActivatingAnotherDocumentShowsItsUndoState) {
    frmImage& first = NewDocument(10, 10);
    Edit(first, 1);
    NewDocument(10, 10);
    ASSERT_TRUE(WaitFor([] { return !frmMain->mnuEditUndo.Enabled(); }, 1000));
    first.SetFocus();
    EXPECT_TRUE(WaitFor([] { return frmMain->mnuEditUndo.Enabled(); }, 1000));
    EXPECT_EQ(frmMain->ActiveForm(), &first);
}

TEST_F(PollTest, AModalDialogDoesNotStopIt) {
    bool polled = false;
    const DialogScript script({[&](QWidget& dialog) {
        frmMain->mnuEditPasteNew.Enabled(true);
        polled = WaitFor([] { return !frmMain->mnuEditPasteNew.Enabled(); }, 1000);
        dialog.close();
    }});
    Choose(frmMain->mnuFileSaveOptions);
    EXPECT_TRUE(polled);
}

TEST_F(PollTest, EnablingTheImageMenusLeavesZoomAndUndo) {
    Poll();
    EnableImageMenus();
    EXPECT_TRUE(frmMain->mnuFlipV.Enabled());
    EXPECT_TRUE(frmMain->mnuFileClose.Enabled());
    EXPECT_TRUE(frmMain->mnuWindowTileVertical.Enabled());
    EXPECT_FALSE(frmMain->mnuZoomIn.Enabled());
    EXPECT_FALSE(frmMain->mnuEditUndo.Enabled());
}

TEST_F(PollTest, DisablingAllClearsTheCallersVariable) {
    ImgMenuEnable(true);
    bool all = true;
    DisableImageMenus(all);
    EXPECT_FALSE(all);
    EXPECT_FALSE(frmMain->mnuFlipV.Enabled());
    EXPECT_FALSE(frmMain->mnuResize.Enabled());
    EXPECT_FALSE(frmMain->mnuWindowCascade.Enabled());
    EXPECT_FALSE(frmMain->TB2.Buttons(3).Enabled());
    EXPECT_TRUE(frmMain->mnuZoomIn.Enabled());
}

TEST_F(PollTest, DisablingSomeLeavesBordersResizingAndArranging) {
    ImgMenuEnable(true);
    bool all = false;
    DisableImageMenus(all);
    EXPECT_FALSE(frmMain->mnuFileSaveAs.Enabled());
    EXPECT_FALSE(frmMain->mnuImageProperties.Enabled());
    for (const MenuItem* item : {&frmMain->mnuResize, &frmMain->mnuAddBorders, &frmMain->mnuBorderWiz})
        EXPECT_EQ(item->Enabled(), item->HasCommand()) << item->Name();
    EXPECT_TRUE(frmMain->mnuWindowCascade.Enabled());
}

TEST_F(PollTest, AFullDiskIsToldOnce) {
    frmImage& image = NewDocument(700, 700);
    SettleStates();
    // While another window waits for an answer nothing comes on top of it.
    const DialogScript script({[this](QWidget& dialog) {
                                   Poll();
                                   PressesEscape()(dialog);
                               },
                               PressesButton("OK")});
    {
        const FullDisk full(1 << 20);
        Edit(image, kBlack);
        SettleStates();
        Choose(frmMain->mnuFileNew);
        EXPECT_EQ(script.Count(), 1U);
        Poll();
        Poll();
        EXPECT_EQ(script.Count(), 2U);
    }
    EXPECT_EQ(
        script.Dialog(1),
        (DialogScript::Seen{
            "exclamation", "VALMERO Multimédia",
            "O disco não aceita mais passos de Desfazer: por agora estão só na memória. Pode continuar; o "
            "programa guarda-os logo que haja espaço. Salve a imagem, se puder noutro disco.",
            "OK"}));
    Edit(image, kWhite); // there is room again: what was refused follows what is written
    SettleStates();
    EXPECT_FALSE(States().Refused());
    ExpectSamePixels(LoadPicture(image.ListBackup.List(1)), Solid(700, 700, kBlack));
}

} // namespace pintalux
