#include "files/FileNames.h"

#include "base/NumberText.h"
#include "base/RuntimeError.h"
#include "surface/system/FileLayer.h"

#include <cstdlib>
#include <filesystem>

namespace pintalux {

std::function<void(const std::string&, const std::string&)> EndProgram =
    [](const std::string&, const std::string&) { std::exit(1); };

namespace {

constexpr char kSeparator = '/';

/// Where the extension begins: at the last point of the name. A point in the name of a folder is none.
std::size_t PointOf(const std::string& path) {
    const std::size_t point = path.rfind('.');
    const std::size_t separator = path.rfind(kSeparator);
    const bool inFolder = separator != std::string::npos && point < separator;
    return inFolder ? std::string::npos : point;
}

} // namespace

std::string FileNameOf(const std::string& path) {
    return path.substr(path.rfind(kSeparator) + 1);
}

std::string ExtensionOf(const std::string& path, bool withPoint) {
    const std::size_t point = PointOf(path);
    if (point == std::string::npos) return {};
    return path.substr(withPoint ? point : point + 1);
}

std::string ReplaceExtension(const std::string& path, std::string& extension) {
    if (!extension.empty() && extension.front() != '.') extension.insert(0, 1, '.');
    const std::size_t point = PointOf(path);
    if (point == std::string::npos) throw RuntimeError(kInvalidArgument, path);
    return path.substr(0, point) + extension;
}

std::string DirectoryOf(const std::string& path) {
    const std::size_t separator = path.rfind(kSeparator);
    return separator == std::string::npos ? std::string{} : path.substr(0, separator);
}

std::string UniqueFileName(const std::string& path) {
    if (!FileExists(path)) return path;
    const std::string extension = ExtensionOf(path, true);
    const std::string base = path.substr(0, path.size() - extension.size());
    for (int number = 1;; ++number) {
        std::string candidate = base;
        candidate.append(NumberText(number)).append(extension);
        if (!FileExists(candidate)) return candidate;
    }
}

bool FileExists(const std::string& path) {
    try {
        return FileDateReadable(path);
    } catch (const RuntimeError& error) {
        EndProgram("Erro Nº: " + NumberText(error.Number()) + "\n " + error.Text(), "Erro");
        return false;
    }
}

std::string LongFileName(const std::string& path) {
    std::error_code failed;
    const std::filesystem::path full = std::filesystem::canonical(path, failed);
    return failed ? path : full.string();
}

std::string ReadTextFile(const std::string& path) {
    constexpr std::size_t kLimit = 1 << 16;
    const std::string text = ReadWholeFile(path, kLimit);
    std::string joined;
    bool quoted = false;
    bool fieldStart = true;
    for (const char c : text) {
        if (fieldStart && c == '"') {
            quoted = true;
            fieldStart = false;
        } else if (quoted && c == '"') {
            quoted = false;
        } else if (!quoted && (c == ',' || c == '\n' || c == '\r')) {
            fieldStart = true;
        } else {
            joined += c;
            fieldStart = false;
        }
    }
    return joined;
}

} // namespace pintalux
