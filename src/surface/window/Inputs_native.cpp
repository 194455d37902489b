#include "surface/window/Inputs_native.h"

#include <memory>

namespace pintalux {

void RouteSlider(QAbstractSlider& slider, std::function<bool(int)> moved, std::function<void()> scroll,
                 std::function<void()> change) {
    const auto dragged = std::make_shared<bool>(false);
    QObject::connect(&slider, &QAbstractSlider::valueChanged, &slider, [=, &slider](int value) {
        if (!moved(value)) return;
        *dragged = slider.isSliderDown();
        RunEvent(EventKind::Ordinary, *dragged ? scroll : change);
    });
    QObject::connect(&slider, &QAbstractSlider::sliderReleased, &slider, [=] {
        if (!*dragged) return;
        *dragged = false;
        RunEvent(EventKind::Ordinary, change);
    });
}

} // namespace pintalux
