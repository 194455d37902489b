// Scroll bars. A short upright one beside a text box shows just its two arrows and serves as its spinner.
#pragma once

#include "surface/window/Control.h"

#include <functional>
#include <string>

namespace pintalux {

/// A scroll bar, upright or lying. All values are 16-bit.
class ScrollBar : public Control {
  public:
    enum class Direction { Horizontal, Vertical };
    /// Range 0 to 32767 at `Value` 0, changes of 1.
    ScrollBar(Container& parent, std::string name, Direction direction);

    int Min() const { return min_; }
    /// Rounded to 16 bits: error 6. Moves `Value` into the new range, which runs `Change`. A `Min` above
    /// `Max` turns the bar round.
    void Min(double value);
    int Max() const { return max_; }
    void Max(double value); ///< As `Min`.
    int Value() const { return value_; }
    void Value(double value); ///< Rounded to 16 bits: error 6. Outside Min to Max error 380.
    int SmallChange() const { return smallChange_; }
    void
    SmallChange(double value); ///< What an arrow moves. Rounded to 16 bits: error 6. Negative: error 380.
    int LargeChange() const { return largeChange_; }
    // Intended: a LargeChange of 0 is kept and acts as 1, so that a short scroll range raises nothing.
    void LargeChange(double value); ///< What a click beside the thumb moves; errors as `SmallChange`.

    std::function<void()> Change; ///< After each change of `Value`, except while the thumb is dragged.
    std::function<void()> Scroll; ///< While the thumb is dragged; `Change` follows at its release.

  private:
    void RangeChanged();
    void ShowState();
    int min_ = 0, max_ = 32767, value_ = 0, smallChange_ = 1, largeChange_ = 1;
};

} // namespace pintalux
