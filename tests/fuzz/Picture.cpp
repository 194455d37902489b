// Any bytes at the front door of the loader: BMP, JPEG, GIF, PNG, WebP, TIFF, icon, or none of them.
#include "fuzz/Fuzz.h"

#include "surface/system/Pictures.h"

#include <QImageReader>

namespace {

/// Giants are other tests' affair: here they would only take the time.
bool IsGiant(const std::string& path) {
    constexpr qint64 kMostPixels = 1 << 20;
    const QSize size = QImageReader(QString::fromStdString(path)).size();
    return qint64{size.width()} * size.height() > kMostPixels;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace pintalux;
    const BytesAsFile source({data, size});
    if (IsGiant(source.Path())) return 0;
    MayRefuse([&] {
        const Picture picture = LoadPicture(source.Path());
        Demand(!picture.Empty() && picture.Width() <= kMaxPictureSide && picture.Height() <= kMaxPictureSide);
    });
    return 0;
}
