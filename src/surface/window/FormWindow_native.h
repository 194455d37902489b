// The toolkit's windows as they serve a form: they tell it what happens to them and never close by
// themselves.
#pragma once

#include "surface/window/Form_native.h"

#include <QCloseEvent>
#include <QDialog>
#include <QWidget>

#include <utility>

namespace pintalux {

/// A window of the toolkit's class `Base`.
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

    bool focusNextPrevChild(bool next) override {
        return (native_.focusStep && native_.focusStep(next)) || Base::focusNextPrevChild(next);
    }

  private:
    FormNative& native_;
};

/// The window of a dialog. Default button, place over its owner and modality are the toolkit's.
class DialogWindow final : public FormWindow<QDialog> {
  public:
    using FormWindow::FormWindow;
    /// Escape: presses the button that is marked as `kCancelMark`. Without one it does nothing.
    void reject() override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
};

/// The name of the toolkit property that marks a dialog's cancel button.
inline constexpr char kCancelMark[] = "cancelsDialog";

/// The client area of a document window.
class ClientArea final : public QWidget {
  public:
    ClientArea(FormNative& native, QWidget* parent) : QWidget(parent), native_(native) {}

  protected:
    void resizeEvent(QResizeEvent*) override { native_.Resized(); }

  private:
    FormNative& native_;
};

} // namespace pintalux
