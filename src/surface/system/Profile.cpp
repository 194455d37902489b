#include "base/RuntimeError.h"
#include "surface/system/FileLayer.h"
#include "surface/system/IniText.h"
#include "surface/system/Settings.h"
#include "surface/system/Windows1252.h"

namespace pintalux {

namespace {

constexpr std::size_t kLongestProfile = std::size_t{16} << 20;

/// A pair of equal quotes around a value only keeps its blanks together.
std::string WithoutQuotes(const std::string& value) {
    const bool quoted =
        value.size() >= 2 && value.front() == value.back() && (value[0] == '"' || value[0] == '\'');
    return quoted ? value.substr(1, value.size() - 2) : value;
}

/// A text as one line of the file: what stands behind a line end is lost rather than read as another key.
std::string LineText(const std::string& text) {
    using namespace std::string_literals;
    return ToWindows1252(text.substr(0, text.find_first_of("\r\n\0"s)));
}

/// Empty only if there is no such file: one that cannot be read must not be written anew without its keys.
std::string ReadProfileFile(const std::string& file) try {
    return ReadWholeFile(file, kLongestProfile);
} catch (const RuntimeError& error) {
    if (error.Number() != kFileNotFound) throw;
    return {};
}

/// The key's text, cut to `limit` characters, which are bytes of the code page.
std::string KeyText(const IniText& profile, const std::string& section, const std::string& key,
                    const std::string& defaultText, std::size_t limit) {
    const auto value = profile.Value(LineText(section), LineText(key));
    const std::string bytes = value ? WithoutQuotes(*value) : ToWindows1252(defaultText);
    return FromWindows1252(bytes.substr(0, limit));
}

void SetKey(IniText& profile, const std::string& section, const SettingText& value) {
    if (value.text.empty())
        profile.Remove(LineText(section), LineText(value.key));
    else
        profile.Set(LineText(section), LineText(value.key), LineText(value.text));
}

void WriteText(const std::string& file, const std::string& text) {
    WriteFileAside(file, [&](File& out) { out.Write(std::as_bytes(std::span(text))); });
}

} // namespace

std::string ProfileRead(const std::string& file, const std::string& section, const std::string& key,
                        const std::string& defaultText, std::size_t limit) {
    try {
        return KeyText(IniText(ReadProfileFile(file)), section, key, defaultText, limit);
    } catch (const RuntimeError&) {
        return defaultText;
    }
}

bool ProfileWriteKeys(const std::string& file, const std::string& section,
                      const std::vector<SettingText>& values) {
    try {
        const std::string before = ReadProfileFile(file);
        IniText profile(before);
        for (const SettingText& value : values)
            SetKey(profile, section, value);
        const std::string text = profile.Text("\r\n");
        if (text == before) return true;
        WriteText(file, text);
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

bool ProfileWrite(const std::string& file, const std::string& section, const std::string& key,
                  const std::string& text) {
    return ProfileWriteKeys(file, section, {{key, text}});
}

void ProfileReadKeys(const std::string& file, const std::string& section, std::vector<SettingText>& values,
                     std::size_t longest, std::size_t limit) {
    const IniText profile(ReadWholeFile(file, longest));
    for (SettingText& value : values)
        value.text = KeyText(profile, section, value.key, {}, limit);
}

void ProfileWriteNew(const std::string& file, const std::string& section,
                     const std::vector<SettingText>& values) {
    IniText profile({});
    for (const SettingText& value : values)
        SetKey(profile, section, value);
    WriteText(file, profile.Text("\r\n"));
}

} // namespace pintalux
