#include "document/FileCommands.h"

#include "base/Arithmetic.h"
#include "base/NumberText.h"
#include "document/frmImage.h"
#include "document/frmNew.h"
#include "document/Globals.h"
#include "document/MainMenu.h"
#include "document/Selection.h"
#include "document/Workspace.h"
#include "files/FileNames.h"
#include "settings/frmPrefs.h"
#include "surface/system/App.h"
#include "surface/system/CommonDialog.h"
#include "surface/system/FileLayer.h"
#include "surface/system/MsgBox.h"
#include "surface/system/Pictures.h"
#include "surface/window/MDIForm.h"

namespace pintalux {

namespace {

constexpr int kNewSide = 300; // pixels

void RememberFile(const std::string& path) {
    UpdateMRUs(TheWorkspace.menu->mnuFileMRU, TheWorkspace.menu->mnuFileBar5, path);
}

// The image as JPEG in the quality that the Preferences have now, by way of a BMP beside the program.
// Intended: the result of the JPEG writer is not looked at, so that a save never ends in the middle: a
// failure leaves no file, and the document counts as saved all the same.
void SaveJpeg(const Picture& image, const std::string& path) {
    const std::string bmp = App.Path() + "/klTmpJpg.bmp";
    int quality = 50;
    ResumeNext([&] { quality = ToInt16(Val(Setting("JPGsaveQuality", "50"))); });
    SavePicture(image, bmp);
    BmpToJpeg(bmp, path, quality);
    if (FileExists(bmp)) DeleteFile(bmp);
}

} // namespace

void mnuFileNew_Click() {
    ResumeNext([] { NewCancelled = false; }, [] { frmNew->VSPXh.Value(frmNew->VSPXh.Max() - kNewSide); },
               [] { frmNew->VSPXw.Value(frmNew->VSPXw.Max() - kNewSide); },
               [] { frmNew->Combo1.ListIndex(NewColorIndex); }, [] { frmNew->ShowModal(); });
    if (NewCancelled) return;
    ResumeNext([] { NewImageMode = true; }, [] { NewImageWindow(); }, [] { ActiveImage().Picsize(); },
               [] { FitImageWindow(); }, [] { ActiveImage().AFCurfile.clear(); },
               [] { ActiveImage().Backup(); });
}

void OpenDocument(const std::string& path) try {
    LockWindowUpdate(TheWorkspace.window);
    NewImageWindow();
    frmImage& image = ActiveImage();
    image.PicMerge.Picture(LoadPicture(path));
    image.AFCurfile = path;
    RememberFile(path);
    FitImageWindow();
    image.Picsize();
    image.Caption(FileNameOf(path));
    image.Backup();
    LockWindowUpdate(nullptr);
} catch (...) {
    // Intended: a file that is no picture leaves the new, empty window as it is and the lock recorded,
    // without a word.
}

void mnuFileOpen_Click() try {
    CommonDialog1.DialogTitle = "Abrir";
    CommonDialog1.Filter = "Picture files (*.bmp;*.jpg;*.gif;*.bif)|*.bmp;*.jpg;*.gif;*.bif";
    CommonDialog1.FilterIndex = 1;
    CommonDialog1.CancelError = false;
    CommonDialog1.ShowOpen();
    if (CommonDialog1.FileName().empty()) return;
    OpenDocument(CommonDialog1.FileName());
} catch (...) {
    // An error ends the command.
}

void mnuFileClose_Click() {
    ActiveImage().Unload();
}

void mnuFileSave_Click() {
    frmImage& image = ActiveImage();
    MergeFloating(image);
    if (!FileExists(image.AFCurfile)) {
        mnuFileSaveAs_Click();
        return;
    }
    const std::string extension = LowerCase(ExtensionOf(image.AFCurfile, false));
    if (extension == "jpg") {
        SaveJpeg(image.PicMerge.Image(), image.AFCurfile);
    } else if (extension == "bmp") {
        SavePictureAside(image.PicMerge.Image(), image.AFCurfile);
    } else {
        // Intended: what can't be written in its own format goes to a new BMP beside it, numbered if need be,
        // so that the file that was opened is never touched.
        std::string bmp = "bmp";
        SavePictureAside(image.PicMerge.Image(), UniqueFileName(ReplaceExtension(image.AFCurfile, bmp)));
    }
    image.alreadysaved = true;
}

void mnuFileSaveAs_Click() try {
    frmImage& image = ActiveImage();
    MergeFloating(image);
    CommonDialog1.DialogTitle = "Savar Como";
    CommonDialog1.Filter = "Bitmap (*.bmp)|*.bmp|Jpeg (*.jpg)|*.jpg";
    CommonDialog1.FilterIndex = 1;
    CommonDialog1.CancelError = false;
    CommonDialog1.ShowSave();
    if (CommonDialog1.FileName().empty()) return;
    // Intended: the chosen format alone decides how the name ends; a name without a point is refused
    // silently.
    std::string extension = CommonDialog1.FilterIndex == 2 ? "jpg" : "bmp";
    const std::string path = ReplaceExtension(CommonDialog1.FileName(), extension);
    if (CommonDialog1.FilterIndex == 2) {
        SaveJpeg(image.PicMerge.Image(), path);
    } else {
        SavePictureAside(image.PicMerge.Image(), path);
    }
    image.AFCurfile = path;
    image.Caption(FileNameOf(path));
    RememberFile(path);
    image.alreadysaved = true;
} catch (...) {
    // An error ends the command; the document stays as it was.
}

void MySaveAs() {
    mnuFileSave_Click();
}

void mnuFileMRU_Click(int Index) {
    MainMenu& menu = *TheWorkspace.menu;
    const std::string path = MRUfile(Index);
    if (!FileExists(path)) {
        MsgBox("Não encontrei o ficheiro.", BoxButtons::Ok, BoxIcon::None, kMessageTitle);
        menu.mnuFileMRU.UnloadAbove0();
        menu.mnuFileMRU(0).Visible(false);
        menu.mnuFileBar5.Visible(false);
        ForgetMRU(Index);
        LoadMRUs(menu.mnuFileMRU, menu.mnuFileBar5);
        return;
    }
    try {
        LockWindowUpdate(TheWorkspace.window);
        NewImageWindow();
        frmImage& image = ActiveImage();
        image.AFCurfile = path;
        image.PicMerge.Picture(LoadPicture(path));
        FitImageWindow();
        image.Picsize();
        image.Backup();
        image.Caption(FileNameOf(path));
        LockWindowUpdate(nullptr);
    } catch (...) {
        // As in File Open: the empty window stays.
    }
}

} // namespace pintalux
