#include "random/Events.h"

#include <random>
#include <sstream>

namespace pintalux {

namespace {

struct Share {
    const char* act;
    int weight;
};
/// How often each act comes: strokes and commands most.
constexpr Share kShares[] = {
    {"tool", 12},    {"drag", 26},  {"press", 3},      {"move", 4},  {"release", 4}, {"piece", 8},
    {"menu", 22},    {"bar", 10},   {"key", 4},        {"zoom", 8},  {"panel", 6},   {"colour", 6},
    {"settings", 4}, {"scroll", 2}, {"window", 4},     {"open", 3},  {"close", 3},   {"hand-off", 1},
    {"foreign", 2},  {"wait", 4},   {"image-key", 16}, {"wheel", 5}, {"walk", 3}};

std::string ActOf(unsigned number) {
    int sum = 0;
    for (const Share& share : kShares)
        sum += share.weight;
    int left = static_cast<int>(number % static_cast<unsigned>(sum));
    for (const Share& share : kShares) {
        left -= share.weight;
        if (left < 0) return share.act;
    }
    return "wait";
}

} // namespace

std::vector<RandomEvent> EventsOf(unsigned seed, int count) {
    std::mt19937 random(seed);
    std::vector<RandomEvent> events;
    for (int i = 0; i < count; ++i) {
        RandomEvent event{ActOf(static_cast<unsigned>(random())), {}};
        for (unsigned& number : event.numbers)
            number = static_cast<unsigned>(random() % 100000);
        events.push_back(event);
    }
    return events;
}

std::string TextOf(const std::vector<RandomEvent>& events) {
    std::ostringstream text;
    for (const RandomEvent& event : events) {
        text << event.act;
        for (const unsigned number : event.numbers)
            text << ' ' << number;
        text << '\n';
    }
    return text.str();
}

std::vector<RandomEvent> EventsFrom(const std::string& text) {
    std::istringstream in(text);
    std::vector<RandomEvent> events;
    for (RandomEvent event; in >> event.act;) {
        for (unsigned& number : event.numbers)
            in >> number;
        events.push_back(event);
    }
    return events;
}

} // namespace pintalux
