// The user's folders, by the desktop's rules: a variable of the environment counts if it holds an absolute
// path.
#pragma once

#include <string>

namespace pintalux {

// Without a trailing separator; none is made here.
std::string ConfigHome();     ///< $XDG_CONFIG_HOME, which all programs share
std::string DataHome();       ///< $XDG_DATA_HOME, the same for data
std::string SettingsFolder(); ///< $XDG_CONFIG_HOME/Pintalux64
std::string DataFolder();     ///< $XDG_DATA_HOME/Pintalux64
std::string StateFolder();    ///< $XDG_STATE_HOME/Pintalux64
std::string RuntimeFolder();  ///< $XDG_RUNTIME_DIR itself; empty where there is none.

} // namespace pintalux
