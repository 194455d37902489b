// What scroll bars and sliders share: a whole number within a range, moved by code or by a thumb.
#pragma once

#include "surface/window/Control.h"

#include <functional>
#include <string>

namespace pintalux {

class RangeControl : public Control {
  public:
    int Min() const { return min_; }
    int Max() const { return max_; }
    int Value() const { return value_; }
    /// Rounded half to even to the bits of the control: error 6. Error 380 outside the range.
    void Value(double value);

    std::function<void()> Change; ///< After each change of `Value`, except while the thumb is dragged.
    std::function<void()> Scroll; ///< While the thumb is dragged; `Change` follows at its release.

  protected:
    /// The value starts at `min`.
    RangeControl(Container& parent, std::string name, int min, int max);
    /// Called once the bar or slider is installed: shows the state and follows what the hand does to it.
    void Follow();
    /// A new range, in either order: the value moves into it, which runs `Change`.
    void Range(int min, int max);
    /// Rounds to the bits of the control.
    virtual int Whole(double value) const = 0;

  private:
    void MovedTo(int value);
    void Released();
    void ShowState();
    int min_, max_, value_;
    bool dragged_ = false; ///< The thumb is held and was moved; its `Change` is due at the release.
};

} // namespace pintalux
