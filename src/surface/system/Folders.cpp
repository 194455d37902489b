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

std::string FolderOfUser(const char* variable, const char* belowHome) {
    const std::string wanted = PathIn(variable);
    return wanted.empty() ? HomeFolder() + belowHome : wanted;
}

} // namespace

std::string ConfigHome() {
    return FolderOfUser("XDG_CONFIG_HOME", "/.config");
}

std::string DataHome() {
    return FolderOfUser("XDG_DATA_HOME", "/.local/share");
}

std::string SettingsFolder() {
    return ConfigHome() + "/Pintalux64";
}

std::string DataFolder() {
    return DataHome() + "/Pintalux64";
}

std::string StateFolder() {
    return FolderOfUser("XDG_STATE_HOME", "/.local/state") + "/Pintalux64";
}

std::string RuntimeFolder() {
    return PathIn("XDG_RUNTIME_DIR");
}

} // namespace pintalux
