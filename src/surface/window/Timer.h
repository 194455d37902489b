// A timer on the interface thread.
#pragma once

#include "surface/window/Events.h"

#include <functional>
#include <memory>

namespace pintalux {

class Timer {
  public:
    /// `kind` Pointer marks a drag timer: an overflow ends one tick and not the program.
    explicit Timer(int interval, EventKind kind = EventKind::Ordinary);
    ~Timer();
    int Interval() const;
    void Interval(int milliseconds); ///< 0 to 65535, else error 380; 0 stops.
    bool Enabled() const;
    void Enabled(bool value); ///< Off at construction. Switching on what is on changes nothing.

    /// A tick. A tick that is due while a modal dialog runs fires there; one that is due while
    /// the user waits for long work is left out. Ticks of one timer don't nest.
    std::function<void()> Tick;

  private:
    struct Native;
    std::unique_ptr<Native> native_;
};

} // namespace pintalux
