// The toolkit half of a menu item.
#pragma once

#include <QAction>
#include <QMenu>
#include <QPointer>

namespace pintalux {

struct MenuNative {
    QPointer<QAction> action;
    QPointer<QMenu> menu; ///< Null while the item has no items of its own.

    /// The item's own menu, made at the first call; null once the toolkit is gone.
    QMenu* Menu();
};

} // namespace pintalux
