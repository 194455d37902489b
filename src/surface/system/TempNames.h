// Temporary files and the path for them.
#pragma once

#include <string>

namespace pintalux {

/// $TMPDIR, else /var/tmp, with a trailing separator; empty if it is no folder.
std::string GetTempPath();

/// Creates an empty file in `path` named `prefix` (three characters at most), four hexadecimal digits (or,
/// when those are used up, eight) and ".tmp", for the user alone; the name goes to `name`. Gives the number,
/// at least 1, or 0 on failure. With a `unique` other than 0 the name is only formed, from its lowest 16
/// bits, and no file is made.
unsigned GetTempFileName(const std::string& path, const std::string& prefix, unsigned unique,
                         std::string& name);

} // namespace pintalux
