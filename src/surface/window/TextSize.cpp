#include "surface/window/TextSize.h"

#include "surface/window/Control_native.h"

#include <QApplication>
#include <QFontMetrics>

namespace pintalux {

namespace {

QSize WantedSize(const Control& control) {
    const QWidget* widget = WidgetOf(control);
    if (!widget) return {0, 0};
    widget->ensurePolished();
    return widget->sizeHint();
}

} // namespace

int TextWidth(const std::string& text) {
    return QFontMetrics(QApplication::font()).horizontalAdvance(ToQString(text));
}

int TextHeight() {
    return QFontMetrics(QApplication::font()).height();
}

int WantedWidth(const Control& control) {
    return WantedSize(control).width();
}

int WantedHeight(const Control& control) {
    return WantedSize(control).height();
}

} // namespace pintalux
