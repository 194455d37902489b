// random_tests: the program used at random, sanitized in ./test.sh.
//
//   random_tests                                      ten seeds of a thousand events each
//   random_tests --seeds=<first>-<last> --events=<n>  as many as one likes
//   random_tests --list=<file>                        the events of a file, a line each
//   random_tests --write=<seed>                       prints the events of a seed
#include "random/RandomUse.h"

#include "support/Documents.h"
#include "surface/system/App.h"

#include <cstdio>
#include <cstdlib>
#include <iostream>

namespace pintalux {
namespace {

struct Wish {
    unsigned first = 1;
    unsigned last = 10;
    int events = 1000;
    std::string list;
    std::string write;
};

Wish WishOf(const std::vector<std::string>& words) {
    Wish wish;
    for (const std::string& word : words) {
        const std::string value = word.substr(word.find('=') + 1);
        if (word.starts_with("--seeds=")) {
            wish.first = static_cast<unsigned>(std::stoul(value));
            wish.last = static_cast<unsigned>(std::stoul(value.substr(value.find('-') + 1)));
        }
        if (word.starts_with("--events=")) wish.events = std::stoi(value);
        if (word.starts_with("--list=")) wish.list = value;
        if (word.starts_with("--write=")) wish.write = value;
    }
    return wish;
}

class RandomUseRun : public RandomUse {
  public:
    RandomUseRun(std::vector<RandomEvent> events, std::string hint)
        : events_(std::move(events)), hint_(std::move(hint)) {}
    void TestBody() override { EXPECT_EQ(Do(events_), -1) << hint_; }

  private:
    std::vector<RandomEvent> events_;
    std::string hint_;
};

void Register(const std::string& name, const std::vector<RandomEvent>& events, const std::string& hint) {
    ::testing::RegisterTest("RandomUse", name.c_str(), nullptr, nullptr, __FILE__, __LINE__,
                            [=]() -> RandomUse* { return new RandomUseRun(events, hint); });
}

} // namespace
} // namespace pintalux

int main(int argc, char** argv) {
    using namespace pintalux;
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    ::testing::InitGoogleTest(&argc, argv);
    const Wish wish = WishOf({argv + 1, argv + argc});
    if (!wish.write.empty()) {
        std::cout << TextOf(EventsOf(static_cast<unsigned>(std::stoul(wish.write)), wish.events));
        return 0;
    }
    argc = 1;
    Application application(argc, argv);
    const DialogWatch watch;
    if (!wish.list.empty()) {
        Register("List", EventsFrom(BytesOf(wish.list)), "");
        return RUN_ALL_TESTS();
    }
    for (unsigned seed = wish.first; seed <= wish.last; ++seed) {
        const std::string number = std::to_string(seed);
        Register("Seed" + number, EventsOf(seed, wish.events),
                 "the shortest list: tests/random/run.py --shorten " + number);
    }
    return RUN_ALL_TESTS();
}
