#include "devices/sane/SaneCalls.h"

#include "base/RuntimeError.h"

#include <dlfcn.h>

namespace pintalux {

namespace {

constexpr const char* kLibrary = "libsane.so.1";

template <class Function>
void Load(void* library, const char* name, Function& function) {
    // A data pointer becomes a function pointer, as the loader of libraries has it.
    function = reinterpret_cast<Function>(dlsym(library, name));
    if (function == nullptr) throw RuntimeError(kFileNotFound, std::string(kLibrary) + ": " + name);
}

SaneCalls LoadCalls() {
    void* const library = OpenScannerLibrary();
    if (library == nullptr) throw RuntimeError(kFileNotFound, kLibrary);
    SaneCalls calls;
    Load(library, "sane_init", calls.init);
    Load(library, "sane_get_devices", calls.getDevices);
    Load(library, "sane_open", calls.open);
    Load(library, "sane_close", calls.close);
    Load(library, "sane_get_option_descriptor", calls.optionDescriptor);
    Load(library, "sane_control_option", calls.controlOption);
    Load(library, "sane_get_parameters", calls.getParameters);
    Load(library, "sane_start", calls.start);
    Load(library, "sane_read", calls.read);
    Load(library, "sane_cancel", calls.cancel);
    Load(library, "sane_exit", calls.exit);
    return calls;
}

bool started = false;

void StartLibrary(const SaneCalls& calls) {
    SANE_Int version = 0;
    if (calls.init(&version, nullptr) != SANE_STATUS_GOOD ||
        SANE_VERSION_MAJOR(version) != SANE_CURRENT_MAJOR)
        throw RuntimeError(kDeviceUnavailable, kLibrary);
    started = true;
}

int NumberOf(SANE_Status status) {
    switch (status) {
    case SANE_STATUS_NO_MEM:
        return kOutOfMemory;
    case SANE_STATUS_INVAL:
    case SANE_STATUS_ACCESS_DENIED:
    case SANE_STATUS_DEVICE_BUSY:
        return kDeviceUnavailable;
    default:
        return kDeviceError;
    }
}

} // namespace

std::function<void*()> OpenScannerLibrary = [] {
    static void* const library = dlopen(kLibrary, RTLD_LAZY | RTLD_LOCAL);
    return library;
};

const SaneCalls& Sane() {
    static const SaneCalls calls = LoadCalls();
    if (!started) StartLibrary(calls);
    return calls;
}

void EndSane() {
    if (!started) return;
    Sane().exit();
    started = false;
}

void CheckSane(SANE_Status status) {
    if (status != SANE_STATUS_GOOD) throw RuntimeError(NumberOf(status), SaneText(status));
}

std::string SaneText(SANE_Status status) {
    switch (status) {
    case SANE_STATUS_CANCELLED:
        return "A digitalização foi cancelada.";
    case SANE_STATUS_DEVICE_BUSY:
        return "O digitalizador está ocupado.";
    case SANE_STATUS_INVAL:
        return "O digitalizador já não está ligado, ou não aceita o que foi pedido.";
    case SANE_STATUS_JAMMED:
        return "O papel está encravado.";
    case SANE_STATUS_NO_DOCS:
        return "Não há papel no alimentador.";
    case SANE_STATUS_COVER_OPEN:
        return "A tampa do digitalizador está aberta.";
    case SANE_STATUS_IO_ERROR:
        return "A ligação ao digitalizador falhou.";
    case SANE_STATUS_NO_MEM:
        return "O digitalizador não tem memória que chegue.";
    case SANE_STATUS_ACCESS_DENIED:
        return "Sem permissão para usar o digitalizador.";
    default:
        return "O digitalizador não respondeu como devia.";
    }
}

} // namespace pintalux
