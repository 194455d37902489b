// The toolkit's window of a form, whatever its base: reports to the form and never closes by itself.
#pragma once

#include "surface/window/Form_native.h"

#include <QCloseEvent>
#include <QWidget>

#include <utility>

namespace pintalux {

template <class Base>
class FormWindow : public Base {
  public:
    template <class... Arguments>
    explicit FormWindow(FormNative& native, Arguments&&... arguments)
        : Base(std::forward<Arguments>(arguments)...), native_(native) {}

  protected:
    void closeEvent(QCloseEvent* event) override {
        event->ignore(); // The form decides, and hides its window itself.
        native_.CloseBox();
    }
    void resizeEvent(QResizeEvent* event) override {
        Base::resizeEvent(event);
        native_.Resized();
    }
    void moveEvent(QMoveEvent* event) override {
        Base::moveEvent(event);
        native_.Moved();
    }
    void changeEvent(QEvent* event) override {
        Base::changeEvent(event);
        if (event->type() == QEvent::WindowStateChange) native_.StateChanged();
        if (event->type() == QEvent::ActivationChange && this->isActiveWindow()) native_.Activated();
    }

  private:
    FormNative& native_;
};

/// The client area of a document window.
class ClientArea : public QWidget {
  public:
    ClientArea(FormNative& native, QWidget* parent) : QWidget(parent), native_(native) {}

  protected:
    void resizeEvent(QResizeEvent*) override { native_.Resized(); }

  private:
    FormNative& native_;
};

} // namespace pintalux
