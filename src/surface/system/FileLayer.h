// Files: every open, read, write, sync, close, rename and delete of the program goes through here, so that
// each failure has a number and a text, and tests can break the n-th operation.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <utility>

namespace pintalux {

/// The error number for an errno: ENOENT 53, EIO 57, ENOTDIR and ENAMETOOLONG 76, ENOSPC/EDQUOT 61,
/// EACCES/EPERM/EROFS 70, ENXIO/ENODEV and a server that is away 68, ENOMEM 7, others 75. The text names the
/// path and the reason.
[[noreturn]] void RaiseFileError(int errnoValue, const std::string& path);

/// A file descriptor that closes itself. Every member raises a run-time error with the path in its text.
class File {
  public:
    /// Error 75 for a folder, a pipe or a device: only files can be read.
    static File OpenForReading(const std::string& path);
    /// Created or emptied, mode 0600 & ~umask when `forUserOnly` (a symbolic link is then refused), 0666 &
    /// ~umask otherwise. A file that exists keeps its mode.
    static File OpenForWriting(const std::string& path, bool forUserOnly);
    /// Fails with 75 if the file exists (O_EXCL), mode 0600.
    static File CreateNew(const std::string& path);
    /// The same, but gives nothing if the file exists.
    static std::optional<File> TryCreateNew(const std::string& path);
    /// Empty, in memory alone, for reading and writing: bytes that a reader of files is to take.
    static File InMemory(const std::string& shownPath);
    /// With the flags of open(2), for the layer itself; messages name `shownPath`.
    static File Open(const std::string& path, int flags, unsigned mode, const std::string& shownPath);
    File(File&& other) noexcept;
    ~File();

    const std::string& Path() const { return path_; } ///< As a user knows it: for messages.
    void Write(std::span<const std::byte> bytes);
    /// Fills `bytes`, or less at the end of the file; gives how many there were.
    std::size_t Read(std::span<std::byte> bytes);
    std::uint64_t Length() const;
    void Seek(std::uint64_t position);
    void CutAt(std::uint64_t length); ///< What stands behind goes.
    void Sync();
    void Close(); ///< Checked, unlike the destructor's.

    int Descriptor() const { return descriptor_; }

  private:
    File(int descriptor, std::string path) : descriptor_(descriptor), path_(std::move(path)) {}
    int descriptor_ = -1;
    std::string path_;
};

/// Writes a file aside (same folder, hidden name), syncs it and renames it over `path`; the mode of the old
/// file is kept where the file system has modes, and its owner where the user may. On any failure the old
/// file stays as it was, the aside file is removed and the error passes up. A symbolic link is followed: its
/// target is replaced. Error 70 if the old file is write-protected, or the folder and there is no old file;
/// 75 if `path` is no plain file.
///
/// An old file that may be written, in a folder that takes no new ones, is written in place, from a whole
/// copy in a folder for temporary files. `write` then runs twice. If the last step fails, the copy stays and
/// the error's text names it.
void WriteFileAside(const std::string& path, const std::function<void(File&)>& write);
/// The same in a folder that others may reach: always a new file, mode 0600; a symbolic link is replaced
/// itself, and nothing of what it points to is touched.
void WritePrivateFileAside(const std::string& path, const std::function<void(File&)>& write);

/// True when the file's date can be read. False for errors 53, 68 and 76, and whatever else says that nobody
/// gets through to the path: a closed folder, a ring of links, a disk or a server that does not answer. Any
/// other error passes up.
bool FileDateReadable(const std::string& path);
std::optional<std::uint64_t> FileLength(const std::string& path); ///< Empty if there is no such file.

/// What tells whether a file is still the one that was looked at before.
struct FileStamp {
    std::uint64_t length = 0; ///< In bytes.
    std::uint64_t device = 0; ///< The disk that it lies on.
    std::uint64_t number = 0; ///< Of the file on its disk.
    std::int64_t changed = 0; ///< When its bytes last changed, in nanoseconds.

    bool operator==(const FileStamp&) const = default;
};
std::optional<FileStamp> StampOfFile(const std::string& path); ///< Empty if there is no such file.

void DeleteFile(const std::string& path);                        ///< Error 53 if it does not exist.
void RenameFile(const std::string& from, const std::string& to); ///< What stands at `to` is replaced.
/// Error 75 if the file has more than `limit` bytes.
std::string ReadWholeFile(const std::string& path, std::size_t limit);
/// In place; whoever may be read meanwhile writes aside instead.
void WriteWholeFile(const std::string& path, const std::string& text, bool forUserOnly = false);

/// Makes a folder and those above it, mode 0700; nothing happens if it exists.
void MakeFolders(const std::string& path);

/// Tests: lets the n-th operation from now (1 is the next) fail with an errno, once; 0 switches off.
void FailFileOperation(int n, int errnoValue);
/// Tests: lets the n-th write from now take half of its bytes, once; the operation behind it fails with
/// `thenErrno`, or goes on where that is 0. The operations are counted from now.
void ShortenFileWrite(int n, int thenErrno);
/// Tests: whether what was ordered has come to pass.
bool FileFaultMet();
/// Tests: counts operations since the last order.
int FileOperationCount();

} // namespace pintalux
