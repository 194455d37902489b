#include "surface/system/Folders.h"

#include <cstdlib>
#include <pwd.h>
#include <unistd.h>

namespace pintalux {

namespace {

/// The absolute path that a variable holds, without a trailing separator; empty for any other text, which
/// would mean another folder wherever the program is started.
std::string PathIn(const char* variable) {
    const char* value = std::getenv(variable);
    std::string path = value != nullptr && *value == '/' ? value : "";
    while (path.size() > 1 && path.back() == '/')
        path.pop_back();
    return path;
}

std::string HomeFolder() {
    const std::string home = PathIn("HOME");
    if (!home.empty()) return home;
    const passwd* user = ::getpwuid(::geteuid());
    return user != nullptr && user->pw_dir != nullptr ? user->pw_dir : "/";
}

std::string OurFolder(const char* variable, const char* belowHome) {
    const std::string wanted = PathIn(variable);
    return (wanted.empty() ? HomeFolder() + belowHome : wanted) + "/Pintalux64";
}

} // namespace

std::string SettingsFolder() {
    return OurFolder("XDG_CONFIG_HOME", "/.config");
}

std::string DataFolder() {
    return OurFolder("XDG_DATA_HOME", "/.local/share");
}

std::string StateFolder() {
    return OurFolder("XDG_STATE_HOME", "/.local/state");
}

std::string RuntimeFolder() {
    return PathIn("XDG_RUNTIME_DIR");
}

} // namespace pintalux
