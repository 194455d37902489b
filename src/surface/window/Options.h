// Check boxes and option buttons.
#pragma once

#include "surface/window/Control.h"

#include <string>
#include <vector>

namespace pintalux {

class CheckBox : public Control {
  public:
    CheckBox(Container& parent, std::string name, std::string caption);
    int Value() const { return value_; } ///< 0 or 1.
    void Value(int value);               ///< Runs `Click` if it changes; error 380 outside 0 and 1.

  private:
    int value_ = 0;
};

/// One of a group of options: those that share a container. Choosing one clears the others.
class OptionButton : public Control {
  public:
    OptionButton(Container& parent, std::string name, std::string caption);
    ~OptionButton() override;
    bool Value() const { return value_; }
    void Value(bool value); ///< Runs `Click` when it becomes true by a change.

  private:
    void ClearSiblings();
    std::vector<OptionButton*> Siblings() const;
    bool value_ = false;
};

} // namespace pintalux
