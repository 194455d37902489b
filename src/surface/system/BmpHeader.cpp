#include "surface/system/BmpHeader.h"

#include "base/RuntimeError.h"
#include "surface/system/Pictures.h"

#include <algorithm>

namespace pintalux {

namespace {

constexpr std::uint32_t kFileHeaderLength = 14;
constexpr std::uint32_t kCoreHeaderLength = 12; // the oldest kind, with 16-bit sides and no masks
constexpr std::uint32_t kInfoHeaderLength = 40;
constexpr std::uint32_t kAlphaInHeaderLength = 56;
constexpr std::uint32_t kLongestHeaderLength = 124;
constexpr std::size_t kMasksOffset = kFileHeaderLength + kInfoHeaderLength;

enum Compression : std::uint32_t { kNone = 0, kRunLength8 = 1, kRunLength4 = 2, kMasks = 3, kAlphaMasks = 6 };

/// The fields as they stand in the file.
struct RawHeader {
    std::uint32_t pixelOffset = 0;
    std::uint32_t headerLength = 0;
    std::int64_t width = 0;
    std::int64_t height = 0; // negative: rows from the top down
    std::uint32_t planes = 0;
    std::uint32_t bits = 0;
    std::uint32_t compression = kNone;
    std::uint32_t colours = 0; // 0 means all
    std::array<std::uint32_t, 4> masks = {};

    bool HasMasks() const { return compression == kMasks || compression == kAlphaMasks; }
    bool Compressed() const { return compression == kRunLength8 || compression == kRunLength4; }
};

std::uint32_t Number(std::span<const std::byte> bytes, std::size_t offset, std::size_t length) {
    std::uint32_t value = 0;
    for (std::size_t i = length; i-- > 0;)
        value = value << 8 | std::to_integer<std::uint32_t>(bytes[offset + i]);
    return value;
}

RawHeader ReadRawHeader(File& file) {
    std::array<std::byte, kMasksOffset + 16> bytes = {};
    file.Seek(0);
    if (file.Read(bytes) < kFileHeaderLength + kCoreHeaderLength)
        throw RuntimeError(kInvalidPicture, file.Path());
    RawHeader raw;
    raw.pixelOffset = Number(bytes, 10, 4);
    raw.headerLength = Number(bytes, 14, 4);
    if (raw.headerLength == kCoreHeaderLength) {
        raw.width = Number(bytes, 18, 2);
        raw.height = Number(bytes, 20, 2);
        raw.planes = Number(bytes, 22, 2);
        raw.bits = Number(bytes, 24, 2);
        return raw;
    }
    raw.width = static_cast<std::int32_t>(Number(bytes, 18, 4));
    raw.height = static_cast<std::int32_t>(Number(bytes, 22, 4));
    raw.planes = Number(bytes, 26, 2);
    raw.bits = Number(bytes, 28, 2);
    raw.compression = Number(bytes, 30, 4);
    raw.colours = Number(bytes, 46, 4);
    for (std::size_t i = 0; i < 4; ++i)
        raw.masks[i] = Number(bytes, kMasksOffset + i * 4, 4);
    return raw;
}

bool KnownHeaderLength(std::uint32_t length) {
    return length == kCoreHeaderLength || (length >= kInfoHeaderLength && length <= kLongestHeaderLength);
}

bool KnownKind(const RawHeader& raw) {
    if (raw.HasMasks()) return raw.bits == 16 || raw.bits == 32;
    if (raw.Compressed()) return raw.bits == (raw.compression == kRunLength8 ? 8U : 4U);
    constexpr std::array<std::uint32_t, 6> kDepths = {1, 4, 8, 16, 24, 32};
    return raw.compression == kNone && std::ranges::find(kDepths, raw.bits) != kDepths.end();
}

bool LegalSide(std::int64_t side) {
    return side >= 1 && side <= kMaxPictureSide;
}

bool Believable(const RawHeader& raw) {
    return KnownHeaderLength(raw.headerLength) && KnownKind(raw) && raw.planes == 1 && LegalSide(raw.width) &&
           LegalSide(std::abs(raw.height)) && raw.pixelOffset >= kFileHeaderLength + raw.headerLength;
}

/// The masks that count: those of the file where it has some, else the usual ones.
std::array<std::uint32_t, 4> MasksOf(const RawHeader& raw) {
    if (!raw.HasMasks()) {
        if (raw.bits == 16) return {0x7C00, 0x3E0, 0x1F, 0};
        return {0xFF0000, 0xFF00, 0xFF, 0};
    }
    const bool hasAlpha = raw.compression == kAlphaMasks || raw.headerLength >= kAlphaInHeaderLength;
    return {raw.masks[0], raw.masks[1], raw.masks[2], hasAlpha ? raw.masks[3] : 0};
}

std::vector<Pixel> ReadPalette(File& file, const RawHeader& raw) {
    const std::size_t entryLength = raw.headerLength == kCoreHeaderLength ? 3 : 4;
    const std::size_t all = std::size_t{1} << raw.bits;
    const std::size_t announced = raw.colours == 0 ? all : std::min<std::size_t>(raw.colours, all);
    const std::uint64_t start = kFileHeaderLength + raw.headerLength;
    const std::size_t room = static_cast<std::size_t>(raw.pixelOffset - start) / entryLength;
    std::vector<std::byte> bytes(std::min(announced, room) * entryLength);
    file.Seek(start);
    const std::size_t count = file.Read(bytes) / entryLength;
    std::vector<Pixel> palette(all, Pixel{0});
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t at = i * entryLength;
        palette[i] = Number(bytes, at, 1) << 16 | Number(bytes, at + 1, 1) << 8 | Number(bytes, at + 2, 1);
    }
    return palette;
}

} // namespace

BmpHeader ReadBmpHeader(File& file) {
    const RawHeader raw = ReadRawHeader(file);
    if (!Believable(raw)) throw RuntimeError(kInvalidPicture, file.Path());
    BmpHeader header;
    header.width = static_cast<int>(raw.width);
    header.height = static_cast<int>(std::abs(raw.height));
    header.topDown = raw.height < 0;
    header.bits = static_cast<int>(raw.bits);
    header.compressed = raw.Compressed();
    header.pixelOffset = raw.pixelOffset;
    header.masks = MasksOf(raw);
    const auto rowsAbove = static_cast<std::uint64_t>(header.height - 1);
    const std::uint64_t end = header.pixelOffset + rowsAbove * header.RowLength() + header.UsedRowLength();
    if (!header.compressed && end > file.Length()) throw RuntimeError(kInvalidPicture, file.Path());
    if (header.bits <= 8) header.palette = ReadPalette(file, raw);
    return header;
}

} // namespace pintalux
