// A window that shows a page of the program's resources.
#pragma once

#include <string>

namespace pintalux {

/// A page of HTML, and where in it it tells of dialogs.
struct HelpPage {
    std::string title;
    std::string resource;
    std::string dialogs; ///< The name of an anchor.
};

/// Shows the page over the active window, or brings it to the front. Escape and its close box close it. The
/// work in the other windows goes on.
void ShowHelpPage(const HelpPage& page);

/// From now on F1 shows the page while a dialog is up, too, the toolkit's own among them, from where it tells
/// of dialogs. There it goes with the dialog.
void HelpInDialogs(const HelpPage& page);

} // namespace pintalux
