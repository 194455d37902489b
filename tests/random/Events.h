// What a user may do, as a list of small numbers: made from a seed, written as text, read back, shortened.
#pragma once

#include <array>
#include <string>
#include <vector>

namespace pintalux {

/// One act. What its four numbers mean is the act's own affair: each is taken modulo what there is to choose.
struct RandomEvent {
    std::string act;
    std::array<unsigned, 4> numbers = {};
};

/// The events of a seed; the same list at every call.
std::vector<RandomEvent> EventsOf(unsigned seed, int count);

/// A line for each event: its act and its numbers.
std::string TextOf(const std::vector<RandomEvent>& events);
std::vector<RandomEvent> EventsFrom(const std::string& text);

} // namespace pintalux
