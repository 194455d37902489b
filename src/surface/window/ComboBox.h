// Lists that drop down.
#pragma once

#include "surface/window/Control.h"

#include <string>
#include <vector>

namespace pintalux {

/// A list that drops down; the user picks, never types.
class ComboBox : public Control {
  public:
    ComboBox(Container& parent, std::string name, std::vector<std::string> items);
    void AddItem(std::string text);
    void Clear(); ///< `ListIndex` becomes -1; runs nothing.
    int ListCount() const { return static_cast<int>(items_.size()); }
    std::string List(int index) const; ///< Empty outside.
    int ListIndex() const { return listIndex_; }
    void ListIndex(int value); ///< -1 to ListCount - 1, else error 380. Runs `Click` if it changes.
    std::string Text() const { return List(listIndex_); }

  private:
    void ShowState();
    std::vector<std::string> items_;
    int listIndex_ = -1;
};

} // namespace pintalux
