// The commands of the menu "Digitalizador".
#pragma once

namespace pintalux {

/// A page from the scanner as a new document.
void mnuFileAquire_Click();
void mnuFileTSelect_Click();

} // namespace pintalux
