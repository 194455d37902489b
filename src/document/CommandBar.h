// The tool bar `TB2` on its strip, which grows to as many rows as the buttons need: file and edit commands
// (positions 1 to 10), then the tools (12 to 24). Beside or below the buttons stands the progress bar of the
// long operations.
#pragma once

#include "surface/window/ProgressBar.h"
#include "surface/window/Surface.h"
#include "surface/window/ToolBar.h"

namespace pintalux {

struct CommandBar {
    explicit CommandBar(Container& window);

    Surface ToolsTB;
    ToolBar TB2;
    ProgressBar Pb;

  private:
    void Fit();
};

} // namespace pintalux
