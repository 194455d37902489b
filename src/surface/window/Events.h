// Where events enter the program, and what becomes of an error that nobody caught.
#pragma once

#include "base/RuntimeError.h"

#include <functional>
#include <string>

namespace pintalux {

enum class EventKind {
    Ordinary, ///< An untrapped error stops the program.
    Pointer,  ///< Pointer handlers and drag timers: error 6 ends the handler, the program goes on.
};

/// Runs a handler that the toolkit started. Nothing leaves it: an error goes to `OnUntrappedError`, except
/// that error 6 in a pointer handler is dropped.
void RunEvent(EventKind kind, const std::function<void()>& handler) noexcept;

/// Hears of an error that reached the top. The program sets it to its stop message. Where that returns, the
/// handler is left and the program goes on.
extern std::function<void(const RuntimeError&)> OnUntrappedError;

/// For `OnUntrappedError`: which handler failed, the same text at each of its failures. Handlers that one
/// statement of the program makes (those of a row of buttons) are the same one.
std::string FailedHandler();

/// One pass of the pending events.
void DoEvents();

} // namespace pintalux
