// Any bytes as the stores of settings and as a profile file: every key can be read, and what is written comes
// back, whatever stood there.
#include "fuzz/Fuzz.h"

#include "surface/system/Folders.h"
#include "surface/system/IniText.h"
#include "surface/system/Settings.h"

#include <filesystem>
#include <fstream>

namespace {

/// The bytes in two halves at the first NUL: what stands in the file, and a value for it.
void PutFile(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    static const std::string folder =
        (std::filesystem::temp_directory_path() / ("fuzz-" + std::to_string(::getpid()))).string();
    ::setenv("XDG_CONFIG_HOME", folder.c_str(), 1);
    std::filesystem::create_directories(pintalux::SettingsFolder());
    std::atexit([] { std::filesystem::remove_all(folder); });
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace pintalux;
    const std::string all(reinterpret_cast<const char*>(data), size);
    const std::size_t cut = all.find('\0');
    const std::string bytes = all.substr(0, cut);
    const std::string value = cut == std::string::npos ? "" : all.substr(cut + 1);
    const std::string file = SettingsFolder() + "/settings.ini";
    MayRefuse([&] {
        PutFile(file, bytes);
        GetSetting("Pintalux64", "Settings", "Rulers", "False");
        SaveSetting("Pintalux64", "Settings", "Rulers", value);
        Demand(GetSetting("Pintalux64", "Settings", "Rulers", "other") == value);
        PutFile(SettingsFolder() + "/machine.ini", bytes);
        WriteMachineValue("a key", "MRU0", value);
        // A stored path ends at its first NUL.
        Demand(ReadMachineValue("a key", "MRU0", "other") == value.substr(0, value.find('\0')));
        PutFile(file, bytes);
        ProfileRead(file, "Colors", " 0", "");
        Demand(ProfileWrite(file, "Colors", " 0", "123"));
        Demand(ProfileRead(file, "Colors", " 0", "") == "123");
        // A carriage return at a line's end is taken for a part of it, one for each reading.
        const std::string once = IniText(bytes).Text("\n");
        if (bytes.find('\r') == std::string::npos) Demand(IniText(once).Text("\n") == once);
    });
    return 0;
}
