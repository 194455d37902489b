#include "surface/window/ListControl.h"

#include "surface/window/Inputs_native.h"

namespace pintalux {

void ListControl::AddItem(std::string text) {
    ShowItem(text);
    items_.push_back(std::move(text));
    ShowIndex(); // A list that drops down chooses its first entry by itself.
}

void ListControl::Clear() {
    items_.clear();
    listIndex_ = -1;
    ShowNone();
}

std::string ListControl::List(int index) const {
    return index < 0 || index >= ListCount() ? std::string() : items_[static_cast<std::size_t>(index)];
}

void ListControl::ListIndex(int value) {
    AssignValue(
        listIndex_, Within(value, -1, ListCount() - 1), [this] { ShowIndex(); }, Click);
}

void ListControl::ChosenByHand(int index) {
    TakeByHand(listIndex_, index, Click);
}

} // namespace pintalux
