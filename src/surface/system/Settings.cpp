#include "surface/system/Settings.h"

#include "base/RuntimeError.h"
#include "surface/system/ConfigStore.h"

namespace pintalux {

namespace {

const char* const kSettingsFile = "settings.ini";

std::string GroupOf(const std::string& application, const std::string& section) {
    return application + "\\" + section;
}

} // namespace

std::string GetSetting(const std::string& application, const std::string& section, const std::string& key,
                       const std::string& defaultText) {
    return ReadStoreValue(kSettingsFile, GroupOf(application, section), key).value_or(defaultText);
}

void SaveSettings(const std::string& application, const std::string& section,
                  const std::vector<SettingText>& values) {
    try {
        WriteStoreValues(kSettingsFile, GroupOf(application, section), values);
    } catch (const RuntimeError& error) {
        throw RuntimeError(kPathFileAccess, error.Text());
    }
}

void SaveSetting(const std::string& application, const std::string& section, const std::string& key,
                 const std::string& text) {
    SaveSettings(application, section, {{key, text}});
}

} // namespace pintalux
