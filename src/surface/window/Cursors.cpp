#include "surface/window/Cursors_native.h"

#include "surface/window/Control_native.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

namespace pintalux {

namespace {

/// Drawn at the display's own resolution, so that a pointer stays sharp on a scaled display.
QCursor SvgCursor(const Icon& icon) {
    QSvgRenderer renderer(ToQString(icon.resource));
    if (!renderer.isValid()) return QCursor(Qt::ArrowCursor);
    const double ratio = qGuiApp->devicePixelRatio();
    const QSize size = renderer.defaultSize();
    QPixmap pixmap((QSizeF(size) * ratio).toSize());
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    renderer.render(&painter, QRectF(QPointF(0, 0), QSizeF(size)));
    painter.end();
    return QCursor(pixmap, icon.hotX, icon.hotY);
}

} // namespace

QCursor CursorOf(int shape, const Icon& icon) {
    switch (shape) {
    case kPointerCross:
        return QCursor(Qt::CrossCursor);
    case kPointerHourglass:
        return QCursor(Qt::WaitCursor);
    case kPointerSizeAll:
        return QCursor(Qt::SizeAllCursor);
    case kPointerCustom:
        return SvgCursor(icon);
    default:
        return QCursor(Qt::ArrowCursor);
    }
}

} // namespace pintalux
