#include "document/UndoCommands.h"

#include "base/Arithmetic.h"
#include "base/NumberText.h"
#include "base/RuntimeError.h"
#include "document/frmImage.h"
#include "document/Recovery.h"
#include "document/Selection.h"
#include "document/States.h"
#include "document/Workspace.h"
#include "surface/system/MsgBox.h"

#include <string>

namespace pintalux {

namespace {

// The file of the state at a place of the order; empty where the order has no such place.
std::string StateAt(const frmImage& image, int place) {
    const std::string index = image.ListBUorder.List(place);
    return index.empty() ? index : image.ListBackup.List(ToInt32(Val(index)));
}

// Intended: at a zoom other than 1:1 the frame keeps its size, so that undoing does not move the view; a
// state of another size shows stretched until the zoom changes.
void ShowImage() {
    if (ActiveImage().factor == 1) {
        ResumeNext([] { FitImageWindow(); }, [] { ActiveImage().Picsize(); });
    } else {
        ResumeNext([] { ActiveImage().Image1.Picture(ActiveImage().PicMerge.Image()); });
    }
}

// Takes the image and the cursor to a state beside the current one. A state that cannot be read leaves both
// where they are, and says why.
void WalkTo(const std::string& path, std::string (frmImage::*move)()) {
    if (path.empty()) return;
    frmImage& image = ActiveImage();
    // Some quick undos and a kill bring back what was shown, or what was shown one step before.
    States().Await(&image);
    try {
        image.PicMerge.AutoSize(true);
        image.PicMerge.Picture(States().LoadState(path));
    } catch (...) {
        MsgBox("Não consegui ler o estado guardado. A imagem fica como está.\n\n" + CurrentError().Text(),
               BoxButtons::Ok, BoxIcon::Exclamation, kMessageTitle);
        return;
    }
    ResumeNext([&] { FollowWithCleanCopy(image); }, [&] { (image.*move)(); }, [] { NoteDocuments(); },
               [&] { LockWindowUpdate(image.hWnd()); }, [] { ShowImage(); },
               [] { LockWindowUpdate(nullptr); });
}

} // namespace

void mnuEditUndo_Click() {
    ResumeNext(
        [] { AbandonPath(ActiveImage()); }, [] { RecordText(ActiveImage()); },
        [] { WalkTo(StateAt(ActiveImage(), ActiveImage().ListBUorder.ListIndex() - 1), &frmImage::MyUndo); });
}

void mnuEditRedo_Click() {
    ResumeNext(
        [] { AbandonPath(ActiveImage()); }, [] { RecordText(ActiveImage()); },
        [] { WalkTo(StateAt(ActiveImage(), ActiveImage().ListBUorder.ListIndex() + 1), &frmImage::MyRedo); });
}

} // namespace pintalux
