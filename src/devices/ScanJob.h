// Work that may take minutes, on a thread of its own, while the interface lives.
#pragma once

#include "base/RuntimeError.h"
#include "devices/sane/Scanner.h"

#include <atomic>
#include <functional>
#include <memory>
#include <optional>

namespace pintalux {

/// What the thread and the interface share. The thread keeps it alive, so that a user who gives up need not
/// wait for a device that does not answer.
struct ScanJob {
    /// May set `done` itself where something is left to do that the user need not wait for.
    std::function<void(ScanJob& job)> work;
    ScanProgress progress;
    std::atomic<bool> done{false};
    std::optional<RuntimeError> failure; ///< To be read once `done`.
};

/// Starts the work, once the work that was started before is over.
void Start(const std::shared_ptr<ScanJob>& job);

} // namespace pintalux
