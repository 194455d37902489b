// The signals that end the process, so that what is on its way to the disk arrives.
#pragma once

#include <functional>

namespace pintalux {

/// SIGTERM, SIGHUP and SIGINT: `act` runs on the interface thread, then the process ends by the signal. One
/// that the parent chose to ignore stays ignored.
void OnEndSignal(std::function<void()> act);

/// A fault of the program (SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT): `wait` runs inside the signal, on the
/// thread that failed, then the process dies by it. `wait` may only do what a signal handler may.
void OnFault(void (*wait)());

} // namespace pintalux
