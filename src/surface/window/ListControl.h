// What lists share, those that drop down and those that stand open: texts of which at most one is chosen.
#pragma once

#include "surface/window/Control.h"

#include <string>
#include <vector>

namespace pintalux {

class ListControl : public Control {
  public:
    void AddItem(std::string text);
    void Clear(); ///< `ListIndex` becomes -1; runs nothing.
    int ListCount() const { return static_cast<int>(items_.size()); }
    std::string List(int index) const; ///< Empty outside.
    int ListIndex() const { return listIndex_; }
    void ListIndex(int value); ///< -1 to ListCount - 1, else error 380. Runs `Click` if it changes.
    std::string Text() const { return List(listIndex_); }

  protected:
    ListControl(Container& parent, std::string name) : Control(&parent, std::move(name)) {}
    virtual void ShowItem(const std::string& text) = 0;
    virtual void ShowNone() = 0;
    virtual void ShowIndex() = 0;
    void ChosenByHand(int index);

  private:
    std::vector<std::string> items_;
    int listIndex_ = -1;
};

} // namespace pintalux
