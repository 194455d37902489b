// The tool bar `TB2` on its strip, which grows to as many rows as the buttons need: file and edit commands,
// then the tools. Beside or below the buttons stands the progress bar of the
// long operations.
#pragma once

#include "document/Workspace.h"
#include "surface/window/ProgressBar.h"
#include "surface/window/Surface.h"
#include "surface/window/ToolBar.h"

#include <vector>

namespace pintalux {

struct CommandBar {
    /// `tools` are the buttons behind the commands.
    CommandBar(Container& window, const std::vector<ToolBar::Row>& tools);

    Surface ToolsTB;
    ToolBar TB2;
    ProgressBar Pb{ToolsTB, "Pb"};

  private:
    void Fit();

    Registered<CommandBar>::Entry entry_{TheWorkspace.bar, *this};
};

} // namespace pintalux
