#include "surface/system/ClipboardData_native.h"

#include "base/RuntimeError.h"
#include "surface/system/BmpWriter.h"
#include "surface/system/FreeMemory.h"
#include "surface/system/Pictures.h"
#include "surface/system/ToolkitImages_native.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QImageReader>
#include <QImageWriter>
#include <span>

namespace pintalux {

namespace {

constexpr const char* kBmp = "image/bmp";
constexpr const char* kPng = "image/png";

/// The bitmap formats we read, best first: PNG alone keeps what is transparent.
constexpr const char* kReadable[] = {kPng, kBmp, "image/x-bmp", "image/x-MS-bmp", "image/jpeg", "image/gif"};

/// The bytes of our own BMP writer: the toolkit's refuses the largest pictures.
QByteArray BmpBytes(const Picture& picture) {
    const std::uint64_t length = BmpFileLength(picture.Width(), picture.Height());
    QByteArray bytes(static_cast<qsizetype>(length), '\0');
    PackBmp(picture, std::as_writable_bytes(std::span(bytes.data(), static_cast<std::size_t>(length))));
    return bytes;
}

QByteArray PngBytes(const Picture& picture) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImageWriter writer(&buffer, "png");
    writer.setCompression(11); // zlib's fastest level: pasting waits for it
    return writer.write(ImageOf(picture)) ? bytes : QByteArray();
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

std::optional<Picture> Decoded(const QByteArray& bytes) {
    constexpr qint64 kMostBytes = qint64{kMaxPictureSide} * kMaxPictureSide * 4;
    QImageReader::setAllocationLimit(static_cast<int>(kMostBytes / (1 << 20) + 1));
    QBuffer buffer;
    buffer.setData(bytes);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    // Other decoders of the toolkit would run files that are no bitmaps, drawings with links among them.
    static const QList<QByteArray> kKinds = {"png", "bmp", "jpeg", "jpg", "gif"};
    if (!kKinds.contains(reader.format())) return std::nullopt;
    const QSize size = reader.size();
    if (!LegalSize(size) || !HasRoom(size)) return std::nullopt;
    const QImage image = reader.read();
    if (image.isNull() || !LegalSize(image.size())) return std::nullopt;
    return PictureOfImage(image);
}

} // namespace

QStringList PictureData::formats() const {
    return {kBmp, kPng};
}

QVariant PictureData::retrieveData(const QString& format, QMetaType) const {
    // The toolkit calls this from the middle of its own work: what fails offers nothing.
    try {
        if (format == kBmp) return BmpBytes(picture);
        if (format == kPng) return PngBytes(picture);
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

std::optional<Picture> ReadBitmap(const QMimeData& data, const QStringList& formats) {
    constexpr qint64 kSilence = 2000; // milliseconds
    for (const QString& name : formats) {
        QElapsedTimer waiting;
        waiting.start();
        const QByteArray bytes = data.data(name);
        // An owner that says nothing to one question would hold us up as long for each of the others.
        if (bytes.isEmpty() && waiting.hasExpired(kSilence)) return std::nullopt;
        if (auto picture = Decoded(bytes)) return picture;
    }
    return std::nullopt;
}

} // namespace pintalux
