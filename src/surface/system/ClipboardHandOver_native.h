// What was copied outlives the program, where the desktop has a clipboard manager.
#pragma once

namespace pintalux {

/// Asks the clipboard manager to take over what this program owns, and serves it meanwhile. Returns when it
/// has done so or keeps silent for some seconds; at once where there is none. False if it did not take it.
///
/// The toolkit does the same at its own end, but cannot give more than 16 megabytes any more by then: a
/// photograph would be lost, after seconds of waiting.
bool HandOverClipboard();

} // namespace pintalux
