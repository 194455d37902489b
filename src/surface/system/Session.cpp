#include "surface/system/Session.h"

#include "surface/system/Session_native.h"
#include "surface/window/Events.h"
#include "surface/window/Screen.h"
#include "surface/window/Waiting.h"

#include <QGuiApplication>
#include <QSessionManager>

#include <utility>

namespace pintalux {

namespace {

SessionEvents session;

void Commit(QSessionManager& manager) {
    const bool mayAsk = !UserIsBusy() && !Waiting() && manager.allowsInteraction();
    if (!session.LogOut(mayAsk)) {
        manager.cancel();
    } else if (mayAsk) {
        manager.release();
    }
}

} // namespace

void OnSession(SessionEvents events) {
    session = std::move(events);
    // Direct: the desktop takes the return for the answer.
    QObject::connect(
        qGuiApp, &QGuiApplication::commitDataRequest, qGuiApp,
        [](QSessionManager& manager) { RunEvent(EventKind::Ordinary, [&] { Commit(manager); }); },
        Qt::DirectConnection);
}

bool EndOfSession() {
    if (!session.End) return false;
    RunEvent(EventKind::Ordinary, session.End);
    return true;
}

} // namespace pintalux
