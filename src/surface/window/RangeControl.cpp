#include "surface/window/RangeControl.h"

#include "surface/window/Inputs_native.h"

#include <algorithm>
#include <QAbstractSlider>

namespace pintalux {

RangeControl::RangeControl(Container& parent, std::string name, int min, int max)
    : Control(&parent, std::move(name)), min_(min), max_(max), value_(min) {}

void RangeControl::Follow() {
    ShowState();
    const auto* slider = WidgetAs<QAbstractSlider>(*this);
    QObject::connect(slider, &QAbstractSlider::valueChanged, slider, [this](int value) { MovedTo(value); });
    QObject::connect(slider, &QAbstractSlider::sliderReleased, slider, [this] { Released(); });
}

void RangeControl::MovedTo(int value) {
    const bool held = WidgetAs<QAbstractSlider>(*this)->isSliderDown();
    if (value != value_) dragged_ = held;
    TakeByHand(value_, value, held ? Scroll : Change);
}

void RangeControl::Released() {
    if (std::exchange(dragged_, false)) RunByHand(Change);
}

void RangeControl::Range(int min, int max) {
    min_ = min;
    max_ = max;
    const int kept = std::clamp(value_, std::min(min_, max_), std::max(min_, max_));
    const bool moves = kept != value_;
    value_ = kept;
    ShowState();
    if (moves && Change) Change();
}

void RangeControl::Value(double value) {
    const int whole = Within(Whole(value), std::min(min_, max_), std::max(min_, max_));
    AssignValue(
        value_, whole, [this] { ShowState(); }, Change);
}

void RangeControl::ShowState() {
    Quietly<QAbstractSlider>(*this, [this](QAbstractSlider& slider) {
        slider.setRange(std::min(min_, max_), std::max(min_, max_));
        slider.setInvertedAppearance(min_ > max_);
        slider.setValue(value_);
    });
}

} // namespace pintalux
