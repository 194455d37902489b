// What documents need of the main window. The main window fills it when it is made; tests may put parts of
// their own in.
#pragma once

#include <functional>

namespace pintalux {

class MDIForm;
class frmImage;
struct CommandBar;
struct MainMenu;

struct Workspace {
    MDIForm* window = nullptr;
    MainMenu* menu = nullptr;
    CommandBar* bar = nullptr;
    /// Connects the pointer events of a new document to the tools.
    std::function<void(frmImage&)> ConnectTools;
    /// Merges what floats over a document and records it.
    std::function<void(frmImage&)> MergeByCommand;
};
extern Workspace TheWorkspace;

/// The active document. Error 91 if there is none.
frmImage& ActiveImage();

} // namespace pintalux
