// What the input controls share on the toolkit's side.
#pragma once

#include "base/RuntimeError.h"
#include "surface/window/Control_native.h"
#include "surface/window/Events.h"
#include "surface/window/Painting_native.h"
#include "surface/window/SystemColours.h"

#include <functional>
#include <QGuiApplication>
#include <QPalette>
#include <QSignalBlocker>
#include <QSize>

namespace pintalux {

/// A control's widget as the class it was made with; null once the toolkit has deleted it.
template <class Widget>
Widget* WidgetAs(const Control& control) {
    return static_cast<Widget*>(WidgetOf(control));
}

/// Changes a widget without its signals: what code assigns runs its events itself, nested.
template <class Widget, class Step>
void Quietly(const Control& control, Step step) {
    if (Widget* widget = WidgetAs<Widget>(control)) {
        const QSignalBlocker blocker(widget);
        step(*widget);
    }
}

/// Runs an event that came by hand, if the form listens to it.
inline void RunByHand(const std::function<void()>& event) {
    if (event) RunEvent(EventKind::Ordinary, event);
}

/// What a colour looks like: a `SystemColour` comes from the desktop's palette.
inline QColor DesktopColour(Colour colour) {
    const QPalette palette = QGuiApplication::palette();
    if (colour == kSystemMenu) return palette.color(QPalette::Window);
    if (colour == kSystem3DLight) return palette.color(QPalette::Midlight);
    return ToQColor(colour);
}

// The rules of a value, for every control that has one (`Value`, `ListIndex`, `Tab`).

/// The value itself; error 380 outside `least` to `largest`, both included.
template <class T>
T Within(T value, T least, T largest) {
    // The order counts: what is not a number is outside too.
    if (!(value >= least && value <= largest)) throw RuntimeError(kInvalidPropertyValue);
    return value;
}

/// An assignment from code. The same value does nothing. Another is stored, shown by `show`, and `event` runs
/// nested: its errors pass to the assigning statement.
template <class T, class Show>
void AssignValue(T& stored, const T& value, Show show, const std::function<void()>& event) {
    if (value == stored) return;
    stored = value;
    show();
    if (event) event();
}

/// The hand brought the widget to a value, which shows already. `event` runs under `RunEvent` if it is
/// another.
template <class T>
void TakeByHand(T& stored, const T& value, const std::function<void()>& event) {
    if (value == stored) return;
    stored = value;
    RunByHand(event);
}

/// The widget's size in pixels; 0 by 0 once the toolkit has deleted it.
inline QSize WidgetSize(const Control& control) {
    const QWidget* widget = WidgetOf(control);
    return widget ? widget->size() : QSize(0, 0);
}

} // namespace pintalux
