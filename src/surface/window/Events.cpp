#include "surface/window/Events.h"

#include "surface/window/Events_native.h"

#include <QCoreApplication>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <typeinfo>
#include <utility>
#include <vector>

namespace pintalux {

namespace {

int runningHandlers = 0;
const std::type_info* failedHandler = nullptr;
bool idlePosted = false;

/// What a handler left to be done at its end, and how many handlers ran when it did, itself counted.
struct Epilogue {
    int depth;
    std::function<void()> work;
};

std::vector<Epilogue>& Epilogues() {
    static std::vector<Epilogue> epilogues;
    return epilogues;
}

/// The deepest handler's are the last of the list, in the order in which they were given.
void RunEpilogues() {
    std::vector<Epilogue>& all = Epilogues();
    const auto due = std::find_if(all.begin(), all.end(),
                                  [](const Epilogue& epilogue) { return epilogue.depth > runningHandlers; });
    const std::vector<Epilogue> running(std::make_move_iterator(due), std::make_move_iterator(all.end()));
    all.erase(due, all.end());
    for (const Epilogue& epilogue : running)
        epilogue.work();
}

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
    --runningHandlers;
    RunEpilogues();
    if (runningHandlers == 0) PostIdleWork();
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

void WhenHandlerOver(std::function<void()> work) {
    if (runningHandlers == 0) return WhenIdle(std::move(work));
    Epilogues().push_back({runningHandlers, std::move(work)});
}

void DoEvents() {
    QCoreApplication::processEvents();
}

} // namespace pintalux
