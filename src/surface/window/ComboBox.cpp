#include "surface/window/ComboBox.h"

#include "base/RuntimeError.h"
#include "surface/window/Inputs_native.h"

#include <QComboBox>

namespace pintalux {

ComboBox::ComboBox(Container& parent, std::string name, std::vector<std::string> items)
    : Control(&parent, std::move(name)) {
    auto* widget = new QComboBox(ClientWidgetOf(parent));
    InstallWidget(*this, widget);
    for (std::string& item : items)
        AddItem(std::move(item));
    QObject::connect(widget, &QComboBox::activated, widget, [this](int index) {
        if (index == listIndex_) return;
        listIndex_ = index;
        RunByHand(Click);
    });
}

void ComboBox::AddItem(std::string text) {
    Quietly<QComboBox>(*this, [&](QComboBox& box) { box.addItem(ToQString(text)); });
    items_.push_back(std::move(text));
    ShowState(); // the toolkit chooses the first entry by itself
}

void ComboBox::Clear() {
    items_.clear();
    listIndex_ = -1;
    Quietly<QComboBox>(*this, [](QComboBox& box) { box.clear(); });
}

std::string ComboBox::List(int index) const {
    return index < 0 || index >= ListCount() ? std::string() : items_[static_cast<std::size_t>(index)];
}

void ComboBox::ListIndex(int value) {
    if (value < -1 || value >= ListCount()) throw RuntimeError(kInvalidPropertyValue);
    if (value == listIndex_) return;
    listIndex_ = value;
    ShowState();
    if (Click) Click();
}

void ComboBox::ShowState() {
    Quietly<QComboBox>(*this, [this](QComboBox& box) { box.setCurrentIndex(listIndex_); });
}

} // namespace pintalux
