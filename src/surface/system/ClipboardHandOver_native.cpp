#include "surface/system/ClipboardHandOver_native.h"

#include "surface/system/ClipboardServer_native.h"
#include "surface/system/Xcb_native.h"

#include <cstdint>
#include <QAbstractNativeEventFilter>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QTimer>
#include <utility>

namespace pintalux {

namespace {

// Milliseconds without a sign of the manager; some never answer, but have taken everything before.
constexpr qint64 kPatience = 1500;
constexpr qint64 kGrace = 200;

xcb_window_t OwnerOf(xcb_connection_t* display, xcb_atom_t selection) {
    const auto reply =
        Owned(xcb_get_selection_owner_reply(display, xcb_get_selection_owner(display, selection), nullptr));
    return reply ? reply->owner : XCB_NONE;
}

/// Waits for the manager's answer.
class AnswerWindow final : public QAbstractNativeEventFilter {
  public:
    explicit AnswerWindow(xcb_connection_t* display)
        : display_(display), window_(MakeHiddenWindow(display, 0)) {
        QCoreApplication::instance()->installNativeEventFilter(this);
    }
    ~AnswerWindow() override {
        QCoreApplication::instance()->removeNativeEventFilter(this);
        xcb_destroy_window(display_, window_);
        xcb_flush(display_);
    }
    AnswerWindow(const AnswerWindow&) = delete;
    AnswerWindow& operator=(const AnswerWindow&) = delete;

    void Ask(xcb_atom_t manager) {
        xcb_convert_selection(display_, window_, manager, AtomOf(display_, "SAVE_TARGETS"),
                              AtomOf(display_, "PINTALUX_SAVED"), XCB_CURRENT_TIME);
        xcb_flush(display_);
    }

    bool answered = false;
    bool taken = false;

    bool nativeEventFilter(const QByteArray& kind, void* message, qintptr*) override {
        if (kind != "xcb_generic_event_t") return false;
        const auto* event = static_cast<const xcb_generic_event_t*>(message);
        if (TypeOf(*event) != XCB_SELECTION_NOTIFY) return false;
        const auto* answer = static_cast<const xcb_selection_notify_event_t*>(message);
        if (answer->requestor != window_) return false;
        answered = true;
        taken = answer->property != XCB_NONE;
        return true;
    }

  private:
    xcb_connection_t* display_;
    xcb_window_t window_;
};

} // namespace

bool HandOverClipboard(const ClipboardServer& server) {
    const auto* x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    xcb_connection_t* display = x11 != nullptr ? x11->connection() : nullptr;
    if (display == nullptr) return true;
    const xcb_atom_t selection = AtomOf(display, "CLIPBOARD_MANAGER");
    const xcb_window_t manager = OwnerOf(display, selection);
    if (manager == XCB_NONE) return true;
    AnswerWindow window(display);
    window.Ask(selection);
    QTimer wake; // ends each wait for events
    wake.start(50);
    QElapsedTimer silence;
    silence.start();
    std::uint64_t signs = server.Signs();
    while (!window.answered && !silence.hasExpired(server.HasGivenTo(manager) ? kGrace : kPatience)) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        if (std::exchange(signs, server.Signs()) != server.Signs()) silence.start();
    }
    return window.taken;
}

} // namespace pintalux
