// A file read byte by byte, for formats without fixed places.
#pragma once

#include "surface/system/FileLayer.h"
#include "surface/system/Stopping.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <stop_token>

namespace pintalux {

class ByteReader {
  public:
    /// Reads on where the file stands.
    ByteReader(File& file, const std::stop_token& stop) : file_(file), stop_(stop) {}

    /// Nothing at the end of the file. Error 18 at a stop.
    std::optional<unsigned> Next() {
        if (at_ == end_ && !Refill()) return std::nullopt;
        return std::to_integer<unsigned>(buffer_[at_++]);
    }

    /// The next 16 bits, the lower byte first.
    std::optional<unsigned> NextPair() {
        const auto low = Next();
        const auto high = Next();
        if (!high) return std::nullopt;
        return *low | *high << 8;
    }

    /// Fills `bytes`, or less at the end of the file; gives how many there were.
    std::size_t Take(std::span<std::byte> bytes) {
        std::size_t taken = 0;
        while (taken < bytes.size() && (at_ < end_ || Refill())) {
            const std::size_t part = std::min(bytes.size() - taken, end_ - at_);
            std::copy_n(buffer_.begin() + static_cast<std::ptrdiff_t>(at_), part,
                        bytes.begin() + static_cast<std::ptrdiff_t>(taken));
            taken += part;
            at_ += part;
        }
        return taken;
    }

  private:
    bool Refill() {
        RaiseIfStopped(stop_);
        at_ = 0;
        end_ = file_.Read(buffer_);
        return end_ > 0;
    }

    File& file_;
    const std::stop_token& stop_;
    std::array<std::byte, 16384> buffer_ = {};
    std::size_t at_ = 0;
    std::size_t end_ = 0;
};

} // namespace pintalux
