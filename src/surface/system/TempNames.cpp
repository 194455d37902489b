#include "surface/system/TempNames.h"

#include "base/RuntimeError.h"
#include "surface/system/FileLayer.h"
#include "surface/system/Folders.h"

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <sys/stat.h>

namespace pintalux {

namespace {

constexpr unsigned kShortNumbers = 0xFFFF; // 1 to this: 0 means failure.
constexpr unsigned kLongTries = 100000;

bool anyTempFolder = true;

std::string NameOf(const std::string& path, const std::string& prefix, unsigned number) {
    char digits[16];
    std::snprintf(digits, sizeof digits, number > kShortNumbers ? "%08X" : "%04X", number);
    const bool needsSeparator = !path.empty() && !path.ends_with('/');
    return path + (needsSeparator ? "/" : "") + prefix.substr(0, 3) + digits + ".tmp";
}

/// Where the search for a free name begins: at a random number in each process, then onward from the last
/// find, so that a name is not taken again soon after its file was deleted.
std::atomic<unsigned>& NextNumber() {
    static std::atomic<unsigned> next{std::random_device{}()};
    return next;
}

/// Creates the first free file of `count` numbers from `lowest` on, beginning anywhere; 0 if all are taken.
unsigned CreateFree(const std::string& path, const std::string& prefix, unsigned lowest, unsigned count,
                    unsigned tries, std::string& name) {
    for (unsigned i = 0; i < tries; ++i) {
        const unsigned number = lowest + NextNumber()++ % count;
        std::string candidate = NameOf(path, prefix, number);
        if (std::optional<File> file = File::TryCreateNew(candidate)) {
            name = std::move(candidate);
            return number;
        }
    }
    return 0;
}

bool IsFolder(const std::string& path) {
    struct stat info = {};
    return ::stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

} // namespace

void TempFoldersForTests(bool any) {
    anyTempFolder = any;
}

bool TryTempFolders(const std::function<bool(const std::string& folder)>& attempt) {
    if (!anyTempFolder) return false;
    const char* wanted = std::getenv("TMPDIR");
    for (const std::string& folder : {std::string(wanted == nullptr ? "" : wanted), std::string("/var/tmp"),
                                      std::string("/tmp"), StateFolder()}) {
        if (folder == StateFolder()) ResumeNext([&] { MakeFolders(folder); });
        if (IsFolder(folder) && attempt(folder.ends_with('/') ? folder : folder + "/")) return true;
    }
    return false;
}

unsigned GetTempFileName(const std::string& path, const std::string& prefix, unsigned unique,
                         std::string& name) {
    if (unique != 0) {
        name = NameOf(path, prefix, unique & kShortNumbers);
        return unique;
    }
    try {
        const unsigned number = CreateFree(path, prefix, 1, kShortNumbers, kShortNumbers, name);
        if (number != 0) return number;
        return CreateFree(path, prefix, kShortNumbers + 1, 0xFFFFFFFF - kShortNumbers, kLongTries, name);
    } catch (const RuntimeError&) {
        return 0;
    }
}

} // namespace pintalux
