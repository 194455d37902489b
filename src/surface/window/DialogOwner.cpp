#include "surface/window/DialogOwner_native.h"

#include <QApplication>
#include <QMainWindow>
#include <QScreen>
#include <QWindow>

#include <algorithm>

namespace pintalux {

QWidget* OwnerOf(const QDialog& dialog) {
    for (QWidget* candidate : {QApplication::activeModalWidget(), QApplication::activeWindow()}) {
        if (candidate && candidate != &dialog && candidate->isVisible()) return candidate;
    }
    for (QWidget* candidate : QApplication::topLevelWidgets()) {
        if (qobject_cast<QMainWindow*>(candidate) && candidate->isVisible()) return candidate;
    }
    return nullptr;
}

void PlaceOverOwner(QDialog& dialog) {
    QWidget* owner = OwnerOf(dialog);
    if (!owner) return;
    dialog.winId();
    dialog.windowHandle()->setTransientParent(owner->windowHandle());
    const QSize size = dialog.testAttribute(Qt::WA_Resized) ? dialog.size() : dialog.sizeHint();
    const QRect screen = owner->screen()->availableGeometry();
    const QPoint place = owner->frameGeometry().center() - QPoint(size.width() / 2, size.height() / 2);
    dialog.move(std::clamp(place.x(), screen.left(), std::max(screen.left(), screen.right() - size.width())),
                std::clamp(place.y(), screen.top(), std::max(screen.top(), screen.bottom() - size.height())));
}

} // namespace pintalux
