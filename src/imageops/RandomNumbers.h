// The program's random numbers: a sequence that begins alike in each run and goes on over all calls.
#pragma once

#include <cstdint>

namespace pintalux {

/// SplitMix64 (Steele, Lea, Flood: "Fast splittable pseudorandom number generators", 2014). The n-th number
/// depends on seed and n alone, so that threads may compute their own stretch of the sequence.
class RandomNumbers {
  public:
    explicit RandomNumbers(std::uint64_t seed = 0) : state_(seed) {}
    void Seed(std::uint64_t seed) { state_ = seed; }

    /// The next number in the half-open range 0 to 1, in single precision.
    float Next() { return static_cast<float>(NextBits()) * (1.0F / 16777216.0F); }

    /// The same as a whole number of 24 bits, that is, times 2^24: the upper bits of a step.
    std::uint32_t NextBits() {
        state_ += kStep;
        return static_cast<std::uint32_t>(Mixed(state_) >> 40);
    }

    /// What `NextBits` gives after `count` numbers more.
    std::uint32_t BitsAhead(std::uint64_t count) const {
        return static_cast<std::uint32_t>(Mixed(state_ + (count + 1) * kStep) >> 40);
    }

    /// A generator that stands `count` numbers further on.
    RandomNumbers Ahead(std::uint64_t count) const { return RandomNumbers(state_ + count * kStep); }

  private:
    static constexpr std::uint64_t kStep = 0x9E3779B97F4A7C15;

    static std::uint64_t Mixed(std::uint64_t z) {
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EB;
        return z ^ (z >> 31);
    }

    std::uint64_t state_;
};

/// The one sequence of the program, never seeded by it.
inline RandomNumbers TheRandomNumbers;

} // namespace pintalux
