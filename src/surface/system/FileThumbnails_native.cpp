#include "surface/system/FileThumbnails_native.h"

#include "base/RuntimeError.h"
#include "surface/system/FileLayer.h"
#include "surface/system/Pictures.h"

#include <QImageReader>
#include <QPainter>

namespace pintalux {

namespace {

/// A blink: a JPEG is decoded at a fraction of its size, anything else as a whole.
constexpr qint64 kMostPixels = 16'000'000;
constexpr qint64 kMostJpegPixels = 120'000'000;
constexpr qint64 kMostBytes = 64'000'000;

bool IsOpened(const QString& ending) {
    static const QStringList kEndings = {"bmp", "gif", "jpeg", "jpg", "png"};
    return kEndings.contains(ending, Qt::CaseInsensitive);
}

/// What the program itself would make room for: the toolkit asks a GIF file for one of its images alone.
PictureSize SizeOf(const QString& path) try {
    File file = File::OpenForReading(QFile::encodeName(path).toStdString());
    return AnnouncedSize(file).value_or(PictureSize{});
} catch (const RuntimeError&) {
    return {};
}

QImage Thumbnail(const QString& path, int side) {
    const PictureSize announced = SizeOf(path);
    if (!announced.Legal()) return {};
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(false); // as the program opens it
    const qint64 pixels = qint64{announced.width} * announced.height;
    if (pixels > (reader.format().startsWith("jp") ? kMostJpegPixels : kMostPixels)) return {};
    const QSize size(announced.width, announced.height);
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
    if (IsOpened(file.suffix()) && file.isFile() && file.size() <= kMostBytes) {
        const QImage small = Thumbnail(file.filePath(), side_);
        if (!small.isNull()) return QIcon(QPixmap::fromImage(Centred(small, side_)));
    }
    return QFileIconProvider::icon(file);
}

} // namespace pintalux
