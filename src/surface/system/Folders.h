// The user's folders, by the desktop's rules: a variable of the environment counts if it holds an absolute
// path.
#pragma once

#include <string>

namespace pintalux {

// Without a trailing separator; none is made here.
std::string SettingsFolder(); ///< $XDG_CONFIG_HOME/Pintalux64
std::string StateFolder();    ///< $XDG_STATE_HOME/Pintalux64

} // namespace pintalux
