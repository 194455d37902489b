#include "base/RuntimeError.h"
#include "surface/system/BmpHeader.h"
#include "surface/system/Pictures.h"

#include <algorithm>
#include <memory>
#include <turbojpeg.h>
#include <vector>

namespace pintalux {

namespace {

/// From this quality on, colours keep the full resolution.
constexpr int kFullColourQuality = 90;

struct CoderEnd {
    void operator()(void* coder) const { tjDestroy(coder); }
};
struct BufferEnd {
    void operator()(unsigned char* buffer) const { tjFree(buffer); }
};

/// The rows of a plain BMP file as they stand in it.
std::vector<std::byte> ReadRows(File& file, const BmpHeader& header) {
    std::vector<std::byte> rows(header.RowLength() * static_cast<std::size_t>(header.height));
    file.Seek(header.pixelOffset);
    file.Read(rows);
    return rows;
}

/// Codes blue, green and red triples, without turning them round first. Raises errors 7 and 481.
void WriteJpeg(const std::vector<std::byte>& rows, const BmpHeader& header, int quality, File& file) {
    const std::unique_ptr<void, CoderEnd> coder(tjInitCompress());
    if (!coder) throw RuntimeError(kOutOfMemory);
    unsigned char* bytes = nullptr;
    unsigned long length = 0;
    const int result =
        tjCompress2(coder.get(), reinterpret_cast<const unsigned char*>(rows.data()), header.width,
                    static_cast<int>(header.RowLength()), header.height, TJPF_BGR, &bytes, &length,
                    quality >= kFullColourQuality ? TJSAMP_444 : TJSAMP_420, quality,
                    TJFLAG_ACCURATEDCT | (header.topDown ? 0 : TJFLAG_BOTTOMUP));
    const std::unique_ptr<unsigned char, BufferEnd> owner(bytes);
    if (result != 0) throw RuntimeError(kInvalidPicture, tjGetErrorStr2(coder.get()));
    file.Write(std::as_bytes(std::span(bytes, length)));
}

} // namespace

void BmpToJpeg(const std::string& bmpPath, const std::string& jpegPath, int quality) {
    File source = File::OpenForReading(bmpPath);
    const BmpHeader header = ReadBmpHeader(source);
    if (header.bits != 24 || header.compressed) throw RuntimeError(kInvalidPicture, bmpPath);
    const std::vector<std::byte> rows = ReadRows(source, header);
    WriteFileAside(jpegPath, [&](File& file) { WriteJpeg(rows, header, std::clamp(quality, 1, 100), file); });
}

} // namespace pintalux
