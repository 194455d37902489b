#include "surface/system/App.h"

#include <cstdlib>
#include <gtest/gtest.h>

// The form tests run the real forms without a display.
int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    ::testing::InitGoogleTest(&argc, argv);
    pintalux::Application application(argc, argv);
    return RUN_ALL_TESTS();
}
