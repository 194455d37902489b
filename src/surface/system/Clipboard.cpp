#include "surface/system/Clipboard.h"

#include "base/RuntimeError.h"
#include "surface/system/ClipboardData_native.h"
#include "surface/system/ClipboardHandOver_native.h"
#include "surface/window/Events.h"

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
    explicit Watch(QObject* parent) : QObject(parent), readable_(ReadableFormats(Offered())) {
        connect(Toolkit(), &QClipboard::dataChanged, this, [this] { Heard(); });
        connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this, [this] { Leave(); });
    }

    static QClipboard* Toolkit() { return QGuiApplication::clipboard(); }

    /// Our picture, while it is on the clipboard.
    const PictureData* Own() const {
        return own_ != nullptr && Toolkit()->mimeData() == own_ ? own_ : nullptr;
    }

    bool HasBitmap() const { return !readable_.isEmpty(); }

    /// The bitmap of another program. One that cannot be read counts as none until the next change.
    Picture Read() {
        const QStringList formats = std::exchange(readable_, {});
        const QMimeData* data = formats.isEmpty() ? nullptr : Toolkit()->mimeData();
        std::optional<Picture> picture;
        if (data != nullptr) picture = ReadBitmap(*data, formats);
        if (!picture) throw RuntimeError(kClipboardUnavailable);
        readable_ = formats;
        return std::move(*picture);
    }

    /// Puts `data` on the clipboard (null clears it), then runs the viewer nested, once.
    void Put(PictureData* data) {
        writing_ = true;
        own_ = data;
        readable_ = data != nullptr ? ReadableFormats(data->formats()) : QStringList();
        cleared_ = data == nullptr;
        if (data != nullptr) {
            Toolkit()->setMimeData(data);
        } else {
            Toolkit()->clear();
        }
        writing_ = false;
        const auto viewer = viewerHook; // it may switch itself off
        if (viewer) viewer();
    }

  private:
    static QStringList Offered() {
        const QMimeData* data = Toolkit()->mimeData();
        return data != nullptr ? data->formats() : QStringList();
    }

    void Heard() {
        // The desktop may report our own write or clearing a second time, later.
        if (writing_ || Own() != nullptr) return;
        // Here and nowhere else another program is asked for its formats: one that keeps silent holds us up
        // once for its change, not with every poll.
        const QStringList offered = Offered();
        readable_ = ReadableFormats(offered);
        if (std::exchange(cleared_, false) && offered.isEmpty()) return;
        own_ = nullptr;
        const auto viewer = viewerHook;
        if (viewer) RunEvent(EventKind::Ordinary, viewer);
    }

    /// At the end of the program.
    void Leave() {
        if (Own() == nullptr) return;
        writing_ = true;
        // What nobody took over is lost: the toolkit need not ask in vain once more.
        if (!HandOverClipboard()) Toolkit()->clear();
        writing_ = false;
    }

    QPointer<PictureData> own_;
    QStringList readable_; ///< The formats of the bitmap on the clipboard; empty if there is none.
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
    TheWatch().Put(picture.Empty() ? nullptr : new PictureData(picture));
}

Picture ClipboardObject::GetData(int format) {
    if (format != CF_BITMAP) throw RuntimeError(kClipboardUnavailable);
    if (const PictureData* own = TheWatch().Own()) return own->picture;
    return TheWatch().Read();
}

bool IsClipboardFormatAvailable(int format) {
    return format == CF_BITMAP && TheWatch().HasBitmap();
}

void SetClipboardViewer(std::function<void()> viewer) {
    viewerHook = std::move(viewer);
    if (viewerHook) TheWatch();
}

} // namespace pintalux
