#include "surface/window/ComboBox.h"

#include "surface/window/Inputs_native.h"

#include <QComboBox>

namespace pintalux {

ComboBox::ComboBox(Container& parent, std::string name, std::vector<std::string> items)
    : ListControl(parent, std::move(name)) {
    auto* widget = new QComboBox(ClientWidgetOf(parent));
    InstallWidget(*this, widget);
    for (std::string& item : items)
        AddItem(std::move(item));
    QObject::connect(widget, &QComboBox::activated, widget, [this](int index) { ChosenByHand(index); });
}

void ComboBox::ShowItem(const std::string& text) {
    Quietly<QComboBox>(*this, [&](QComboBox& box) { box.addItem(ToQString(text)); });
}

void ComboBox::ShowNone() {
    Quietly<QComboBox>(*this, [](QComboBox& box) { box.clear(); });
}

void ComboBox::ShowIndex() {
    Quietly<QComboBox>(*this, [this](QComboBox& box) { box.setCurrentIndex(ListIndex()); });
}

} // namespace pintalux
