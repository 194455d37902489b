#include "surface/window/ToolBar_native.h"

#include "surface/window/Accessible_native.h"

#include <algorithm>
#include <QAccessible>
#include <QKeyEvent>
#include <QPainter>

namespace pintalux {

namespace {

constexpr int kSeparatorWidth = 9;

bool IsArrow(int key) {
    return key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Up || key == Qt::Key_Down;
}

} // namespace

BarWidget::BarWidget(QWidget* parent) : QWidget(parent) {
    setProperty(kSpokenRole, int{QAccessible::ToolBar});
}

QToolButton* BarWidget::AddButton() {
    auto* button = new QToolButton(this);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    button->installEventFilter(this);
    items_.push_back({button, {}});
    return button;
}

void BarWidget::AddSeparator() {
    items_.push_back({nullptr, {}});
}

void BarWidget::Arrange() {
    Flow(width(), true);
    updateGeometry();
    update();
}

QSize BarWidget::sizeHint() const {
    return Flow(QWIDGETSIZE_MAX, false);
}

QSize BarWidget::Flow(int width, bool move) const {
    int x = 0;
    int y = 0;
    int rowHeight = 0;
    int right = 0;
    for (Item& item : items_) {
        const QSize size = item.button == nullptr ? QSize(kSeparatorWidth, 0) : item.button->sizeHint();
        if (x > 0 && x + size.width() > width) {
            x = 0;
            y += rowHeight;
            rowHeight = 0;
        }
        rowHeight = std::max(rowHeight, size.height());
        if (move) {
            item.place =
                QRect(QPoint(x, y), item.button == nullptr ? QSize(kSeparatorWidth, rowHeight) : size);
            if (item.button != nullptr) item.button->setGeometry(item.place);
        }
        x += size.width();
        right = std::max(right, x);
    }
    return {right, y + rowHeight};
}

void BarWidget::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    Flow(width(), true);
}

void BarWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    for (const Item& item : items_) {
        if (item.button != nullptr) continue;
        const int x = item.place.center().x();
        const QRect line(x, item.place.top() + 3, 1, item.place.height() - 6);
        painter.fillRect(line, palette().color(QPalette::Mid));
    }
}

void BarWidget::MakeTabStop(QToolButton* button) {
    for (const Item& item : items_)
        if (item.button != nullptr)
            item.button->setFocusPolicy(item.button == button ? Qt::TabFocus : Qt::NoFocus);
}

void BarWidget::KeepTabStop() {
    QToolButton* first = nullptr;
    for (const Item& item : items_) {
        if (item.button == nullptr || !item.button->isEnabledTo(this)) continue;
        if (item.button->focusPolicy() == Qt::TabFocus) return;
        if (first == nullptr) first = item.button;
    }
    MakeTabStop(first);
}

bool BarWidget::MoveFocus(const QToolButton* from, int key) {
    std::vector<QToolButton*> reachable;
    for (const Item& item : items_)
        if (item.button != nullptr && item.button->isEnabled()) reachable.push_back(item.button);
    const auto here = std::find(reachable.begin(), reachable.end(), from);
    if (here == reachable.end()) return false;
    const auto last = reachable.end() - 1;
    auto next = here;
    if (key == Qt::Key_Home) next = reachable.begin();
    if (key == Qt::Key_End) next = last;
    if (key == Qt::Key_Left || key == Qt::Key_Up) next = here == reachable.begin() ? last : here - 1;
    if (key == Qt::Key_Right || key == Qt::Key_Down) next = here == last ? reachable.begin() : here + 1;
    MakeTabStop(*next);
    (*next)->setFocus(Qt::TabFocusReason);
    return true;
}

bool BarWidget::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return false;
    auto* button = qobject_cast<QToolButton*>(watched);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (button == nullptr) return false;
    if (IsArrow(key) || key == Qt::Key_Home || key == Qt::Key_End) return MoveFocus(button, key);
    if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
    button->click();
    return true;
}

} // namespace pintalux
