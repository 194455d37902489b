#include "selection/ModClipHook.h"

#include "base/RuntimeError.h"
#include "selection/ClipTray.h"
#include "surface/system/Clipboard.h"

namespace pintalux {

void ClipHookOn(ClipTray& window) {
    // A second hook would keep itself as the old procedure and call itself for ever.
    if (window.Hooked) return;
    OldWindowProc = std::exchange(window.Procedure, WindowProc(ClipWindowProc));
    window.Hooked = true;
}

void ClipHookOff(ClipTray& window) {
    if (!window.Hooked) return;
    window.Procedure = OldWindowProc;
    window.Hooked = false;
}

std::intptr_t ClipWindowProc(ClipTray& window, std::uint32_t message, std::intptr_t first,
                             std::intptr_t second) {
    const std::intptr_t result = OldWindowProc(window, message, first, second);
    if (message != WM_DRAWCLIPBOARD || !IsClipboardFormatAvailable(CF_BITMAP)) return result;
    // Intended: a bitmap that cannot be taken is passed over without a word, since another program's
    // clipboard must never stop this one.
    ResumeNext(
        [&] {
            if (!ClipCaptureOff) window.LoadClipboard();
        },
        [&] {
            // Intended: while the tray is locked the mark goes at each new bitmap, so that nobody takes the
            // marked slot for what the clipboard holds.
            if (window.ChClipLock.Value() == 1) window.ShClip.Visible(false);
        });
    return result;
}

void SetClipboardViewer(ClipTray& window) {
    SetClipboardViewer(
        [&window] {
            // A copy: the procedure may be put back while it runs.
            const WindowProc procedure = window.Procedure;
            procedure(window, WM_DRAWCLIPBOARD, 0, 0);
        },
        [&window] { return window.Hooked && !ClipCaptureOff; });
}

} // namespace pintalux
