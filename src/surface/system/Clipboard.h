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
    /// that failed counts as none until the next change. Waits for another program as long as the toolkit
    /// does, once.
    Picture GetData(int format = CF_BITMAP);
};
extern ClipboardObject Clipboard;

inline constexpr int kClipboardUnavailable = 521;

/// Whether a bitmap is on the clipboard (image/bmp, image/x-bmp, image/x-MS-bmp, image/png, image/jpeg,
/// image/gif count). Never asks another program: its formats were asked when the change was heard of (and
/// once at the first call), so that a hung owner does not block the poll.
bool IsClipboardFormatAvailable(int format);

/// Hears of every change of the clipboard's contents, the program's own included; empty switches off.
void SetClipboardViewer(std::function<void()> viewer);

} // namespace pintalux
