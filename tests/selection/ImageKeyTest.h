// The hand that uses a document by keys and wheel.
#pragma once

#include "selection/SelectionTest.h"

#include <QKeyEvent>
#include <QWheelEvent>

namespace pintalux {

class ImageKeyTest : public SelectionTest {
  protected:
    /// A document that is larger than its window, with its view laid out.
    frmImage& LargeDocument(int height = 1200) {
        frmImage& image = NewDocument(1500, height);
        PassEvents();
        return image;
    }
    static void Send(frmImage& image, QEvent::Type type, int key, Qt::KeyboardModifiers held, bool repeated) {
        QKeyEvent event(type, key, held, QString(), repeated);
        QCoreApplication::sendEvent(&WidgetFor(image.Image1), &event);
    }
    static void Down(frmImage& image, int key, Qt::KeyboardModifiers held = Qt::NoModifier,
                     bool repeated = false) {
        Send(image, QEvent::KeyPress, key, held, repeated);
    }
    static void Up(frmImage& image, int key, Qt::KeyboardModifiers held = Qt::NoModifier) {
        Send(image, QEvent::KeyRelease, key, held, false);
    }
    static void Tap(frmImage& image, int key, Qt::KeyboardModifiers held = Qt::NoModifier) {
        Down(image, key, held);
        Up(image, key, held);
    }
    static void Times(frmImage& image, int key, int times) {
        for (int i = 0; i < times; ++i)
            Tap(image, key);
    }
    /// The cross at a pixel.
    static void GoTo(frmImage& image, int x, int y) {
        image.crossX = x;
        image.crossY = y;
    }
    static void Turn(Control& over, QPointF place, QPoint angle,
                     Qt::KeyboardModifiers held = Qt::NoModifier) {
        QWidget& widget = WidgetFor(over);
        QWheelEvent event(place, widget.mapToGlobal(place), QPoint(), angle, Qt::NoButton, held,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&widget, &event);
    }
};

} // namespace pintalux
