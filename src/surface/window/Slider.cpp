#include "surface/window/Slider.h"

#include "base/Arithmetic.h"
#include "surface/window/Inputs_native.h"

#include <algorithm>
#include <limits>
#include <QSlider>

namespace pintalux {

namespace {

int Positive(int value) {
    return Within(value, 1, std::numeric_limits<int>::max());
}

} // namespace

Slider::Slider(Container& parent, std::string name, int min, int max)
    : RangeControl(parent, std::move(name), min, max) {
    auto* widget = new QSlider(Qt::Horizontal, ClientWidgetOf(parent));
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
