// The hand on a widget: buttons and keys as the toolkit would send them.
#pragma once

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWidget>

namespace pintalux {

/// `button` is the one that causes the event, `held` are those that are down behind it.
inline void SendMouse(QWidget& widget, QEvent::Type type, const QPointF& place, Qt::MouseButton button,
                      Qt::MouseButtons held, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QMouseEvent event(type, place, widget.mapToGlobal(place), button, held, modifiers);
    QCoreApplication::sendEvent(&widget, &event);
}

inline void ClickAt(QWidget& widget, const QPointF& place, Qt::MouseButton button = Qt::LeftButton) {
    SendMouse(widget, QEvent::MouseButtonPress, place, button, button);
    SendMouse(widget, QEvent::MouseButtonRelease, place, button, Qt::NoButton);
}

inline void PressKey(QWidget& widget, int key, const QString& text = {}, Qt::KeyboardModifiers held = {}) {
    QKeyEvent press(QEvent::KeyPress, key, held, text);
    QCoreApplication::sendEvent(&widget, &press);
}

inline void ReleaseKey(QWidget& widget, int key, const QString& text = {}, Qt::KeyboardModifiers held = {}) {
    QKeyEvent release(QEvent::KeyRelease, key, held, text);
    QCoreApplication::sendEvent(&widget, &release);
}

inline void Key(QWidget& widget, int key, const QString& text = {}, Qt::KeyboardModifiers held = {}) {
    PressKey(widget, key, text, held);
    ReleaseKey(widget, key, text, held);
}

} // namespace pintalux
