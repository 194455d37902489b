// Stores of texts: the per-user settings, the machine-wide list of recent files, profile files.
#pragma once

#include <string>
#include <vector>

namespace pintalux {

/// Per-user settings under $XDG_CONFIG_HOME/Pintalux64/settings.ini, written whole and renamed at each
/// change. What cannot be read gives the default; what cannot be written raises error 75.
std::string GetSetting(const std::string& application, const std::string& section, const std::string& key,
                       const std::string& defaultText = {});
void SaveSetting(const std::string& application, const std::string& section, const std::string& key,
                 const std::string& text);

/// Several values written at once: one file operation.
struct SettingText {
    std::string key;
    std::string text;
};
void SaveSettings(const std::string& application, const std::string& section,
                  const std::vector<SettingText>& values);

/// The machine-wide store ($XDG_CONFIG_HOME/Pintalux64/machine.ini here): one group a key, text values by
/// name. Reading gives the default for what is missing; writing and deleting give false on failure and raise
/// nothing.
std::string ReadMachineValue(const std::string& key, const std::string& name,
                             const std::string& defaultText = {});
bool WriteMachineValue(const std::string& key, const std::string& name, const std::string& text);
/// Several values written at once: all of them or none.
bool WriteMachineValues(const std::string& key, const std::vector<SettingText>& values);
bool DeleteMachineValue(const std::string& key, const std::string& name);

/// One key of a profile text file, Windows-1252, lines ended by CR LF. Keys and values lose blanks around
/// them when read, so that " 0" and "0" are one key; quotes around a value are taken off; names are compared
/// without regard to case. A value longer than `limit` characters is cut. What cannot be read gives the
/// default.
std::string ProfileRead(const std::string& file, const std::string& section, const std::string& key,
                        const std::string& defaultText, std::size_t limit = 255);

/// Writes one key as it stands, aside and renamed; an empty value removes the key. A text is cut at its first
/// line end. False on failure, with the file as it was.
bool ProfileWrite(const std::string& file, const std::string& section, const std::string& key,
                  const std::string& text);

/// Several keys written at once: one file operation.
bool ProfileWriteKeys(const std::string& file, const std::string& section,
                      const std::vector<SettingText>& values);

/// Reads the texts of several keys from one opening of the file, as `ProfileRead` does: a key that is missing
/// gets an empty text. What cannot be read, and a file of more than `longest` bytes, is an error of the file
/// layer.
void ProfileReadKeys(const std::string& file, const std::string& section, std::vector<SettingText>& values,
                     std::size_t longest, std::size_t limit = 255);

/// Writes a file of one section anew, aside and renamed: no key of an older file stays. Empty texts write no
/// key. Errors of the file layer, with the old file as it was.
void ProfileWriteNew(const std::string& file, const std::string& section,
                     const std::vector<SettingText>& values);

} // namespace pintalux
