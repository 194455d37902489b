// The collection of the user's own colours: the grid that fills as colours are committed, its file, its
// commands.
#include "base/NumberText.h"
#include "base/RuntimeError.h"
#include "colour/ColourPanel.h"
#include "surface/system/CommonDialog.h"
#include "surface/system/MsgBox.h"
#include "surface/window/Form.h"

namespace pintalux {

namespace {

constexpr std::int16_t kFirstRow = 156; // Y of the first cell
constexpr std::int16_t kCellPitch = 18; // from one cell to the next
constexpr std::int16_t kCellSide = 16;  // pixels
constexpr std::int16_t kLastLeft = 100; // beyond it a row is full
constexpr const char* kFilter = "Kelta Color Collection (*.klc)|*.klc";

void PrepareDialog(const char* title, bool cancelRaises) {
    CommonDialog1.DialogTitle = title;
    CommonDialog1.CancelError = cancelRaises;
    CommonDialog1.Filter = kFilter;
    CommonDialog1.FilterIndex = 1;
    CommonDialog1.FileName("");
}

} // namespace

void ColourPanel::loadselected() {
    CollectionDirty = true;
    ++CollectionCount;
    // Intended: the 79th colour lands in the first cell again, so that adding never stops.
    if (CollectionCount > kCollectionCells) CollectionCount = 1;
    if (CollectionCount < 2) {
        CollectionY = kFirstRow;
        CollectionX = 0;
    } else {
        CollectionX = static_cast<std::int16_t>(CollectionX + kCellPitch);
        if (CollectionX > kLastLeft) {
            CollectionX = 0;
            CollectionY = static_cast<std::int16_t>(CollectionY + kCellPitch);
        }
    }
    const Colour c = TheColor.BackColor();
    ColorBox.LineBF(CollectionX, CollectionY, CollectionX + kCellSide - 1, CollectionY + kCellSide - 1, c);
    CollectionColors[static_cast<std::size_t>(CollectionCount - 1)] = FormattedNumber(c);
    ColorBox.Picture(ColorBox.Image());
}

// Intended: the texts of the cells stay, so that a collection cleared by mistake is still in the next file
// that is saved, behind the colours added since.
void ColourPanel::unloadselected() {
    CollectionCount = 0;
    ColorBox.Picture({});
    CollectionDirty = false;
}

void ColourPanel::OpenColors() try {
    if (!CollectionAsked && CollectionDirty) {
        const BoxAnswer answer = MsgBox("Do you wish to save the currently selected colors first ?",
                                        BoxButtons::YesNoCancel, BoxIcon::Question, kMessageTitle);
        if (answer == BoxAnswer::Cancel) return;
        if (answer == BoxAnswer::Yes) {
            // Colours that could not be written are not given up.
            if (!SaveCollection()) return;
            CollectionAsked = true;
            OpenColors();
            CollectionAsked = false;
            return;
        }
    }
    PrepareDialog("Open Color Collection", true);
    CommonDialog1.ShowOpen();
    if (CommonDialog1.FileName().empty()) return;
    FillFrom(ReadCollection(CommonDialog1.FileName()));
} catch (...) {
    const RuntimeError error = CurrentError();
    if (error.Number() == kDialogCancelled) return;
    MsgBox(error.Text() + ".\nAs suas cores ficam como estavam.", BoxButtons::Ok, BoxIcon::Exclamation,
           kMessageTitle);
}

void ColourPanel::FillFrom(const std::vector<Colour>& colours) {
    unloadselected();
    LockWindowUpdate(&ColorBox);
    for (const Colour c : colours) {
        TheColor.BackColor(c);
        loadselected();
    }
    ShowCaptionContrast();
    txtRGB(TheColor.BackColor());
    LockWindowUpdate(nullptr);
}

/// False if the file could not be written; the user has been told.
bool ColourPanel::SaveCollection() {
    PrepareDialog("Save Colors", false);
    CommonDialog1.ShowSave();
    const std::string file = CommonDialog1.FileName();
    if (file.empty()) return true;
    if (!CollectionDirty) {
        MsgBox("No colors in your collection to save.");
        return true;
    }
    try {
        WriteCollection(file, CollectionColors);
        return true;
    } catch (...) {
        MsgBox(CurrentError().Text() +
                   ".\nAs cores não foram salvas e ficam na palete; escolha outro lugar para o ficheiro.",
               BoxButtons::Ok, BoxIcon::Exclamation, kMessageTitle);
        return false;
    }
}

void ColourPanel::SaveColors() {
    SaveCollection();
}

void ColourPanel::ToggleLock() {
    ColorLock = !ColorLock;
    Toolbar3.Buttons("Lock").Image(ColorLock ? ":/icons/lock.svg" : ":/icons/unlock.svg");
}

void ColourPanel::ClearByCommand() {
    const BoxAnswer answer = MsgBox("Are you sure you wish to remove your collection of colors ?",
                                    BoxButtons::YesNo, BoxIcon::Question, kMessageTitle, BoxDefault::Last);
    if (answer == BoxAnswer::Yes) unloadselected();
}

void ColourPanel::Toolbar3_ButtonClick(ToolButton& button) try {
    const std::string& key = button.Key();
    if (key == "Lock") ToggleLock();
    // Intended: the button that unlocks leaves the picture of the lock button as it is; the lock shows what
    // it was last set to by its own click.
    if (key == "Unlock2") ColorLock = false;
    if (key == "Clear") ClearByCommand();
    if (key == "ColDlg") PickByDialog();
    if (key == "OpenCol2") OpenColors();
    if (key == "SaveCols") SaveColors();
} catch (...) {
    return;
}

} // namespace pintalux
