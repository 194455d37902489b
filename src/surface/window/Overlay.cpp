#include "surface/window/Overlay_native.h"
#include "surface/window/Painting_native.h"
#include "surface/window/SystemColours.h"

#include <QEvent>
#include <QPaintEngine>

#include <algorithm>
#include <array>
#include <cmath>

namespace pintalux {

OverlayWidget::OverlayWidget(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setGeometry(parent->rect());
    parent->installEventFilter(this);
}

void OverlayWidget::Mark(const QRegion& region) {
    if (isVisible()) update(region);
}

void OverlayWidget::Outline(const QRegion& region) {
    if (region == outline_) return;
    Mark(outline_.united(region));
    outline_ = region;
}

void OverlayWidget::Style(bool inverting, Colour colour, int width) {
    inverting_ = inverting;
    marks_ = !inverting && colour == kSystemHighlight;
    pen_ = QPen(inverting || marks_ ? QColor(Qt::black) : ToQColor(colour), width);
    // A flat cap would leave out a line's last pixel; only dots need it, or they would grow.
    pen_.setCapStyle(inverting ? Qt::FlatCap : Qt::SquareCap);
    pen_.setJoinStyle(Qt::MiterJoin);
    if (inverting) pen_.setDashPattern({2, 2});
    Mark(rect());
}

// In device pixels, so that no line is thicker here than there on a scaled display.
void OverlayWidget::PaintOn(QPainter& painter, const QPen& pen) {
    QPen scaled = pen;
    scaled.setWidth(pen.width() * DeviceLine(painter));
    scaled.setCosmetic(true);
    if (marks_) scaled.setColor(palette().color(QPalette::Highlight));
    painter.setPen(scaled);
    paint(painter);
}

void OverlayWidget::paintEvent(QPaintEvent*) {
    if (!paint) return;
    QPainter painter(this);
    if (inverting_) {
        if (painter.paintEngine()->hasFeature(QPaintEngine::RasterOpModes)) {
            painter.setCompositionMode(QPainter::RasterOp_NotDestination);
        } else {
            // Not every display can invert: white between the black dots is seen on any ground as well.
            PaintOn(painter, QPen(Qt::white, pen_.width()));
        }
    }
    PaintOn(painter, pen_);
}

bool OverlayWidget::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::Resize) setGeometry(parentWidget()->rect());
    return false;
}

namespace {

/// Cuts one side off the line: keeps the part where `distance` (linear from a to b) is not negative.
bool CutSide(double a, double b, double& begin, double& end) {
    if (a >= 0 && b >= 0) return true;
    if (a < 0 && b < 0) return false;
    const double crossing = a / (a - b);
    if (a < 0) {
        begin = std::max(begin, crossing);
    } else {
        end = std::min(end, crossing);
    }
    return begin <= end;
}

} // namespace

QRegion LineRegion(const QPointF& from, const QPointF& to, int width, const QRect& within) {
    const QRectF field = QRectF(within).adjusted(-width, -width, width, width);
    double begin = 0;
    double end = 1;
    if (!CutSide(from.x() - field.left(), to.x() - field.left(), begin, end) ||
        !CutSide(field.right() - from.x(), field.right() - to.x(), begin, end) ||
        !CutSide(from.y() - field.top(), to.y() - field.top(), begin, end) ||
        !CutSide(field.bottom() - from.y(), field.bottom() - to.y(), begin, end))
        return {};
    // Straight lines need one rectangle; slanted ones steps that waste little.
    const QPointF way = to - from;
    const double shorter = std::min(std::abs(way.x()), std::abs(way.y())) * (end - begin);
    const int steps = std::clamp(static_cast<int>(shorter / 16) + 1, 1, 48);
    QRegion region;
    for (int step = 0; step < steps; ++step) {
        const QPointF a = from + way * (begin + (end - begin) * step / steps);
        const QPointF b = from + way * (begin + (end - begin) * (step + 1) / steps);
        const QRectF part = QRectF(a, b).normalized().adjusted(-1 - width, -1 - width, 1 + width, 1 + width);
        region += part.toAlignedRect() & within;
    }
    return region;
}

} // namespace pintalux
