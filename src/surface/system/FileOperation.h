// How the file layer makes a system call: again while a signal interrupts it, and failing when a test says
// so.
#pragma once

#include <cerrno>
#include <string>

namespace pintalux {

/// Counts an operation; true if a test wants this one to fail, with errno set.
bool FailsByOrder();

/// Makes a counted system call, again while a signal interrupts it. -1 and errno on failure.
template <class Call>
auto Operation(Call call) {
    for (;;) {
        const auto result = FailsByOrder() ? -1 : call();
        if (result >= 0 || errno != EINTR) return result;
    }
}

/// The folder of a path as the system calls take it: "." for a bare name, "/" for what stands in the root.
std::string FolderOf(const std::string& path);

} // namespace pintalux
