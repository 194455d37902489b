#include "surface/window/ListBox.h"

#include "base/RuntimeError.h"
#include "surface/window/Inputs_native.h"

#include <QItemSelectionModel>
#include <QListWidget>

namespace pintalux {

ListBox::ListBox(Container& parent, std::string name, std::vector<std::string> items)
    : Control(&parent, std::move(name)) {
    auto* widget = new QListWidget(ClientWidgetOf(parent));
    widget->setEditTriggers(QAbstractItemView::NoEditTriggers);
    InstallWidget(*this, widget, true);
    for (std::string& item : items)
        AddItem(std::move(item));
    // The selection counts, not the current row: that one moves when the list merely gets the focus.
    QObject::connect(widget, &QListWidget::itemSelectionChanged, widget, [this, widget] {
        const QList<QListWidgetItem*> selected = widget->selectedItems();
        if (selected.isEmpty()) return ShowState();
        const int row = widget->row(selected.front());
        if (row == listIndex_) return;
        listIndex_ = row;
        RunByHand(Click);
    });
    QObject::connect(widget, &QListWidget::itemDoubleClicked, widget, [this] { RunByHand(DblClick); });
}

void ListBox::AddItem(std::string text) {
    Quietly<QListWidget>(*this, [&](QListWidget& list) { list.addItem(ToQString(text)); });
    items_.push_back(std::move(text));
}

void ListBox::Clear() {
    items_.clear();
    listIndex_ = -1;
    Quietly<QListWidget>(*this, [](QListWidget& list) { list.clear(); });
}

std::string ListBox::List(int index) const {
    return index < 0 || index >= ListCount() ? std::string() : items_[static_cast<std::size_t>(index)];
}

void ListBox::ListIndex(int value) {
    if (value < -1 || value >= ListCount()) throw RuntimeError(kInvalidPropertyValue);
    if (value == listIndex_) return;
    listIndex_ = value;
    ShowState();
    if (Click) Click();
}

void ListBox::ShowState() {
    Quietly<QListWidget>(*this, [this](QListWidget& list) {
        if (listIndex_ < 0) {
            list.clearSelection();
        } else {
            list.setCurrentRow(listIndex_, QItemSelectionModel::ClearAndSelect);
        }
    });
}

} // namespace pintalux
