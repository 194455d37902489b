#include "surface/system/BmpReader.h"

#include "base/RuntimeError.h"
#include "surface/raster/StreamCopy.h"
#include "surface/raster/TilesAhead.h"
#include "surface/system/BmpPixels.h"
#include "surface/system/FreeMemory.h"
#include "surface/system/OverWhite.h"
#include "surface/system/Stopping.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <vector>

namespace pintalux {

namespace {

static_assert(std::endian::native == std::endian::little,
              "pixels are unpacked by whole words, lowest byte first");

constexpr std::size_t kBufferLength = std::size_t{1} << 19; // stays in a core's own cache
/// A pixel is read as a whole word or by whole vectors.
constexpr std::size_t kSpareBytes = kSpareTripleBytes;

std::uint32_t Word(const std::byte* in) {
    std::uint32_t word = 0;
    std::memcpy(&word, in, sizeof word);
    return word;
}

/// Rows of a file in the buffer, from the picture's topmost one on.
struct Rows {
    const std::byte* topmost;
    std::ptrdiff_t toNext; ///< Negative where the file begins at the bottom.
    int count;
    int top; ///< Where the topmost one belongs.

    const std::byte* At(int i) const { return topmost + i * toNext; }
};

/// 24 bits: what the program itself writes.
void UnpackTripleRows(const Rows& rows, Picture& picture) {
    alignas(64) std::array<Pixel, Bitmap::kTileWidth> pixels;
    for (int i = 0; i < rows.count; ++i) {
        for (int x = 0; x < picture.Width(); x += Bitmap::kTileWidth) {
            const int count = std::min(Bitmap::kTileWidth, picture.Width() - x);
            UnpackTriples(rows.At(i) + static_cast<std::ptrdiff_t>(x) * 3, pixels.data(), count);
            StreamRow(picture, x, rows.top + i, {pixels.data(), static_cast<std::size_t>(count)});
        }
    }
    FinishStreaming();
}

/// 1, 4 and 8 bits: numbers of the palette, the leftmost pixel in a byte's highest bits.
void UnpackNumbers(const std::byte* in, const BmpHeader& header, std::span<Pixel> row) {
    const auto bits = static_cast<std::size_t>(header.bits);
    const unsigned mask = (1U << bits) - 1;
    for (std::size_t x = 0; x < row.size(); ++x) {
        const std::size_t position = x * bits;
        const std::size_t shift = 8 - bits - position % 8;
        row[x] = header.palette[std::to_integer<unsigned>(in[position / 8]) >> shift & mask];
    }
}

/// One channel out of a pixel by its mask, stretched to 0 to 255.
class Channel {
  public:
    explicit Channel(std::uint32_t mask)
        : shift_(mask == 0 ? 0 : std::countr_zero(mask)), largest_(mask >> shift_), mask_(mask) {}
    bool Absent() const { return mask_ == 0; }
    Pixel Of(std::uint32_t word) const {
        if (Absent()) return 0;
        const std::uint64_t value = (word & mask_) >> shift_;
        return static_cast<Pixel>((value * 255 + largest_ / 2) / largest_);
    }

  private:
    int shift_;
    std::uint64_t largest_;
    std::uint32_t mask_;
};

/// 16 and 32 bits.
void UnpackMasked(const std::byte* in, const BmpHeader& header, std::span<Pixel> row) {
    const Channel red(header.masks[0]);
    const Channel green(header.masks[1]);
    const Channel blue(header.masks[2]);
    const Channel opacity(header.masks[3]);
    for (Pixel& pixel : row) {
        const std::uint32_t word = header.bits == 16 ? Word(in) & 0xFFFF : Word(in);
        const Pixel alpha = opacity.Absent() ? 255 : opacity.Of(word);
        pixel = OverWhite(blue.Of(word), alpha) << 16 | OverWhite(green.Of(word), alpha) << 8 |
                OverWhite(red.Of(word), alpha);
        in += header.bits / 8;
    }
}

void UnpackRows(const Rows& rows, const BmpHeader& header, Picture& picture) {
    if (header.bits == 24) {
        UnpackTripleRows(rows, picture);
        return;
    }
    std::vector<Pixel> row(static_cast<std::size_t>(header.width));
    for (int i = 0; i < rows.count; ++i) {
        if (header.bits <= 8)
            UnpackNumbers(rows.At(i), header, row);
        else
            UnpackMasked(rows.At(i), header, row);
        picture.WriteRow(0, rows.top + i, row);
    }
}

/// Rows `top` to `top` + `count` - 1 in the buffer.
Rows RowsIn(const std::vector<std::byte>& buffer, const BmpHeader& header, int top, int count) {
    const auto rowLength = static_cast<std::ptrdiff_t>(header.RowLength());
    if (header.topDown) return {buffer.data(), rowLength, count, top};
    return {buffer.data() + (count - 1) * rowLength, -rowLength, count, top};
}

} // namespace

Picture ReadBmpRows(File& file, const BmpHeader& header, const std::stop_token& stop) {
    DemandMemory(PictureBytes(header.width, header.height));
    Picture picture(header.width, header.height, kWhite);
    // Of a file that breaks off no more is made than it has.
    const TilesAhead tiles(std::min(PictureBytes(header.width, header.height), file.Length() * 32));
    const std::size_t rowLength = header.RowLength();
    // Whole bands of the picture, so that each tile is written whole and never copied first.
    constexpr int kBand = Bitmap::kTileHeight;
    const int rowsAtOnce = std::max(1, static_cast<int>(kBufferLength / rowLength) / kBand) * kBand;
    const int largest = std::min(rowsAtOnce, header.height);
    std::vector<std::byte> buffer(static_cast<std::size_t>(largest) * rowLength + kSpareBytes);
    file.Seek(header.pixelOffset);
    for (int done = 0; done < header.height;) {
        RaiseIfStopped(stop);
        const int bottom = header.topDown ? std::min(done + rowsAtOnce, header.height) : header.height - done;
        const int top = header.topDown ? done : (bottom - 1) / rowsAtOnce * rowsAtOnce;
        const int rows = bottom - top;
        const std::size_t got = file.Read({buffer.data(), static_cast<std::size_t>(rows) * rowLength});
        if (got < static_cast<std::size_t>(rows - 1) * rowLength + header.UsedRowLength())
            throw RuntimeError(kInvalidPicture, file.Path());
        picture.Overwrite({0, top, header.width, bottom});
        UnpackRows(RowsIn(buffer, header, top, rows), header, picture);
        done += rows;
    }
    return picture;
}

} // namespace pintalux
