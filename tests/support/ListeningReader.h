// A screen reader for the tests: it asks about each widget that shows, hides, is enabled or takes the focus,
// and about what lies around it.
#pragma once

#include <QAccessible>
#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

namespace pintalux {

/// While it lives every test runs as on the desktop of somebody who listens: what answers for a widget that
/// is half made or half gone, or that is gone, ends the program here.
class ListeningReader : public QObject {
  public:
    ListeningReader() { QCoreApplication::instance()->installEventFilter(this); }

    bool eventFilter(QObject* object, QEvent* event) override {
        switch (event->type()) {
        case QEvent::Show:
        case QEvent::Hide:
        case QEvent::FocusIn:
        case QEvent::FocusOut:
        case QEvent::EnabledChange:
            if (object->isWidgetType()) Hear(*object);
            break;
        default:
            break;
        }
        return false;
    }

  private:
    static void Hear(QObject& object) {
        QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&object);
        if (spoken == nullptr) return;
        Ask(*spoken);
        for (int i = 0; i < spoken->childCount(); ++i)
            if (QAccessibleInterface* child = spoken->child(i)) Ask(*child);
        for (QAccessibleInterface* parent = spoken->parent(); parent != nullptr; parent = parent->parent())
            Ask(*parent);
    }
    static void Ask(QAccessibleInterface& spoken) {
        static_cast<void>(spoken.role());
        static_cast<void>(spoken.state());
        static_cast<void>(spoken.rect());
        for (const auto text : {QAccessible::Name, QAccessible::Description, QAccessible::Value})
            static_cast<void>(spoken.text(text));
        if (QAccessibleActionInterface* actions = spoken.actionInterface())
            static_cast<void>(actions->actionNames());
        if (QAccessibleValueInterface* value = spoken.valueInterface())
            static_cast<void>(value->currentValue());
    }
};

} // namespace pintalux
