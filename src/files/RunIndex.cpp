#include "files/RunIndex.h"

#include "base/RuntimeError.h"
#include "surface/system/FileLayer.h"
#include "surface/system/Folders.h"
#include "surface/system/TempNames.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <random>
#include <regex>
#include <sstream>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pintalux {

namespace {

constexpr const char* kFirstLine = "Pintalux64 index 1";
constexpr std::size_t kLongestIndex = std::size_t{64} << 20;
constexpr std::time_t kOld = std::time_t{30} * 24 * 60 * 60;

/// A line's text without what would end the line: "%0A" for a new line, "%25" for a percent sign.
std::string Escaped(const std::string& text) {
    static const char* digits = "0123456789ABCDEF";
    std::string escaped;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0x20 && c != '%') {
            escaped += c;
        } else {
            escaped += {'%', digits[byte / 16], digits[byte % 16]};
        }
    }
    return escaped;
}

std::string Unescaped(const std::string& text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        unsigned byte = 0;
        const char* const digits = text.data() + i + 1;
        if (text[i] == '%' && i + 2 < text.size() &&
            std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2) {
            plain += static_cast<char>(byte);
            i += 2;
        } else {
            plain += text[i];
        }
    }
    return plain;
}

/// A whole number of a text, -1 for anything else.
int NumberOf(const std::string& text) {
    int number = -1;
    const char* const end = text.data() + text.size();
    return std::from_chars(text.data(), end, number).ptr == end ? number : -1;
}

void TakeLine(const std::string& key, const std::string& value, std::vector<RunDocument>& documents) {
    if (key == "document") documents.emplace_back();
    if (documents.empty()) return;
    RunDocument& document = documents.back();
    if (key == "file") document.file = Unescaped(value);
    if (key == "caption") document.caption = Unescaped(value);
    if (key == "saved") document.saved = value == "1";
    if (key == "cursor") document.cursor = NumberOf(value);
    if (key == "before") document.before = NumberOf(value);
    if (key == "state") document.states.push_back(Unescaped(value));
    if (key == "order") document.order.push_back(NumberOf(value));
}

/// The lock, if nobody holds it.
std::shared_ptr<RunLock> TryLock(const std::string& path, int flags) {
    const int descriptor = ::open(path.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | flags, 0600);
    if (descriptor < 0) return {};
    auto lock = std::make_shared<RunLock>(descriptor);
    if (::flock(descriptor, LOCK_EX | LOCK_NB) != 0) return {};
    return lock;
}

std::string LockOf(const std::string& index) {
    return std::filesystem::path(index).replace_extension(".lock").string();
}

/// Files of a folder whose names match, each as a path.
std::vector<std::string> FilesIn(const std::string& folder, const std::regex& name) {
    std::vector<std::string> found;
    std::error_code failure;
    for (std::filesystem::directory_iterator entry(folder, failure), end; !failure && entry != end;
         entry.increment(failure)) {
        if (std::regex_match(entry->path().filename().string(), name))
            found.push_back(entry->path().string());
    }
    std::sort(found.begin(), found.end());
    return found;
}

/// A plain file of this user that nobody has written to for 30 days.
bool IsOld(const std::string& path) {
    struct stat info = {};
    return ::lstat(path.c_str(), &info) == 0 && S_ISREG(info.st_mode) && info.st_uid == ::getuid() &&
           info.st_mtime < std::time(nullptr) - kOld;
}

bool IsThere(const std::string& path) {
    struct stat info = {};
    return ::lstat(path.c_str(), &info) == 0;
}

/// The states that the indices name; nothing if one of them cannot be read, so that it may name any.
std::optional<std::set<std::string>> NamedStates() {
    std::set<std::string> named;
    for (const std::string& index : RunIndices()) {
        const auto documents = ReadIndexFile(index);
        if (!documents) return {};
        for (const RunDocument& document : *documents)
            named.insert(document.states.begin(), document.states.end());
    }
    return named;
}

/// An index tells how old its run is; where there is none, what stands in its place does.
void SweepOldRuns() {
    static const std::regex kName("run-.*\\.(index|index\\.new|lock)");
    for (const std::string& path : FilesIn(StateFolder(), kName)) {
        const std::string index =
            path.substr(0, path.rfind(path.ends_with(".lock") ? ".lock" : ".index")) + ".index";
        if (!IsOld(path) || (path != index && IsThere(index))) continue;
        const RunFiles files{index, LockOf(index), TryLock(LockOf(index), O_CREAT)};
        if (files.held) DeleteRunFiles(files);
    }
}

void SweepFolder(const std::string& folder, const std::regex& names, const std::set<std::string>& stay) {
    for (const std::string& path : FilesIn(folder, names))
        if (!stay.contains(path) && IsOld(path)) ResumeNext([&] { DeleteFile(path); });
}

} // namespace

std::string IndexText(const std::vector<RunDocument>& documents) {
    std::ostringstream text;
    text << kFirstLine << "\nprocess " << ::getpid() << "\nwritten " << std::time(nullptr) << '\n';
    for (const RunDocument& document : documents) {
        text << "document\nfile " << Escaped(document.file) << "\ncaption " << Escaped(document.caption)
             << "\nsaved " << document.saved << "\ncursor " << document.cursor << "\nbefore "
             << document.before << '\n';
        for (const std::string& state : document.states)
            text << "state " << Escaped(state) << '\n';
        for (const int place : document.order)
            text << "order " << place << '\n';
    }
    return text.str();
}

bool MakesSense(const RunDocument& document) {
    const int states = static_cast<int>(document.states.size());
    return document.cursor >= 0 && document.cursor < static_cast<int>(document.order.size()) &&
           std::all_of(document.order.begin(), document.order.end(),
                       [&](int place) { return place >= 0 && place < states; });
}

std::optional<std::vector<RunDocument>> ReadIndex(const std::string& text) {
    std::vector<RunDocument> documents;
    std::istringstream lines(text);
    std::string line;
    if (!std::getline(lines, line) || line != kFirstLine) return {};
    while (std::getline(lines, line)) {
        const std::size_t blank = line.find(' ');
        TakeLine(line.substr(0, blank), blank == std::string::npos ? "" : line.substr(blank + 1), documents);
    }
    return documents;
}

std::optional<std::vector<RunDocument>> ReadIndexFile(const std::string& path) {
    std::optional<std::vector<RunDocument>> documents;
    ResumeNext([&] { documents = ReadIndex(ReadWholeFile(path, kLongestIndex)); });
    return documents;
}

RunLock::~RunLock() {
    ::close(descriptor_);
}

RunFiles MakeRunFiles() {
    ResumeNext([] { MakeFolders(StateFolder()); });
    const std::string stem =
        StateFolder() + "/run-" + std::to_string(::getpid()) + "-" + std::to_string(std::random_device{}());
    RunFiles files{stem + ".index", stem + ".lock", TryLock(stem + ".lock", O_CREAT | O_EXCL)};
    if (files.held) return files;
    // Where nothing can be locked, a run that goes on could not be told from one that died.
    ::unlink(files.lock.c_str());
    return {};
}

std::vector<RunFiles> LeftRuns() {
    std::vector<RunFiles> left;
    for (const std::string& index : RunIndices()) {
        RunFiles files{index, LockOf(index), TryLock(LockOf(index), O_CREAT)};
        if (files.held) left.push_back(std::move(files));
    }
    return left;
}

std::vector<std::string> RunIndices() {
    static const std::regex kName("run-.*\\.index");
    std::vector<std::string> indices = FilesIn(StateFolder(), kName);
    std::sort(indices.begin(), indices.end(), [](const std::string& a, const std::string& b) {
        std::error_code failure;
        return std::filesystem::last_write_time(a, failure) < std::filesystem::last_write_time(b, failure);
    });
    return indices;
}

void DeleteRunFiles(const RunFiles& files) {
    for (const std::string& path : {files.index, files.index + ".new", files.lock})
        ResumeNext([&] {
            if (FileLength(path)) DeleteFile(path);
        });
}

void RenewRunFiles(const RunFiles& files) {
    ::utimensat(AT_FDCWD, files.index.c_str(), nullptr, AT_SYMLINK_NOFOLLOW);
}

bool IsStateName(const std::string& path) {
    static const std::regex kName("/.*/BI([0-9A-F]{4}|[0-9A-F]{8})\\.tmp");
    return std::regex_match(path, kName);
}

void SweepOldFiles(const std::vector<std::string>& folders, const std::set<std::string>& pictureFolders) {
    static const std::regex kStates("BI([0-9A-F]{4}|[0-9A-F]{8})\\.tmp");
    static const std::regex kSamples("klTmpJpg[0-9]+\\.bmp");
    static const std::regex kParts("\\.pintalux-[0-9a-z]{12}");
    SweepOldRuns();
    const auto named = NamedStates();
    std::set<std::string> ours(folders.begin(), folders.end());
    TryTempFolders([&](const std::string& folder) {
        ours.insert(folder);
        return false; // all of them
    });
    for (const std::string& folder : ours) {
        if (named) SweepFolder(folder, kStates, *named);
        SweepFolder(folder, kSamples, {});
        SweepFolder(folder, kParts, {});
    }
    for (const std::string& folder : pictureFolders)
        SweepFolder(folder, kParts, {});
}

} // namespace pintalux
