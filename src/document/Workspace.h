// What documents need of the main window. The main window and its parts enter themselves when they are made.
#pragma once

#include "base/Registered.h"

#include <functional>

namespace pintalux {

class MDIForm;
class frmImage;
struct CommandBar;
struct MainMenu;

struct Workspace {
    Registered<MDIForm> window;
    Registered<MainMenu> menu;
    Registered<CommandBar> bar;
    /// Connects the pointer events of a new document to the tools.
    std::function<void(frmImage&)> ConnectTools;
    /// Merges what floats over a document and records it.
    std::function<void(frmImage&)> MergeByCommand;
};
inline Workspace TheWorkspace;

/// The active document, minimised or not. Error 91 if there is none.
frmImage& ActiveImage();

/// The active document can be seen: there is one, and it is not minimised.
bool ADocumentShows();

} // namespace pintalux
