#include "surface/system/EndSignals.h"

#include <csignal>
#include <fcntl.h>
#include <QCoreApplication>
#include <QSocketNotifier>
#include <unistd.h>

namespace pintalux {

namespace {

int signalPipe[2] = {-1, -1};
void (*atFault)() = nullptr;

void Tell(int signal) {
    const auto number = static_cast<unsigned char>(signal);
    // Where the pipe is full, enough was told.
    [[maybe_unused]] const ssize_t written = ::write(signalPipe[1], &number, 1);
}

void EndBy(int signal) {
    std::signal(signal, SIG_DFL);
    ::raise(signal);
}

void Fault(int signal) {
    // A second fault, in `atFault` itself, ends it at once.
    std::signal(signal, SIG_DFL);
    if (atFault != nullptr) atFault();
    ::raise(signal);
}

} // namespace

void OnEndSignal(std::function<void()> act) {
    if (::pipe2(signalPipe, O_CLOEXEC | O_NONBLOCK) != 0) return;
    auto* notifier = new QSocketNotifier(signalPipe[0], QSocketNotifier::Read, QCoreApplication::instance());
    QObject::connect(notifier, &QSocketNotifier::activated, notifier, [act = std::move(act)] {
        unsigned char signal = 0;
        if (::read(signalPipe[0], &signal, 1) != 1) return;
        act();
        EndBy(signal);
    });
    for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
        if (std::signal(signal, Tell) == SIG_IGN) std::signal(signal, SIG_IGN);
    }
}

void OnFault(void (*wait)()) {
    atFault = wait;
    for (const int signal : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT})
        std::signal(signal, Fault);
}

} // namespace pintalux
