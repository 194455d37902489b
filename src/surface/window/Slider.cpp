#include "surface/window/Slider.h"

#include "base/Arithmetic.h"
#include "base/RuntimeError.h"
#include "surface/window/Inputs_native.h"

#include <algorithm>
#include <QSlider>

namespace pintalux {

namespace {

int Positive(int value) {
    if (value < 1) throw RuntimeError(kInvalidPropertyValue);
    return value;
}

} // namespace

Slider::Slider(Container& parent, std::string name, int min, int max)
    : Control(&parent, std::move(name)), min_(min), max_(max), value_(min) {
    auto* widget = new QSlider(Qt::Horizontal, ClientWidgetOf(parent));
    widget->setTickPosition(QSlider::TicksBelow);
    widget->setPageStep(1);
    InstallWidget(*this, widget);
    ShowState();
    RouteSlider(
        *widget,
        [this](int value) {
            const bool moves = value != value_;
            value_ = value;
            return moves;
        },
        [this] {
            if (Scroll) Scroll();
        },
        [this] {
            if (Change) Change();
        });
}

void Slider::Min(int value) {
    min_ = value;
    max_ = std::max(min_, max_);
    RangeChanged();
}

void Slider::Max(int value) {
    max_ = value;
    min_ = std::min(min_, max_);
    RangeChanged();
}

void Slider::RangeChanged() {
    const int kept = std::clamp(value_, min_, max_);
    const bool moves = kept != value_;
    value_ = kept;
    ShowState();
    if (moves && Change) Change();
}

void Slider::Value(double value) {
    const int whole = ToInt32(value);
    if (whole < min_ || whole > max_) throw RuntimeError(kInvalidPropertyValue);
    if (whole == value_) return;
    value_ = whole;
    ShowState();
    if (Change) Change();
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

void Slider::ShowState() {
    Quietly<QSlider>(*this, [this](QSlider& slider) {
        slider.setRange(min_, max_);
        slider.setValue(value_);
    });
}

} // namespace pintalux
