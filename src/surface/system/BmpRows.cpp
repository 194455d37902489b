#include "surface/system/BmpRows.h"

#include "base/RuntimeError.h"
#include "surface/system/BmpWriter.h"

#include <algorithm>
#include <cstring>

namespace pintalux {

namespace {

constexpr std::size_t kBufferLength = std::size_t{1} << 20;

// Red, green, blue to blue, green, red. A word a pixel is faster than bytes; each overwrites the byte that
// the one before wrote too much, and the last pixel moves its own bytes only.
void SwapPixels(std::span<const std::uint8_t> from, std::byte* to) {
    std::size_t at = 0;
    for (; at + 4 <= from.size(); at += 3) {
        std::uint32_t word = 0;
        std::memcpy(&word, &from[at], sizeof word);
        word = __builtin_bswap32(word) >> 8;
        std::memcpy(to + at, &word, sizeof word);
    }
    for (; at + 3 <= from.size(); at += 3)
        for (std::size_t i = 0; i < 3; ++i)
            to[at + i] = std::byte{from[at + 2 - i]};
}

} // namespace

BmpRows::BmpRows(const std::string& path, int width)
    : width_(width), buffer_(kBufferLength + BmpRowLength(width)), used_(kBmpHeaderLength),
      file_(File::CreateNew(path)) {
    std::ranges::copy(BmpHeaderOf(width, 0), buffer_.begin()); // the height follows
}

BmpRows::~BmpRows() {
    if (!finished_) ResumeNext([this] { DeleteFile(file_.Path()); });
}

void BmpRows::Add(std::span<const std::uint8_t> row) {
    SwapPixels(row.first(static_cast<std::size_t>(width_) * 3), &buffer_[used_]);
    const std::size_t end = used_ + BmpRowLength(width_);
    std::fill(buffer_.begin() + static_cast<std::ptrdiff_t>(used_ + static_cast<std::size_t>(width_) * 3),
              buffer_.begin() + static_cast<std::ptrdiff_t>(end), std::byte{0});
    used_ = end;
    ++height_;
    if (used_ >= kBufferLength) Flush();
}

void BmpRows::Flush() {
    file_.Write(std::span(buffer_).first(used_));
    used_ = 0;
}

void BmpRows::Finish() {
    Flush();
    file_.Seek(0);
    file_.Write(BmpHeaderOf(width_, -height_));
    file_.Close();
    finished_ = true;
}

} // namespace pintalux
