#include "surface/system/Clipboard.h"

#include "surface/raster/RuntimeError.h"
#include "surface/system/ClipboardData_native.h"
#include "surface/window/Events.h"

#include <optional>
#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QPointer>
#include <utility>

namespace pintalux {

ClipboardObject Clipboard;

namespace {

std::function<void()> viewerHook;

/// Watches the desktop's clipboard: tells our own writes from those of others, and remembers what was asked.
class Watch final : public QObject {
  public:
    explicit Watch(QObject* parent) : QObject(parent) {
        connect(Toolkit(), &QClipboard::dataChanged, this, [this] { Heard(); });
    }

    static QClipboard* Toolkit() { return QGuiApplication::clipboard(); }

    /// Our picture, while it is on the clipboard.
    const PictureData* Own() const {
        return own_ != nullptr && Toolkit()->mimeData() == own_ ? own_ : nullptr;
    }

    bool HasBitmap() {
        if (!hasBitmap_) hasBitmap_ = Own() != nullptr || OffersBitmap(Toolkit()->mimeData());
        return *hasBitmap_;
    }

    /// Puts `data` on the clipboard (null clears it), then runs the viewer nested, once.
    void Put(PictureData* data) {
        writing_ = true;
        own_ = data;
        if (data != nullptr) {
            Toolkit()->setMimeData(data);
        } else {
            Toolkit()->clear();
        }
        writing_ = false;
        hasBitmap_ = data != nullptr;
        cleared_ = data == nullptr;
        const auto viewer = viewerHook; // it may switch itself off
        if (viewer) viewer();
    }

  private:
    void Heard() {
        // The desktop may report our own write or clearing a second time, later.
        if (writing_ || Own() != nullptr) return;
        if (std::exchange(cleared_, false) && Toolkit()->mimeData()->formats().isEmpty()) return;
        hasBitmap_.reset();
        own_ = nullptr;
        const auto viewer = viewerHook;
        if (viewer) RunEvent(EventKind::Ordinary, viewer);
    }

    QPointer<PictureData> own_;
    std::optional<bool> hasBitmap_;
    bool writing_ = false;
    bool cleared_ = false;
};

/// One watch for the life of the program object.
Watch& TheWatch() {
    static QPointer<Watch> watch;
    if (watch == nullptr) watch = new Watch(QCoreApplication::instance());
    return *watch;
}

} // namespace

void ClipboardObject::Clear() {
    TheWatch().Put(nullptr);
}

void ClipboardObject::SetData(const Picture& picture) {
    TheWatch().Put(new PictureData(picture));
}

Picture ClipboardObject::GetData(int format) {
    if (format != CF_BITMAP) throw RuntimeError(kClipboardUnavailable);
    if (const PictureData* own = TheWatch().Own()) return own->picture;
    std::optional<Picture> picture = ReadBitmap(Watch::Toolkit()->mimeData());
    if (!picture) throw RuntimeError(kClipboardUnavailable);
    return std::move(*picture);
}

bool IsClipboardFormatAvailable(int format) {
    return format == CF_BITMAP && TheWatch().HasBitmap();
}

void SetClipboardViewer(std::function<void()> viewer) {
    viewerHook = std::move(viewer);
    TheWatch();
}

} // namespace pintalux
