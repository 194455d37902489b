#include "surface/system/ToolkitReader.h"

#include "base/RuntimeError.h"
#include "surface/system/FreeMemory.h"
#include "surface/system/Stopping.h"
#include "surface/system/ToolkitImages_native.h"

#include <exception>
#include <mutex>
#include <QImage>
#include <QImageReader>
#include <QIODevice>
#include <string_view>

namespace pintalux {

namespace {

/// A file of ours in the toolkit's hands. No exception may cross its decoders: a failure is kept for later,
/// and nothing is read after it.
class FileDevice final : public QIODevice {
  public:
    FileDevice(File& file, const std::stop_token& stop)
        : file_(file), stop_(stop), length_(static_cast<qint64>(file.Length())) {
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
        // A failure looks like the end of the file: the TIFF decoder takes a -1 for a length, and would write
        // before its buffer.
        Try([&] { got = file_.Read(std::as_writable_bytes(bytes)); });
        return static_cast<qint64>(got);
    }
    qint64 writeData(const char*, qint64) override { return -1; }

  private:
    template <class Step>
    bool Try(Step step) {
        if (failure_) return false;
        try {
            RaiseIfStopped(stop_);
            step();
            return true;
        } catch (...) {
            failure_ = std::current_exception();
            return false;
        }
    }

    File& file_;
    const std::stop_token& stop_;
    qint64 length_;
    std::exception_ptr failure_;
};

/// Megabytes that one image of the toolkit may take while this lives; 0 for any. The toolkit knows one limit
/// for all threads.
class ImageLimit {
  public:
    explicit ImageLimit(int megabytes) : hold_(lock), before_(QImageReader::allocationLimit()) {
        QImageReader::setAllocationLimit(megabytes);
    }
    ~ImageLimit() { QImageReader::setAllocationLimit(before_); }
    ImageLimit(const ImageLimit&) = delete;
    ImageLimit& operator=(const ImageLimit&) = delete;

  private:
    static inline std::mutex lock;
    std::lock_guard<std::mutex> hold_;
    int before_;
};

/// A decoder over a file; the first bytes have decided the format.
class Decoder {
  public:
    Decoder(File& file, const char* format, const std::stop_token& stop) : file_(file), device_(file, stop) {
        device_.seek(0);
        reader_.setDevice(&device_);
        reader_.setFormat(format);
        reader_.setAutoDetectImageFormat(false);
        reader_.setDecideFormatFromContent(false);
    }

    QImageReader& Reader() { return reader_; }

    /// The size that the header announces.
    PictureSize Announced() const { return SizeOf(reader_.size()); }
    /// What a pixel takes in the decoder's image, which the header tells.
    unsigned BitsOfPixel() const { return QImage::toPixelFormat(reader_.imageFormat()).bitsPerPixel(); }
    PictureSize LegalSize() {
        const PictureSize size = Announced();
        if (!size.Legal()) Refuse();
        return size;
    }

    Picture Read() {
        QImage image;
        if (!reader_.read(&image) || !SizeOf(image.size()).Legal()) Refuse();
        device_.RaiseFailure();
        return PictureOfImage(image);
    }

  private:
    static PictureSize SizeOf(QSize size) { return {size.width(), size.height()}; }
    /// What kept the file from being read counts before what the decoder made of it.
    [[noreturn]] void Refuse() const {
        device_.RaiseFailure();
        throw RuntimeError(kInvalidPicture, file_.Path());
    }

    File& file_;
    FileDevice device_;
    QImageReader reader_;
};

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

/// The picture, and what its decoder holds beside it: two frames and the image, up to 16 bits a channel. A
/// PNG has the image alone.
std::uint64_t CopiesInMemory(const Decoder& decoder, std::string_view format) {
    if (format != "png") return 4;
    return decoder.BitsOfPixel() > 32 ? 3 : 2;
}

} // namespace

Picture ReadByToolkit(File& file, const char* format, const std::stop_token& stop) {
    Decoder decoder(file, format, stop);
    const PictureSize size = decoder.LegalSize();
    DemandMemory(CopiesInMemory(decoder, format) * PictureBytes(size.width, size.height));
    const ImageLimit any(0);
    Picture picture = decoder.Read();
    RaiseIfStopped(stop);
    return picture;
}

PictureSize SizeByToolkit(File& file, const char* format) {
    const std::stop_token never;
    return Decoder(file, format, never).Announced();
}

Picture ReadIcon(File& file, const std::stop_token& stop) {
    const ImageLimit limit(256);
    Decoder decoder(file, "ico", stop);
    ChooseLargest(decoder.Reader());
    // Some kinds of icons announce no size.
    const QSize announced = decoder.Reader().size();
    if (announced.isValid()) decoder.LegalSize();
    return decoder.Read();
}

} // namespace pintalux
