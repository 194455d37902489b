#include "surface/system/ClipboardOwner_native.h"

#include "surface/system/Xcb_native.h"

#include <chrono>
#include <poll.h>
#include <QGuiApplication>
#include <span>
#include <vector>

namespace pintalux {

namespace {

constexpr std::chrono::milliseconds kPatience{2000}; // without a sign of the owner
constexpr int kGlance = 50;                          // milliseconds until a stop is noticed
constexpr std::uint32_t kPieceWords = 1 << 18;       // a megabyte at a time

} // namespace

struct ClipboardOwner::Event {
    std::unique_ptr<xcb_generic_event_t, decltype(&std::free)> event{nullptr, &std::free};
    int Type() const { return TypeOf(*event); }
    template <class Kind>
    const Kind& As() const {
        return *reinterpret_cast<const Kind*>(event.get());
    }
};

/// Part of a property.
struct ClipboardOwner::Piece {
    std::unique_ptr<xcb_get_property_reply_t, decltype(&std::free)> reply;
    std::span<const std::byte> Bytes() const {
        return {static_cast<const std::byte*>(xcb_get_property_value(reply.get())),
                static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))};
    }
};

bool ClipboardOwner::Reachable() {
    const auto* x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 != nullptr && x11->connection() != nullptr;
}

ClipboardOwner::ClipboardOwner(std::stop_token stop, Selection selection)
    : stop_(std::move(stop)), selection_(selection == Selection::Copied ? "CLIPBOARD" : "PRIMARY"),
      display_(xcb_connect(nullptr, nullptr)) {
    if (xcb_connection_has_error(display_) != 0) return;
    window_ = MakeHiddenWindow(display_, XCB_EVENT_MASK_PROPERTY_CHANGE);
    property_ = Atom("PINTALUX_FETCHED");
}

ClipboardOwner::~ClipboardOwner() {
    xcb_disconnect(display_);
}

std::uint32_t ClipboardOwner::Atom(const QByteArray& name) {
    return AtomOf(display_, {name.constData(), static_cast<std::size_t>(name.size())});
}

/// False if none comes in time.
bool ClipboardOwner::NextEvent(Event& event) {
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (!stop_.stop_requested() && xcb_connection_has_error(display_) == 0) {
        event.event.reset(xcb_poll_for_event(display_));
        if (event.event) return true;
        if (std::chrono::steady_clock::now() > end) {
            silent_ = true;
            return false;
        }
        pollfd ready = {xcb_get_file_descriptor(display_), POLLIN, 0};
        ::poll(&ready, 1, kGlance);
    }
    return false;
}

/// Has the owner put what it gives under `target` into our property. False if it does not.
bool ClipboardOwner::Ask(std::uint32_t target) {
    xcb_delete_property(display_, window_, property_);
    xcb_convert_selection(display_, window_, Atom(selection_), target, property_, XCB_CURRENT_TIME);
    xcb_flush(display_);
    for (Event event; NextEvent(event);) {
        if (event.Type() != XCB_SELECTION_NOTIFY) continue;
        const auto& answer = event.As<xcb_selection_notify_event_t>();
        if (answer.target == target) return answer.property != XCB_NONE;
    }
    return false;
}

/// The property from `offset`, in words; it goes when its end is taken.
std::optional<ClipboardOwner::Piece> ClipboardOwner::TakePiece(std::uint32_t offset) {
    const auto question =
        xcb_get_property(display_, 1, window_, property_, XCB_ATOM_ANY, offset, kPieceWords);
    Piece piece{Owned(xcb_get_property_reply(display_, question, nullptr))};
    if (!piece.reply) return std::nullopt;
    return piece;
}

/// Adds the whole property, whose `first` piece is here already, to the file. False above the limit.
bool ClipboardOwner::TakeProperty(const std::optional<Piece>& first, File& file, std::uint64_t& length,
                                  std::uint64_t limit) {
    std::uint32_t offset = 0;
    const std::optional<Piece>* now = &first;
    for (std::optional<Piece> next; *now; now = &next) {
        const std::span<const std::byte> bytes = (*now)->Bytes();
        length += bytes.size();
        tooLarge_ = length > limit;
        if (tooLarge_ || stop_.stop_requested()) return false;
        file.Write(bytes);
        if ((*now)->reply->bytes_after == 0) return true;
        offset += kPieceWords;
        next = TakePiece(offset);
    }
    return false;
}

/// What the owner gives in pieces, each when the one before is taken, until an empty one.
bool ClipboardOwner::TakePieces(File& file, std::uint64_t limit) {
    std::uint64_t length = 0;
    for (Event event; NextEvent(event);) {
        if (event.Type() != XCB_PROPERTY_NOTIFY) continue;
        const auto& change = event.As<xcb_property_notify_event_t>();
        if (change.atom != property_ || change.state != XCB_PROPERTY_NEW_VALUE) continue;
        const std::optional<Piece> first = TakePiece(0);
        if (!first) return false;
        if (first->Bytes().empty()) return true;
        if (!TakeProperty(first, file, length, limit)) return false;
    }
    return false;
}

QStringList ClipboardOwner::Formats() {
    if (!Ask(Atom("TARGETS"))) return {};
    const std::optional<Piece> piece = TakePiece(0);
    if (!piece || piece->reply->format != 32) return {};
    const auto* atoms = static_cast<const xcb_atom_t*>(xcb_get_property_value(piece->reply.get()));
    // All questions at once: one answer after the other would take a way to the display and back for each.
    std::vector<xcb_get_atom_name_cookie_t> questions;
    for (const xcb_atom_t atom : std::span(atoms, piece->reply->value_len))
        questions.push_back(xcb_get_atom_name(display_, atom));
    QStringList formats;
    for (const xcb_get_atom_name_cookie_t question : questions) {
        const auto name = Owned(xcb_get_atom_name_reply(display_, question, nullptr));
        if (name)
            formats += QString::fromLatin1(xcb_get_atom_name_name(name.get()),
                                           xcb_get_atom_name_name_length(name.get()));
    }
    return formats;
}

std::optional<File> ClipboardOwner::Bytes(const QString& format, std::uint64_t limit) {
    if (!Ask(Atom(format.toLatin1()))) return std::nullopt;
    const std::optional<Piece> first = TakePiece(0);
    if (!first) return std::nullopt;
    File file = File::InMemory("");
    std::uint64_t length = 0;
    const bool whole = first->reply->type == Atom("INCR") ? TakePieces(file, limit)
                                                          : TakeProperty(first, file, length, limit);
    if (!whole) return std::nullopt;
    return file;
}

} // namespace pintalux
