#include "surface/window/Slider.h"

#include "base/Arithmetic.h"
#include "surface/window/Inputs_native.h"

#include <algorithm>
#include <limits>
#include <QHelpEvent>
#include <QSlider>
#include <QStyleOptionSlider>
#include <QToolTip>

namespace pintalux {

namespace {

int Positive(int value) {
    return Within(value, 1, std::numeric_limits<int>::max());
}

/// Shows its value in a bubble while it moves, and behind its tip.
class SliderWidget final : public QSlider {
  public:
    explicit SliderWidget(QWidget* parent) : QSlider(Qt::Horizontal, parent) {
        connect(this, &QSlider::sliderPressed, this, [this] { ShowBubble(); });
        connect(this, &QSlider::sliderReleased, this, [] { QToolTip::hideText(); });
    }

  protected:
    // By hand alone: what code assigns comes without signals and without a bubble.
    void sliderChange(SliderChange change) override {
        QSlider::sliderChange(change);
        if (change == SliderValueChange && isVisible() && !signalsBlocked()) ShowBubble();
    }
    bool event(QEvent* event) override {
        if (event->type() != QEvent::ToolTip || toolTip().isEmpty()) return QSlider::event(event);
        const QString value = QString::number(this->value());
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                           toolTip() == value ? value : toolTip() + ": " + value, this);
        return true;
    }

  private:
    void ShowBubble() {
        QStyleOptionSlider option;
        initStyleOption(&option);
        const QRect handle =
            style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this);
        QToolTip::showText(mapToGlobal(handle.topRight()), QString::number(value()), this, rect());
    }
};

} // namespace

Slider::Slider(Container& parent, std::string name, int min, int max)
    : RangeControl(parent, std::move(name), min, max) {
    auto* widget = new SliderWidget(ClientWidgetOf(parent));
    widget->setTickPosition(QSlider::TicksBelow);
    widget->setPageStep(1);
    InstallWidget(*this, widget);
    Follow();
}

int Slider::Whole(double value) const {
    return ToInt32(value);
}

void Slider::Min(int value) {
    Range(value, std::max(value, Max()));
}

void Slider::Max(int value) {
    Range(std::min(Min(), value), value);
}

void Slider::SmallChange(int value) {
    Quietly<QSlider>(*this, [step = Positive(value)](QSlider& slider) { slider.setSingleStep(step); });
}

void Slider::LargeChange(int value) {
    Quietly<QSlider>(*this, [step = Positive(value)](QSlider& slider) { slider.setPageStep(step); });
}

void Slider::TickFrequency(int value) {
    Quietly<QSlider>(*this, [step = Positive(value)](QSlider& slider) { slider.setTickInterval(step); });
}

} // namespace pintalux
