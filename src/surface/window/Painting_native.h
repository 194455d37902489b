// Showing finished pixels on the toolkit's widgets.
#pragma once

#include "surface/raster/Bitmap.h"
#include "surface/raster/Colour.h"

#include <QColor>
#include <QPaintEvent>
#include <QWidget>

#include <functional>
#include <utility>

namespace pintalux {

inline QColor ToQColor(Colour colour) {
    const Pixel pixel = PixelOf(colour);
    return {static_cast<int>(pixel & 0xFF), static_cast<int>(pixel >> 8 & 0xFF),
            static_cast<int>(pixel >> 16)};
}

inline Box ToBox(const QRect& rect) {
    return {rect.x(), rect.y(), rect.x() + rect.width(), rect.y() + rect.height()};
}

inline QRect ToQRect(const Box& box) {
    return {box.left, box.top, box.Width(), box.Height()};
}

/// A widget whose picture is made by a function.
class PaintedWidget : public QWidget {
  public:
    using QWidget::QWidget;
    std::function<void(QPaintEvent&)> paint;

  protected:
    void paintEvent(QPaintEvent* event) override {
        if (paint) paint(*event);
    }
};

/// Paints `source`, stretched to `size`, on the parts of the widget that the event names; `around` shows
/// beside it. Costs what is exposed.
void PaintBitmap(QWidget& widget, const QRegion& exposed, const Bitmap& source, const QSize& size,
                 const QColor& around);

/// The part of a widget that its ancestors leave to be seen, whatever lies over it.
QRect VisibleRect(const QWidget& widget);

} // namespace pintalux
