// What was copied outlives the program, where the desktop has a clipboard manager.
#pragma once

namespace pintalux {

class ClipboardServer;

/// Asks the clipboard manager to take over what this program owns, while `server` serves it. Returns when it
/// has done so or keeps silent for a second or two, or for a blink where it took the picture when that was
/// copied; at once where there is none. False if it did not say that it took it.
///
/// The toolkit does the same at its own end, but cannot give more than 16 megabytes any more by then: a
/// photograph would be lost, after seconds of waiting.
bool HandOverClipboard(const ClipboardServer& server);

} // namespace pintalux
