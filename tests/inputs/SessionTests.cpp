// What the desktop is told when it asks whether the user may log out. The calls that tell it stand here once
// more, and so come first.
#include "surface/system/Session.h"

#include "inputs/ByHand.h"
#include "surface/window/Waiting.h"

#include <atomic>
#include <QDialog>
#include <QSessionManager>
#include <QTimer>

namespace pintalux {
namespace {

using Said = std::vector<std::string>;

bool desktopLetsAsk = true;
std::function<bool()> answer; // of the program
Said said;                    // by the program, to whom it may concern

class SessionTest : public testing::Test {
  protected:
    SessionTest() {
        desktopLetsAsk = true;
        answer = [] { return true; };
        static const bool connected = [] {
            OnSession({[](bool mayAsk) {
                           said.emplace_back(mayAsk ? "may ask" : "may not ask");
                           return answer();
                       },
                       [] { said.emplace_back("goes"); }});
            return true;
        }();
        static_cast<void>(connected);
    }

    /// What a log-out has the program say.
    static Said LogOut() {
        said.clear();
        auto* manager = qApp->findChild<QSessionManager*>();
        if (manager != nullptr) emit qApp->commitDataRequest(*manager);
        return said;
    }
};

TEST_F(SessionTest, WhoeverMayAskSaysWhenItIsDone) {
    EXPECT_EQ(LogOut(), (Said{"may ask", "done asking"}));
    desktopLetsAsk = false;
    EXPECT_EQ(LogOut(), Said{"may not ask"});
}

TEST_F(SessionTest, ARefusalCallsTheLogOutOff) {
    answer = [] { return false; };
    EXPECT_EQ(LogOut(), (Said{"may ask", "cancels"}));
    desktopLetsAsk = false;
    EXPECT_EQ(LogOut(), (Said{"may not ask", "cancels"}));
}

TEST_F(SessionTest, BesideADialogNothingIsAsked) {
    QDialog dialog;
    dialog.setModal(true);
    dialog.show();
    EXPECT_EQ(LogOut(), Said{"may not ask"});
    dialog.hide();
    EXPECT_EQ(LogOut(), (Said{"may ask", "done asking"}));
}

TEST_F(SessionTest, WhileAPictureIsReadNothingIsAsked) {
    std::atomic<bool> asked = false;
    Said during;
    QTimer::singleShot(0, qApp, [&] {
        during = LogOut();
        asked = true;
    });
    WorkWhileWaiting([&](const std::stop_token&) { WaitFor([&] { return asked.load(); }); });
    EXPECT_EQ(during, Said{"may not ask"});
}

TEST_F(SessionTest, AnErrorOnTheWayIsToldAndCallsNothingOff) {
    const UntrappedErrors errors;
    answer = []() -> bool { throw RuntimeError(kDiskFull); };
    EXPECT_EQ(LogOut(), Said{"may ask"});
    EXPECT_EQ(errors.numbers, std::vector<int>{kDiskFull});
}

TEST_F(SessionTest, TheLogOutItselfGoesToTheProgramAlone) {
    said.clear();
    QEvent quit(QEvent::Quit);
    EXPECT_TRUE(QApplication::sendEvent(qApp, &quit));
    EXPECT_EQ(said, Said{"goes"});
}

} // namespace
} // namespace pintalux

bool QSessionManager::allowsInteraction() {
    return pintalux::desktopLetsAsk;
}
void QSessionManager::release() {
    pintalux::said.emplace_back("done asking");
}
void QSessionManager::cancel() {
    pintalux::said.emplace_back("cancels");
}
