#include "devices/PrintCommands.h"

#include "document/frmImage.h"
#include "document/Globals.h"
#include "document/Workspace.h"
#include "surface/system/MsgBox.h"
#include "surface/system/Printer.h"

namespace pintalux {

void mnuFilePrinterSetup_Click() {
    Printer().ShowSetup();
}

// Intended: the stored picture is printed, without strokes that have not become part of it and without what
// floats, so that a page shows what an operation, an undo or a file has last settled.
void mnuFilePrinterPrint_Click() {
    if (ImageCount == 0) return;
    const Picture picture = ActiveImage().PicMerge.Picture();
    if (picture.Empty()) {
        MsgBox("Esta imagem ainda só tem traços por guardar, por isso nada foi impresso. A imagem continua "
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
}

} // namespace pintalux
