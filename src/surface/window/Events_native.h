// Where the program stands: how deep inside its own handlers, and whether what is reported is its own doing.
#pragma once

#include <functional>
#include <utility>

namespace pintalux {

/// "This comes from us": sets a mark as long as it exists. Where the mark is set, what the toolkit reports is
/// the program's own doing, and no news.
class FromUs {
  public:
    explicit FromUs(bool& mark) : mark_(mark), before_(std::exchange(mark, true)) {}
    ~FromUs() { mark_ = before_; }
    FromUs(const FromUs&) = delete;
    FromUs& operator=(const FromUs&) = delete;

  private:
    bool& mark_;
    bool before_;
};

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
