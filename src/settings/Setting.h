// The program's own settings, read from the store at each question, so that an edit by hand counts at once.
#pragma once

#include <cstdint>
#include <string>

namespace pintalux {

/// The value of a key as text.
std::string Setting(const std::string& key, const std::string& defaultText);

// A text that is no value of its kind, after an edit by hand or by another program, counts as the default.

/// A decimal number from `lowest` to `highest`.
double SettingNumber(const std::string& key, double defaultValue, double lowest, double highest);
/// The same, rounded to a whole number, half to even.
std::int16_t SettingInteger(const std::string& key, std::int16_t defaultValue, std::int16_t lowest,
                            std::int16_t highest);
/// One of the words "True" and "False", in any case of letters.
bool SettingWord(const std::string& key, bool defaultValue);

} // namespace pintalux
