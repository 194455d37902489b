// The desktop's clipboard: bitmaps only.
#pragma once

#include "surface/raster/Bitmap.h"

#include <functional>

namespace pintalux {

inline constexpr int CF_BITMAP = 2;

struct ClipboardObject {
    void Clear();
    /// Offers the picture as image/bmp and image/png, encoded when somebody asks for the bytes. The viewer
    /// hook sees the change nested in this call. The empty picture is no bitmap: it clears.
    void SetData(const Picture& picture);
    /// The bitmap on the clipboard. Error 521 if there is none or it can't be read, 7 if memory runs out; one
    /// that failed counts as none until the next change. Another program is waited for under
    /// `WorkWhileWaiting`, once: Escape is error 18. A viewer that captures gets what is here already, and
    /// error 521 for a bitmap that would take more than an eighth of the machine's memory.
    Picture GetData(int format = CF_BITMAP);
};
extern ClipboardObject Clipboard;

inline constexpr int kClipboardUnavailable = 521;

/// Whether a bitmap is on the clipboard (image/bmp, image/x-bmp, image/x-MS-bmp, image/png, image/jpeg,
/// image/gif count). Never asks another program: its formats are asked when a change is heard of (and once at
/// the first call), and what it has not told yet is not there.
bool IsClipboardFormatAvailable(int format);

/// Hears of every change of the clipboard's contents, the program's own included; empty switches off. Of a
/// change by another program it hears when that has told its formats, and where `captures` says so at that
/// moment, when its bitmap is fetched and decoded, or has failed: the interface waits for neither.
void SetClipboardViewer(std::function<void()> viewer, std::function<bool()> captures = {});

} // namespace pintalux
