#include "surface/window/Accessible_native.h"

#include <QAbstractButton>
#include <QAccessibleWidget>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QVariant>
#include <QWidget>

namespace pintalux {

namespace {

/// A widget with a role of its own. A button is pressed as the Space key does it.
class Spoken final : public QAccessibleWidget {
  public:
    Spoken(QWidget* widget, QAccessible::Role role) : QAccessibleWidget(widget, role) {}

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        if (const QAbstractButton* button = Button()) {
            state.checkable = button->isCheckable() ? 1 : 0;
            state.checked = button->isChecked() ? 1 : 0;
        }
        return state;
    }
    QStringList actionNames() const override {
        QStringList names = QAccessibleWidget::actionNames();
        if (role() == QAccessible::Button || Button()) names.prepend(pressAction());
        return names;
    }
    void doAction(const QString& name) override {
        if (name != pressAction()) return QAccessibleWidget::doAction(name);
        if (QAbstractButton* button = Button()) return button->click();
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
        QCoreApplication::sendEvent(widget(), &press);
    }

  private:
    QAbstractButton* Button() const { return qobject_cast<QAbstractButton*>(widget()); }
};

QAccessibleInterface* Speak(const QString& /*className*/, QObject* object) {
    auto* widget = qobject_cast<QWidget*>(object);
    const QVariant role = widget ? widget->property(kSpokenRole) : QVariant();
    return role.isValid() ? new Spoken(widget, static_cast<QAccessible::Role>(role.toInt())) : nullptr;
}

} // namespace

void NameForReaders(QWidget& widget, const QString& name) {
    widget.setAccessibleName(name);
    auto* bar = qobject_cast<QWidget*>(widget.property(kSpinnerBar).value<QObject*>());
    if (bar) bar->setAccessibleName(name);
}

void SpeakForOurWidgets() {
    static const bool installed = [] {
        QAccessible::installFactory(Speak);
        return true;
    }();
    static_cast<void>(installed);
}

} // namespace pintalux
