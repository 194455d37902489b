// The clipboard monitor: a procedure put before that of the main window, which hears of the clipboard.
#pragma once

#include "base/Flag.h"

#include <cstdint>
#include <functional>

namespace pintalux {

struct ClipTray;

/// What a window does with a message; the result goes back to whoever sent it.
using WindowProc = std::function<std::intptr_t(ClipTray& window, std::uint32_t message, std::intptr_t first,
                                               std::intptr_t second)>;

inline constexpr std::uint32_t WM_DRAWCLIPBOARD = 0x308; ///< The clipboard holds something new.

inline Flag ClipCaptureOff;      ///< Stops captures.
inline WindowProc OldWindowProc; ///< What the hook replaced; empty before the first hook.

/// Puts `ClipWindowProc` in the place of the window's procedure. A window that has it already keeps it.
void ClipHookOn(ClipTray& window);
/// Puts `OldWindowProc` back. Without a hook before, nothing happens.
void ClipHookOff(ClipTray& window);
/// Runs the old procedure, whose result it gives, then captures a new bitmap. Raises nothing of its own.
std::intptr_t ClipWindowProc(ClipTray& window, std::uint32_t message, std::intptr_t first,
                             std::intptr_t second);

/// Has the window's procedure, whichever it is at the time, hear of every change of the clipboard, those by
/// the program itself nested in its write. The window must leave before it goes.
void SetClipboardViewer(ClipTray& window);

} // namespace pintalux
