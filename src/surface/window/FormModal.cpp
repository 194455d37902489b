// Modal showing: a dialog over the active window, with an event loop of its own until it is hidden or
// unloaded.
#include "surface/window/Control_native.h"
#include "surface/window/DialogOwner_native.h"
#include "surface/window/FormWindow_native.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QScopeGuard>

namespace pintalux {

void DialogWindow::reject() {
    for (QPushButton* button : findChildren<QPushButton*>()) {
        if (button->property(kCancelMark).toBool() && button->isVisible()) return button->click();
    }
}

void DialogWindow::keyPressEvent(QKeyEvent* event) {
    // A held key must not press the button of the window that comes next.
    if (event->isAutoRepeat()) return;
    QDialog::keyPressEvent(event);
}

void DialogWindow::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    // A dialog that shows again has lost its focus with its owner: the first control gets it.
    if (!focusWidget()) focusNextPrevChild(true);
}

void Form::ShowModal() {
    auto* dialog = qobject_cast<QDialog*>(WidgetOf(*this));
    if (!dialog || dialog->isModal()) return;
    // What is unloaded meanwhile is kept: its handlers may lie below on the stack.
    const RunningHandler running;
    dialog->hide();
    dialog->setParent(OwnerOf(*dialog), dialog->windowFlags());
    dialog->setWindowModality(Qt::ApplicationModal);
    const auto end = qScopeGuard([this, alive = QPointer<QDialog>(dialog)] {
        visible_ = false;
        if (!alive) return;
        alive->hide();
        alive->setWindowModality(Qt::NonModal);
        alive->setParent(nullptr, alive->windowFlags());
    });
    Show();
    // The first showing may have hidden or unloaded the form already.
    if (visible_) dialog->exec();
}

} // namespace pintalux
