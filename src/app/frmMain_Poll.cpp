// The 30 ms poll: a file handed over by a second instance, then the state of every command. It touches no
// surface and asks no other program. Beside it, files that are dropped on the window.
#include "app/frmMain.h"
#include "document/BarPositions.h"
#include "document/FileCommands.h"
#include "document/frmImage.h"
#include "document/Globals.h"
#include "document/ImageMenus.h"
#include "document/Selection.h"
#include "document/States.h"
#include "document/Workspace.h"
#include "document/Zoom.h"
#include "files/FileNames.h"
#include "surface/system/App.h"
#include "surface/system/Clipboard.h"
#include "surface/system/FileLayer.h"
#include "surface/system/MsgBox.h"
#include "surface/window/Screen.h"

#include <utility>

namespace pintalux {

void frmMainForm::Timer1_Timer() {
    TakeHandOff();
    PollPaste();
    PollDocument();
    PollShown();
    PollDisk();
}

// Intended: the file is deleted before its picture is opened, so that a picture that fails is not tried for
// ever.
void frmMainForm::TakeHandOff() {
    // Of several instances the one that holds the lock takes it; when that one has ended, the next.
    if (App.PrevInstance() || !FileExists(HandOffFile())) return;
    // While the start still owes its first document, the hand-off waits, so that the file that was asked for
    // last lies on top.
    if (Timer2.Enabled()) return;
    std::string path;
    ResumeNext([&] { path = ReadTextFile(HandOffFile()); }, [] { DeleteFile(HandOffFile()); });
    if (!FileExists(path)) return;
    OpenDocument(LongFileName(path));
    SetFocus();
}

// What another program drops on the window opens as what a second instance hands over.
void frmMainForm::OpenDropped(const std::vector<std::string>& paths) {
    for (const std::string& path : paths)
        OpenDocument(LongFileName(path));
    SetFocus();
}

void frmMainForm::PollPaste() {
    const bool bitmap = IsClipboardFormatAvailable(CF_BITMAP);
    TB2.Buttons(kPasteButton).Enabled(bitmap);
    mnuEditPasteNew.Enabled(bitmap);
    mnuEditPaste.Enabled(bitmap && ImageCount > 0);
}

void frmMainForm::PollDocument() {
    if (ImageCount <= 0) {
        ImgMenuEnable(false);
        mnuEditSelectNone.Enabled(false);
        mnuEditSelectAll.Enabled(false);
        mnuFilePrinterPrint.Enabled(false);
        TB2.Buttons(kSaveButton).Enabled(false);
        return;
    }
    ImgMenuEnable(true);
    mnuFilePrinterPrint.Enabled(true);
    frmImage& image = ActiveImage();
    image.Modified(image.Changed());
    if (image.PicFreeSelect.Visible() || image.PicSelect.Visible()) mnuEditSelectNone.Enabled(true);
    mnuEditSelectAll.Enabled(true);
    TB2.Buttons(kSaveButton).Enabled(true);
    PollUndo();
}

// What is out of sight is neither cut nor copied, nor brought back to its natural size. A document that was
// minimised gets the commands back with its window.
void frmMainForm::PollShown() {
    if (ADocumentShows()) {
        if (std::exchange(cutWaits_, false)) EnableCutAndCopy(true);
        mnuZoomActual.Enabled(ActiveImage().factorlevel != kActualLevel);
        return;
    }
    cutWaits_ = ImageCount > 0 && (cutWaits_ || mnuEditCut.Enabled());
    EnableCutAndCopy(false);
    mnuZoomActual.Enabled(false);
}

void frmMainForm::PollUndo() {
    const frmImage& image = ActiveImage();
    if (image.ListBackup.ListCount() > 0) {
        ShowUndoState(image.ListBUorder);
        return;
    }
    mnuEditUndo.Enabled(false);
    mnuEditRedo.Enabled(false);
    TB2.Buttons(kUndoButton).Enabled(false);
    TB2.Buttons(kRedoButton).Enabled(false);
}

// Once for each time that the disk is full: painting goes on, and what it refused is written when there is
// room.
void frmMainForm::PollDisk() {
    if (!States().Refused()) {
        toldOfDisk_ = false;
    } else if (!toldOfDisk_ && !UserIsBusy()) {
        toldOfDisk_ = true;
        MsgBox("O disco não aceita mais passos de Desfazer: por agora estão só na memória. Pode continuar; o "
               "programa guarda-os logo que haja espaço. Salve a imagem, se puder noutro disco.",
               BoxButtons::Ok, BoxIcon::Exclamation, kMessageTitle);
    }
}

} // namespace pintalux
