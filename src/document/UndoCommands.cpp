#include "document/UndoCommands.h"

#include "base/RuntimeError.h"
#include "document/frmImage.h"
#include "document/States.h"
#include "document/Workspace.h"

#include <string>

namespace pintalux {

namespace {

// Intended: at a zoom other than 1:1 the frame keeps its size, so that undoing does not move the view; a
// state of another size shows stretched until the zoom changes.
void ShowState(const std::string& path) {
    ResumeNext([] { ActiveImage().PicMerge.AutoSize(true); },
               [&] { ActiveImage().PicMerge.Picture(States().LoadState(path)); });
    if (ActiveImage().factor == 1) {
        ResumeNext([] { FitImageWindow(); }, [] { ActiveImage().Picsize(); });
    } else {
        ResumeNext([] { ActiveImage().Image1.Picture(ActiveImage().PicMerge.Image()); });
    }
}

} // namespace

void mnuEditUndo_Click() {
    std::string path;
    ResumeNext([&] { path = ActiveImage().MyUndo(); }, [] { LockWindowUpdate(ActiveImage().hWnd()); },
               [&] {
                   if (States().Exists(path)) {
                       ShowState(path);
                   } else {
                       ActiveImage().Blankme();
                   }
               },
               [] { LockWindowUpdate(nullptr); });
}

void mnuEditRedo_Click() {
    std::string path;
    ResumeNext([&] { path = ActiveImage().MyRedo(); }, [] { LockWindowUpdate(ActiveImage().hWnd()); },
               [&] {
                   if (States().Exists(path)) ShowState(path);
               },
               [] { LockWindowUpdate(nullptr); });
}

} // namespace pintalux
