#include "base/RuntimeError.h"
#include "surface/system/BmpReader.h"
#include "surface/system/GifReader.h"
#include "surface/system/JpegReader.h"
#include "surface/system/Pictures.h"
#include "surface/system/ToolkitImages_native.h"
#include "surface/window/Waiting.h"

#include <array>
#include <exception>
#include <memory>
#include <optional>
#include <QImage>
#include <QImageReader>
#include <QIODevice>
#include <string_view>
#include <thread>

namespace pintalux {

namespace {

/// A file of ours in the toolkit's hands. No exception may cross its decoders: a failure is kept for later.
class FileDevice final : public QIODevice {
  public:
    explicit FileDevice(File& file) : file_(file), length_(static_cast<qint64>(file.Length())) {
        open(QIODevice::ReadOnly);
    }
    ~FileDevice() override { close(); }
    qint64 size() const override { return length_; }
    bool seek(qint64 position) override {
        return position >= 0 && QIODevice::seek(position) &&
               Try([&] { file_.Seek(static_cast<std::uint64_t>(position)); });
    }
    void RaiseFailure() const {
        if (failure_) std::rethrow_exception(failure_);
    }

  protected:
    qint64 readData(char* data, qint64 length) override {
        std::size_t got = 0;
        const std::span<char> bytes(data, static_cast<std::size_t>(length));
        if (!Try([&] { got = file_.Read(std::as_writable_bytes(bytes)); })) return -1;
        return static_cast<qint64>(got);
    }
    qint64 writeData(const char*, qint64) override { return -1; }

  private:
    template <class Step>
    bool Try(Step step) {
        try {
            step();
            return true;
        } catch (...) {
            failure_ = std::current_exception();
            return false;
        }
    }

    File& file_;
    qint64 length_;
    std::exception_ptr failure_;
};

enum class Kind { Bmp, Jpeg, Gif, Icon, Foreign };

/// The kind of picture that the first bytes announce.
Kind KindOf(File& file) {
    using namespace std::string_view_literals;
    std::array<char, 6> bytes = {};
    const std::size_t length = file.Read(std::as_writable_bytes(std::span(bytes)));
    const std::string_view start(bytes.data(), length);
    if (start.starts_with("BM"sv)) return Kind::Bmp;
    if (start.starts_with("\xFF\xD8\xFF"sv)) return Kind::Jpeg;
    if (start == "GIF87a"sv || start == "GIF89a"sv) return Kind::Gif;
    if (start.starts_with("\0\0\1\0"sv)) return Kind::Icon;
    return Kind::Foreign;
}

/// An icon file holds one picture in several sizes: the largest counts.
void ChooseLargest(QImageReader& reader) {
    int best = 0;
    qint64 bestArea = -1;
    for (int i = 0; i < reader.imageCount() && reader.jumpToImage(i); ++i) {
        const QSize size = reader.size();
        const qint64 area = qint64{size.width()} * size.height();
        if (area <= bestArea) continue;
        best = i;
        bestArea = area;
    }
    reader.jumpToImage(best);
}

bool LegalSize(QSize size) {
    return size.width() <= kMaxPictureSide && size.height() <= kMaxPictureSide;
}

/// Icons are left to the toolkit: they are small, and of many kinds.
Picture ReadIcon(File& file) {
    constexpr int kMostMegabytes = 256;
    QImageReader::setAllocationLimit(kMostMegabytes);
    file.Seek(0);
    FileDevice device(file);
    QImageReader reader(&device, "ico");
    reader.setAutoDetectImageFormat(false);
    reader.setDecideFormatFromContent(false);
    ChooseLargest(reader);
    const bool announcedLegal = LegalSize(reader.size());
    QImage image;
    const bool decoded = announcedLegal && reader.read(&image) && !image.isNull() && LegalSize(image.size());
    device.RaiseFailure();
    if (!decoded) throw RuntimeError(kInvalidPicture, file.Path());
    return PictureOfImage(image);
}

Picture ReadBmp(File& file, const std::stop_token& stop) {
    const BmpHeader header = ReadBmpHeader(file);
    return header.compressed ? ReadBmpRunLengths(file, header, stop) : ReadBmpRows(file, header, stop);
}

} // namespace

Picture LoadPicture(const std::string& path, const std::stop_token& stop) {
    if (path.empty()) return {};
    File file = File::OpenForReading(path);
    switch (KindOf(file)) {
    case Kind::Bmp:
        return ReadBmp(file, stop);
    case Kind::Jpeg:
        return ReadJpeg(file, stop);
    case Kind::Gif:
        return ReadGif(file, stop);
    case Kind::Icon:
        return ReadIcon(file);
    default:
        throw RuntimeError(kInvalidPicture, path);
    }
}

namespace {

/// A file that is being read before anybody waits for it.
class ReadingAhead {
  public:
    explicit ReadingAhead(const std::string& path)
        : path_(path), stamp_(StampOfFile(path)),
          thread_([this](const std::stop_token& stop) { Read(stop); }) {}

    const std::string& Path() const { return path_; }

    /// The picture; error 18 soon after `stop` is asked for, and whatever the reading ran into. Nothing if
    /// the file has changed since.
    std::optional<Picture> Finish(const std::stop_token& stop) {
        const std::stop_callback passOn(stop, [this] { thread_.request_stop(); });
        thread_.join();
        if (StampOfFile(path_) != stamp_) return {};
        if (failure_) std::rethrow_exception(failure_);
        return std::move(picture_);
    }

  private:
    void Read(const std::stop_token& stop) {
        try {
            picture_ = LoadPicture(path_, stop);
        } catch (...) {
            failure_ = std::current_exception();
        }
    }

    std::string path_;
    std::optional<FileStamp> stamp_;
    Picture picture_;
    std::exception_ptr failure_;
    std::jthread thread_; // last, so that it is over before what it fills
};

std::unique_ptr<ReadingAhead> readingAhead;

} // namespace

void LoadPictureAhead(const std::string& path) {
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
