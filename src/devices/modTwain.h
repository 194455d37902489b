// Scanning, as three calls: is it possible here, which device, a page into a file.
#pragma once

#include <string>

namespace pintalux {

class Control;

/// Nonzero if scanning is possible on this machine. Error 53 if the scanner library is not installed. Looks
/// for no device: that takes seconds and happens when the user asks.
int TWAIN_IsAvailable();

/// Shows the devices that are found and remembers the user's choice for the run. Gives 1 if one was chosen,
/// else 0.
int TWAIN_SelectImageSource(Control* owner);

/// Asks for resolution, colours and area of a page, scans it and writes it as a BMP file. With no device
/// chosen yet the only one found is taken, and of several the user chooses. Gives 0 on success; anything else
/// means that no file was written: the user cancelled, or a message has said what the device or the disk
/// refused.
int TWAIN_AcquireToFilename(Control* owner, const std::string& fileName);

/// Forgets the device and what the last page was scanned with, as at the start of the program.
void ForgetScanner();

} // namespace pintalux
