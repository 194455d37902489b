// The desktop's clipboard: bitmaps only.
#pragma once

#include "surface/raster/Bitmap.h"

#include <functional>

namespace pintalux {

inline constexpr int CF_BITMAP = 2;

struct ClipboardObject {
    void Clear();
    /// Offers the picture as image/bmp (from the bands, on demand) and image/png (fastest compression). The
    /// viewer hook sees the change nested in this call.
    void SetData(const Picture& picture);
    /// The bitmap on the clipboard. Error 521 if there is none or it can't be read.
    Picture GetData(int format = CF_BITMAP);
};
extern ClipboardObject Clipboard;

inline constexpr int kClipboardUnavailable = 521;

/// Whether a bitmap is on the clipboard (image/bmp, image/x-bmp, image/x-MS-bmp, image/png, image/jpeg,
/// image/gif count). Asked of the owner once for each change and remembered, so that a hung owner never
/// blocks the poll.
bool IsClipboardFormatAvailable(int format);

/// Hears of every change of the clipboard's contents, the program's own included; empty switches off.
void SetClipboardViewer(std::function<void()> viewer);

} // namespace pintalux
