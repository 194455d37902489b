#include "support/Memory.h"

#include "support/Errors.h"

#include <gtest/gtest.h>
#include <unistd.h>

namespace pintalux {
namespace {

TEST(FreeMemory, IsAPartOfTheMachines) {
    const auto pages = static_cast<double>(::sysconf(_SC_PHYS_PAGES));
    const double machine = pages * static_cast<double>(::sysconf(_SC_PAGE_SIZE));
    EXPECT_NEAR(static_cast<double>(MachineMemory()), machine, machine / 100);
    EXPECT_GT(FreeMemory(), 0U);
    EXPECT_LE(FreeMemory(), MachineMemory());
}

// The other half is for everything else that runs.
TEST(FreeMemory, HalfOfItMayBeDemanded) {
    const SupposedMemory little(1000);
    EXPECT_EQ(ErrorOf([] { DemandMemory(500); }), 0);
    EXPECT_EQ(ErrorOf([] { DemandMemory(501); }), 7);
}

} // namespace
} // namespace pintalux
