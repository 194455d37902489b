#include "base/RuntimeError.h"
#include "surface/system/ConfigStore.h"
#include "surface/system/Settings.h"

namespace pintalux {

namespace {

const char* const kMachineFile = "machine.ini";

}

std::string ReadMachineValue(const std::string& key, const std::string& name,
                             const std::string& defaultText) {
    const std::string text = ReadStoreValue(kMachineFile, key, name).value_or(defaultText);
    return text.substr(0, text.find('\0'));
}

bool WriteMachineValue(const std::string& key, const std::string& name, const std::string& text) {
    return WriteMachineValues(key, {{name, text}});
}

bool WriteMachineValues(const std::string& key, const std::vector<SettingText>& values) {
    try {
        WriteStoreValues(kMachineFile, key, values);
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

bool DeleteMachineValue(const std::string& key, const std::string& name) {
    try {
        return DeleteStoreValue(kMachineFile, key, name);
    } catch (const RuntimeError&) {
        return false;
    }
}

} // namespace pintalux
