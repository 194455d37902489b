// The packed colour numbers of a GIF image.
#pragma once

#include "surface/system/ByteReader.h"

#include <cstdint>
#include <span>
#include <vector>

namespace pintalux {

/// Unpacks one image: each code stands for a run of numbers that was seen before, and one more.
class GifCodes {
  public:
    enum class End {
        Whole, ///< Everything asked for was there.
        Early, ///< The data ended before.
        Broken ///< A code that cannot be.
    };

    explicit GifCodes(ByteReader& bytes) : bytes_(bytes) {}

    /// Reads the length of the first codes. False if no decoder can know it.
    bool Begin();
    /// The numbers of the next `out.size()` pixels; sets how many there were.
    End Read(std::span<std::uint8_t> out, std::size_t& count);
    /// Goes to the end of the data, whatever is left of them.
    void SkipRest();

  private:
    static constexpr unsigned kMostBits = 12;
    static constexpr unsigned kMostCodes = 1U << kMostBits;
    static constexpr unsigned kNone = kMostCodes;

    bool FillBits();
    End NextRun();
    void Forget();
    std::uint8_t Unroll(unsigned code);

    ByteReader& bytes_;
    unsigned blockLeft_ = 0;
    bool dataOver_ = false;
    std::uint32_t bits_ = 0;
    unsigned bitCount_ = 0;
    unsigned numberBits_ = 0;
    unsigned codeBits_ = 0;
    unsigned nextCode_ = 0;
    unsigned lastCode_ = kNone;
    std::uint8_t lastFirst_ = 0; ///< First number of the last run.
    std::vector<std::uint16_t> before_ =
        std::vector<std::uint16_t>(kMostCodes); ///< The run of a code but its last number.
    std::vector<std::uint8_t> number_ =
        std::vector<std::uint8_t>(kMostCodes); ///< The last number of a code's run.
    std::vector<std::uint8_t> run_;            ///< Numbers to be given out, the next one last.
};

} // namespace pintalux
