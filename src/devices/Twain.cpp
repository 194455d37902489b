#include "devices/Twain.h"

#include "base/RuntimeError.h"

#include <dlfcn.h>

namespace pintalux {

namespace {

constexpr const char* kLibrary = "libsane.so.1";

} // namespace

std::function<bool()> OpenScannerLibrary = [] {
    static void* const library = dlopen(kLibrary, RTLD_LAZY | RTLD_LOCAL);
    return library != nullptr;
};

int TWAIN_IsAvailable() {
    if (!OpenScannerLibrary()) throw RuntimeError(kFileNotFound, kLibrary);
    return 1;
}

} // namespace pintalux
