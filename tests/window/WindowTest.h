// What the tests of window objects share.
#pragma once

#include "base/RuntimeError.h"
#include "support/Errors.h"
#include "support/Hand.h"
#include "support/UntrappedErrors.h"
#include "support/Waiting.h"
#include "surface/window/Events.h"
#include "surface/window/Form.h"
#include "surface/window/MDIForm.h"

#include <functional>
#include <gtest/gtest.h>
#include <QApplication>
#include <QImage>
#include <QPixmap>
#include <QTimer>
#include <string>
#include <vector>

namespace pintalux {

inline void LetEventsRun() {
    for (int pass = 0; pass < 5; ++pass)
        QCoreApplication::processEvents();
}

/// The toolkit's widget of a control, found by its code name as a desktop tool would.
inline QWidget* FindWidget(const std::string& name) {
    for (QWidget* widget : QApplication::allWidgets()) {
        if (widget->objectName() == QString::fromStdString(name)) return widget;
    }
    return nullptr;
}

/// What a control shows, in logical pixels whatever the display's scale.
inline QImage ShownBy(const std::string& name) {
    QWidget* widget = FindWidget(name);
    return widget->grab().toImage().scaled(widget->size(), Qt::IgnoreAspectRatio, Qt::FastTransformation);
}

inline void SendMouse(QWidget* widget, QEvent::Type type, const QPointF& place, Qt::MouseButton button,
                      Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    SendMouse(*widget, type, place, button, buttons, modifiers);
}

inline void ClickAt(QWidget* widget, const QPointF& place, Qt::MouseButton button = Qt::LeftButton) {
    ClickAt(*widget, place, button);
}

/// A resizable window that counts its events.
class PlainForm : public Form {
  public:
    explicit PlainForm(std::string name = "plain", Kind kind = Kind::Window) : Form(std::move(name), kind) {}
    int loads = 0, resizes = 0, activations = 0, unloads = 0, queries = 0;
    bool refuse = false;
    std::function<void()> onResize, onLoad, onActivate;

  protected:
    void Form_Load() override {
        ++loads;
        if (onLoad) onLoad();
    }
    void Form_Resize() override {
        ++resizes;
        if (onResize) onResize();
    }
    void Form_Activate() override {
        ++activations;
        if (onActivate) onActivate();
    }
    void Form_QueryUnload(bool& Cancel) override {
        ++queries;
        Cancel = refuse;
    }
    void Form_Unload() override { ++unloads; }
};

} // namespace pintalux
