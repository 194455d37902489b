#include "surface/system/App.h"

#include "surface/system/FileLayer.h"
#include "surface/system/Folders.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pintalux {

AppObject App;

namespace {

std::string folderForTests;
std::string runFolder; // empty: not yet found

/// The instance lock: an open file, held until the process ends.
struct InstanceLock {
    bool asked = false;
    bool taken = false;
    bool heldByAnother = false;
    int descriptor = -1;
};
InstanceLock instanceLock;

std::string ExecutableFolder() {
    std::error_code failure;
    const std::filesystem::path file = std::filesystem::read_symlink("/proc/self/exe", failure);
    return failure ? std::string() : file.parent_path().string();
}

/// Whether a folder is the user's, and nobody else may put files there.
bool IsOurs(const std::string& folder) {
    struct stat found = {};
    return lstat(folder.c_str(), &found) == 0 && S_ISDIR(found.st_mode) && found.st_uid == getuid() &&
           (found.st_mode & 0022) == 0 && access(folder.c_str(), W_OK | X_OK) == 0;
}

std::string FindRunFolder() {
    if (!folderForTests.empty()) return folderForTests;
    const std::string user = std::to_string(static_cast<unsigned>(getuid()));
    if (const std::string folder = RuntimeFolder(); IsOurs(folder)) return folder;
    if (const std::string folder = "/run/user/" + user; IsOurs(folder)) return folder;
    // Not below $TMPDIR, which may be another one at each log-in.
    const std::string own = "/tmp/pintalux64-" + user;
    if (mkdir(own.c_str(), 0700) != 0 && errno != EEXIST) return {};
    return IsOurs(own) ? own : std::string();
}

// Where nothing can be locked, nobody else has locked it.
int OpenLockFile() {
    const std::string& folder = App.RunFolder();
    if (folder.empty()) return -1;
    return open((folder + "/pintalux64.lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
}

void OpenLock(InstanceLock& lock) {
    lock.asked = true;
    lock.descriptor = OpenLockFile();
}

void TakeLock(InstanceLock& lock) {
    if (lock.taken || lock.descriptor < 0) return;
    lock.taken = flock(lock.descriptor, LOCK_EX | LOCK_NB) == 0;
    lock.heldByAnother = !lock.taken && errno == EWOULDBLOCK;
}

void ReleaseLock(InstanceLock& lock) {
    if (lock.descriptor >= 0) close(lock.descriptor);
    lock = {};
}

} // namespace

std::string AppObject::Path() const {
    if (!folderForTests.empty()) return folderForTests;
    const std::string executable = ExecutableFolder();
    if (!executable.empty() && access(executable.c_str(), W_OK | X_OK) == 0) return executable;
    std::string own = DataFolder();
    MakeFolders(own);
    return own;
}

void AppObject::PathForTests(std::string path) {
    ReleaseLock(instanceLock);
    runFolder.clear();
    while (path.size() > 1 && path.back() == '/')
        path.pop_back();
    folderForTests = std::move(path);
}

const std::string& AppObject::RunFolder() const {
    // Looked for once: the poll asks for it all the time.
    if (runFolder.empty()) runFolder = FindRunFolder();
    return runFolder;
}

bool AppObject::PrevInstance() const {
    if (!instanceLock.asked) OpenLock(instanceLock);
    TakeLock(instanceLock);
    return instanceLock.heldByAnother;
}

bool AppObject::OthersRun() const {
    const int descriptor = OpenLockFile();
    if (descriptor < 0) return false;
    const bool held = flock(descriptor, LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    close(descriptor);
    return held;
}

} // namespace pintalux
