#include "surface/system/ClipboardData_native.h"

#include "surface/raster/RuntimeError.h"
#include "surface/system/Pictures.h"
#include "surface/system/ToolkitImages_native.h"

#include <QBuffer>
#include <QImageReader>
#include <QImageWriter>

namespace pintalux {

namespace {

constexpr const char* kBmp = "image/bmp";
constexpr const char* kPng = "image/png";

/// The bitmap formats we read, best first: PNG alone keeps what is transparent.
constexpr const char* kReadable[] = {kPng, kBmp, "image/x-bmp", "image/x-MS-bmp", "image/jpeg", "image/gif"};

QByteArray Encoded(const Picture& picture, const char* kind) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImageWriter writer(&buffer, kind);
    writer.setCompression(11); // zlib's fastest level: pasting waits for it
    return writer.write(ImageOf(picture)) ? bytes : QByteArray();
}

bool LegalSize(QSize size) {
    return !size.isEmpty() && size.width() <= kMaxPictureSide && size.height() <= kMaxPictureSide;
}

std::optional<Picture> Decoded(QByteArray bytes) {
    constexpr qint64 kMostBytes = qint64{kMaxPictureSide} * kMaxPictureSide * 4;
    QImageReader::setAllocationLimit(static_cast<int>(kMostBytes / (1 << 20) + 1));
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    if (!LegalSize(reader.size())) return std::nullopt;
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
        if (format == kBmp) return Encoded(picture, "bmp");
        if (format == kPng) return Encoded(picture, "png");
    } catch (const RuntimeError&) {
    } catch (const std::bad_alloc&) {
    }
    return {};
}

bool OffersBitmap(const QMimeData* data) {
    if (data == nullptr) return false;
    const QStringList offered = data->formats();
    return std::any_of(std::begin(kReadable), std::end(kReadable), [&](const char* format) {
        return offered.contains(QLatin1String(format), Qt::CaseInsensitive);
    });
}

std::optional<Picture> ReadBitmap(const QMimeData* data) {
    if (data == nullptr) return std::nullopt;
    const QStringList offered = data->formats();
    for (const char* format : kReadable)
        for (const QString& name : offered) {
            if (name.compare(QLatin1String(format), Qt::CaseInsensitive) != 0) continue;
            if (auto picture = Decoded(data->data(name))) return picture;
        }
    return std::nullopt;
}

} // namespace pintalux
