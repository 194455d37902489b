// Scroll bars. A short upright one beside a text box shows just its two arrows and serves as its spinner.
#pragma once

#include "surface/window/RangeControl.h"

#include <string>

namespace pintalux {

/// A scroll bar, upright or lying. All values are 16-bit.
class ScrollBar : public RangeControl {
  public:
    enum class Direction { Horizontal, Vertical };
    /// Range 0 to 32767 at `Value` 0, changes of 1.
    ScrollBar(Container& parent, std::string name, Direction direction);

    using RangeControl::Max;
    using RangeControl::Min;
    /// Rounded to 16 bits: error 6. Moves `Value` into the new range, which runs `Change`. A `Min` above
    /// `Max` turns the bar round.
    void Min(double value);
    void Max(double value); ///< As `Min`.
    int LargeChange() const { return largeChange_; }
    // Intended: a LargeChange of 0 is kept and acts as 1, so that a short scroll range raises nothing.
    /// What a click beside the thumb moves; an arrow moves 1. Rounded to 16 bits: error 6. Negative: error
    /// 380.
    void LargeChange(double value);

  protected:
    int Whole(double value) const override;

  private:
    int largeChange_ = 1;
};

} // namespace pintalux
