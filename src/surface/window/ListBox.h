// Lists that stand open.
#pragma once

#include "surface/window/ListControl.h"

#include <string>
#include <vector>

namespace pintalux {

class ListBox : public ListControl {
  public:
    ListBox(Container& parent, std::string name, std::vector<std::string> items = {});

  protected:
    void ShowItem(const std::string& text) override;
    void ShowNone() override;
    void ShowIndex() override;
};

} // namespace pintalux
