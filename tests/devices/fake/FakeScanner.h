// A scanner library of the tests' own: what its one device offers, what it refuses, what was asked of it. The
// program of these tests gives its functions out by the names of the real ones.
#pragma once

#include <functional>
#include <optional>
#include <sane/sane.h>
#include <string>
#include <vector>

namespace pintalux {

/// An option of the device. A text where `type` says so, else a number; at most one of `list`, `range` and
/// `texts` says which values it may have.
struct FakeOption {
    std::string name;
    SANE_Value_Type type = SANE_TYPE_INT;
    SANE_Unit unit = SANE_UNIT_NONE;
    double number = 0;
    std::string text;
    std::vector<double> list;
    std::optional<std::pair<double, double>> range; ///< Least and most.
    std::vector<std::string> texts;
    SANE_Int cap = SANE_CAP_SOFT_SELECT | SANE_CAP_SOFT_DETECT;
    SANE_Status whenRead = SANE_STATUS_GOOD; ///< What it answers when its value is asked for.
};

struct FakeScanner {
    SANE_Status whenStarted = SANE_STATUS_GOOD; ///< What the library answers at its start,
    SANE_Status whenLookedFor = SANE_STATUS_GOOD;
    SANE_Status whenOpened = SANE_STATUS_GOOD;
    SANE_Status whenCounted = SANE_STATUS_GOOD; ///< when the number of options is asked for.
    int version = SANE_CURRENT_MAJOR;
    std::vector<FakeOption> options;
    std::function<void(SANE_Parameters& page)> announces; ///< What it says of its page, at each question.
    std::function<void()> ends;                           ///< In front of the end of the page,
    std::function<void()> comesToRest;                    ///< and behind it; both may take their time.
    std::vector<std::string> set; ///< What was set, in its order, as "resolution=300".
    std::vector<std::string> opened;
};

/// The library with its device "fake:0".
extern FakeScanner TheFakeScanner;

/// The library as the program opens it.
void* OpenFakeLibrary();

} // namespace pintalux
