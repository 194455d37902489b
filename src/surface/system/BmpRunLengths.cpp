// Compressed BMP files: runs of one colour, pixels as they stand, and jumps, from the bottom row up.
#include "surface/system/BmpReader.h"
#include "surface/system/ByteReader.h"
#include "surface/system/FreeMemory.h"

#include <algorithm>
#include <array>

namespace pintalux {

namespace {

enum Escape : unsigned { kEndOfRow = 0, kEndOfPicture = 1, kJump = 2 };

class Writer {
  public:
    Writer(File& file, const BmpHeader& header, const std::stop_token& stop)
        : header_(header), bytes_(file, stop), picture_(header.width, header.height, header.palette[0]) {}

    Picture Read() {
        while (y_ < header_.height && ReadStep()) {
        }
        return std::move(picture_);
    }

  private:
    /// False at the end of the picture or of the file.
    bool ReadStep() {
        const auto count = bytes_.Next();
        const auto value = bytes_.Next();
        if (!value) return false;
        if (*count > 0) {
            WriteRun(*count, *value);
            return true;
        }
        switch (*value) {
        case kEndOfRow:
            x_ = 0;
            ++y_;
            return true;
        case kEndOfPicture:
            return false;
        case kJump:
            return Jump();
        default:
            return CopyPixels(*value);
        }
    }

    bool Jump() {
        const auto right = bytes_.Next();
        const auto up = bytes_.Next();
        if (!up) return false;
        // A jump over an edge ends at it.
        x_ = std::min(x_ + static_cast<int>(*right), header_.width - 1);
        y_ = std::min(y_ + static_cast<int>(*up), header_.height - 1);
        return true;
    }

    /// One colour, or two in turn where a byte holds two numbers.
    void WriteRun(unsigned count, unsigned value) {
        for (unsigned i = 0; i < count; ++i)
            row_[i] = NumberAt(value, i);
        WriteRow(count);
    }

    /// Their bytes are even in number.
    bool CopyPixels(unsigned count) {
        const unsigned used = header_.bits == 4 ? (count + 1) / 2 : count;
        std::array<std::byte, 256> bytes = {};
        const std::size_t got = bytes_.Take(std::span(bytes).first(used + used % 2));
        const unsigned pixelsInByte = header_.bits == 4 ? 2 : 1;
        for (unsigned i = 0; i < count; ++i)
            row_[i] = NumberAt(std::to_integer<unsigned>(bytes[i / pixelsInByte]), i);
        if (got < used) return false;
        WriteRow(count);
        return true;
    }

    Pixel NumberAt(unsigned byte, unsigned i) const {
        if (header_.bits == 8) return header_.palette[byte];
        return header_.palette[i % 2 == 0 ? byte >> 4 : byte & 15];
    }

    /// What would go beyond the row is dropped.
    void WriteRow(unsigned count) {
        const int width = std::min(static_cast<int>(count), header_.width - x_);
        const int y = header_.topDown ? y_ : header_.height - 1 - y_;
        if (width > 0) picture_.WriteRow(x_, y, std::span(row_).first(static_cast<std::size_t>(width)));
        x_ += std::max(width, 0);
    }

    const BmpHeader& header_;
    ByteReader bytes_;
    Picture picture_;
    std::array<Pixel, 256> row_ = {};
    int x_ = 0;
    int y_ = 0; ///< Rows from the file's first on.
};

} // namespace

Picture ReadBmpRunLengths(File& file, const BmpHeader& header, const std::stop_token& stop) {
    DemandMemory(PictureBytes(header.width, header.height));
    file.Seek(header.pixelOffset);
    return Writer(file, header, stop).Read();
}

} // namespace pintalux
