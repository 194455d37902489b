// What the targets of the fuzzer share: bytes as a file, and the one exception that hostile bytes may raise.
//
// A target gets bytes that nobody vouches for and does with them what the program does. It ends well or by a
// run-time error; anything else (a sanitizer's finding, another exception, a broken promise) is a finding.
#pragma once

#include "base/RuntimeError.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

namespace pintalux {

/// Bytes as a file in memory, with a path.
class BytesAsFile {
  public:
    explicit BytesAsFile(std::span<const std::uint8_t> bytes)
        : descriptor_(::memfd_create("bytes", MFD_CLOEXEC)) {
        if (::write(descriptor_, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()))
            std::abort();
    }
    ~BytesAsFile() { ::close(descriptor_); }
    BytesAsFile(const BytesAsFile&) = delete;
    BytesAsFile& operator=(const BytesAsFile&) = delete;
    std::string Path() const { return "/proc/self/fd/" + std::to_string(descriptor_); }

  private:
    int descriptor_;
};

/// Runs a step that may raise a run-time error, and nothing else.
template <class Step>
void MayRefuse(Step step) {
    try {
        step();
    } catch (const RuntimeError&) {
        return;
    }
}

/// Ends the run where a promise is broken; the fuzzer keeps the bytes.
inline void Demand(bool holds) {
    if (!holds) std::abort();
}

} // namespace pintalux
