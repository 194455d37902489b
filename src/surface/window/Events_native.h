// How deep the program is inside its own handlers.
#pragma once

#include <functional>

namespace pintalux {

/// Counts a handler (or a modal loop) as running while it exists.
class RunningHandler {
  public:
    RunningHandler();
    ~RunningHandler();
    RunningHandler(const RunningHandler&) = delete;
    RunningHandler& operator=(const RunningHandler&) = delete;
};

/// Runs `work` from the event loop once no handler runs any more.
void WhenIdle(std::function<void()> work);

} // namespace pintalux
