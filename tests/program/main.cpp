#include "support/DialogScript.h"
#include "support/ListeningReader.h"
#include "surface/system/App.h"

#include <cstdlib>
#include <gtest/gtest.h>

// The form tests run the real forms without a display.
int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    setenv("CUPS_SERVER", "/nonexistent", 1); // these tests know no printer, whatever the machine has
    ::testing::InitGoogleTest(&argc, argv);
    pintalux::Application application(argc, argv);
    const pintalux::DialogWatch watch;
    pintalux::ListeningReader reader;
    return RUN_ALL_TESTS();
}
