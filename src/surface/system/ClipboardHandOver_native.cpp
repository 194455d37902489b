#include "surface/system/ClipboardHandOver_native.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <QAbstractNativeEventFilter>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QTimer>
#include <utility>
#include <xcb/xcb.h>

namespace pintalux {

namespace {

constexpr qint64 kPatience = 1500; // milliseconds without a sign of the manager

template <class Reply>
std::unique_ptr<Reply, decltype(&std::free)> Owned(Reply* reply) {
    return {reply, &std::free};
}

xcb_atom_t Atom(xcb_connection_t* display, const char* name) {
    const auto length = static_cast<std::uint16_t>(std::strlen(name));
    const auto reply =
        Owned(xcb_intern_atom_reply(display, xcb_intern_atom(display, 0, length, name), nullptr));
    return reply ? reply->atom : XCB_NONE;
}

bool HasOwner(xcb_connection_t* display, xcb_atom_t selection) {
    const auto reply =
        Owned(xcb_get_selection_owner_reply(display, xcb_get_selection_owner(display, selection), nullptr));
    return reply && reply->owner != XCB_NONE;
}

/// A window that nobody sees, for the manager's answer.
class AnswerWindow final : public QAbstractNativeEventFilter {
  public:
    explicit AnswerWindow(xcb_connection_t* display) : display_(display), window_(xcb_generate_id(display)) {
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(display)).data->root;
        xcb_create_window(display, XCB_COPY_FROM_PARENT, window_, root, 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
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
        xcb_convert_selection(display_, window_, manager, Atom(display_, "SAVE_TARGETS"),
                              Atom(display_, "PINTALUX_SAVED"), XCB_CURRENT_TIME);
        xcb_flush(display_);
    }

    bool answered = false;
    bool taken = false;
    bool sign = false; ///< Somebody fetches something.

    bool nativeEventFilter(const QByteArray& kind, void* message, qintptr*) override {
        if (kind != "xcb_generic_event_t") return false;
        const auto* event = static_cast<const xcb_generic_event_t*>(message);
        const int type = event->response_type & 0x7F; // the highest bit: sent by a program
        sign = sign || type == XCB_SELECTION_REQUEST || type == XCB_PROPERTY_NOTIFY;
        if (type != XCB_SELECTION_NOTIFY) return false;
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

bool HandOverClipboard() {
    const auto* x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    xcb_connection_t* display = x11 != nullptr ? x11->connection() : nullptr;
    if (display == nullptr) return true;
    const xcb_atom_t manager = Atom(display, "CLIPBOARD_MANAGER");
    if (!HasOwner(display, manager)) return true;
    AnswerWindow window(display);
    window.Ask(manager);
    QTimer wake; // ends each wait for events
    wake.start(100);
    QElapsedTimer silence;
    silence.start();
    while (!window.answered && !silence.hasExpired(kPatience)) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        if (std::exchange(window.sign, false)) silence.start();
    }
    return window.taken;
}

} // namespace pintalux
