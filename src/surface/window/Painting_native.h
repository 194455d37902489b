// Showing finished pixels on the toolkit's widgets.
#pragma once

#include "surface/raster/Bitmap.h"
#include "surface/raster/Colour.h"
#include "surface/raster/ReducedView.h"
#include "surface/window/Surface.h"

#include <QColor>
#include <QFont>
#include <QPainter>
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

/// The frame that shows where the focus is, along the inside of a rectangle.
void PaintFocusFrame(QPainter& painter, const QRect& rect, const QPalette& palette);

/// The same along the edge of a widget that holds colours, or a picture.
void PaintFocusFrame(QWidget& widget);

/// A widget whose picture is made by a function.
class PaintedWidget : public QWidget {
  public:
    using QWidget::QWidget;
    std::function<void(QPaintEvent&)> paint;
    bool framed = false; ///< A frame shows that it has the focus.

  protected:
    void paintEvent(QPaintEvent* event) override {
        if (paint) paint(*event);
        if (framed && hasFocus()) PaintFocusFrame(*this);
    }
};

/// While it exists a painter counts device pixels, from the corner of what it paints on.
class DevicePixels {
  public:
    explicit DevicePixels(QPainter& painter);
    ~DevicePixels();
    DevicePixels(const DevicePixels&) = delete;
    DevicePixels& operator=(const DevicePixels&) = delete;

  private:
    QPainter& painter_;
};

/// Where a rectangle of the painter lies in device pixels; neighbours stay neighbours.
QRect OnDevice(const QPainter& painter, const QRect& rect);

/// Device pixels in a logical one, in whole ones: how thick a thin line is.
int DeviceLine(const QPainter& painter);

/// A frame of `width` device pixels along the inside of a rectangle, whole at every scale.
void PaintFrame(QPainter& painter, const QRect& rect, const QColor& colour, int width = 1);

/// Lines of text as sharp as the screen is; only what is exposed costs.
void PaintTexts(QPainter& painter, const QRegion& exposed, const std::vector<ScreenText>& texts,
                const QFont& font, const QColor* colour = nullptr);

/// Paints `source`, stretched to `size`, on the parts of the widget that the event names; `around` shows
/// beside it. Costs what is exposed. `kept`, if given, has what was painted before.
void PaintBitmap(QWidget& widget, const QRegion& exposed, const Bitmap& source, const QSize& size,
                 const QColor& around, ReducedView* kept = nullptr);

/// The same of a picture with a transparent colour, over what lies below the widget.
void PaintOver(QWidget& widget, const QRegion& exposed, const Bitmap& source, Pixel transparent,
               const QSize& size);

/// Property of a widget that is moved so that what of it has the focus is seen.
inline constexpr char kScrolledMark[] = "scrolled";

/// The part of a widget that its ancestors leave to be seen, whatever lies over it; those above `outermost`
/// do not count.
QRect VisibleRect(const QWidget& widget, const QWidget* outermost = nullptr);

} // namespace pintalux
