// Waiting for what the toolkit brings about by itself.
#pragma once

#include <functional>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QEventLoop>
#include <unistd.h>

namespace pintalux {

/// Passes pending events until the condition holds; false after `milliseconds`.
inline bool WaitFor(const std::function<bool()>& condition, int milliseconds = 5000) {
    QElapsedTimer clock;
    clock.start();
    while (!condition()) {
        if (clock.elapsed() > milliseconds) return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        usleep(1000); // for the other threads
    }
    return true;
}

} // namespace pintalux
