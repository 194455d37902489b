// Any bytes on the clipboard, under each of the formats that the program takes. The first byte chooses.
#include "fuzz/Fuzz.h"

#include "surface/system/ClipboardData_native.h"
#include "surface/system/Pictures.h"

#include <QBuffer>
#include <QImageReader>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace pintalux;
    static const char* const kFormats[] = {"image/bmp", "image/x-bmp", "image/x-MS-bmp",
                                           "image/png", "image/jpeg",  "image/gif"};
    if (size < 1) return 0;
    QByteArray bytes(reinterpret_cast<const char*>(data) + 1, static_cast<qsizetype>(size - 1));
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    const QSize announced = QImageReader(&buffer).size();
    if (qint64{announced.width()} * announced.height() > 1 << 20) return 0;
    QMimeData offer;
    offer.setData(kFormats[data[0] % std::size(kFormats)], bytes);
    MayRefuse([&] {
        bool silent = false;
        std::optional<File> given = AskToolkit(offer, kFormats[data[0] % std::size(kFormats)], silent);
        if (!given) return;
        const FetchedBitmap found = DecodeBitmap(*given, kAnySize, {});
        if (found.outcome != Fetch::Taken) return;
        Demand(!found.picture.Empty() && found.picture.Width() <= kMaxPictureSide &&
               found.picture.Height() <= kMaxPictureSide);
    });
    return 0;
}
