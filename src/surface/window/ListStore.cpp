#include "surface/window/ListStore.h"

#include "base/RuntimeError.h"

namespace pintalux {

void ListStore::RemoveItem(int index) {
    if (index < 0 || index >= ListCount()) throw RuntimeError(kInvalidArgument);
    items_.erase(items_.begin() + index);
    if (listIndex_ == index) {
        listIndex_ = -1;
    } else if (listIndex_ > index) {
        --listIndex_;
    }
}

void ListStore::Clear() {
    items_.clear();
    listIndex_ = -1;
}

std::string ListStore::List(int index) const {
    return index >= 0 && index < ListCount() ? items_[static_cast<std::size_t>(index)] : std::string{};
}

void ListStore::ListIndex(int value) {
    if (value < -1 || value >= ListCount()) throw RuntimeError(kInvalidPropertyValue);
    listIndex_ = value;
}

} // namespace pintalux
