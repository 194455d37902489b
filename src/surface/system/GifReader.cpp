#include "surface/system/GifReader.h"

#include "base/RuntimeError.h"
#include "surface/system/ByteReader.h"
#include "surface/system/FreeMemory.h"
#include "surface/system/GifCodes.h"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

namespace pintalux {

namespace {

enum Block : unsigned { kExtension = 0x21, kImage = 0x2C, kTrailer = 0x3B };
constexpr unsigned kControl = 0xF9;
constexpr unsigned kHasColours = 0x80;

/// What happens to an image before the next one comes.
enum class Disposal { Keep = 1, Clear = 2, Restore = 3 };

/// What a control block says about the image behind it.
struct Control {
    Disposal disposal = Disposal::Keep;
    bool delayed = false;
    std::optional<unsigned> transparent;
};

using Colours = std::vector<Pixel>;

/// Where the rows of an interlaced image stand: every eighth, those half-way between, and so on.
class RowOrder {
  public:
    RowOrder(int height, bool interlaced) : height_(height), step_(interlaced ? 8 : 1) {}
    int Row() const { return row_; }
    void Advance() {
        row_ += step_;
        while (row_ >= height_ && step_ > 1) {
            // The first two passes go in steps of eight.
            row_ = first_ == 0 ? 4 : first_ / 2;
            step_ = first_ == 0 ? 8 : step_ / 2;
            first_ = row_;
        }
    }

  private:
    int height_;
    int step_;
    int first_ = 0;
    int row_ = 0;
};

class Reader {
  public:
    Reader(File& file, const std::stop_token& stop) : file_(file), stop_(stop), bytes_(file, stop) {}

    PictureSize ReadSize() {
        std::array<std::byte, 6> signature = {};
        bytes_.Take(signature);
        const int width = Pair();
        return {width, Pair()};
    }

    Picture Read() {
        ReadScreen();
        while (ReadBlock()) {
        }
        if (!shows_) Refuse();
        return std::move(picture_);
    }

  private:
    [[noreturn]] void Refuse() const { throw RuntimeError(kInvalidPicture, file_.Path()); }

    unsigned Byte() {
        const auto byte = bytes_.Next();
        if (!byte) Refuse();
        return *byte;
    }
    int Pair() {
        const auto pair = bytes_.NextPair();
        if (!pair) Refuse();
        return static_cast<int>(*pair);
    }

    Colours ReadColours(unsigned flags) {
        Colours colours(std::size_t{2} << (flags & 7));
        for (Pixel& colour : colours) {
            const Pixel red = Byte();
            const Pixel green = Byte();
            colour = Byte() << 16 | green << 8 | red;
        }
        return colours;
    }

    void ReadScreen() {
        const PictureSize size = ReadSize();
        if (!size.Legal()) Refuse();
        DemandMemory(PictureBytes(size.width, size.height));
        picture_ = Picture(size.width, size.height, kWhite);
        const unsigned flags = Byte();
        Byte(); // The background is transparent, whatever its number.
        Byte(); // The shape of the pixels does not matter.
        if ((flags & kHasColours) != 0) colours_ = ReadColours(flags);
    }

    /// False when the first frame is complete, or as complete as it gets.
    bool ReadBlock() {
        const auto kind = bytes_.Next();
        if (!kind) return false;
        // A whole file without an image shows its empty screen.
        shows_ = shows_ || *kind == kTrailer;
        if (*kind != kImage && *kind != kExtension) return false;
        try {
            return *kind == kImage ? ReadImage() : ReadExtension();
        } catch (const RuntimeError& error) {
            // What follows a complete image may be broken.
            if (error.Number() != kInvalidPicture || !shows_) throw;
            return false;
        }
    }

    bool ReadExtension() {
        const bool control = Byte() == kControl;
        std::array<std::byte, 255> block = {};
        for (bool first = true; const unsigned length = Byte(); first = false) {
            if (bytes_.Take(std::span(block).first(length)) < length) Refuse();
            if (control && first && length >= 4) TakeControl(block);
        }
        return true;
    }

    void TakeControl(std::span<const std::byte> block) {
        const auto flags = std::to_integer<unsigned>(block[0]);
        const unsigned disposal = flags >> 2 & 7;
        control_ = {};
        if (disposal == 2 || disposal == 3) control_.disposal = static_cast<Disposal>(disposal);
        control_.delayed = block[1] != std::byte{0} || block[2] != std::byte{0};
        if ((flags & 1) != 0) control_.transparent = std::to_integer<unsigned>(block[3]);
    }

    /// Its sides are cut to the screen only as it is written: its data go on.
    bool ReadImage() {
        Dispose();
        frame_.left = Pair();
        frame_.top = Pair();
        frame_.right = frame_.left + Pair();
        frame_.bottom = frame_.top + Pair();
        // One without pixels has nothing that could be missing.
        shows_ = shows_ || frame_.Empty();
        const unsigned flags = Byte();
        const Colours own = (flags & kHasColours) != 0 ? ReadColours(flags) : Colours();
        frame_.Empty() ? SkipEmpty() : ReadPixels(own.empty() ? colours_ : own, flags);
        shows_ = true;
        const bool delayed = control_.delayed;
        disposal_ = control_.disposal;
        control_ = {};
        return !delayed;
    }

    /// An image without pixels shows nothing, whatever its data.
    void SkipEmpty() {
        bytes_.Next();
        GifCodes(bytes_).SkipRest();
    }

    void Dispose() {
        if (disposal_ == Disposal::Clear) picture_.Fill(frame_, kWhite);
        if (disposal_ == Disposal::Restore) picture_ = before_;
        if (control_.disposal == Disposal::Restore) before_ = picture_;
    }

    void ReadPixels(const Colours& colours, unsigned flags) {
        constexpr unsigned kInterlaced = 0x40;
        const bool interlaced = (flags & kInterlaced) != 0;
        GifCodes codes(bytes_);
        if (!codes.Begin()) Refuse();
        const Box shown = Intersection(frame_, picture_.Bounds());
        RowOrder order(frame_.Height(), interlaced);
        std::vector<std::uint8_t> numbers(static_cast<std::size_t>(frame_.Width()));
        const int rows = shown.Empty() ? 0 : frame_.Height();
        for (int i = 0; i < rows; ++i, order.Advance()) {
            if (i % 64 == 0) RaiseIfStopped(stop_);
            std::size_t count = 0;
            const GifCodes::End end = codes.Read(numbers, count);
            if (end == GifCodes::End::Broken) Refuse();
            WriteNumbers(std::span(numbers).first(count), frame_.top + order.Row(), colours);
            if (end == GifCodes::End::Whole) continue;
            if (interlaced) FillGaps(shown, i);
            break;
        }
        codes.SkipRest();
    }

    /// What was seen of a row, cut to the screen.
    void WriteNumbers(std::span<const std::uint8_t> numbers, int y, const Colours& colours) {
        for (const std::uint8_t number : numbers)
            if (number >= colours.size() && number != control_.transparent) Refuse();
        const int width = std::min(static_cast<int>(numbers.size()), picture_.Width() - frame_.left);
        if (width <= 0 || y >= picture_.Height()) return;
        row_.resize(static_cast<std::size_t>(width));
        if (control_.transparent) picture_.ReadRow(frame_.left, y, row_);
        bool seen = false;
        for (std::size_t x = 0; x < row_.size(); ++x) {
            if (numbers[x] == control_.transparent) continue;
            row_[x] = colours[numbers[x]];
            seen = true;
        }
        if (seen) picture_.WriteRow(frame_.left, y, row_);
    }

    /// The rows that an interlaced image still owed show the one above that came.
    void FillGaps(const Box& shown, int rowsRead) {
        if (control_.transparent) return;
        std::vector<bool> came(static_cast<std::size_t>(frame_.Height()));
        RowOrder order(frame_.Height(), true);
        for (int i = 0; i < rowsRead; ++i, order.Advance())
            came[static_cast<std::size_t>(order.Row())] = true;
        row_.resize(static_cast<std::size_t>(shown.Width()));
        for (int y = shown.top; y < shown.bottom; ++y) {
            if (came[static_cast<std::size_t>(y - frame_.top)]) {
                picture_.ReadRow(shown.left, y, row_);
            } else if (rowsRead > 0) {
                picture_.WriteRow(shown.left, y, row_);
            }
        }
    }

    File& file_;
    const std::stop_token& stop_;
    ByteReader bytes_;
    Picture picture_;
    Colours colours_;
    Control control_;                    ///< Of the image to come.
    Disposal disposal_ = Disposal::Keep; ///< Of the image before it,
    Box frame_;                          ///< and where that lies.
    Picture before_;                     ///< What that covered.
    std::vector<Pixel> row_;
    bool shows_ = false; ///< There is something to be shown.
};

} // namespace

Picture ReadGif(File& file, const std::stop_token& stop) {
    file.Seek(0);
    return Reader(file, stop).Read();
}

PictureSize ReadGifSize(File& file) {
    file.Seek(0);
    const std::stop_token never;
    return Reader(file, never).ReadSize();
}

} // namespace pintalux
