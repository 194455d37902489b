#include "surface/system/ClipboardServer_native.h"

#include "base/RuntimeError.h"
#include "surface/system/ClipboardData_native.h"
#include "surface/system/ClipboardPieces_native.h"
#include "surface/system/Xcb_native.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <mutex>
#include <new>
#include <poll.h>
#include <QCoreApplication>
#include <span>
#include <sys/eventfd.h>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>

namespace pintalux {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds kPatience{30}; // with one who takes nothing more
constexpr int kGlance = 1000;                 // milliseconds between two looks at that

struct Atoms {
    explicit Atoms(xcb_connection_t* display)
        : clipboard(AtomOf(display, "CLIPBOARD")), targets(AtomOf(display, "TARGETS")),
          multiple(AtomOf(display, "MULTIPLE")), pair(AtomOf(display, "ATOM_PAIR")),
          incremental(AtomOf(display, "INCR")), timestamp(AtomOf(display, "TIMESTAMP")),
          save(AtomOf(display, "SAVE_TARGETS")), bmp(AtomOf(display, kBmp)), png(AtomOf(display, kPng)) {}
    xcb_atom_t clipboard, targets, multiple, pair, incremental, timestamp, save, bmp, png;
};

struct Request {
    xcb_selection_request_event_t asked;
    Picture picture;
    int offer;
};

/// A file that goes to a window in pieces, each when the one before is taken.
struct Transfer {
    xcb_window_t window;
    xcb_atom_t property;
    xcb_atom_t format;
    int offer;
    Pieces pieces;
    std::string next;
    Clock::time_point sign = Clock::now();
};

/// Goes in one piece, in either format.
bool IsSmall(const Picture& picture) {
    return std::int64_t{picture.Width()} * picture.Height() * 3 <= std::int64_t{kPieceLength} / 2;
}

} // namespace

class ClipboardServer::Thread {
  public:
    Thread()
        : display_(xcb_connect(nullptr, nullptr)), atoms_(display_),
          wake_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)),
          thread_([this](const std::stop_token& stop) { Run(stop); }) {}
    ~Thread() {
        thread_.request_stop();
        Wake();
        thread_.join();
        ::close(wake_);
        xcb_disconnect(display_);
    }
    Thread(const Thread&) = delete;
    Thread& operator=(const Thread&) = delete;

    bool Takes(const xcb_selection_request_event_t& asked) const {
        if (xcb_connection_has_error(display_) != 0) return false;
        return asked.selection == atoms_.clipboard &&
               (Gives(asked.target) || asked.target == atoms_.targets || asked.target == atoms_.multiple);
    }
    void Take(const xcb_selection_request_event_t& asked, const Picture& picture) {
        const std::lock_guard lock(mutex_);
        requests_.push_back({asked, picture, offer_});
        Wake();
    }
    void Renew() {
        const std::lock_guard lock(mutex_);
        ++offer_;
        takers_.clear();
    }
    bool HasGivenTo(xcb_window_t window) const {
        const std::lock_guard lock(mutex_);
        return std::ranges::find(takers_, ClientOf(window)) != takers_.end();
    }

    std::atomic<std::uint64_t> signs = 0;

  private:
    void Wake() const {
        const std::uint64_t one = 1;
        [[maybe_unused]] const auto written = ::write(wake_, &one, sizeof one);
    }
    bool Gives(xcb_atom_t target) const { return target == atoms_.bmp || target == atoms_.png; }
    /// What all windows of a program have in common.
    std::uint32_t ClientOf(xcb_window_t window) const {
        const xcb_setup_t* setup = xcb_get_setup(display_);
        return setup != nullptr ? window & ~setup->resource_id_mask : window;
    }

    void Run(const std::stop_token& stop) {
        while (!stop.stop_requested() && xcb_connection_has_error(display_) == 0) {
            for (const Request& request : NewRequests())
                Serve(request);
            xcb_flush(display_);
            // What is sent may bring in events as well, of which a wait would not know.
            if (HearAll()) continue;
            GiveUpIf([](const Transfer& transfer) { return Clock::now() - transfer.sign > kPatience; });
            Wait();
        }
    }

    void Wait() {
        pollfd ready[] = {{xcb_get_file_descriptor(display_), POLLIN, 0}, {wake_, POLLIN, 0}};
        ::poll(ready, std::size(ready), transfers_.empty() ? -1 : kGlance);
        std::uint64_t count = 0;
        [[maybe_unused]] const auto read = ::read(wake_, &count, sizeof count);
    }

    bool HearAll() {
        bool heard = false;
        while (const auto event = Owned(xcb_poll_for_event(display_))) {
            Hear(*event);
            heard = true;
        }
        return heard;
    }

    std::vector<Request> NewRequests() {
        const std::lock_guard lock(mutex_);
        return std::exchange(requests_, {});
    }

    void Serve(const Request& request) {
        const auto& asked = request.asked;
        // Old programs name no property.
        const xcb_atom_t property = asked.property != XCB_NONE ? asked.property : asked.target;
        bool given = true;
        if (asked.target == atoms_.targets)
            GiveTargets(asked.requestor, property);
        else if (asked.target == atoms_.multiple)
            given = GiveMultiple(request, property);
        else
            given = Give(request, asked.target, property);
        xcb_selection_notify_event_t answer = {};
        answer.response_type = XCB_SELECTION_NOTIFY;
        answer.time = asked.time;
        answer.requestor = asked.requestor;
        answer.selection = asked.selection;
        answer.target = asked.target;
        answer.property = given ? property : XCB_NONE;
        xcb_send_event(display_, 0, asked.requestor, 0, reinterpret_cast<const char*>(&answer));
        ++signs;
    }

    /// Pictures last: there are clipboard managers that lose the first format.
    void GiveTargets(xcb_window_t window, xcb_atom_t property) {
        const xcb_atom_t targets[] = {atoms_.timestamp, atoms_.targets, atoms_.multiple,
                                      atoms_.save,      atoms_.bmp,     atoms_.png};
        xcb_change_property(display_, XCB_PROP_MODE_REPLACE, window, property, XCB_ATOM_ATOM, 32,
                            std::size(targets), targets);
    }

    /// Several at once: the property names each format and the property for it.
    bool GiveMultiple(const Request& request, xcb_atom_t property) {
        constexpr std::uint32_t kMostWords = 1024;
        const xcb_window_t window = request.asked.requestor;
        const auto question = xcb_get_property(display_, 0, window, property, XCB_ATOM_ANY, 0, kMostWords);
        const auto reply = Owned(xcb_get_property_reply(display_, question, nullptr));
        if (!reply || reply->format != 32) return false;
        const std::span<xcb_atom_t> atomsOf(static_cast<xcb_atom_t*>(xcb_get_property_value(reply.get())),
                                            reply->value_len);
        for (std::size_t i = 0; i + 1 < atomsOf.size(); i += 2) {
            if (atomsOf[i] == atoms_.targets)
                GiveTargets(window, atomsOf[i + 1]);
            else if (!Gives(atomsOf[i]) || !Give(request, atomsOf[i], atomsOf[i + 1]))
                atomsOf[i] = XCB_NONE;
        }
        xcb_change_property(display_, XCB_PROP_MODE_REPLACE, window, property, atoms_.pair, 32,
                            static_cast<std::uint32_t>(atomsOf.size()), atomsOf.data());
        return true;
    }

    Pieces PiecesOf(const Picture& picture, xcb_atom_t format) const {
        return format == atoms_.bmp ? BmpPieces(picture) : PngPieces(picture);
    }

    /// Puts the file into the property, or begins to send it in pieces. False if it cannot be had.
    bool Give(const Request& request, xcb_atom_t format, xcb_atom_t property) try {
        const xcb_window_t window = request.asked.requestor;
        Transfer transfer = {window, property, format, request.offer, PiecesOf(request.picture, format), {}};
        if (IsSmall(request.picture)) {
            Put(transfer, WholeOf(transfer.pieces));
            Given(transfer);
            return true;
        }
        transfer.next = transfer.pieces();
        const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
        xcb_change_window_attributes(display_, window, XCB_CW_EVENT_MASK, &events);
        const auto atLeast = static_cast<std::uint32_t>(transfer.next.size());
        xcb_change_property(display_, XCB_PROP_MODE_REPLACE, window, property, atoms_.incremental, 32, 1,
                            &atLeast);
        // One who asks again has given up what it asked for before.
        GiveUpIf([&](const Transfer& each) { return each.window == window && each.property == property; });
        transfers_.push_back(std::move(transfer));
        return true;
    } catch (const RuntimeError&) {
        return false;
    } catch (const std::bad_alloc&) {
        return false;
    }

    void Put(const Transfer& transfer, std::string_view piece) {
        xcb_change_property(display_, XCB_PROP_MODE_REPLACE, transfer.window, transfer.property,
                            transfer.format, 8, static_cast<std::uint32_t>(piece.size()), piece.data());
    }
    void Given(const Transfer& transfer) {
        const std::lock_guard lock(mutex_);
        if (transfer.offer == offer_) takers_.push_back(ClientOf(transfer.window));
    }

    void Hear(const xcb_generic_event_t& event) {
        if (event.response_type == 0) {
            const auto& error = reinterpret_cast<const xcb_generic_error_t&>(event);
            return GiveUpIf([&](const Transfer& each) { return each.window == error.resource_id; });
        }
        if (TypeOf(event) == XCB_DESTROY_NOTIFY) {
            const auto& gone = reinterpret_cast<const xcb_destroy_notify_event_t&>(event);
            return GiveUpIf([&](const Transfer& each) { return each.window == gone.window; });
        }
        if (TypeOf(event) != XCB_PROPERTY_NOTIFY) return;
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        if (change.state != XCB_PROPERTY_DELETE) return;
        GiveUpIf([&](Transfer& each) {
            return each.window == change.window && each.property == change.atom && !GoOn(each);
        });
        if (std::ranges::find(transfers_, change.window, &Transfer::window) != transfers_.end()) return;
        const std::uint32_t none = 0;
        xcb_change_window_attributes(display_, change.window, XCB_CW_EVENT_MASK, &none);
    }

    /// Sends the next piece and makes the one after it meanwhile. False if there is none.
    bool GoOn(Transfer& transfer) try {
        ++signs;
        transfer.sign = Clock::now();
        Put(transfer, transfer.next);
        if (transfer.next.empty()) {
            Given(transfer);
            return false;
        }
        xcb_flush(display_);
        transfer.next = transfer.pieces();
        return true;
    } catch (const RuntimeError&) {
        return false; // half a file must not look like a whole one
    } catch (const std::bad_alloc&) {
        return false;
    }

    template <class Condition>
    void GiveUpIf(Condition condition) {
        std::erase_if(transfers_, condition);
    }

    xcb_connection_t* display_;
    const Atoms atoms_;
    int wake_;
    mutable std::mutex mutex_;
    std::vector<Request> requests_;
    std::vector<std::uint32_t> takers_; ///< Programs that have the picture whole.
    int offer_ = 0;
    std::vector<Transfer> transfers_; ///< Of the thread alone.
    std::jthread thread_;
};

ClipboardServer::ClipboardServer(std::function<Picture()> offered)
    : offered_(std::move(offered)), thread_(std::make_unique<Thread>()) {
    QCoreApplication::instance()->installNativeEventFilter(this);
}

ClipboardServer::~ClipboardServer() = default;

void ClipboardServer::Renew() {
    thread_->Renew();
}

bool ClipboardServer::HasGivenTo(std::uint32_t window) const {
    return thread_->HasGivenTo(window);
}

std::uint64_t ClipboardServer::Signs() const {
    return thread_->signs;
}

// The toolkit is in the middle of its own work: without memory the question is left to it.
bool ClipboardServer::nativeEventFilter(const QByteArray& kind, void* message, qintptr*) try {
    if (kind != "xcb_generic_event_t") return false;
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    if (TypeOf(*event) != XCB_SELECTION_REQUEST) return false;
    const auto& asked = *static_cast<const xcb_selection_request_event_t*>(message);
    ++thread_->signs;
    if (!thread_->Takes(asked)) return false;
    const Picture picture = offered_();
    if (picture.Empty()) return false;
    thread_->Take(asked, picture);
    return true;
} catch (const std::bad_alloc&) {
    return false;
}

} // namespace pintalux
