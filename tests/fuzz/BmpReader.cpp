// Any bytes as a BMP file. What can be read is written again and comes back the same.
#include "fuzz/Fuzz.h"

#include "surface/system/BmpReader.h"
#include "surface/system/BmpWriter.h"
#include "surface/system/FileLayer.h"
#include "surface/system/Pictures.h"

#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace pintalux;
    const BytesAsFile source({data, size});
    MayRefuse([&] {
        File file = File::OpenForReading(source.Path());
        const BmpHeader header = ReadBmpHeader(file);
        if (header.compressed) return;
        const Picture picture = ReadBmpRows(file, header, {});
        Demand(picture.Width() <= kMaxPictureSide && picture.Height() <= kMaxPictureSide);
        constexpr std::size_t kPieceLength = 1 << 16;
        constexpr int kMostPixels = 1 << 20;
        if (std::int64_t{picture.Width()} * picture.Height() > kMostPixels) return;
        std::string bytes;
        int bottom = picture.Height();
        while (bottom > 0)
            bytes += NextBmpPiece(picture, kPieceLength, bottom);
        const BytesAsFile copy({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
        Demand(LoadPicture(copy.Path()) == picture);
    });
    return 0;
}
