#include "surface/system/ConfigStore.h"

#include "base/RuntimeError.h"
#include "surface/system/FileLayer.h"
#include "surface/system/Folders.h"
#include "surface/system/IniText.h"

#include <string_view>

namespace pintalux {

namespace {

constexpr std::size_t kLongestStore = std::size_t{4} << 20;
constexpr std::string_view kHexDigits = "0123456789ABCDEF";

std::string EscapeOf(char c) {
    const auto code = static_cast<unsigned char>(c);
    return std::string("\\x") + kHexDigits[code >> 4] + kHexDigits[code & 15];
}

/// A text that fits on the right of an equals sign and comes back as it is.
std::string EscapedValue(const std::string& text) {
    std::string escaped;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        const bool atEnd = i == 0 || i + 1 == text.size();
        if (c == '\\')
            escaped += "\\\\";
        else if (c == '\n')
            escaped += "\\n";
        else if ((c >= 0 && c < ' ') || (c == ' ' && atEnd))
            escaped += EscapeOf(c);
        else
            escaped += c;
    }
    return escaped;
}

/// A name that fits into brackets or on the left of an equals sign. Backslashes stay: groups are paths.
std::string EscapedName(const std::string& name) {
    std::string escaped;
    for (const char c : name) {
        const bool special =
            (c >= 0 && c < ' ') || std::string_view("=;[]").find(c) != std::string_view::npos;
        if (special)
            escaped += EscapeOf(c);
        else
            escaped += c;
    }
    return escaped;
}

/// The character of two hexadecimal digits in capitals; nothing for any others.
std::optional<char> HexCharacter(std::string_view digits) {
    if (digits.size() != 2) return {};
    const std::size_t high = kHexDigits.find(digits[0]);
    const std::size_t low = kHexDigits.find(digits[1]);
    if (high == std::string_view::npos || low == std::string_view::npos) return {};
    return static_cast<char>(high * 16 + low);
}

/// The text of an escaped value. A backslash that begins no escape stands for itself: a hand wrote it.
std::string UnescapedValue(std::string_view escaped) {
    std::string text;
    while (!escaped.empty()) {
        const auto hex = escaped.starts_with("\\x") ? HexCharacter(escaped.substr(2, 2)) : std::nullopt;
        std::size_t used = 1;
        if (escaped.starts_with("\\\\") || escaped.starts_with("\\n")) {
            text += escaped[1] == 'n' ? '\n' : '\\';
            used = 2;
        } else if (hex) {
            text += *hex;
            used = 4;
        } else {
            text += escaped[0];
        }
        escaped.remove_prefix(used);
    }
    return text;
}

/// The store's text; empty if there is no file yet.
std::string ReadStore(const std::string& path) {
    try {
        return ReadWholeFile(path, kLongestStore);
    } catch (const RuntimeError& error) {
        if (error.Number() != kFileNotFound) throw;
        return {};
    }
}

void WriteStore(const std::string& path, const std::string& text) {
    WriteFileAside(path, [&](File& file) { file.Write(std::as_bytes(std::span(text))); });
}

} // namespace

std::optional<std::string> ReadStoreValue(const std::string& fileName, const std::string& group,
                                          const std::string& name) {
    try {
        const IniText store(ReadStore(SettingsFolder() + "/" + fileName));
        const auto value = store.Value(EscapedName(group), EscapedName(name));
        if (!value) return {};
        return UnescapedValue(*value);
    } catch (const RuntimeError&) {
        return {};
    }
}

void WriteStoreValues(const std::string& fileName, const std::string& group,
                      const std::vector<SettingText>& values) {
    MakeFolders(SettingsFolder());
    const std::string path = SettingsFolder() + "/" + fileName;
    const std::string before = ReadStore(path);
    IniText store(before);
    for (const SettingText& value : values)
        store.Set(EscapedName(group), EscapedName(value.key), EscapedValue(value.text));
    const std::string text = store.Text("\n");
    if (text != before) WriteStore(path, text);
}

bool DeleteStoreValue(const std::string& fileName, const std::string& group, const std::string& name) {
    const std::string path = SettingsFolder() + "/" + fileName;
    IniText store(ReadStore(path));
    if (!store.Remove(EscapedName(group), EscapedName(name))) return false;
    WriteStore(path, store.Text("\n"));
    return true;
}

} // namespace pintalux
