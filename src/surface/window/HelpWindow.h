// A window that shows a page of the program's resources.
#pragma once

#include <string>

namespace pintalux {

/// Shows a page of HTML over the active window, or brings it to the front. Escape and its close box close it.
/// The work in the other windows goes on.
void ShowHelpPage(const std::string& title, const std::string& resource);

} // namespace pintalux
