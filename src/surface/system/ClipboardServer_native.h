// What this program has on the X clipboard, given to other programs over a connection of its own.
#pragma once

#include "surface/raster/Bitmap.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <QAbstractNativeEventFilter>

namespace pintalux {

/// The toolkit owns the clipboard; what is asked of it is taken away from it and answered on a thread of its
/// own. The toolkit would encode a whole picture on the interface's thread, and then send it in pieces that
/// are small: a photograph took a second.
class ClipboardServer final : public QAbstractNativeEventFilter {
  public:
    /// `offered` gives our picture while it is on the clipboard. For the interface's thread, where there is
    /// an X display.
    explicit ClipboardServer(std::function<Picture()> offered);
    ~ClipboardServer() override;
    ClipboardServer(const ClipboardServer&) = delete;
    ClipboardServer& operator=(const ClipboardServer&) = delete;

    /// Another picture was put on the clipboard: nobody has that one yet.
    void Renew();
    /// Whether the program that made this window has taken the picture whole.
    bool HasGivenTo(std::uint32_t window) const;
    /// A number that grows with everything that other programs ask or take.
    std::uint64_t Signs() const;

    bool nativeEventFilter(const QByteArray& kind, void* message, qintptr* result) override;

  private:
    class Thread;
    std::function<Picture()> offered_;
    std::unique_ptr<Thread> thread_;
};

} // namespace pintalux
