// Progress bars.
#pragma once

#include "surface/window/Control.h"

#include <string>

namespace pintalux {

class ProgressBar : public Control {
  public:
    ProgressBar(Container& parent, std::string name); ///< 0 of 100.
    double Min() const { return 0; }
    double Max() const { return max_; }
    void Max(double value); ///< Error 380 if negative. A `Value` above it falls to it.
    double Value() const { return value_; }
    /// Error 380 outside 0 to Max. Repaints at once, at most every 50 ms (0 and Max always), and lets no
    /// event run, so that a handler which shows its progress is never entered a second time.
    void Value(double value);

  private:
    void ShowState();
    double max_ = 100, value_ = 0;
};

} // namespace pintalux
