#include "base/RuntimeError.h"
#include "surface/system/BmpReader.h"
#include "surface/system/Pictures.h"
#include "surface/system/ToolkitImages_native.h"

#include <array>
#include <exception>
#include <QImage>
#include <QImageReader>
#include <QIODevice>
#include <string_view>

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

/// The kind of picture that the first bytes announce, by the name of its decoder; nothing for any other file.
const char* KindOf(File& file) {
    using namespace std::string_view_literals;
    std::array<char, 6> bytes = {};
    const std::size_t length = file.Read(std::as_writable_bytes(std::span(bytes)));
    const std::string_view start(bytes.data(), length);
    if (start.starts_with("BM"sv)) return "bmp";
    if (start.starts_with("\xFF\xD8\xFF"sv)) return "jpeg";
    if (start == "GIF87a"sv || start == "GIF89a"sv) return "gif";
    if (start.starts_with("\0\0\1\0"sv)) return "ico";
    return nullptr;
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

Picture Decode(File& file, const char* kind) {
    constexpr qint64 kMostBytes = qint64{kMaxPictureSide} * kMaxPictureSide * 4;
    QImageReader::setAllocationLimit(static_cast<int>(kMostBytes / (1 << 20) + 1));
    file.Seek(0);
    FileDevice device(file);
    QImageReader reader(&device, kind);
    reader.setAutoDetectImageFormat(false);
    reader.setDecideFormatFromContent(false);
    if (std::string_view(kind) == "ico") ChooseLargest(reader);
    const bool announcedLegal = LegalSize(reader.size());
    QImage image;
    const bool decoded = announcedLegal && reader.read(&image) && !image.isNull() && LegalSize(image.size());
    device.RaiseFailure();
    if (!decoded) throw RuntimeError(kInvalidPicture, file.Path());
    return PictureOfImage(image);
}

} // namespace

Picture LoadPicture(const std::string& path) {
    if (path.empty()) return {};
    File file = File::OpenForReading(path);
    const char* kind = KindOf(file);
    if (kind == nullptr) throw RuntimeError(kInvalidPicture, path);
    if (std::string_view(kind) == "bmp") {
        const BmpHeader header = ReadBmpHeader(file);
        if (!header.compressed) return ReadBmpRows(file, header);
    }
    return Decode(file, kind);
}

} // namespace pintalux
