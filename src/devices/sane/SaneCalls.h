// The scanner library, loaded at run time: a machine without it runs the program all the same.
#pragma once

#include <functional>
#include <sane/sane.h>
#include <string>

namespace pintalux {

/// The library's functions that the program needs.
struct SaneCalls {
    decltype(&sane_init) init = nullptr;
    decltype(&sane_get_devices) getDevices = nullptr;
    decltype(&sane_open) open = nullptr;
    decltype(&sane_close) close = nullptr;
    decltype(&sane_get_option_descriptor) optionDescriptor = nullptr;
    decltype(&sane_control_option) controlOption = nullptr;
    decltype(&sane_get_parameters) getParameters = nullptr;
    decltype(&sane_start) start = nullptr;
    decltype(&sane_read) read = nullptr;
    decltype(&sane_cancel) cancel = nullptr;
    decltype(&sane_exit) exit = nullptr;
};

/// The library, loaded and started at the first call. Error 53 if it is not installed or lacks a function, 68
/// if it does not start. It is one program's at a time: all calls come from one thread after the other.
const SaneCalls& Sane();

/// Ends the library; the next call of `Sane` starts it anew, with its configuration read again. No device may
/// be open.
void EndSane();

/// Nothing on success; else error 57 (61 and 7 where the library means a full disk or memory) with a
/// Portuguese text of what the device said.
void CheckSane(SANE_Status status);

/// What a device said, for the user.
std::string SaneText(SANE_Status status);

/// Opens the scanner library; null if it is not installed. Tests put their own in its place.
extern std::function<void*()> OpenScannerLibrary;

} // namespace pintalux
