#include "surface/system/FileLayer.h"

#include "base/RuntimeError.h"
#include "surface/system/FileOperation.h"

#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pintalux {

namespace {

std::atomic<int> operationCount{0};
std::atomic<int> failingOperation{0};
std::atomic<int> failingErrno{0};
std::atomic<int> writeCount{0};
std::atomic<int> shortenedWrite{0};

int NumberOf(int errnoValue) {
    switch (errnoValue) {
    case ENOENT:
        return kFileNotFound;
    case ENOTDIR:
    case ENAMETOOLONG: // No file can have that name, so none is there.
        return kPathNotFound;
    case EIO:
        return kDeviceError;
    case ENOSPC:
    case EDQUOT:
        return kDiskFull;
    case EACCES:
    case EPERM:
    case EROFS:
        return kPermissionDenied;
    case ENXIO:
    case ENODEV:
    case ESTALE:
    case ENOTCONN:
    case EHOSTDOWN:
    case ETIMEDOUT:
        return kDeviceUnavailable;
    case ENOMEM:
        return kOutOfMemory;
    default:
        return kPathFileAccess;
    }
}

std::string ReasonOf(int errnoValue) {
    switch (errnoValue) {
    case ENOENT:
        return "não existe";
    case ENOTDIR:
        return "uma parte do caminho não é uma pasta";
    case EIO:
        return "o disco não respondeu bem";
    case ENOSPC:
        return "não há espaço no disco";
    case EDQUOT:
        return "a quota de disco está esgotada";
    case EACCES:
    case EPERM:
        return "não tem permissão";
    case EROFS:
        return "o disco só permite leitura";
    case ENXIO:
    case ENODEV:
        return "o dispositivo não está disponível";
    case ESTALE:
    case ENOTCONN:
    case EHOSTDOWN:
    case ETIMEDOUT:
        return "o servidor não responde";
    case ENOMEM:
        return "falta memória";
    case EISDIR:
        return "é uma pasta";
    case EEXIST:
        return "já existe";
    case EINVAL:
        return "não é um ficheiro comum";
    case EFBIG:
        return "o ficheiro é demasiado grande";
    case EMFILE:
    case ENFILE:
        return "há demasiados ficheiros abertos";
    case ENAMETOOLONG:
        return "o nome é demasiado longo";
    case ELOOP:
        return "há demasiadas ligações simbólicas";
    default:
        return "erro " + std::to_string(errnoValue) + " do sistema";
    }
}

/// Whether the reason says that nobody gets through to the path, so that no file can be seen there.
bool OutOfReach(int errnoValue) {
    const int number = NumberOf(errnoValue);
    return number == kFileNotFound || number == kDeviceUnavailable || number == kPathNotFound ||
           errnoValue == EACCES || errnoValue == ELOOP || errnoValue == EIO;
}

/// How much of a write a test lets through.
std::size_t LengthByOrder(std::size_t length) {
    if (++writeCount != shortenedWrite || length < 2) return length;
    if (failingErrno != 0) failingOperation = operationCount + 2; // this write is the next one
    return length / 2;
}

} // namespace

bool FailsByOrder() {
    if (++operationCount != failingOperation) return false;
    errno = failingErrno;
    return true;
}

std::string FolderOf(const std::string& path) {
    const std::size_t slash = path.find_last_of('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

void RaiseFileError(int errnoValue, const std::string& path) {
    throw RuntimeError(NumberOf(errnoValue), path + " (" + ReasonOf(errnoValue) + ")");
}

File File::Open(const std::string& path, int flags, unsigned mode, const std::string& shownPath) {
    // Without O_NONBLOCK the opening of a pipe would hang until someone takes its other end.
    const int descriptor =
        Operation([&] { return ::open(path.c_str(), flags | O_CLOEXEC | O_NONBLOCK, mode); });
    if (descriptor < 0) RaiseFileError(errno, shownPath);
    return File(descriptor, shownPath);
}

File File::OpenForReading(const std::string& path) {
    File file = Open(path, O_RDONLY, 0, path);
    struct stat info = {};
    if (::fstat(file.descriptor_, &info) != 0) RaiseFileError(errno, path);
    if (!S_ISREG(info.st_mode)) RaiseFileError(S_ISDIR(info.st_mode) ? EISDIR : EINVAL, path);
    return file;
}

File File::OpenForWriting(const std::string& path, bool forUserOnly) {
    return Open(path, O_WRONLY | O_CREAT | O_TRUNC | (forUserOnly ? O_NOFOLLOW : 0),
                forUserOnly ? 0600 : 0666, path);
}

File File::InMemory(const std::string& shownPath) {
    const int descriptor = Operation([&] { return ::memfd_create("pintalux", MFD_CLOEXEC); });
    if (descriptor < 0) RaiseFileError(errno, shownPath);
    return File(descriptor, shownPath);
}

std::optional<File> File::TryCreateNew(const std::string& path) {
    const int flags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC;
    const int descriptor = Operation([&] { return ::open(path.c_str(), flags, 0600); });
    if (descriptor >= 0) return File(descriptor, path);
    if (errno == EEXIST) return {};
    RaiseFileError(errno, path);
}

File File::CreateNew(const std::string& path) {
    std::optional<File> file = TryCreateNew(path);
    if (!file) RaiseFileError(EEXIST, path);
    return std::move(*file);
}

File::File(File&& other) noexcept
    : descriptor_(std::exchange(other.descriptor_, -1)), path_(std::move(other.path_)) {}

File::~File() {
    if (descriptor_ >= 0) ::close(descriptor_);
}

void File::Write(std::span<const std::byte> bytes) {
    while (!bytes.empty()) {
        const std::size_t length = LengthByOrder(bytes.size());
        const ssize_t written = Operation([&] { return ::write(descriptor_, bytes.data(), length); });
        if (written < 0) RaiseFileError(errno, path_);
        bytes = bytes.subspan(static_cast<std::size_t>(written));
    }
}

std::size_t File::Read(std::span<std::byte> bytes) {
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t got = Operation([&] { return ::read(descriptor_, &bytes[done], bytes.size() - done); });
        if (got < 0) RaiseFileError(errno, path_);
        if (got == 0) break;
        done += static_cast<std::size_t>(got);
    }
    return done;
}

std::uint64_t File::Length() const {
    struct stat info = {};
    if (Operation([&] { return ::fstat(descriptor_, &info); }) != 0) RaiseFileError(errno, path_);
    return static_cast<std::uint64_t>(info.st_size);
}

void File::Seek(std::uint64_t position) {
    if (Operation([&] { return ::lseek(descriptor_, static_cast<off_t>(position), SEEK_SET); }) < 0)
        RaiseFileError(errno, path_);
}

void File::Sync() {
    if (Operation([&] { return ::fsync(descriptor_); }) == 0) return;
    // A file system that cannot sync says so; there is nothing to wait for.
    if (errno != EINVAL && errno != ENOTSUP) RaiseFileError(errno, path_);
}

void File::CutAt(std::uint64_t length) {
    if (Operation([&] { return ::ftruncate(descriptor_, static_cast<off_t>(length)); }) != 0)
        RaiseFileError(errno, path_);
}

void File::Close() {
    const int descriptor = std::exchange(descriptor_, -1);
    if (descriptor < 0) return;
    const int ordered = FailsByOrder() ? errno : 0;
    // An interrupted close has closed all the same: a second one could hit another thread's file.
    const int reason = ::close(descriptor) != 0 ? errno : ordered;
    if (reason != 0 && reason != EINTR) RaiseFileError(reason, path_);
}

bool FileDateReadable(const std::string& path) {
    struct stat info = {};
    if (Operation([&] { return ::stat(path.c_str(), &info); }) == 0) return true;
    const int reason = errno;
    if (OutOfReach(reason)) return false;
    RaiseFileError(reason, path);
}

std::optional<FileStamp> StampOfFile(const std::string& path) {
    struct stat info = {};
    if (Operation([&] { return ::stat(path.c_str(), &info); }) != 0) {
        if (errno == ENOENT || errno == ENOTDIR) return {};
        RaiseFileError(errno, path);
    }
    if (!S_ISREG(info.st_mode)) return {};
    constexpr std::int64_t kNanoseconds = 1'000'000'000;
    return FileStamp{static_cast<std::uint64_t>(info.st_size), info.st_dev, info.st_ino,
                     info.st_mtim.tv_sec * kNanoseconds + info.st_mtim.tv_nsec};
}

std::optional<std::uint64_t> FileLength(const std::string& path) {
    const std::optional<FileStamp> stamp = StampOfFile(path);
    if (!stamp) return {};
    return stamp->length;
}

void DeleteFile(const std::string& path) {
    if (Operation([&] { return ::unlink(path.c_str()); }) != 0) RaiseFileError(errno, path);
}

void RenameFile(const std::string& from, const std::string& to) {
    if (Operation([&] { return ::rename(from.c_str(), to.c_str()); }) != 0) RaiseFileError(errno, to);
}

std::string ReadWholeFile(const std::string& path, std::size_t limit) {
    File file = File::OpenForReading(path);
    const std::uint64_t length = file.Length();
    if (length > limit) RaiseFileError(EFBIG, path);
    std::string text(static_cast<std::size_t>(length), '\0');
    text.resize(file.Read(std::as_writable_bytes(std::span(text))));
    return text;
}

void WriteWholeFile(const std::string& path, const std::string& text, bool forUserOnly) {
    File file = File::OpenForWriting(path, forUserOnly);
    file.Write(std::as_bytes(std::span(text)));
    file.Close();
}

void MakeFolders(const std::string& path) {
    struct stat info = {};
    if (::stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode)) return;
    const std::string above = FolderOf(path);
    if (above != path && above != ".") MakeFolders(above);
    if (Operation([&] { return ::mkdir(path.c_str(), 0700); }) == 0) return;
    const int reason = errno;
    // Another program may have made it meanwhile.
    if (reason == EEXIST && ::stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode)) return;
    RaiseFileError(reason, path);
}

void FailFileOperation(int n, int errnoValue) {
    failingOperation = 0;
    operationCount = 0;
    shortenedWrite = 0;
    failingErrno = errnoValue;
    failingOperation = n;
}

void ShortenFileWrite(int n, int thenErrno) {
    FailFileOperation(0, thenErrno);
    writeCount = 0;
    shortenedWrite = n;
}

bool FileFaultMet() {
    return (shortenedWrite != 0 && writeCount >= shortenedWrite) ||
           (shortenedWrite == 0 && failingOperation != 0 && operationCount >= failingOperation);
}

int FileOperationCount() {
    return operationCount;
}

} // namespace pintalux
