#include "settings/ModAssoc.h"

#include "base/RuntimeError.h"
#include "files/FileNames.h"
#include "surface/system/FileLayer.h"
#include "surface/system/Folders.h"
#include "surface/system/IniText.h"

#include <array>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <span>
#include <string_view>

namespace pintalux {

namespace {

constexpr std::size_t kLongestList = std::size_t{1} << 20; // bytes

struct KindOfFile {
    std::string_view extension;
    const char* mimeType;
};
constexpr std::array<KindOfFile, 3> kKinds = {
    {{".bmp", "image/bmp"}, {".jpg", "image/jpeg"}, {".gif", "image/gif"}}};

std::optional<std::string> MimeTypeOf(std::string_view extension) {
    for (const KindOfFile& kind : kKinds) {
        if (kind.extension == extension) return kind.mimeType;
    }
    return {};
}

// A path as one word of a desktop entry's command. Two rules lie over each other: the word's quotes, then the
// escapes of the entry's texts; a per cent sign would be a field.
std::string CommandWord(const std::string& path) {
    std::string word = "\"";
    for (const char c : path) {
        switch (c) {
        case '"':
        case '`':
        case '$':
            word += "\\\\";
            word += c;
            break;
        case '\\':
            word += "\\\\\\\\";
            break;
        case '%':
            word += "%%";
            break;
        default:
            word += c;
        }
    }
    return word + '"';
}

bool SystemHasEntry(const std::string& entry) {
    const char* wanted = std::getenv("XDG_DATA_DIRS");
    const std::string folders = wanted != nullptr && *wanted != '\0' ? wanted : "/usr/local/share:/usr/share";
    for (std::size_t start = 0; start <= folders.size();) {
        const std::size_t end = std::min(folders.find(':', start), folders.size());
        std::string path = folders.substr(start, end - start);
        const bool absolute = path.starts_with('/');
        path.append("/applications/").append(entry);
        if (absolute && FileExists(path)) return true;
        start = end + 1;
    }
    return false;
}

void WriteText(const std::string& path, const std::string& text) {
    MakeFolders(DirectoryOf(path));
    WriteFileAside(path, [&text](File& file) { file.Write(std::as_bytes(std::span(text))); });
}

void WriteEntry(const std::string& program, const std::string& entry) {
    if (SystemHasEntry(entry)) return;
    WriteText(
        DataHome() + "/applications/" + entry,
        "[Desktop Entry]\nType=Application\nName=Pintalux 64\nGenericName[pt]=Editor de imagens\nExec=" +
            CommandWord(program) +
            " %f\nIcon=pintalux64\nTerminal=false\nStartupNotify=true\n"
            "Categories=Graphics;2DGraphics;RasterGraphics;\nMimeType=image/bmp;image/jpeg;image/gif;\n");
}

// A list of desktop entries with `entry` in front; the others keep their order.
std::string WithFirst(const std::string& entry, const std::string& list) {
    std::string others;
    for (std::size_t start = 0; start < list.size();) {
        const std::size_t end = std::min(list.find(';', start), list.size());
        const std::string other = list.substr(start, end - start);
        if (!other.empty() && other != entry) others += other + ";";
        start = end + 1;
    }
    return entry + ";" + others;
}

// Empty only if there is none: one that cannot be read must not be written anew without its lines.
std::string ListOfDesktop(const std::string& path) try {
    return ReadWholeFile(path, kLongestList);
} catch (const RuntimeError& error) {
    if (error.Number() != kFileNotFound) throw;
    return {};
}

void PutFirst(const std::string& mimeType, const std::string& entry) {
    const std::string path = ConfigHome() + "/mimeapps.list";
    const std::string before = ListOfDesktop(path);
    IniText list(before, IniText::LineEnds::AsTheyAre);
    for (const char* section : {"Default Applications", "Added Associations"})
        list.Set(section, mimeType, WithFirst(entry, list.Value(section, mimeType).value_or("")));
    const std::string after = list.Text("\n");
    if (after != before) WriteText(path, after);
}

std::string ThisProgram() {
    std::error_code failure;
    return std::filesystem::read_symlink("/proc/self/exe", failure).string();
}

} // namespace

bool RegisterExtension(const std::string& program, std::string extension) try {
    if (!extension.starts_with('.')) extension.insert(0, 1, '.');
    const std::optional<std::string> mimeType = MimeTypeOf(extension);
    if (program.empty() || !mimeType) return false;
    const std::string entry = "pintalux64.desktop";
    WriteEntry(program, entry);
    PutFirst(*mimeType, entry);
    return true;
} catch (...) {
    return false;
}

// Intended: to take the tick away undoes no association, since the desktop's own settings are where another
// program is chosen.
void ApplyAssociation(bool wanted) {
    if (!wanted) return;
    for (const KindOfFile& kind : kKinds)
        RegisterExtension(ThisProgram(), std::string(kind.extension));
}

} // namespace pintalux
