#include "surface/system/FreeMemory.h"

#include "base/RuntimeError.h"

#include <atomic>
#include <fstream>
#include <limits>
#include <string>

namespace pintalux {

namespace {

constexpr std::uint64_t kUnknown = std::numeric_limits<std::uint64_t>::max();

std::atomic<std::uint64_t> supposed{kUnknown};

std::uint64_t BytesOfSystem(const char* line) {
    std::ifstream table("/proc/meminfo");
    std::string word;
    while (table >> word) {
        std::uint64_t kilobytes = 0;
        if (word == line && table >> kilobytes) return kilobytes * 1024;
    }
    return kUnknown;
}

} // namespace

std::uint64_t FreeMemory() {
    return supposed != kUnknown ? supposed.load() : BytesOfSystem("MemAvailable:");
}

std::uint64_t MachineMemory() {
    return supposed != kUnknown ? supposed.load() : BytesOfSystem("MemTotal:");
}

void DemandMemory(std::uint64_t bytes) {
    if (bytes > FreeMemory() / 2) throw RuntimeError(kOutOfMemory);
}

void FreeMemoryForTests(std::optional<std::uint64_t> bytes) {
    supposed = bytes.value_or(kUnknown);
}

} // namespace pintalux
