#include "surface/system/Clipboard.h"

#include "base/RuntimeError.h"
#include "surface/system/ClipboardData_native.h"
#include "surface/system/ClipboardHandOver_native.h"
#include "surface/system/ClipboardOwner_native.h"
#include "surface/system/ClipboardServer_native.h"
#include "surface/system/FreeMemory.h"
#include "surface/window/Events.h"
#include "surface/window/Waiting.h"

#include <atomic>
#include <memory>
#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QPointer>
#include <thread>
#include <utility>
#include <vector>

namespace pintalux {

ClipboardObject Clipboard;

namespace {

std::function<void()> viewerHook;
std::function<bool()> capturesHook;

/// Threads that ask other programs and decode what they give.
class Askers {
  public:
    void Start(std::function<void(const std::stop_token&)> work) {
        std::erase_if(askers_, [](const Asker& asker) { return asker.over->load(); });
        const auto over = std::make_shared<std::atomic<bool>>(false);
        askers_.push_back({over, std::jthread([over, work](const std::stop_token& stop) {
                               ResumeNext([&] { work(stop); });
                               over->store(true);
                           })});
    }
    /// Soon; nobody waits for it.
    void StopAll() {
        for (Asker& asker : askers_)
            asker.thread.request_stop();
    }

  private:
    struct Asker {
        std::shared_ptr<std::atomic<bool>> over;
        std::jthread thread;
    };
    std::vector<Asker> askers_;
};

/// Watches the desktop's clipboard: tells our own writes from those of others, and remembers what was asked.
/// Whatever another program has to say is waited for on a thread of its own.
class Watch final : public QObject {
  public:
    explicit Watch(QObject* parent) : QObject(parent) {
        connect(Toolkit(), &QClipboard::dataChanged, this, [this] { Heard(); });
        connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this, [this] { Leave(); });
        if (ClipboardOwner::Reachable())
            server_ = std::make_unique<ClipboardServer>(
                [this] { return Own() != nullptr ? Own()->picture : Picture(); });
        Look(false); // what was there before is no change
    }

    static QClipboard* Toolkit() { return QGuiApplication::clipboard(); }

    /// Our picture, while it is on the clipboard.
    const PictureData* Own() const {
        return own_ != nullptr && Toolkit()->mimeData() == own_ ? own_ : nullptr;
    }

    bool HasBitmap() const { return !readable_.isEmpty(); }

    Picture Bitmap() {
        if (const PictureData* own = Own()) {
            const Picture& picture = own->picture;
            if (telling_ && PictureBytes(picture.Width(), picture.Height()) > LargestCapture())
                throw RuntimeError(kClipboardUnavailable);
            return picture;
        }
        if (captured_ && captured_->outcome == Fetch::Taken) return captured_->picture;
        if (telling_ && captured_) throw RuntimeError(kClipboardUnavailable);
        return Read();
    }

    /// Puts `data` on the clipboard (null clears it), then runs the viewer nested, once.
    void Put(PictureData* data) {
        Forget();
        writing_ = true;
        own_ = data;
        readable_ = data != nullptr ? ReadableFormats(data->formats()) : QStringList();
        cleared_ = data == nullptr;
        put_ = data != nullptr ? data->picture : Picture();
        if (server_) server_->Renew();
        if (data != nullptr) Toolkit()->setMimeData(data);
        writing_ = false;
        if (data == nullptr) ClearSoon();
        Tell();
    }

  private:
    /// A capture leaves out what would take more than this of memory.
    static std::uint64_t LargestCapture() { return MachineMemory() / 8; }

    /// What was asked about the bitmap before is of no use any more.
    void Forget() {
        ++change_;
        askers_.StopAll();
        readable_.clear();
        captured_.reset();
    }

    /// Runs `answer` here, from any thread, unless the clipboard has changed since.
    void Return(int change, const std::function<void()>& answer) {
        const auto run = [this, change, answer] {
            if (change == change_) answer();
        };
        QMetaObject::invokeMethod(this, run, Qt::QueuedConnection);
    }

    /// Unless something is put there at once: managers of the desktop bring back what was there before when
    /// they see it empty, over what comes next.
    void ClearSoon() {
        Return(change_, [this] {
            writing_ = true;
            Toolkit()->clear();
            writing_ = false;
        });
    }

    void Heard() {
        // The desktop may report our own write or clearing a second time, later.
        if (writing_ || Own() != nullptr) return;
        own_ = nullptr;
        Look(true);
    }

    /// Asks what is offered: here and nowhere else, once for a change and not with every poll.
    void Look(bool tell) {
        Forget();
        if (!ClipboardOwner::Reachable()) {
            const QMimeData* data = Toolkit()->mimeData();
            return Learn(data != nullptr ? data->formats() : QStringList(), tell);
        }
        askers_.Start([this, tell, change = change_](const std::stop_token& stop) {
            const QStringList offered = ClipboardOwner(stop).Formats();
            Return(change, [this, tell, offered] { Learn(offered, tell); });
        });
    }

    void Learn(const QStringList& offered, bool tell) {
        readable_ = ReadableFormats(offered);
        if (std::exchange(cleared_, false) && offered.isEmpty()) return;
        if (!tell) return;
        if (readable_.isEmpty() || !capturesHook || !capturesHook()) return TellAtLast();
        if (ClipboardOwner::Reachable()) return Capture();
        CaptureByToolkit(readable_);
    }

    /// The viewer hears of the bitmap when it is here, so that it waits for nobody.
    void Capture() {
        askers_.Start([this, formats = readable_, put = put_, change = change_](const std::stop_token& stop) {
            FetchedBitmap found;
            ResumeNext([&] { found = FetchBitmap(formats, LargestCapture(), stop); });
            const bool ours = found.outcome == Fetch::Taken && found.picture == put;
            Return(change, [this, found, ours] { Captured(found, ours); });
        });
    }

    /// The same where the toolkit alone can ask; decoding at least is done elsewhere.
    void CaptureByToolkit(QStringList formats) {
        bool silent = false;
        std::shared_ptr<File> bytes;
        while (bytes == nullptr && !silent && !formats.isEmpty())
            if (auto given = AskToolkit(*Toolkit()->mimeData(), formats.takeFirst(), silent))
                bytes = std::make_shared<File>(std::move(*given));
        if (bytes == nullptr) return Captured({}, false);
        askers_.Start([this, bytes, formats, put = put_, change = change_](const std::stop_token& stop) {
            FetchedBitmap found;
            ResumeNext([&] { found = DecodeBitmap(*bytes, LargestCapture(), stop); });
            const bool ours = found.outcome == Fetch::Taken && found.picture == put;
            Return(change, [this, found, ours, formats] {
                if (found.outcome == Fetch::Unreadable) return CaptureByToolkit(formats);
                Captured(found, ours);
            });
        });
    }

    /// A manager of the desktop may take over what was copied here, in order to keep it: nothing new.
    void Captured(const FetchedBitmap& found, bool ours) {
        captured_ = found;
        if (ours) return;
        put_ = {};
        const int change = change_;
        TellAtLast();
        // Only now: the viewer hears of a bitmap, also of one that cannot be had.
        const bool failed = found.outcome == Fetch::Unreadable || found.outcome == Fetch::Silent;
        if (failed && change == change_) readable_.clear();
    }

    /// The bitmap of another program. One that cannot be read counts as none until the next change.
    Picture Read() {
        const QStringList formats = std::exchange(readable_, {});
        FetchedBitmap found;
        const int change = change_;
        try {
            found = ClipboardOwner::Reachable() ? AskWaiting(formats) : AskToolkitWaiting(formats);
        } catch (const RuntimeError& error) {
            if (error.Number() == kInterrupted && change == change_) readable_ = formats;
            throw;
        }
        if (found.outcome != Fetch::Taken) throw RuntimeError(kClipboardUnavailable);
        if (change == change_) readable_ = formats;
        return found.picture;
    }

    static FetchedBitmap AskWaiting(const QStringList& formats) {
        FetchedBitmap found;
        if (formats.isEmpty()) return found;
        WorkWhileWaiting([&](const std::stop_token& stop) { found = FetchBitmap(formats, kAnySize, stop); });
        return found;
    }

    static FetchedBitmap AskToolkitWaiting(const QStringList& formats) {
        FetchedBitmap found;
        bool silent = false;
        for (const QString& format : formats) {
            std::optional<File> bytes = AskToolkit(*Toolkit()->mimeData(), format, silent);
            if (silent) break;
            if (!bytes) continue;
            WorkWhileWaiting(
                [&](const std::stop_token& stop) { found = DecodeBitmap(*bytes, kAnySize, stop); });
            if (found.outcome == Fetch::Taken) break;
        }
        return found;
    }

    void Tell() {
        const auto viewer = viewerHook; // it may switch itself off
        if (!viewer) return;
        const bool before = std::exchange(telling_, true);
        try {
            viewer();
        } catch (...) {
            telling_ = before;
            throw;
        }
        telling_ = before;
    }
    void TellAtLast() {
        RunEvent(EventKind::Ordinary, [this] { Tell(); });
    }

    /// At the end of the program.
    void Leave() {
        Forget();
        if (Own() == nullptr || !server_) return;
        writing_ = true;
        // The toolkit need not ask in vain once more; a manager that never answers brings back what it has.
        if (!HandOverClipboard(*server_)) Toolkit()->clear();
        writing_ = false;
        server_.reset();
    }

    QPointer<PictureData> own_;
    Picture put_;                           ///< What we put there last, until something else is.
    QStringList readable_;                  ///< The formats of the bitmap on the clipboard; empty if none.
    std::optional<FetchedBitmap> captured_; ///< What came of the last capture, until the next change.
    int change_ = 0;
    bool writing_ = false;
    bool cleared_ = false;
    bool telling_ = false;                    ///< The viewer runs.
    std::unique_ptr<ClipboardServer> server_; ///< On X11.
    Askers askers_;                           ///< Last: they use the rest.
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
    return TheWatch().Bitmap();
}

bool IsClipboardFormatAvailable(int format) {
    return format == CF_BITMAP && TheWatch().HasBitmap();
}

void SetClipboardViewer(std::function<void()> viewer, std::function<bool()> captures) {
    viewerHook = std::move(viewer);
    capturesHook = std::move(captures);
    if (viewerHook) TheWatch();
}

} // namespace pintalux
