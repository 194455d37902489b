#include "surface/window/Menu.h"

#include "surface/window/Control_native.h"
#include "surface/window/Events.h"
#include "surface/window/Menu_native.h"

#include <QApplication>
#include <QKeySequence>

namespace pintalux {

namespace {

// The name of a file may be wider than the screen, and its menu with it: the middle goes, but no half of a
// doubled ampersand and no half of a character.
QString Shortened(const QString& caption) {
    constexpr qsizetype kLongest = 80; // characters
    if (caption.size() <= kLongest) return caption;
    QString begin = caption.left(kLongest / 2);
    QString end = caption.right(kLongest / 2);
    while (begin.endsWith('&') || (!begin.isEmpty() && begin.back().isHighSurrogate()))
        begin.chop(1);
    while (end.startsWith('&') || (!end.isEmpty() && end.front().isLowSurrogate()))
        end.remove(0, 1);
    return begin + QChar(0x2026) + end;
}

} // namespace

MenuItem::MenuItem(std::string name, std::string caption, const std::string& shortcut)
    : name_(std::move(name)), caption_(std::move(caption)), native_(std::make_unique<MenuNative>()) {
    auto* action = new QAction(Shortened(ToQString(caption_)), nullptr);
    action->setObjectName(ToQString(name_));
    action->setMenuRole(QAction::NoRole);
    if (!shortcut.empty()) action->setShortcuts(QKeySequence::listFromString(ToQString(shortcut)));
    QObject::connect(action, &QAction::triggered, action, [this, action] {
        action->setChecked(checked_); // The program ticks, not the click.
        if (QApplication::mouseButtons() != Qt::NoButton && !QApplication::activePopupWidget()) return;
        if (Click) RunEvent(EventKind::Ordinary, std::function<void()>(Click));
    });
    native_->action = action;
}

MenuItem::~MenuItem() {
    delete native_->action.data();
    delete native_->menu.data();
}

void MenuItem::Caption(std::string value) {
    caption_ = std::move(value);
    if (native_->action) native_->action->setText(Shortened(ToQString(caption_)));
}

void MenuItem::Enabled(bool value) {
    if (value == enabled_) return;
    enabled_ = value;
    if (native_->action) native_->action->setEnabled(value);
}

void MenuItem::Checked(bool value) {
    if (value == checked_) return;
    checked_ = value;
    if (!native_->action) return;
    native_->action->setCheckable(value); // Without a tick there is no empty box either.
    native_->action->setChecked(value);
}

void MenuItem::Visible(bool value) {
    if (value == visible_) return;
    visible_ = value;
    if (native_->action) native_->action->setVisible(value);
}

QMenu* MenuNative::Menu() {
    if (menu || !action) return menu;
    menu = new QMenu;
    menu->setObjectName(action->objectName());
    menu->setToolTipsVisible(false);
    menu->setAccessibleName(action->text().remove(QLatin1Char('&')));
    DeleteBeforeExit(menu);
    action->setMenu(menu);
    return menu;
}

void MenuItem::Add(MenuItem& item) {
    const bool first = native_->menu.isNull();
    QMenu* menu = native_->Menu();
    if (!menu) return;
    menu->addAction(item.native_->action);
    if (!first) return;
    QObject::connect(menu, &QMenu::aboutToShow, menu, [this] {
        if (Click) RunEvent(EventKind::Ordinary, std::function<void()>(Click));
    });
}

void MenuItem::AddSeparator() {
    if (QMenu* menu = native_->Menu()) menu->addSeparator();
}

void MenuItem::InsertAfter(MenuItem& after, MenuItem& item) {
    QMenu* menu = native_->Menu();
    if (!menu) return;
    const QList<QAction*> actions = menu->actions();
    const qsizetype place = actions.indexOf(after.native_->action.data()) + 1;
    menu->insertAction(place < actions.size() ? actions[place] : nullptr, item.native_->action);
}

bool MenuItem::HasCommand() const {
    return Click || !native_->menu.isNull();
}

void MenuItem::Remove(MenuItem& item) {
    if (native_->menu) native_->menu->removeAction(item.native_->action);
}

MenuSeparator::MenuSeparator(std::string name) : MenuItem(std::move(name), {}) {
    Native().action->setSeparator(true);
}

} // namespace pintalux
