#include "surface/system/FileThumbnails_native.h"

#include <QImageReader>
#include <QPainter>

namespace pintalux {

namespace {

/// A blink: a JPEG is decoded at a fraction of its size, anything else as a whole.
constexpr qint64 kMostPixels = 16'000'000;
constexpr qint64 kMostJpegPixels = 120'000'000;
constexpr qint64 kMostBytes = 64'000'000;

/// The decoder for a name; none for what the program does not open.
QByteArray DecoderFor(const QString& ending) {
    if (ending == "jpg" || ending == "jpeg") return "jpeg";
    if (ending == "bmp" || ending == "gif" || ending == "png") return ending.toLatin1();
    return {};
}

QImage Thumbnail(const QString& path, const QByteArray& decoder, int side) {
    QImageReader reader(path, decoder);
    reader.setAutoTransform(false); // as the program opens it
    const QSize size = reader.size();
    const qint64 pixels = qint64{size.width()} * size.height();
    if (size.isEmpty() || pixels > (decoder == "jpeg" ? kMostJpegPixels : kMostPixels)) return {};
    const QSize fitting = size.width() > side || size.height() > side
                              ? size.scaled(side, side, Qt::KeepAspectRatio).expandedTo({1, 1})
                              : size;
    reader.setScaledSize(fitting);
    return reader.read();
}

/// In the middle of a square, so that all rows are of one height.
QImage Centred(const QImage& small, int side) {
    QImage square(side, side, QImage::Format_ARGB32_Premultiplied);
    square.fill(Qt::transparent);
    QPainter(&square).drawImage((side - small.width()) / 2, (side - small.height()) / 2, small);
    return square;
}

} // namespace

QIcon FileThumbnails::icon(const QFileInfo& file) const {
    const QByteArray decoder = DecoderFor(file.suffix().toLower());
    if (!decoder.isEmpty() && file.isFile() && file.size() <= kMostBytes) {
        const QImage small = Thumbnail(file.filePath(), decoder, side_);
        if (!small.isNull()) return QIcon(QPixmap::fromImage(Centred(small, side_)));
    }
    return QFileIconProvider::icon(file);
}

} // namespace pintalux
