#include "surface/window/Events.h"

#include "surface/window/Events_native.h"

#include <QCoreApplication>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <typeinfo>
#include <utility>
#include <vector>

namespace pintalux {

namespace {

int runningHandlers = 0;
const std::type_info* failedHandler = nullptr;
bool idlePosted = false;

std::vector<std::function<void()>>& IdleWork() {
    static std::vector<std::function<void()>> work;
    return work;
}

void RunIdleWork() {
    idlePosted = false;
    if (runningHandlers > 0) return; // The last handler posts again.
    for (const std::function<void()>& work : std::exchange(IdleWork(), {}))
        work();
}

void DropIdleWork() {
    IdleWork().clear();
}

void PostIdleWork() {
    if (idlePosted || IdleWork().empty() || !qApp) return;
    idlePosted = true;
    QTimer::singleShot(0, qApp, RunIdleWork);
}

void StopWithoutListener(const RuntimeError& error) {
    std::fprintf(stderr, "%d: %s\n", error.Number(), error.Text().c_str());
    std::abort();
}

} // namespace

std::function<void(const RuntimeError&)> OnUntrappedError = StopWithoutListener;

RunningHandler::RunningHandler() {
    ++runningHandlers;
}

RunningHandler::~RunningHandler() {
    if (--runningHandlers == 0) PostIdleWork();
}

void RunEvent(EventKind kind, const std::function<void()>& handler) noexcept {
    const RunningHandler running;
    try {
        handler();
    } catch (...) {
        const RuntimeError error = CurrentError();
        if (kind == EventKind::Pointer && error.Number() == kOverflow) return;
        failedHandler = &handler.target_type();
        OnUntrappedError(error);
    }
}

std::string FailedHandler() {
    return failedHandler ? failedHandler->name() : std::string{};
}

void WhenIdle(std::function<void()> work) {
    static const bool registered = [] {
        qAddPostRoutine(DropIdleWork);
        return true;
    }();
    static_cast<void>(registered);
    IdleWork().push_back(std::move(work));
    if (runningHandlers == 0) PostIdleWork();
}

void DoEvents() {
    QCoreApplication::processEvents();
}

} // namespace pintalux
