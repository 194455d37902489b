// The transparent widget behind lines and shapes.
//
// It covers its whole container and lets the pointer through. Only the thin region of the outline is ever
// marked for painting, so that moving a line across a large view costs the line's length and not the view's
// area.
#pragma once

#include "surface/raster/Colour.h"

#include <QPainter>
#include <QRegion>
#include <QWidget>

#include <functional>

namespace pintalux {

class OverlayWidget : public QWidget {
  public:
    explicit OverlayWidget(QWidget* parent);

    /// Draws the outline with the painter, whose pen is set, in device pixels thick.
    std::function<void(QPainter&)> paint;

    /// Has a part painted again, if the overlay shows.
    void Mark(const QRegion& region);

    /// Moves the outline: what it covered and what it covers now is painted again.
    void Outline(const QRegion& region);

    /// Draw mode 6: inverts, dotted.
    void Style(bool inverting, Colour colour, int width);

  protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void PaintOn(QPainter& painter, const QPen& pen);
    QRegion outline_;
    QPen pen_;
    bool marks_ = false; ///< In the desktop's colour of what is chosen, whatever that is by now.
    bool inverting_ = false;
};

/// Small rectangles that cover the line between two points, cut to `within`.
QRegion LineRegion(const QPointF& from, const QPointF& to, int width, const QRect& within);

} // namespace pintalux
