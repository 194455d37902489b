// The one temporary-file routine of the program.
#pragma once

#include <string>

namespace pintalux {

/// Makes an empty, uniquely named file and gives true; its path goes to `name`. An empty `path` means the
/// first of the system's folders for temporary files that takes it. False if no file can be made; nothing is
/// reported to the user.
bool MakeTempFileName(const std::string& path, const std::string& prefix, unsigned unique, std::string& name);

/// The part before the first NUL character, or the whole text if there is none.
std::string StripAtNull(const std::string& text);

} // namespace pintalux
