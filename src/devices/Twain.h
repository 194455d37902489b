// The scanner, as far as the start of the program needs it.
#pragma once

#include <functional>

namespace pintalux {

/// Nonzero if scanning is possible on this machine. Error 53 if the scanner library is not installed. Looks
/// for no device: that happens when the user asks.
int TWAIN_IsAvailable();

/// Opens the scanner library; false if it is not installed. Tests put their own in its place.
extern std::function<bool()> OpenScannerLibrary;

} // namespace pintalux
