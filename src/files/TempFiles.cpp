#include "files/TempFiles.h"

#include "surface/system/TempNames.h"

namespace pintalux {

bool MakeTempFileName(const std::string& path, const std::string& prefix, unsigned unique,
                      std::string& name) {
    const auto make = [&](const std::string& folder) {
        return GetTempFileName(folder, prefix, unique, name) >= 1;
    };
    const bool made = path.empty() ? TryTempFolders(make) : make(path);
    name = StripAtNull(name);
    return made;
}

std::string StripAtNull(const std::string& text) {
    return text.substr(0, text.find('\0'));
}

} // namespace pintalux
