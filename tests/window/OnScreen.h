// What stands on the screen of the window "plain", and what is painted for it.
#pragma once

#include "window/WindowTest.h"

#include <QBackingStore>
#include <QPaintEvent>
#include <QScreen>
#include <QWindow>

namespace pintalux {

/// What stands on the screen, with nothing painted for the occasion; in device pixels.
inline QImage DeviceScreen() {
    const QWidget* window = FindWidget("plain");
    QImage shot;
    if (QGuiApplication::platformName() == "offscreen") {
        // No screen at all: the memory behind the window is what one would show.
        const auto* memory = static_cast<const QImage*>(window->backingStore()->paintDevice());
        shot = memory->copy(QRect(QPoint(0, 0), window->size() * window->devicePixelRatio()));
    } else {
        shot = window->screen()->grabWindow(window->winId()).toImage();
    }
    return shot;
}

/// The same in logical pixels.
inline QImage OnScreen() {
    return DeviceScreen().scaled(FindWidget("plain")->size(), Qt::IgnoreAspectRatio, Qt::FastTransformation);
}

/// Adds up what the toolkit has a widget paint.
class PaintedArea : public QObject {
  public:
    explicit PaintedArea(QWidget* widget) : QObject(widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::Paint) return false;
        for (const QRect& rect : static_cast<QPaintEvent*>(event)->region()) {
            region += rect;
            pixels += rect.width() * rect.height();
        }
        return false;
    }
    QRegion region;
    int pixels = 0; ///< Those painted twice count twice.
};

} // namespace pintalux
