// The formats of picture files: how their names end, what the dialogs call them, what writes them. What reads
// them goes by the first bytes of a file and is one loader, `LoadPicture`.
#pragma once

#include "surface/raster/Bitmap.h"

#include <string>

namespace pintalux {

struct PictureFormat {
    const char* extension; ///< In lower case, without a point.
    /// As the save dialog calls it. Null, like `write`, for a format that is only read.
    const char* name;
    /// Replaces the file as a whole, or leaves the old one as it was and raises the error. `quality` is 1 to
    /// 100, for the formats that lose some.
    void (*write)(const Picture& picture, const std::string& path, int quality);
};

/// The filters of the dialogs, as `CommonDialog` takes them.
std::string OpenFilter();
std::string SaveFilter();

/// The format of an entry of `SaveFilter`, from 1; the first for a number that it has not.
const PictureFormat& FormatOfFilter(int filterIndex);

/// The format that writes files of this extension, in any case of letters; null if none does.
const PictureFormat* WritableFormat(const std::string& extension);

} // namespace pintalux
