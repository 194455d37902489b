// What the input controls share on the toolkit's side.
#pragma once

#include "surface/window/Control_native.h"
#include "surface/window/Events.h"
#include "surface/window/Painting_native.h"
#include "surface/window/SystemColours.h"

#include <functional>
#include <QAbstractSlider>
#include <QGuiApplication>
#include <QPalette>
#include <QSignalBlocker>

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

/// Routes what the hand does to a bar or slider: `moved` takes the new value and is true if it was another;
/// then `scroll` runs while the thumb is held, `change` otherwise and at the release of a thumb that moved.
void RouteSlider(QAbstractSlider& slider, std::function<bool(int)> moved, std::function<void()> scroll,
                 std::function<void()> change);

} // namespace pintalux
