// The program that owns the clipboard, asked over a connection of our own.
#pragma once

#include "surface/system/FileLayer.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <QStringList>
#include <stop_token>

struct xcb_connection_t;

namespace pintalux {

/// Another program at the X clipboard, or at the selected text. The toolkit asks on the interface's thread
/// and waits for seconds; this one belongs to the thread that makes it, which alone waits.
class ClipboardOwner {
  public:
    /// Whether there is an X display. Elsewhere the toolkit has to be asked. For the interface's thread.
    static bool Reachable();

    enum class Selection { Copied, Marked };

    explicit ClipboardOwner(std::stop_token stop, Selection selection = Selection::Copied);
    ~ClipboardOwner();
    ClipboardOwner(const ClipboardOwner&) = delete;
    ClipboardOwner& operator=(const ClipboardOwner&) = delete;

    /// What it offers; nothing if it keeps silent, or at a stop.
    QStringList Formats();
    /// What it gives under a format. Nothing if it gives none or more than `limit` bytes, keeps silent, or at
    /// a stop. Error 7 if memory runs out.
    std::optional<File> Bytes(const QString& format, std::uint64_t limit);

    bool Silent() const { return silent_; }     ///< It let us wait in vain.
    bool TooLarge() const { return tooLarge_; } ///< It would have given more than the limit.

  private:
    struct Event;
    struct Piece;

    std::uint32_t Atom(const QByteArray& name);
    bool NextEvent(Event& event);
    bool Ask(std::uint32_t target);
    std::optional<Piece> TakePiece(std::uint32_t offset);
    bool TakeProperty(const std::optional<Piece>& first, File& file, std::uint64_t& length,
                      std::uint64_t limit);
    bool TakePieces(File& file, std::uint64_t limit);

    std::stop_token stop_;
    const char* selection_;
    xcb_connection_t* display_;
    std::uint32_t window_ = 0;
    std::uint32_t property_ = 0; ///< Of our window, where the owner puts what it gives.
    bool silent_ = false;
    bool tooLarge_ = false;
};

} // namespace pintalux
