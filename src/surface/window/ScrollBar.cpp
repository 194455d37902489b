#include "surface/window/ScrollBar.h"

#include "base/Arithmetic.h"
#include "surface/window/Inputs_native.h"

#include <algorithm>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOption>

namespace pintalux {

namespace {

/// A scroll bar that paints itself as two arrow buttons where there is no room for a thumb.
class ScrollWidget final : public QScrollBar {
  public:
    explicit ScrollWidget(Qt::Orientation orientation, QWidget* parent) : QScrollBar(orientation, parent) {
        setFocusPolicy(Qt::StrongFocus);
        setContextMenuPolicy(Qt::DefaultContextMenu);
        setAutoFillBackground(true); // Opaque: a repaint of the view below does not reach the bar.
    }
    QSize minimumSizeHint() const override { return {1, 1}; }

  protected:
    void paintEvent(QPaintEvent* event) override {
        if (ArrowsOnly()) {
            PaintArrows();
        } else {
            QScrollBar::paintEvent(event);
        }
        if (hasFocus()) PaintFocus();
    }
    void mousePressEvent(QMouseEvent* event) override {
        const Half half = HalfAt(event->position().toPoint());
        held_ = event->button() == Qt::LeftButton ? half : kNone;
        if (ArrowsOnly()) {
            PressInside(half, *event);
        } else {
            QScrollBar::mousePressEvent(event);
        }
        update();
    }
    void mouseReleaseEvent(QMouseEvent* event) override {
        held_ = kNone;
        QScrollBar::mouseReleaseEvent(event);
        update();
    }

  private:
    enum Half { kNone, kFirst, kSecond };

    bool Upright() const { return orientation() == Qt::Vertical; }
    bool ArrowsOnly() const {
        const int extent = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
        const int thumb = style()->pixelMetric(QStyle::PM_ScrollBarSliderMin, nullptr, this);
        return (Upright() ? height() : width()) < 2 * extent + thumb / 2;
    }
    Half HalfAt(QPoint place) const { return RectOf(kFirst).contains(place) ? kFirst : kSecond; }
    QRect RectOf(Half half) const {
        const QPoint middle = Upright() ? QPoint(0, height() / 2) : QPoint(width() / 2, 0);
        const QSize first = Upright() ? QSize(width(), middle.y()) : QSize(middle.x(), height());
        return half == kFirst ? QRect(QPoint(0, 0), first) : rect().adjusted(middle.x(), middle.y(), 0, 0);
    }
    /// The style has two arrows here, too, but of an odd length a row between them, which would do nothing.
    void PressInside(Half half, QMouseEvent& event) {
        QMouseEvent inside(event.type(), QPointF(RectOf(half).center()), event.globalPosition(),
                           event.button(), event.buttons(), event.modifiers());
        QScrollBar::mousePressEvent(&inside);
        event.setAccepted(inside.isAccepted());
    }
    void PaintArrows() {
        QPainter painter(this);
        PaintButton(painter, kFirst, Upright() ? QStyle::PE_IndicatorArrowUp : QStyle::PE_IndicatorArrowLeft);
        PaintButton(painter, kSecond,
                    Upright() ? QStyle::PE_IndicatorArrowDown : QStyle::PE_IndicatorArrowRight);
    }
    void PaintButton(QPainter& painter, Half half, QStyle::PrimitiveElement arrow) {
        const QRect place = RectOf(half);
        const bool down = held_ == half;
        painter.fillRect(place, palette().color(down ? QPalette::Midlight : QPalette::Button));
        PaintFrame(painter, place, palette().color(QPalette::Dark));
        QStyleOption option;
        option.initFrom(this);
        const int side = std::min({place.width(), place.height(), 15}) - 4;
        option.rect = QRect(0, 0, side, side);
        option.rect.moveCenter(place.center());
        style()->drawPrimitive(arrow, &option, &painter, this);
    }
    void PaintFocus() {
        QPainter painter(this);
        PaintFocusFrame(painter, rect(), palette());
    }

    Half held_ = kNone;
};

} // namespace

ScrollBar::ScrollBar(Container& parent, std::string name, Direction direction)
    : RangeControl(parent, std::move(name), 0, 32767) {
    const Qt::Orientation way = direction == Direction::Vertical ? Qt::Vertical : Qt::Horizontal;
    InstallWidget(*this, new ScrollWidget(way, ClientWidgetOf(parent)));
    Follow();
    LargeChange(1);
}

int ScrollBar::Whole(double value) const {
    return ToInt16(value);
}

void ScrollBar::Min(double value) {
    Range(ToInt16(value), Max());
}

void ScrollBar::Max(double value) {
    Range(Min(), ToInt16(value));
}

void ScrollBar::LargeChange(double value) {
    largeChange_ = Within(int{ToInt16(value)}, 0, 32767);
    Quietly<QScrollBar>(*this, [this](QScrollBar& bar) { bar.setPageStep(std::max(largeChange_, 1)); });
}

} // namespace pintalux
