#include "document/FileCommands.h"

#include "base/RuntimeError.h"
#include "document/frmImage.h"
#include "document/frmNew.h"
#include "document/Globals.h"
#include "document/MainMenu.h"
#include "document/Recovery.h"
#include "document/Selection.h"
#include "document/Workspace.h"
#include "files/FileNames.h"
#include "files/PictureFormats.h"
#include "settings/Setting.h"
#include "surface/system/CommonDialog.h"
#include "surface/system/MsgBox.h"
#include "surface/system/Pictures.h"
#include "surface/window/MDIForm.h"

#include <future>

namespace pintalux {

namespace {

constexpr int kNewSide = 300; // pixels

void RememberFile(const std::string& path) {
    UpdateMRUs(TheWorkspace.menu->mnuFileMRU, TheWorkspace.menu->mnuFileBar5, path);
}

// Writes the image of a document, or tells why it could not; whether it was written.
bool Write(const frmImage& image, const PictureFormat& format, const std::string& path) try {
    format.write(image.PicMerge.Image(), path, SettingInteger("JPGsaveQuality", 50, 10, 90));
    return true;
} catch (...) {
    std::string text = CurrentError().Text();
    if (text.find(path) == std::string::npos) text += ": " + path;
    MsgBox("Não foi possível salvar a imagem.\n" + text, BoxButtons::Ok, BoxIcon::Critical, kMessageTitle);
    return false;
}

// The document belongs to the file that it was saved to. An error ends the command; the file is written.
void TakeFile(frmImage& image, const std::string& path) try {
    image.AFCurfile = path;
    image.Caption(FileNameOf(path));
    RememberFile(path);
    image.alreadysaved = true;
    NoteDocuments();
} catch (...) {
}

// Reads a file before anything is changed for it, since the user may have to wait. Why there is no picture is
// raised where it is asked for.
std::future<Picture> LoadFirst(const std::string& path) {
    std::packaged_task<Picture()> load([&] { return LoadPictureWaiting(path); });
    load();
    return load.get_future();
}

// What the save dialog begins with: the name of the document, in its folder if it has one.
std::string ProposedName(const frmImage& image) {
    if (image.AFCurfile.empty()) return image.Caption() + ".bmp";
    std::string bmp = "bmp";
    const bool pointed = !ExtensionOf(image.AFCurfile, true).empty();
    return pointed ? ReplaceExtension(image.AFCurfile, bmp) : image.AFCurfile + ".bmp";
}

// In an order of its own: named before it is loaded, recorded before the window has its caption, and with
// nothing held back from the screen.
void OpenRecent(const std::string& path) try {
    std::future<Picture> loaded = LoadFirst(path);
    NewImageWindow();
    frmImage& image = ActiveImage();
    image.AFCurfile = path;
    try {
        image.PicMerge.Picture(loaded.get());
    } catch (...) {
        // A document whose file could not be read must never be saved over it.
        image.AFCurfile.clear();
        throw;
    }
    FitImageWindow();
    image.Picsize();
    image.Backup();
    image.Caption(FileNameOf(path));
    NoteDocuments();
} catch (...) {
    // As in File Open: the empty window stays.
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
    std::future<Picture> loaded = LoadFirst(path);
    LockWindowUpdate(&*TheWorkspace.window);
    NewImageWindow();
    frmImage& image = ActiveImage();
    image.PicMerge.Picture(loaded.get());
    image.AFCurfile = path;
    RememberFile(path);
    FitImageWindow();
    image.Picsize();
    image.Caption(FileNameOf(path));
    image.Backup();
    LockWindowUpdate(nullptr);
} catch (...) {
    // Intended: a file that is no picture, or is given up by Escape, leaves the new, empty window as it is
    // and the lock recorded, without a word.
}

void mnuFileOpen_Click() try {
    CommonDialog1.DialogTitle = "Abrir";
    CommonDialog1.Filter = OpenFilter();
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

SaveResult mnuFileSave_Click() {
    frmImage& image = ActiveImage();
    MergeFloating(image);
    const std::string extension = ExtensionOf(image.AFCurfile, false);
    if (extension.empty() || !FileExists(image.AFCurfile)) return mnuFileSaveAs_Click();
    const PictureFormat* format = WritableFormat(extension);
    std::string path = image.AFCurfile;
    if (format == nullptr) {
        // Intended: what can't be written in its own format goes to a new BMP beside it, numbered if need be,
        // so that the file that was opened is never touched.
        format = WritableFormat("bmp");
        std::string bmp = "bmp";
        path = UniqueFileName(ReplaceExtension(path, bmp));
    }
    if (!Write(image, *format, path)) return SaveResult::Failed;
    image.alreadysaved = true;
    NoteDocuments();
    return SaveResult::Saved;
}

SaveResult mnuFileSaveAs_Click() try {
    frmImage& image = ActiveImage();
    MergeFloating(image);
    CommonDialog1.DialogTitle = "Savar Como";
    CommonDialog1.Filter = SaveFilter();
    CommonDialog1.FilterIndex = 1;
    CommonDialog1.CancelError = false;
    CommonDialog1.FileName(ProposedName(image));
    CommonDialog1.ShowSave();
    // Intended: the chosen format alone decides how the name ends, whatever was typed.
    const std::string path = CommonDialog1.FileName();
    if (path.empty()) return SaveResult::Cancelled;
    if (!Write(image, FormatOfFilter(CommonDialog1.FilterIndex), path)) return SaveResult::Failed;
    TakeFile(image, path);
    return SaveResult::Saved;
} catch (...) {
    // An error ends the command; the document stays as it was.
    return SaveResult::Failed;
}

SaveResult MySaveAs() {
    return mnuFileSave_Click();
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
    OpenRecent(path);
}

} // namespace pintalux
