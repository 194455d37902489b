#include "settings/Setting.h"

#include "base/Arithmetic.h"
#include "base/NumberText.h"
#include "surface/system/App.h"
#include "surface/system/Settings.h"

#include <charconv>
#include <optional>

namespace pintalux {

namespace {

/// The number that a text is, blanks around it aside; nothing for a text that only begins with one.
std::optional<double> WholeNumberText(const std::string& text) {
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string::npos) return {};
    const char* const end = text.data() + text.find_last_not_of(" \t") + 1;
    double value = 0;
    const auto [rest, error] = std::from_chars(text.data() + first, end, value);
    if (error != std::errc{} || rest != end) return {};
    return value;
}

} // namespace

std::string Setting(const std::string& key, const std::string& defaultText) {
    return GetSetting(App.Title(), "Settings", key, defaultText);
}

double SettingNumber(const std::string& key, double defaultValue, double lowest, double highest) {
    const std::optional<double> value = WholeNumberText(Setting(key, {}));
    const bool inRange = value && *value >= lowest && *value <= highest;
    return inRange ? *value : defaultValue;
}

std::int16_t SettingInteger(const std::string& key, std::int16_t defaultValue, std::int16_t lowest,
                            std::int16_t highest) {
    return ToInt16(SettingNumber(key, defaultValue, lowest, highest));
}

bool SettingWord(const std::string& key, bool defaultValue) {
    const std::string word = LowerCase(Setting(key, {}));
    if (word == "true") return true;
    if (word == "false") return false;
    return defaultValue;
}

} // namespace pintalux
