// The program's own INI files under $XDG_CONFIG_HOME/Pintalux64, where any text can be a value: UTF-8, with
// line ends, backslashes and blanks at the ends written as escapes.
#pragma once

#include "surface/system/Settings.h"

#include <optional>

namespace pintalux {

/// A value of the store `fileName`. Nothing if it is missing or cannot be read. Each call reads the file, so
/// that an edit by hand is seen at once.
std::optional<std::string> ReadStoreValue(const std::string& fileName, const std::string& group,
                                          const std::string& name);

/// Writes values, all at once, aside and renamed. What else stands in the file stays. Raises the file layer's
/// errors; a store that exists and cannot be read is an error too, so that it is not lost.
void WriteStoreValues(const std::string& fileName, const std::string& group,
                      const std::vector<SettingText>& values);

/// False if there is no such value; raises as the writing does.
bool DeleteStoreValue(const std::string& fileName, const std::string& group, const std::string& name);

} // namespace pintalux
