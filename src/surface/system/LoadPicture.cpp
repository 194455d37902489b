#include "base/RuntimeError.h"
#include "surface/system/BmpReader.h"
#include "surface/system/GifReader.h"
#include "surface/system/JpegReader.h"
#include "surface/system/Pictures.h"
#include "surface/system/ToolkitReader.h"
#include "surface/window/Waiting.h"

#include <QCoreApplication>

#include <array>
#include <atomic>
#include <exception>
#include <memory>
#include <optional>
#include <string_view>
#include <thread>

namespace pintalux {

namespace {

enum class Kind { Bmp, Jpeg, Gif, Png, WebP, Tiff, Icon, Foreign };

/// The kind of picture that the first bytes announce.
Kind KindOf(File& file) {
    using namespace std::string_view_literals;
    std::array<char, 12> bytes = {};
    file.Seek(0);
    const std::size_t length = file.Read(std::as_writable_bytes(std::span(bytes)));
    const std::string_view start(bytes.data(), length);
    if (start.starts_with("BM"sv)) return Kind::Bmp;
    if (start.starts_with("\xFF\xD8\xFF"sv)) return Kind::Jpeg;
    if (start.starts_with("GIF87a"sv) || start.starts_with("GIF89a"sv)) return Kind::Gif;
    if (start.starts_with("\x89PNG\r\n\x1A\n"sv)) return Kind::Png;
    if (start.starts_with("RIFF"sv) && start.substr(4).ends_with("WEBP"sv)) return Kind::WebP;
    // Of either order of bytes, and either length of its places.
    for (const auto tiff : {"II*\0"sv, "MM\0*"sv, "II+\0"sv, "MM\0+"sv})
        if (start.starts_with(tiff)) return Kind::Tiff;
    if (start.starts_with("\0\0\1\0"sv)) return Kind::Icon;
    return Kind::Foreign;
}

Picture ReadBmp(File& file, const std::stop_token& stop) {
    const BmpHeader header = ReadBmpHeader(file);
    return header.compressed ? ReadBmpRunLengths(file, header, stop) : ReadBmpRows(file, header, stop);
}

PictureSize SizeOfBmp(File& file) {
    const BmpHeader header = ReadBmpHeader(file);
    return {header.width, header.height};
}

PictureSize SizeOf(File& file) {
    switch (KindOf(file)) {
    case Kind::Bmp:
        return SizeOfBmp(file);
    case Kind::Jpeg:
        return ReadJpegSize(file);
    case Kind::Gif:
        return ReadGifSize(file);
    case Kind::Png:
        return SizeByToolkit(file, "png");
    case Kind::WebP:
        return SizeByToolkit(file, "webp");
    case Kind::Tiff:
        return SizeByToolkit(file, "tiff");
    default:
        return {};
    }
}

/// Whether the toolkit decodes it, which must be there for that.
bool IsOfToolkit(Kind kind) {
    return kind != Kind::Bmp && kind != Kind::Jpeg && kind != Kind::Gif;
}

} // namespace

std::optional<PictureSize> AnnouncedSize(File& file) {
    const PictureSize size = SizeOf(file);
    if (!size.Legal()) return {};
    return size;
}

Picture LoadPicture(const std::string& path, const std::stop_token& stop) {
    if (path.empty()) return {};
    File file = File::OpenForReading(path);
    return ReadPicture(file, stop);
}

Picture ReadPicture(File& file, const std::stop_token& stop) {
    switch (KindOf(file)) {
    case Kind::Bmp:
        return ReadBmp(file, stop);
    case Kind::Jpeg:
        return ReadJpeg(file, stop);
    case Kind::Gif:
        return ReadGif(file, stop);
    case Kind::Png:
        return ReadByToolkit(file, "png", stop);
    case Kind::WebP:
        return ReadByToolkit(file, "webp", stop);
    case Kind::Tiff:
        return ReadByToolkit(file, "tiff", stop);
    case Kind::Icon:
        return ReadIcon(file, stop);
    default:
        throw RuntimeError(kInvalidPicture, file.Path());
    }
}

namespace {

/// A file that is being read before anybody waits for it.
class ReadingAhead {
  public:
    explicit ReadingAhead(const std::string& path)
        : path_(path), beforeToolkit_(QCoreApplication::instance() == nullptr), stamp_(StampOfFile(path)),
          thread_([this](const std::stop_token& stop) { Read(stop); }) {}

    const std::string& Path() const { return path_; }
    /// Whether it began too early for this file.
    bool Abandoned() const { return abandoned_; }

    /// The picture; error 18 soon after `stop` is asked for, and whatever the reading ran into. Nothing if
    /// the file has changed since.
    std::optional<Picture> Finish(const std::stop_token& stop) {
        const std::stop_callback passOn(stop, [this] { thread_.request_stop(); });
        thread_.join();
        if (abandoned_ || StampOfFile(path_) != stamp_) return {};
        if (failure_) std::rethrow_exception(failure_);
        return std::move(picture_);
    }

  private:
    void Read(const std::stop_token& stop) {
        try {
            if (beforeToolkit_) {
                File file = File::OpenForReading(path_);
                abandoned_ = IsOfToolkit(KindOf(file));
            }
            if (!abandoned_) picture_ = LoadPicture(path_, stop);
        } catch (...) {
            failure_ = std::current_exception();
        }
    }

    std::string path_;
    bool beforeToolkit_;
    std::atomic<bool> abandoned_ = false;
    std::optional<FileStamp> stamp_;
    Picture picture_;
    std::exception_ptr failure_;
    std::jthread thread_; // last, so that it is over before what it fills
};

std::unique_ptr<ReadingAhead> readingAhead;

} // namespace

void LoadPictureAhead(const std::string& path) {
    if (readingAhead && readingAhead->Path() == path && !readingAhead->Abandoned()) return;
    try {
        readingAhead = std::make_unique<ReadingAhead>(path);
    } catch (const std::exception&) { // No file, or no thread: it is told when the picture is asked for.
    }
}

Picture LoadPictureWaiting(const std::string& path) {
    std::unique_ptr<ReadingAhead> begun;
    if (readingAhead && readingAhead->Path() == path) begun = std::move(readingAhead);
    Picture picture;
    WorkWhileWaiting([&](const std::stop_token& stop) {
        std::optional<Picture> early;
        if (begun) early = begun->Finish(stop);
        picture = early ? std::move(*early) : LoadPicture(path, stop);
    });
    return picture;
}

} // namespace pintalux
