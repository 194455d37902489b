// What these tests share: a window to put controls into, and the hand that presses keys and buttons.
#pragma once

#include "support/Errors.h"
#include "support/Hand.h"
#include "support/UntrappedErrors.h"
#include "support/Waiting.h"
#include "surface/window/Control_native.h"
#include "surface/window/Form.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <QApplication>
#include <QImage>

namespace pintalux {

/// A dialog that shows, of 600 by 400 pixels, whose children are placed in twips.
class TestWindow final : public Form {
  public:
    TestWindow() : Form("TestWindow", Kind::Dialog) {
        Width(600 * kTwipsPerPixel);
        Height(400 * kTwipsPerPixel);
        Show();
        WidgetOf(*this)->activateWindow();
    }
};

template <class Widget>
Widget& ToolkitOf(const Control& control) {
    return dynamic_cast<Widget&>(*WidgetOf(control));
}

/// Types capitals, digits and signs.
inline void Type(QWidget& widget, const QString& text) {
    for (const QChar character : text)
        Key(widget, character.toUpper().unicode(), QString(character));
}

inline void Mouse(QWidget& widget, QEvent::Type type, QPoint place, Qt::MouseButton button = Qt::LeftButton) {
    const bool released = type == QEvent::MouseButtonRelease;
    SendMouse(widget, type, place, type == QEvent::MouseMove ? Qt::NoButton : button,
              released ? Qt::NoButton : button);
}

inline void ClickOn(QWidget& widget) {
    ClickAt(widget, widget.rect().center());
}

/// Whether a frame of two logical pixels in this colour runs along the inside of a picture, and no third one.
inline bool Framed(const QImage& image, const QColor& colour) {
    const int width = 2 * qRound(image.devicePixelRatio());
    for (int x = 0; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y) {
            const int depth = std::min({x, y, image.width() - 1 - x, image.height() - 1 - y});
            if (depth < width && image.pixelColor(x, y) != colour) return false;
            if (depth == width && image.pixelColor(x, y) == colour) return false;
        }
    }
    return true;
}

} // namespace pintalux
