// Sliders with tick marks.
#pragma once

#include "surface/window/RangeControl.h"

#include <string>

namespace pintalux {

class Label;

/// A lying slider of 32-bit values, shown in a bubble while a hand moves it and behind its tip. It starts at
/// the low end of its range with changes of 1.
class Slider : public RangeControl {
  public:
    Slider(Container& parent, std::string name, int min, int max);
    using RangeControl::Max;
    using RangeControl::Min;
    /// Moves `Value` into the new range, which runs `Change`; above `Max`, `Max` follows.
    void Min(int value);
    void Max(int value);         ///< As `Min`; below it, `Min` follows.
    void SmallChange(int value); ///< What an arrow key moves; error 380 below 1.
    void LargeChange(int value); ///< What the page keys and a click beside the thumb move; error 380 below 1.
    void TickFrequency(int value); ///< Units between two ticks; error 380 below 1.
    /// Shows the value, dimmed, at the right end of a label too.
    void ShowValueIn(Label& label);

  protected:
    int Whole(double value) const override;
};

} // namespace pintalux
