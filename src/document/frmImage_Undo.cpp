// Undo and redo of a document: every finished change is a state of its own, a whole BMP file.
#include "base/Arithmetic.h"
#include "base/NumberText.h"
#include "document/BarPositions.h"
#include "document/CommandBar.h"
#include "document/frmImage.h"
#include "document/Globals.h"
#include "document/ImageMenus.h"
#include "document/MainMenu.h"
#include "document/Recovery.h"
#include "document/Selection.h"
#include "document/States.h"
#include "document/Workspace.h"
#include "files/TempFiles.h"
#include "settings/frmPrefs.h"
#include "surface/system/Pictures.h"

namespace pintalux {

namespace {

void EnableUndo(bool value) {
    TheWorkspace.menu->mnuEditUndo.Enabled(value);
    TheWorkspace.bar->TB2.Buttons(kUndoButton).Enabled(value);
}

void EnableRedo(bool value) {
    TheWorkspace.menu->mnuEditRedo.Enabled(value);
    TheWorkspace.bar->TB2.Buttons(kRedoButton).Enabled(value);
}

int StateIndex(const ListStore& order, int position) {
    return ToInt32(Val(order.List(position)));
}

} // namespace

void ShowUndoState(const ListStore& order) {
    const int i = order.ListIndex();
    const int n = order.ListCount();
    if (i == 0) {
        EnableUndo(false);
        EnableRedo(n >= 2);
    } else if (i > 0) {
        EnableUndo(true);
        EnableRedo(i < n - 1);
    }
}

// Intended: a state always goes to the end, also after some undos. Nothing that was undone is ever cut off;
// undo from the new state walks back through it.
void frmImage::Backup() {
    unrecorded = false;
    FollowWithCleanCopy(*this);
    if (MakeTempFileName("", "BI", 0, sfilename)) {
        States().SaveBehind(PicMerge.Image(), sfilename, this);
        before = ListBUorder.ListIndex() < 0 ? -1 : StateIndex(ListBUorder, ListBUorder.ListIndex());
        ListBackup.AddItem(sfilename);
        ListBUorder.AddItem(NumberText(ListBackup.ListCount() - 1));
        ListBUorder.ListIndex(ListBUorder.ListCount() - 1);
    }
    ShowUndoState(ListBUorder);
    if (ListBUorder.ListIndex() >= 1) EnableImageMenus();
    if (SettingInteger("Undoredo", 1, 0, 1) == 0) TrimHistory();
    alreadysaved = false;
    NoteDocuments();
}

void frmImage::TrimHistory() {
    ResumeNext([] { frmPrefs->Combo2.ListIndex(SettingInteger("UndoSteps", 0, 0, 5)); });
    const int steps = ToInt16(Val(frmPrefs->Combo2.Text()));
    if (steps + 1 >= ListBUorder.ListCount()) return;
    // Intended: one state at most goes per edit, so that a limit switched on later never drops a long history
    // at once.
    ForgetState(ListBackup.List(StateIndex(ListBUorder, 0)));
    ListBUorder.RemoveItem(0);
}

std::string frmImage::MyUndo() {
    int i = ListBUorder.ListIndex();
    std::string path = ListBackup.List(StateIndex(ListBUorder, i - 1));
    ListBUorder.ListIndex(i - 1);
    ShowUndoState(ListBUorder);
    if (ListBUorder.ListIndex() == 0 && AFCurfile.empty()) {
        bool all = false;
        DisableImageMenus(all);
    }
    return path;
}

std::string frmImage::MyRedo() {
    int i = ListBUorder.ListIndex();
    std::string path = ListBackup.List(StateIndex(ListBUorder, i + 1));
    ListBUorder.ListIndex(i + 1);
    ShowUndoState(ListBUorder);
    if (ListBUorder.ListIndex() >= 1) EnableImageMenus();
    return path;
}

// Behind an empty place: a close asks about every state but the one of place 0.
void frmImage::TakeHistory(const RunDocument& left) {
    ListBackup.AddItem("");
    for (const std::string& state : left.states)
        ListBackup.AddItem(state);
    for (const int place : left.order)
        ListBUorder.AddItem(NumberText(place + 1));
    ListBUorder.ListIndex(left.cursor);
    before = left.before < 0 ? -1 : left.before + 1;
    alreadysaved = false;
    ShowUndoState(ListBUorder);
}

// Intended: pixels and twips are added as they stand, so that a blanked image leaves a window that is plainly
// too small to be taken for one.
void frmImage::Blankme() {
    PicMerge.Picture(LoadPicture());
    if (RulersOn) {
        Width(LeftRuler.Width() + PicBG.Width() + kChildFrameWidth);
        Height(TopRuler.Height() + PicBG.Height() + kChildFrameHeight);
    } else {
        Width(PicBG.Width() + kChildFrameWidth);
        Height(PicBG.Height() + kChildFrameHeight);
    }
    Form_Resize();
}

} // namespace pintalux
