// The one lock of repainting.
#include "surface/window/Control_native.h"
#include "surface/window/Form.h"

namespace pintalux {

namespace {

/// Null if nothing is locked, or if what was locked is gone: a dead window holds no lock.
QPointer<QWidget>& LockedWidget() {
    static QPointer<QWidget> locked;
    return locked;
}

} // namespace

bool LockWindowUpdate(Control* window) {
    QPointer<QWidget>& locked = LockedWidget();
    if (!window) {
        if (locked) locked->setUpdatesEnabled(true);
        locked.clear();
        return true;
    }
    QWidget* widget = WidgetOf(*window);
    if (!widget || (locked && locked != widget)) return false;
    locked = widget;
    widget->setUpdatesEnabled(false);
    return true;
}

} // namespace pintalux
