// Lists that drop down.
#pragma once

#include "surface/window/ListControl.h"

#include <string>
#include <vector>

namespace pintalux {

/// A list that drops down; the user picks, never types.
class ComboBox : public ListControl {
  public:
    ComboBox(Container& parent, std::string name, std::vector<std::string> items);

  protected:
    void ShowItem(const std::string& text) override;
    void ShowNone() override;
    void ShowIndex() override;
};

} // namespace pintalux
