#include "surface/system/BmpWriter.h"

#include "base/RuntimeError.h"
#include "surface/system/BmpPixels.h"
#include "surface/system/Pictures.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <span>
#include <vector>

namespace pintalux {

namespace {

constexpr std::uint32_t kHeaderLength = kBmpHeaderLength;
constexpr std::size_t kBufferLength = std::size_t{1} << 20;

class HeaderBytes {
  public:
    void Put(std::uint32_t value, int bytes) {
        for (int i = 0; i < bytes; ++i, value >>= 8)
            bytes_[used_++] = static_cast<std::byte>(value & 0xFF);
    }
    const std::array<std::byte, kHeaderLength>& Bytes() const { return bytes_; }

  private:
    std::array<std::byte, kHeaderLength> bytes_ = {};
    std::size_t used_ = 0;
};

/// The rows from `bottom` - 1 up to `top`, as they stand in the file. The bytes that fill up a row stay as
/// they are. Walks down each column of tiles, with the picture's memory: the other way takes three times as
/// long.
void PackRows(const Picture& picture, int top, int bottom, std::byte* out) {
    const std::size_t rowLength = BmpRowLength(picture.Width());
    for (int x = 0; x < picture.Width(); x += Bitmap::kTileWidth) {
        for (int y = top; y < bottom; ++y) {
            const auto row = static_cast<std::size_t>(bottom - 1 - y);
            const auto run = picture.Run(x, y);
            PackTriples(run.data(), out + row * rowLength + static_cast<std::size_t>(x) * 3,
                        static_cast<int>(run.size()));
        }
    }
}

/// How many rows a piece of about this length has: whole rows of tiles.
int RowsAtOnce(std::size_t length, std::size_t rowLength) {
    constexpr int kBand = Bitmap::kTileHeight;
    return std::max(1, static_cast<int>(length / rowLength) / kBand) * kBand;
}

/// Where a piece of this length begins that ends above `bottom`: between two rows of tiles.
int TopOfPiece(int bottom, std::size_t length, std::size_t rowLength) {
    const int rows = RowsAtOnce(length, rowLength);
    return (bottom - 1) / rows * rows;
}

/// The file's length has 32 bits in its header.
bool HasBmp(const Picture& picture) {
    return !picture.Empty() && picture.Width() <= kMaxPictureSide && picture.Height() <= kMaxPictureSide;
}

} // namespace

std::array<std::byte, kBmpHeaderLength> BmpHeaderOf(int width, int height) {
    const auto length = static_cast<std::uint32_t>(BmpFileLength(width, std::abs(height)));
    constexpr std::uint32_t kDotsPerMetre = 3780; // 96 dots an inch
    HeaderBytes header;
    header.Put('B' | 'M' << 8, 2);
    header.Put(length, 4);
    header.Put(0, 4); // reserved
    header.Put(kHeaderLength, 4);
    header.Put(40, 4); // length of what follows
    header.Put(static_cast<std::uint32_t>(width), 4);
    header.Put(static_cast<std::uint32_t>(height), 4);
    header.Put(1, 2);  // planes
    header.Put(24, 2); // bits a pixel
    header.Put(0, 4);  // no compression
    header.Put(length - kHeaderLength, 4);
    header.Put(kDotsPerMetre, 4);
    header.Put(kDotsPerMetre, 4);
    header.Put(0, 4); // no palette
    header.Put(0, 4);
    return header.Bytes();
}

std::uint64_t BmpFileLength(int width, int height) {
    return kHeaderLength + std::uint64_t{BmpRowLength(width)} * static_cast<std::uint64_t>(height);
}

std::string NextBmpPiece(const Picture& picture, std::size_t length, int& bottom) {
    if (!HasBmp(picture)) throw RuntimeError(kInvalidPicture);
    std::string piece;
    if (bottom == 0) return piece;
    const std::size_t rowLength = BmpRowLength(picture.Width());
    const int top = TopOfPiece(bottom, length, rowLength);
    const std::size_t headerLength = bottom == picture.Height() ? kHeaderLength : 0;
    piece.resize(headerLength + static_cast<std::size_t>(bottom - top) * rowLength);
    const auto bytes = std::as_writable_bytes(std::span(piece));
    if (headerLength > 0) std::ranges::copy(BmpHeaderOf(picture.Width(), picture.Height()), bytes.begin());
    PackRows(picture, top, bottom, &bytes[headerLength]);
    bottom = top;
    return piece;
}

void WriteBmp(const Picture& picture, File& file) {
    if (!HasBmp(picture)) throw RuntimeError(kInvalidPicture, file.Path());
    const std::size_t rowLength = BmpRowLength(picture.Width());
    const int largest = std::min(RowsAtOnce(kBufferLength, rowLength), picture.Height());
    std::vector<std::byte> buffer(static_cast<std::size_t>(largest) * rowLength);
    file.Write(BmpHeaderOf(picture.Width(), picture.Height()));
    for (int bottom = picture.Height(); bottom > 0;) {
        const int top = TopOfPiece(bottom, kBufferLength, rowLength);
        PackRows(picture, top, bottom, buffer.data());
        file.Write({buffer.data(), static_cast<std::size_t>(bottom - top) * rowLength});
        bottom = top;
    }
}

void WritePrivateBmp(const Picture& picture, const std::string& path) {
    File file = File::OpenForWriting(path, true);
    WriteBmp(picture, file);
    file.Close();
}

void SavePicture(const Picture& picture, const std::string& path) {
    if (picture.Empty()) throw RuntimeError(kInvalidPicture, path);
    File file = File::OpenForWriting(path, false);
    WriteBmp(picture, file);
    file.Close();
}

void SavePictureAside(const Picture& picture, const std::string& path) {
    WriteFileAside(path, [&](File& file) { WriteBmp(picture, file); });
}

} // namespace pintalux
