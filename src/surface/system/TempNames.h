// Temporary files and the folders for them.
#pragma once

#include <functional>
#include <string>

namespace pintalux {

/// Tries the folders for temporary files, each with a trailing separator, until `attempt` is content:
/// $TMPDIR, /var/tmp (it outlives a restart, and is no memory disk), /tmp, and one of our own in the state
/// home, made on demand. What is no folder is passed over. False if none would do.
bool TryTempFolders(const std::function<bool(const std::string& folder)>& attempt);

/// Tests: whether there are such folders at all.
void TempFoldersForTests(bool any);

/// Creates an empty file in `path` named `prefix` (three characters at most), four hexadecimal digits (or,
/// when those are used up, eight) and ".tmp", for the user alone; the name goes to `name`. Gives the number,
/// at least 1, or 0 on failure. With a `unique` other than 0 the name is only formed, from its lowest 16
/// bits, and no file is made.
unsigned GetTempFileName(const std::string& path, const std::string& prefix, unsigned unique,
                         std::string& name);

} // namespace pintalux
