// The one lock of repainting.
//
// A lock is recorded until it is released by 0 or its window is gone. Painting is held back for a shorter
// time: until the handler that took the lock is over. A handler that ends without a release so leaves a
// record, which keeps other windows from being locked, but never a frozen screen.
#include "surface/window/Control_native.h"
#include "surface/window/Events_native.h"
#include "surface/window/Form.h"

namespace pintalux {

namespace {

/// Null if nothing is locked, or if what was locked is gone: a dead window holds no lock.
QPointer<QWidget>& LockedWidget() {
    static QPointer<QWidget> locked;
    return locked;
}

void PaintHeldBack() {
    if (const QPointer<QWidget>& locked = LockedWidget()) locked->setUpdatesEnabled(true);
}

} // namespace

bool LockWindowUpdate(Control* window) {
    QPointer<QWidget>& locked = LockedWidget();
    if (!window) {
        PaintHeldBack();
        locked.clear();
        return true;
    }
    QWidget* widget = WidgetOf(*window);
    if (!widget || (locked && locked != widget)) return false;
    locked = widget;
    // Held back already by a handler around this one: that one paints.
    if (!widget->updatesEnabled()) return true;
    widget->setUpdatesEnabled(false);
    WhenHandlerOver(PaintHeldBack);
    return true;
}

} // namespace pintalux
