#include "surface/system/ToolkitImages_native.h"

#include "base/RuntimeError.h"
#include "surface/system/OverWhite.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace pintalux {

namespace {

/// 0xAARRGGBB laid over white, as 0x00BBGGRR.
Pixel PixelFrom(QRgb colour) {
    const auto alpha = static_cast<Pixel>(qAlpha(colour));
    const auto red = static_cast<Pixel>(qRed(colour));
    const auto green = static_cast<Pixel>(qGreen(colour));
    const auto blue = static_cast<Pixel>(qBlue(colour));
    return OverWhite(blue, alpha) << 16 | OverWhite(green, alpha) << 8 | OverWhite(red, alpha);
}

} // namespace

QImage ImageOf(const Picture& picture) {
    QImage image(picture.Width(), picture.Height(), QImage::Format_RGB32);
    if (image.isNull() && !picture.Empty()) throw RuntimeError(kOutOfMemory);
    std::vector<Pixel> row(static_cast<std::size_t>(picture.Width()));
    for (int y = 0; y < picture.Height(); ++y) {
        picture.ReadRow(0, y, row);
        // Red and blue change places, and the highest byte must be full.
        std::transform(row.begin(), row.end(), row.begin(),
                       [](Pixel pixel) { return __builtin_bswap32(pixel) >> 8 | 0xFF000000; });
        std::memcpy(image.scanLine(y), row.data(), row.size() * sizeof(Pixel));
    }
    return image;
}

Picture PictureOfImage(const QImage& image) {
    const bool opaque = !image.hasAlphaChannel();
    const QImage::Format format = opaque ? QImage::Format_RGB32 : QImage::Format_ARGB32;
    Picture picture(image.width(), image.height(), kWhite);
    std::vector<Pixel> row(static_cast<std::size_t>(image.width()));
    // Band by band, so that no second copy of the whole stands in memory.
    for (int top = 0; top < image.height(); top += Bitmap::kTileHeight) {
        const int rows = std::min(Bitmap::kTileHeight, image.height() - top);
        const QImage band = image.copy(0, top, image.width(), rows).convertToFormat(format);
        if (band.isNull()) throw RuntimeError(kOutOfMemory);
        for (int y = 0; y < rows; ++y) {
            std::memcpy(row.data(), band.constScanLine(y), row.size() * sizeof(Pixel));
            if (opaque) {
                std::transform(row.begin(), row.end(), row.begin(),
                               [](QRgb colour) { return __builtin_bswap32(colour) >> 8; });
            } else {
                std::transform(row.begin(), row.end(), row.begin(),
                               [](QRgb colour) { return PixelFrom(colour); });
            }
            picture.WriteRow(0, top + y, row);
        }
    }
    return picture;
}

} // namespace pintalux
