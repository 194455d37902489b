#include "surface/window/ListBox.h"

#include "surface/window/Inputs_native.h"

#include <QItemSelectionModel>
#include <QListWidget>

namespace pintalux {

ListBox::ListBox(Container& parent, std::string name, std::vector<std::string> items)
    : ListControl(parent, std::move(name)) {
    auto* widget = new QListWidget(ClientWidgetOf(parent));
    widget->setEditTriggers(QAbstractItemView::NoEditTriggers);
    InstallWidget(*this, widget, true);
    for (std::string& item : items)
        AddItem(std::move(item));
    // The selection counts, not the current row: that one moves when the list merely gets the focus.
    QObject::connect(widget, &QListWidget::itemSelectionChanged, widget, [this, widget] {
        const QList<QListWidgetItem*> selected = widget->selectedItems();
        if (selected.isEmpty()) return ShowIndex();
        ChosenByHand(widget->row(selected.front()));
    });
    QObject::connect(widget, &QListWidget::itemDoubleClicked, widget, [this] { RunByHand(DblClick); });
}

void ListBox::ShowItem(const std::string& text) {
    Quietly<QListWidget>(*this, [&](QListWidget& list) { list.addItem(ToQString(text)); });
}

void ListBox::ShowNone() {
    Quietly<QListWidget>(*this, [](QListWidget& list) { list.clear(); });
}

void ListBox::ShowIndex() {
    Quietly<QListWidget>(*this, [this](QListWidget& list) {
        if (ListIndex() < 0) {
            list.clearSelection();
        } else {
            list.setCurrentRow(ListIndex(), QItemSelectionModel::ClearAndSelect);
        }
    });
}

} // namespace pintalux
