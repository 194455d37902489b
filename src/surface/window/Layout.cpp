#include "surface/window/Layout.h"

#include "surface/window/Accessible_native.h"
#include "surface/window/Control_native.h"
#include "surface/window/Events.h"
#include "surface/window/Form.h"
#include "surface/window/ScrollBar.h"
#include "surface/window/Surface_native.h"

#include <QEvent>
#include <QGridLayout>
#include <QLabel>

#include <algorithm>

namespace pintalux {

namespace {

Qt::Alignment AlignmentOf(Place place) {
    switch (place) {
    case Place::Left:
        return Qt::AlignLeft | Qt::AlignVCenter;
    case Place::Right:
        return Qt::AlignRight | Qt::AlignVCenter;
    case Place::Top:
        return Qt::AlignTop;
    case Place::Centre:
        return Qt::AlignCenter;
    default:
        return {};
    }
}

/// Keeps Left, Top, Width and Height of a control true to the place that the grid gave it.
class GridFollower : public QObject {
  public:
    GridFollower(Control& control, QWidget* widget) : QObject(widget), control_(control) {}

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::Resize && event->type() != QEvent::Move) return false;
        const QRect place = static_cast<QWidget*>(watched)->geometry();
        RunEvent(EventKind::Ordinary, [&] {
            if (auto* surface = dynamic_cast<Surface*>(&control_))
                return SurfaceNative::TakePlace(*surface, place);
            ControlNative::TakePlace(control_, place);
        });
        return false;
    }

  private:
    Control& control_;
};

/// What was assigned is the least size. A surface without controls of its own keeps exactly what it was
/// given, so that its bitmap never depends on the texts around; so does a scroll bar, which at a text box
/// shows just its arrows.
void GiveSize(Control& control, QWidget* widget) {
    const QSize size = PixelPlace(control).size();
    if (size.width() > 0) widget->setMinimumWidth(size.width());
    if (size.height() > 0) widget->setMinimumHeight(size.height());
    const bool exact = dynamic_cast<ScrollBar*>(&control) || dynamic_cast<Surface*>(&control);
    if (!exact || widget->layout()) return;
    if (size.width() > 0) widget->setMaximumWidth(size.width());
    if (size.height() > 0) widget->setMaximumHeight(size.height());
}

void Add(QGridLayout& grid, const GridItem& item) {
    if (!item.control) {
        grid.addItem(new QSpacerItem(0, 0, QSizePolicy::Expanding, QSizePolicy::Expanding), item.row,
                     item.column, item.rows, item.columns);
        return;
    }
    QWidget* widget = WidgetOf(*item.control);
    if (!widget) return;
    Control& control = *item.control;
    GiveSize(control, widget);
    control.Native().place = [&control] {
        if (QWidget* placed = WidgetOf(control)) GiveSize(control, placed);
    };
    widget->installEventFilter(new GridFollower(control, widget));
    grid.addWidget(widget, item.row, item.column, item.rows, item.columns, AlignmentOf(item.place));
}

/// Whether the child is the item or lies in its widget, as the pages of a tab control do.
bool BelongsTo(const Control& child, const GridItem& item) {
    if (!item.control || item.control == &child) return item.control != nullptr;
    const QWidget* outer = WidgetOf(*item.control);
    const QWidget* inner = WidgetOf(child);
    return outer && inner && outer->isAncestorOf(inner);
}

/// The container's children in the order of the items; others keep their place behind them.
void OrderChildren(Container& container, const std::vector<GridItem>& items) {
    const auto rank = [&](const Control* child) {
        return std::find_if(items.begin(), items.end(),
                            [&](const GridItem& item) { return BelongsTo(*child, item); }) -
               items.begin();
    };
    std::vector<Control*>& children = container.Native().children;
    std::stable_sort(children.begin(), children.end(),
                     [&](const Control* a, const Control* b) { return rank(a) < rank(b); });
}

void CollectTabOrder(const Control& control, std::vector<QWidget*>& order) {
    QWidget* widget = WidgetOf(control);
    if (widget && widget->focusPolicy() & Qt::TabFocus) order.push_back(widget);
    for (const Control* child : control.Native().children)
        CollectTabOrder(*child, order);
}

void SetTabOrder(const Control& control) {
    const Control* root = &control;
    while (root->Parent())
        root = root->Parent();
    std::vector<QWidget*> order;
    CollectTabOrder(*root, order);
    for (std::size_t i = 1; i < order.size(); ++i)
        QWidget::setTabOrder(order[i - 1], order[i]);
}

} // namespace

void LayOutGrid(Container& container, const std::vector<GridItem>& items, int spacing, int margin) {
    QWidget* client = ClientWidgetOf(container);
    if (!client) return;
    delete client->layout();
    auto* grid = new QGridLayout(client);
    grid->setSpacing(spacing);
    grid->setContentsMargins(margin, margin, margin, margin);
    for (const GridItem& item : items)
        Add(*grid, item);
    // A dialog is as large as its texts want it, in every font; a window may be larger.
    if (dynamic_cast<Form*>(&container))
        grid->setSizeConstraint(client->windowFlags().testFlag(Qt::CustomizeWindowHint)
                                    ? QLayout::SetFixedSize
                                    : QLayout::SetMinimumSize);
    OrderChildren(container, items);
    SetTabOrder(container);
}

void LabelFor(Control& label, Control& control) {
    auto* text = dynamic_cast<QLabel*>(WidgetOf(label));
    QWidget* widget = WidgetOf(control);
    if (!text || !widget) return;
    text->setBuddy(widget);
    QString name = text->text();
    name.remove(QLatin1Char('&'));
    if (name.endsWith(QLatin1Char(':'))) name.chop(1);
    NameForReaders(*widget, name);
}

} // namespace pintalux
