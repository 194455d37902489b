// The tests of the services, with the toolkit started on its invisible platform.
#include "support/DialogScript.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <QApplication>

int main(int argc, char** argv) {
    ::setenv("QT_QPA_PLATFORM", "offscreen", 0);
    const QApplication application(argc, argv);
    const pintalux::DialogWatch watch;
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
