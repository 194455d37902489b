#include "surface/system/ClipboardPieces_native.h"

#include "base/Parallel.h"
#include "base/RuntimeError.h"
#include "surface/system/BmpWriter.h"

#include <algorithm>
#include <span>
#include <vector>
#include <zlib.h>

namespace pintalux {

namespace {

constexpr int kBandHeight = Bitmap::kTileHeight;
constexpr std::size_t kNumberLength = 4;

/// Up to this many pixels compressing takes no longer than a blink.
constexpr std::int64_t kMostCompressed = 4'000'000;

enum Filter : unsigned char { kPlain = 0, kLeftSubtracted = 1 };

void AddNumber(std::string& out, std::uint32_t value) {
    for (const int shift : {24, 16, 8, 0})
        out += static_cast<char>(value >> shift & 0xFF);
}

const Bytef* Bytes(const std::string& text) {
    return reinterpret_cast<const Bytef*>(text.data());
}

/// A chunk whose data may still be added to, until it ends.
std::string ChunkOf(const char* kind) {
    std::string chunk(kNumberLength, '\0');
    return chunk += kind;
}

void End(std::string& chunk) {
    std::string length;
    AddNumber(length, static_cast<std::uint32_t>(chunk.size() - 2 * kNumberLength));
    chunk.replace(0, kNumberLength, length);
    AddNumber(chunk, static_cast<std::uint32_t>(
                         crc32_z(0, Bytes(chunk) + kNumberLength, chunk.size() - kNumberLength)));
}

/// The rows as the format has them: a byte for the filter, then red, green and blue of each pixel.
std::string RowsOf(const Picture& picture, int top, int bottom, Filter filter) {
    const auto width = static_cast<std::size_t>(picture.Width());
    std::string rows((width * 3 + 1) * static_cast<std::size_t>(bottom - top), '\0');
    std::vector<Pixel> row(width);
    char* out = rows.data();
    for (int y = top; y < bottom; ++y) {
        picture.ReadRow(0, y, row);
        *out++ = static_cast<char>(filter);
        Pixel left = 0;
        for (const Pixel pixel : row) {
            for (const int shift : {0, 8, 16})
                *out++ = static_cast<char>((pixel >> shift) - (left >> shift));
            if (filter == kLeftSubtracted) left = pixel;
        }
    }
    return rows;
}

/// Rows compressed by themselves, so that bands can be made side by side, with the sum of what went in.
struct Band {
    std::string chunk;
    uLong sum = 0;
    z_off_t length = 0;
};

Band BandOf(const Picture& picture, int top, int level) {
    const int bottom = std::min(top + kBandHeight, picture.Height());
    const std::string rows = RowsOf(picture, top, bottom, level == 0 ? kPlain : kLeftSubtracted);
    z_stream stream = {};
    constexpr int kWithoutFrame = -15;
    if (deflateInit2(&stream, level, Z_DEFLATED, kWithoutFrame, 9, Z_RLE) != Z_OK)
        throw RuntimeError(kOutOfMemory);
    Band band = {ChunkOf("IDAT"), adler32_z(adler32_z(0, nullptr, 0), Bytes(rows), rows.size()),
                 static_cast<z_off_t>(rows.size())};
    const std::size_t start = band.chunk.size();
    constexpr std::size_t kFlushLength = 16;
    band.chunk.resize(start + deflateBound(&stream, static_cast<uLong>(rows.size())) + kFlushLength);
    stream.next_in = const_cast<Bytef*>(Bytes(rows)); // only read
    stream.avail_in = static_cast<uInt>(rows.size());
    stream.next_out = reinterpret_cast<Bytef*>(band.chunk.data()) + start;
    stream.avail_out = static_cast<uInt>(band.chunk.size() - start);
    const bool last = bottom == picture.Height();
    deflate(&stream, last ? Z_FINISH : Z_FULL_FLUSH);
    band.chunk.resize(start + stream.total_out);
    deflateEnd(&stream);
    End(band.chunk);
    return band;
}

std::string HeaderOf(const Picture& picture) {
    std::string header = ChunkOf("IHDR");
    AddNumber(header, static_cast<std::uint32_t>(picture.Width()));
    AddNumber(header, static_cast<std::uint32_t>(picture.Height()));
    header += std::string("\x08\x02\0\0\0", 5); // 8 bits, three channels, the usual methods, not interlaced
    End(header);
    return header;
}

std::string Chunk(const char* kind, const std::string& data) {
    std::string chunk = ChunkOf(kind) + data;
    End(chunk);
    return chunk;
}

/// Where the making of a file stands.
struct PngProgress {
    Picture picture;
    int level = 0;
    int top = 0;
    uLong sum = adler32_z(0, nullptr, 0);
};

void AddBands(PngProgress& file, std::string& piece) {
    const auto bandLength = (static_cast<std::size_t>(file.picture.Width()) * 3 + 1) * kBandHeight;
    const int left = (file.picture.Height() - file.top + kBandHeight - 1) / kBandHeight;
    const int count = std::clamp(static_cast<int>(kPieceLength / bandLength), 1, left);
    std::vector<Band> bands(static_cast<std::size_t>(count));
    SplitOverCores(count, [&](int begin, int end) {
        for (int i = begin; i < end; ++i)
            bands[static_cast<std::size_t>(i)] = BandOf(file.picture, file.top + i * kBandHeight, file.level);
    });
    for (const Band& band : bands) {
        file.sum = adler32_combine(file.sum, band.sum, band.length);
        piece += band.chunk;
    }
    file.top += count * kBandHeight;
}

std::string NextPiece(PngProgress& file) {
    std::string piece;
    if (file.top >= file.picture.Height()) return piece;
    if (file.top == 0) piece = "\x89PNG\r\n\x1A\n" + HeaderOf(file.picture) + Chunk("IDAT", "\x78\x01");
    AddBands(file, piece);
    if (file.top < file.picture.Height()) return piece;
    std::string sum;
    AddNumber(sum, static_cast<std::uint32_t>(file.sum));
    return piece + Chunk("IDAT", sum) + Chunk("IEND", "");
}

} // namespace

std::string WholeOf(const Pieces& pieces) {
    std::string whole;
    for (std::string piece = pieces(); !piece.empty(); piece = pieces())
        whole += piece;
    return whole;
}

Pieces BmpPieces(const Picture& picture) {
    return [picture, bottom = picture.Height()]() mutable {
        return NextBmpPiece(picture, kPieceLength, bottom);
    };
}

Pieces PngPieces(const Picture& picture) {
    const std::int64_t pixels = std::int64_t{picture.Width()} * picture.Height();
    return
        [file = PngProgress{picture, pixels > kMostCompressed ? 0 : 1}]() mutable { return NextPiece(file); };
}

} // namespace pintalux
