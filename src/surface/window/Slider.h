// Sliders with tick marks.
#pragma once

#include "surface/window/Control.h"

#include <functional>
#include <string>

namespace pintalux {

/// A lying slider. It starts at the low end of its range with changes of 1.
class Slider : public Control {
  public:
    Slider(Container& parent, std::string name, int min, int max);
    int Min() const { return min_; }
    /// Moves `Value` into the new range, which runs `Change`; above `Max`, `Max` follows.
    void Min(int value);
    int Max() const { return max_; }
    void Max(int value); ///< As `Min`; below it, `Min` follows.
    int Value() const { return value_; }
    void Value(double value);    ///< Rounded: error 6. Runs `Change` if it changes; error 380 outside.
    void SmallChange(int value); ///< What an arrow key moves; error 380 below 1.
    void LargeChange(int value); ///< What the page keys and a click beside the thumb move; error 380 below 1.
    void TickFrequency(int value); ///< Units between two ticks; error 380 below 1.

    std::function<void()> Change; ///< After each change of `Value`, except while the thumb is dragged.
    std::function<void()> Scroll; ///< While the thumb is dragged; `Change` follows at its release.

  private:
    void RangeChanged();
    void ShowState();
    int min_, max_, value_;
};

} // namespace pintalux
