// Starts the toolkit offscreen for the tests of the window objects.
#include "support/DialogScript.h"

#include <gtest/gtest.h>
#include <QApplication>
#include <QTimer>

namespace {

/// The unload of a main window ends the event loop, and until it has ended no dialog shows: the next test
/// finds it as a program at its start does.
class LoopEnd final : public testing::EmptyTestEventListener {
    void OnTestEnd(const testing::TestInfo&) override {
        QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(); });
        QCoreApplication::exec();
    }
};

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("fusion"));
    QApplication::setQuitOnLastWindowClosed(false);
    const pintalux::DialogWatch watch;
    testing::UnitTest::GetInstance()->listeners().Append(new LoopEnd);
    return RUN_ALL_TESTS();
}
