// A list that is never shown and serves as an array of texts with a cursor.
#pragma once

#include <string>
#include <vector>

namespace pintalux {

class ListStore {
  public:
    void AddItem(std::string text) { items_.push_back(std::move(text)); }
    /// Error 5 outside the list. The cursor stays on its entry; it is -1 after that entry itself was removed.
    void RemoveItem(int index);
    void Clear();
    /// The entry's text; empty outside the list.
    std::string List(int index) const;
    int ListCount() const { return static_cast<int>(items_.size()); }
    int ListIndex() const { return listIndex_; }
    /// -1 to ListCount - 1; error 380 outside.
    void ListIndex(int value);

  private:
    std::vector<std::string> items_;
    int listIndex_ = -1;
};

} // namespace pintalux
