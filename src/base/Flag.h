// The one spelling of true and false in the state that the program keeps.
#pragma once

#include <concepts>
#include <cstdint>

namespace pintalux {

/// A boolean of 16 bits: -1 is true, 0 is false. It is made of a `bool` and reads as one; a bare number on
/// either side does not compile, so that no place asks for 1 where another one stores -1.
class Flag {
  public:
    constexpr Flag() = default;
    constexpr Flag(bool on) : value_(on ? std::int16_t{-1} : std::int16_t{0}) {}
    template <class Number>
    requires(!std::same_as<Number, bool>) Flag(Number)
    = delete;

    constexpr operator bool() const { return value_ != 0; }
    /// -1 or 0, for what is stored or compared as a number.
    constexpr std::int16_t Value() const { return value_; }

    friend constexpr bool operator==(Flag, Flag) = default;
    friend bool operator==(Flag, int) = delete;

  private:
    std::int16_t value_ = 0;
};

} // namespace pintalux
