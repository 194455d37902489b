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
    std::function<void(ScanProgress& progress)> work;
    ScanProgress progress;
    std::atomic<bool> done{false};
    std::optional<RuntimeError> failure; ///< To be read once `done`.
};

/// Starts the work.
void Start(const std::shared_ptr<ScanJob>& job);

} // namespace pintalux
