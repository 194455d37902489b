// A file that is replaced whole: written aside and renamed, or, where the folder takes no new file, copied
// over the old one.
#include "base/RuntimeError.h"
#include "surface/system/FileLayer.h"
#include "surface/system/FileOperation.h"
#include "surface/system/TempNames.h"

#include <fcntl.h>
#include <random>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace pintalux {

namespace {

using Writer = std::function<void(File&)>;

/// The path that a chain of symbolic links ends at, which need not exist.
std::string FollowLinks(const std::string& path) {
    constexpr int kMostLinks = 40;
    std::string target = path;
    for (int i = 0; i < kMostLinks; ++i) {
        char text[4096];
        const ssize_t length = ::readlink(target.c_str(), text, sizeof text);
        if (length < 0) return target;
        const std::string link(text, static_cast<std::size_t>(length));
        target = link.starts_with('/') ? link : FolderOf(target).append("/").append(link);
    }
    RaiseFileError(ELOOP, path);
}

/// What stands at `target`, if anything; raises an error unless it is a plain file that the user may write.
std::optional<struct stat> OldFile(const std::string& target, const std::string& shownPath) {
    struct stat old = {};
    if (Operation([&] { return ::stat(target.c_str(), &old); }) != 0) {
        if (errno == ENOENT) return {};
        RaiseFileError(errno, shownPath);
    }
    if (!S_ISREG(old.st_mode)) RaiseFileError(S_ISDIR(old.st_mode) ? EISDIR : EINVAL, shownPath);
    // A rename would replace a write-protected file without a word.
    if (::faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0) RaiseFileError(errno, shownPath);
    return old;
}

/// As far as the user may: only the superuser gives files away, and some file systems know no modes. The new
/// file was made with no more rights than the old one, so a refusal opens nothing.
void TakeOwnerAndMode(const File& file, const struct stat& old) {
    struct stat now = {};
    const bool foreign =
        ::fstat(file.Descriptor(), &now) == 0 && (now.st_uid != old.st_uid || now.st_gid != old.st_gid);
    if (foreign && ::fchown(file.Descriptor(), old.st_uid, old.st_gid) != 0) errno = 0;
    if (Operation([&] { return ::fchmod(file.Descriptor(), old.st_mode & 0777); }) != 0) errno = 0;
}

/// A file name that goes with this object, unless it was renamed before.
struct AsideName {
    std::string path;
    ~AsideName() {
        if (!path.empty()) ::unlink(path.c_str());
    }
};

std::string RandomAsidePath(const std::string& folder) {
    static const char* digits = "0123456789abcdefghijklmnopqrstuvwxyz";
    std::random_device random;
    std::string path = folder + "/.pintalux-";
    for (int i = 0; i < 12; ++i)
        path += digits[random() % 36];
    return path;
}

/// The rename itself lasts only when its folder is on disk too; some file systems cannot say so, and no harm
/// is done.
void SyncFolder(const std::string& folder) {
    const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return;
    ::fsync(descriptor);
    ::close(descriptor);
}

void WriteAndRename(const std::string& target, const std::string& shownPath,
                    const std::optional<struct stat>& old, const Writer& write, unsigned newMode = 0666) {
    const std::string folder = FolderOf(target);
    const std::string asidePath = RandomAsidePath(folder);
    File file =
        File::Open(asidePath, O_WRONLY | O_CREAT | O_EXCL, old ? old->st_mode & 0777 : newMode, shownPath);
    AsideName aside{asidePath};
    if (old) TakeOwnerAndMode(file, *old);
    write(file);
    file.Sync();
    file.Close();
    if (Operation([&] { return ::rename(asidePath.c_str(), target.c_str()); }) != 0)
        RaiseFileError(errno, shownPath);
    aside.path.clear();
    SyncFolder(folder);
}

/// Writes a whole file into the first folder for temporary files that takes it; gives its path. Raises the
/// first error if none does.
std::string WriteCopy(const Writer& write) {
    std::string path;
    std::optional<RuntimeError> failure;
    const auto attempt = [&](const std::string& folder) {
        if (GetTempFileName(folder, "BI", 0, path) == 0) return false;
        try {
            File file = File::OpenForWriting(path, true);
            write(file);
            file.Sync();
            file.Close();
            return true;
        } catch (const RuntimeError& error) {
            if (!failure) failure = error;
            ResumeNext([&] { DeleteFile(path); });
            return false;
        }
    };
    if (TryTempFolders(attempt)) return path;
    throw failure.value_or(RuntimeError(kPathNotFound));
}

/// Puts the bytes of one file over another. The old length is cut at the end: what the disk has given once is
/// not given back before the new bytes stand there.
void CopyOver(File& from, File& to) {
    std::vector<std::byte> bytes(std::size_t{1} << 20);
    while (const std::size_t length = from.Read(bytes))
        to.Write(std::span(bytes).first(length));
    to.CutAt(from.Length());
    to.Sync();
    to.Close();
}

void WriteInPlace(const std::string& target, const std::string& shownPath, const Writer& write) {
    const std::string copy = WriteCopy(write);
    const std::string named = shownPath + ", com uma cópia completa em " + copy;
    File from = File::Open(copy, O_RDONLY, 0, named);
    File to = File::Open(target, O_WRONLY, 0, named);
    CopyOver(from, to);
    ResumeNext([&] { DeleteFile(copy); });
}

} // namespace

void WriteFileAside(const std::string& path, const Writer& write) {
    const std::string target = FollowLinks(path);
    const std::optional<struct stat> old = OldFile(target, path);
    try {
        WriteAndRename(target, path, old, write);
    } catch (const RuntimeError& error) {
        // The folder takes no new file, or gives none up; the old one, looked at before, may be written.
        if (!old || error.Number() != kPermissionDenied) throw;
        WriteInPlace(target, path, write);
    }
}

void WritePrivateFileAside(const std::string& path, const Writer& write) {
    WriteAndRename(path, path, {}, write, 0600);
}

} // namespace pintalux
