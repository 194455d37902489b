#include "surface/window/Timer.h"

#include "base/RuntimeError.h"
#include "surface/window/Waiting.h"

#include <QTimer>

namespace pintalux {

struct Timer::Native {
    QTimer timer;
    EventKind kind = EventKind::Ordinary;
    int interval = 0;
    bool enabled = false;
    bool ticking = false;

    void Start();
};

/// Starts anew, or stops where the timer is off or has no interval.
void Timer::Native::Start() {
    if (!enabled || interval == 0) return timer.stop();
    // The drags must not stutter; slow timers may share the wake-ups of the system.
    timer.setTimerType(interval < 100 ? Qt::PreciseTimer : Qt::CoarseTimer);
    timer.start(interval);
}

Timer::Timer(int interval, EventKind kind) : native_(std::make_unique<Native>()) {
    native_->kind = kind;
    Interval(interval);
    QObject::connect(&native_->timer, &QTimer::timeout, &native_->timer, [this] {
        if (!Tick || native_->ticking || Waiting()) return;
        native_->ticking = true;
        RunEvent(native_->kind, std::function<void()>(Tick));
        native_->ticking = false;
    });
}

Timer::~Timer() = default;

int Timer::Interval() const {
    return native_->interval;
}

void Timer::Interval(int milliseconds) {
    if (milliseconds < 0 || milliseconds > 65535) throw RuntimeError(kInvalidPropertyValue);
    if (milliseconds == native_->interval) return;
    native_->interval = milliseconds;
    native_->Start();
}

bool Timer::Enabled() const {
    return native_->enabled;
}

void Timer::Enabled(bool value) {
    if (value == native_->enabled) return;
    native_->enabled = value;
    native_->Start();
}

} // namespace pintalux
