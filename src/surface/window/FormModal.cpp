// Modal showing: a form over the active window, with an event loop of its own until it is hidden or unloaded.
#include "surface/window/Control_native.h"
#include "surface/window/Events_native.h"
#include "surface/window/Form_native.h"

#include <QApplication>
#include <QMainWindow>
#include <QWindow>

namespace pintalux {

namespace {

/// The window that a dialog belongs to: the modal one on top, the active one, or the main window.
QWidget* OwnerOf(const QWidget* dialog) {
    for (QWidget* candidate : {QApplication::activeModalWidget(), QApplication::activeWindow()}) {
        if (candidate && candidate != dialog && candidate->isVisible()) return candidate;
    }
    for (QWidget* candidate : QApplication::topLevelWidgets()) {
        if (qobject_cast<QMainWindow*>(candidate) && candidate->isVisible()) return candidate;
    }
    return nullptr;
}

void GiveFocusBack(QWidget* widget) {
    if (!widget || !widget->isVisible()) return;
    widget->activateWindow();
    widget->setFocus(Qt::OtherFocusReason);
}

} // namespace

void Form::ShowModal() {
    QWidget* window = WidgetOf(*this);
    if (!window || form_->modal) return;
    const QPointer<QWidget> focused = QApplication::focusWidget();
    if (window->isVisible()) window->hide();
    window->setWindowModality(Qt::ApplicationModal);
    if (QWidget* owner = OwnerOf(window)) {
        window->winId();
        window->windowHandle()->setTransientParent(owner->windowHandle());
        if (window->layout()) window->adjustSize();
        if (!hasPlace_) form_->CentreOver(owner->frameGeometry());
    }
    QEventLoop loop;
    const RunningHandler
        running; // What is unloaded meanwhile is kept: its handlers may lie below on the stack.
    form_->modal = &loop;
    try {
        Show();
        // The first showing may have unloaded the form already.
        if (visible_) loop.exec(QEventLoop::DialogExec);
    } catch (...) {
        form_->modal = nullptr;
        throw;
    }
    form_->modal = nullptr;
    if (QWidget* remaining = WidgetOf(*this)) {
        remaining->hide();
        remaining->setWindowModality(Qt::NonModal);
    }
    visible_ = false;
    GiveFocusBack(focused);
}

} // namespace pintalux
