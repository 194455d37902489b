// Starts the toolkit offscreen for the tests of the window objects.
#include "support/DialogScript.h"

#include <gtest/gtest.h>
#include <QApplication>

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("fusion"));
    QApplication::setQuitOnLastWindowClosed(false);
    const pintalux::DialogWatch watch;
    return RUN_ALL_TESTS();
}
