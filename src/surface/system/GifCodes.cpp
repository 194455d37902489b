#include "surface/system/GifCodes.h"

#include <algorithm>

namespace pintalux {

bool GifCodes::Begin() {
    const auto numberBits = bytes_.Next();
    if (!numberBits || *numberBits == 0 || *numberBits >= kMostBits) return false;
    numberBits_ = *numberBits;
    for (unsigned i = 0; i < 1U << numberBits_; ++i)
        number_[i] = static_cast<std::uint8_t>(i);
    run_.reserve(kMostCodes);
    Forget();
    return true;
}

/// Only single numbers are known, as at the start.
void GifCodes::Forget() {
    codeBits_ = numberBits_ + 1;
    nextCode_ = (1U << numberBits_) + 2;
    lastCode_ = kNone;
}

bool GifCodes::FillBits() {
    while (bitCount_ < codeBits_) {
        if (blockLeft_ == 0) {
            blockLeft_ = bytes_.Next().value_or(0);
            dataOver_ = blockLeft_ == 0;
        }
        const auto byte = dataOver_ ? std::nullopt : bytes_.Next();
        if (!byte) {
            dataOver_ = true;
            return false;
        }
        --blockLeft_;
        bits_ |= *byte << bitCount_;
        bitCount_ += 8;
    }
    return true;
}

/// Lays a code's run out, the last number first, and gives the run's first number.
std::uint8_t GifCodes::Unroll(unsigned code) {
    const unsigned numbers = 1U << numberBits_;
    for (; code >= numbers; code = before_[code])
        run_.push_back(number_[code]);
    run_.push_back(number_[code]);
    return number_[code];
}

GifCodes::End GifCodes::NextRun() {
    const unsigned clear = 1U << numberBits_;
    for (;;) {
        if (dataOver_ || !FillBits()) return End::Early;
        const unsigned code = bits_ & ((1U << codeBits_) - 1);
        bits_ >>= codeBits_;
        bitCount_ -= codeBits_;
        if (code == clear) {
            Forget();
            continue;
        }
        if (code == clear + 1) return End::Early;
        const bool justMade = code == nextCode_ && lastCode_ != kNone && nextCode_ < kMostCodes;
        if (code >= nextCode_ && !justMade) return End::Broken;
        // A code that is being made: the last run, and its own first number again.
        if (justMade) run_.push_back(lastFirst_);
        const std::uint8_t first = Unroll(justMade ? lastCode_ : code);
        if (lastCode_ != kNone && nextCode_ < kMostCodes) {
            before_[nextCode_] = static_cast<std::uint16_t>(lastCode_);
            number_[nextCode_] = first;
            ++nextCode_;
            if (nextCode_ == 1U << codeBits_ && codeBits_ < kMostBits) ++codeBits_;
        }
        lastCode_ = code;
        lastFirst_ = first;
        return End::Whole;
    }
}

GifCodes::End GifCodes::Read(std::span<std::uint8_t> out, std::size_t& count) {
    for (count = 0; count < out.size();) {
        if (run_.empty()) {
            const End end = NextRun();
            if (end != End::Whole) return end;
        }
        const std::size_t part = std::min(run_.size(), out.size() - count);
        std::copy_n(run_.rbegin(), part, out.begin() + static_cast<std::ptrdiff_t>(count));
        run_.resize(run_.size() - part);
        count += part;
    }
    return End::Whole;
}

void GifCodes::SkipRest() {
    while (!dataOver_) {
        for (; blockLeft_ > 0; --blockLeft_)
            if (!bytes_.Next()) break;
        blockLeft_ = bytes_.Next().value_or(0);
        dataOver_ = blockLeft_ == 0;
    }
}

} // namespace pintalux
