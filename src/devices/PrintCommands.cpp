#include "devices/PrintCommands.h"

#include "document/frmImage.h"
#include "document/Globals.h"
#include "document/Workspace.h"
#include "files/FileNames.h"
#include "surface/system/MsgBox.h"
#include "surface/system/Printer.h"

namespace pintalux {

void mnuFilePrinterSetup_Click() {
    Printer().ShowSetup();
}

namespace {

// Intended: the next page that goes to a file gets a file of its own, so that no page takes the place of the
// one before it.
void NameNextFile() {
    static std::string chosen; // in the printer dialog
    static std::string next;   // what it was numbered to
    const std::string file = Printer().OutputFile();
    if (file.empty()) return;
    if (file != next) chosen = file;
    next = UniqueFileName(chosen);
    Printer().OutputFile(next);
}

} // namespace

// Intended: the stored picture is printed, without strokes that have not become part of it and without what
// floats, so that a page shows what an operation, an undo or a file has last settled.
void mnuFilePrinterPrint_Click() {
    if (ImageCount == 0) return;
    const Picture picture = ActiveImage().PicMerge.Picture();
    if (picture.Empty()) {
        MsgBox("Esta imagem ainda só tem traços por salvar, por isso nada foi impresso. A imagem continua "
               "aberta. "
               "Salve-a, abra-a de novo e imprima.",
               BoxButtons::Ok, BoxIcon::Information, kMessageTitle);
        return;
    }
    PrinterObject& printer = Printer();
    printer.CurrentX(0);
    printer.CurrentY(0);
    printer.PaintPicture(picture, printer.CurrentX(), printer.CurrentY());
    printer.EndDoc();
    NameNextFile();
}

} // namespace pintalux
