#include "devices/ScanCommands.h"

#include "base/NumberText.h"
#include "devices/modTwain.h"
#include "document/frmImage.h"
#include "document/Workspace.h"
#include "files/FileNames.h"
#include "surface/system/App.h"
#include "surface/system/FileLayer.h"
#include "surface/system/MsgBox.h"
#include "surface/system/Pictures.h"
#include "surface/window/MDIForm.h"
#include "surface/window/Screen.h"

namespace pintalux {

namespace {

// Intended: the number is that of the last error, 0 where the user cancelled; why a device or a disk refused
// was said before.
void TellAborted(int errorNumber) {
    const PointerOverAll usual(kPointerDefault);
    MsgBox("Operação Abortada. Erro:" + NumberText(errorNumber), BoxButtons::Ok, BoxIcon::Information,
           kMessageTitle);
}

// Intended: a scanned document begins with two equal states, so that a first undo stays on the page, and
// keeps the name of a file that is gone, so that the next save asks for one.
void OpenScan(const std::string& path) {
    LockWindowUpdate(&*TheWorkspace.window);
    NewImageWindow();
    frmImage& image = ActiveImage();
    image.AFCurfile = path;
    image.PicMerge.Picture(LoadPicture(path));
    FitImageWindow();
    image.Picsize();
    image.Backup();
    image.Backup();
    image.Caption(FileNameOf(path));
    LockWindowUpdate(nullptr);
    DeleteFile(path);
}

} // namespace

void mnuFileAquire_Click() {
    const PointerOverAll wait(kPointerHourglass);
    try {
        const std::string path = UniqueFileName(App.Path() + "/Untitled.bmp");
        if (TWAIN_AcquireToFilename(&*TheWorkspace.window, path) == 0) {
            OpenScan(path);
        } else {
            TellAborted(0);
        }
    } catch (...) {
        TellAborted(CurrentError().Number());
    }
}

void mnuFileTSelect_Click() {
    TWAIN_SelectImageSource(&*TheWorkspace.window);
}

} // namespace pintalux
