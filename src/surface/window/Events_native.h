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

/// Runs `work` as soon as the innermost handler that runs now is over; from the event loop if none runs. It
/// must raise nothing.
void WhenHandlerOver(std::function<void()> work);

} // namespace pintalux
