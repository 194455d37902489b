// The commands of the menu "Impressora".
#pragma once

namespace pintalux {

/// The desktop's printer dialog. The program keeps nothing of it.
void mnuFilePrinterSetup_Click();

/// The stored picture of the active document, at its natural size, from the top left corner of the page.
/// Error 68 without a printer, 57 if it refuses the page.
void mnuFilePrinterPrint_Click();

} // namespace pintalux
