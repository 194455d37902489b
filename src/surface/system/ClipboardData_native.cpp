#include "surface/system/ClipboardData_native.h"

#include "base/RuntimeError.h"
#include "surface/system/BmpReader.h"
#include "surface/system/ClipboardOwner_native.h"
#include "surface/system/ClipboardPieces_native.h"
#include "surface/system/FreeMemory.h"
#include "surface/system/Pictures.h"
#include "surface/system/Stopping.h"
#include "surface/system/ToolkitImages_native.h"

#include <algorithm>
#include <array>
#include <QBuffer>
#include <QElapsedTimer>
#include <QImageReader>
#include <span>
#include <sys/mman.h>

namespace pintalux {

namespace {

/// The bitmap formats we read, best first: PNG alone keeps what is transparent.
constexpr const char* kReadable[] = {kPng, kBmp, "image/x-bmp", "image/x-MS-bmp", "image/jpeg", "image/gif"};

/// By our own writers: the toolkit's refuse the largest pictures.
QByteArray BytesOf(const Pieces& pieces) {
    QByteArray bytes;
    for (std::string piece = pieces(); !piece.empty(); piece = pieces())
        bytes.append(piece.data(), static_cast<qsizetype>(piece.size()));
    return bytes;
}

bool LegalSize(QSize size) {
    return !size.isEmpty() && size.width() <= kMaxPictureSide && size.height() <= kMaxPictureSide;
}

/// A giant that another program offers is refused as one in a file is.
bool HasRoom(QSize size) try {
    DemandMemory(PictureBytes(size.width(), size.height()));
    return true;
} catch (const RuntimeError&) {
    return false;
}

/// A file's bytes, for decoders that know memory alone.
class Mapping {
  public:
    explicit Mapping(const File& file) : length_(static_cast<std::size_t>(file.Length())) {
        if (length_ == 0) return;
        void* const place = ::mmap(nullptr, length_, PROT_READ, MAP_PRIVATE, file.Descriptor(), 0);
        if (place == MAP_FAILED) throw RuntimeError(kOutOfMemory);
        place_ = static_cast<const char*>(place);
    }
    ~Mapping() {
        if (place_ != nullptr) ::munmap(const_cast<char*>(place_), length_);
    }
    Mapping(const Mapping&) = delete;
    Mapping& operator=(const Mapping&) = delete;
    QByteArray Bytes() const { return QByteArray::fromRawData(place_, static_cast<qsizetype>(length_)); }

  private:
    const char* place_ = nullptr;
    std::size_t length_;
};

bool BeginsAsBmp(File& file) {
    std::array<std::byte, 2> start = {};
    file.Seek(0);
    return file.Read(start) == start.size() && start[0] == std::byte{'B'} && start[1] == std::byte{'M'};
}

/// By our own reader: the toolkit's refuses the largest.
FetchedBitmap DecodeBmp(File& file, std::uint64_t limit, const std::stop_token& stop) {
    const BmpHeader header = ReadBmpHeader(file);
    if (PictureBytes(header.width, header.height) > limit) return {Fetch::TooLarge};
    return {Fetch::Taken,
            header.compressed ? ReadBmpRunLengths(file, header, stop) : ReadBmpRows(file, header, stop)};
}

FetchedBitmap DecodeByToolkit(const File& file, std::uint64_t limit) {
    constexpr qint64 kMostBytes = qint64{kMaxPictureSide} * kMaxPictureSide * 4;
    QImageReader::setAllocationLimit(static_cast<int>(kMostBytes / (1 << 20) + 1));
    const Mapping mapping(file);
    QBuffer buffer;
    buffer.setData(mapping.Bytes());
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    // Other decoders of the toolkit would run files that are no bitmaps, drawings with links among them.
    static const QList<QByteArray> kKinds = {"png", "jpeg", "jpg", "gif"};
    if (!kKinds.contains(reader.format())) return {};
    const QSize size = reader.size();
    if (!LegalSize(size)) return {};
    if (PictureBytes(size.width(), size.height()) > limit) return {Fetch::TooLarge};
    if (!HasRoom(size)) return {};
    const QImage image = reader.read();
    if (image.isNull() || !LegalSize(image.size())) return {};
    return {Fetch::Taken, PictureOfImage(image)};
}

} // namespace

QStringList PictureData::formats() const {
    return {kBmp, kPng};
}

QVariant PictureData::retrieveData(const QString& format, QMetaType) const {
    // The toolkit calls this from the middle of its own work: what fails offers nothing.
    try {
        if (format == kBmp) return BytesOf(BmpPieces(picture));
        if (format == kPng) return BytesOf(PngPieces(picture));
    } catch (const RuntimeError&) {
    } catch (const std::bad_alloc&) {
    }
    return {};
}

QStringList ReadableFormats(const QStringList& offered) {
    QStringList readable;
    for (const char* format : kReadable)
        for (const QString& name : offered)
            if (name.compare(QLatin1String(format), Qt::CaseInsensitive) == 0) readable += name;
    return readable;
}

FetchedBitmap DecodeBitmap(File& bytes, std::uint64_t limit, const std::stop_token& stop) {
    if (!BeginsAsBmp(bytes)) return DecodeByToolkit(bytes, limit);
    try {
        return DecodeBmp(bytes, limit, stop);
    } catch (const RuntimeError& error) {
        if (error.Number() == kInterrupted) throw;
        return {};
    }
}

FetchedBitmap FetchBitmap(const QStringList& formats, std::uint64_t limit, const std::stop_token& stop) {
    ClipboardOwner owner(stop);
    const std::uint64_t mostBytes = std::min(limit, FreeMemory() / 2);
    for (const QString& format : formats) {
        std::optional<File> bytes = owner.Bytes(format, mostBytes);
        RaiseIfStopped(stop);
        // An owner that says nothing to one question would hold us up as long for each of the others.
        if (owner.Silent()) return {Fetch::Silent};
        if (owner.TooLarge()) return {limit == kAnySize ? Fetch::Unreadable : Fetch::TooLarge};
        if (!bytes) continue;
        FetchedBitmap found = DecodeBitmap(*bytes, limit, stop);
        if (found.outcome != Fetch::Unreadable) return found;
    }
    return {};
}

std::optional<File> AskToolkit(const QMimeData& data, const QString& format, bool& silent) {
    constexpr qint64 kSilence = 2000; // milliseconds
    QElapsedTimer waiting;
    waiting.start();
    const QByteArray bytes = data.data(format);
    silent = bytes.isEmpty() && waiting.hasExpired(kSilence);
    if (bytes.isEmpty()) return std::nullopt;
    File file = File::InMemory("");
    file.Write(std::as_bytes(std::span(bytes.constData(), static_cast<std::size_t>(bytes.size()))));
    return file;
}

} // namespace pintalux
