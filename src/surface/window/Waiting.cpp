#include "surface/window/Waiting.h"

#include "surface/window/Control.h"
#include "surface/window/Events_native.h"
#include "surface/window/Screen.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEvent>
#include <QKeyEvent>

#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>

namespace pintalux {

namespace {

/// Nobody feels a stop of this length, and no pointer flickers.
constexpr std::chrono::milliseconds kMoment{60};

bool waiting = false;

/// Whether an event is something that a hand does.
bool FromHand(QEvent::Type type) {
    switch (type) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::InputMethod:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::NonClientAreaMouseButtonPress:
    case QEvent::NonClientAreaMouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletRelease:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
    case QEvent::Close:
        return true;
    default:
        return false;
    }
}

/// Whether an event asks for something that must not be promised: a close, or files from another program,
/// which would count as moved here.
bool MustBeRefused(QEvent::Type type) {
    return type == QEvent::Close || type == QEvent::DragEnter || type == QEvent::DragMove ||
           type == QEvent::Drop;
}

/// Takes what a hand does from all windows, and notices Escape.
class HandsOff final : public QObject {
  public:
    explicit HandsOff(std::jthread& worker) : worker_(worker) {
        QCoreApplication::instance()->installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override {
        if (!FromHand(event->type())) return false;
        if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape)
            worker_.request_stop();
        // A short cut that is accepted here is not looked for in the menus.
        event->setAccepted(!MustBeRefused(event->type()));
        return true;
    }

  private:
    std::jthread& worker_;
};

/// What makes a wait visible, as long as it lasts.
class Shown {
  public:
    Shown() : pointerBefore_(Screen.MousePointer()) {
        waiting = true;
        Screen.MousePointer(kPointerHourglass);
    }
    Shown(const Shown&) = delete;
    Shown& operator=(const Shown&) = delete;
    ~Shown() {
        Screen.MousePointer(pointerBefore_);
        waiting = false;
    }

  private:
    int pointerBefore_;
};

/// The work on its thread.
class Work {
  public:
    explicit Work(const std::function<void(const std::stop_token&)>& work)
        : thread_([this, &work](const std::stop_token& stop) { Run(work, stop); }) {}

    void Wait() {
        if (!OverWithin(kMoment)) WaitVisibly();
        thread_.join();
        if (error_) std::rethrow_exception(error_);
    }

  private:
    void Run(const std::function<void(const std::stop_token&)>& work, const std::stop_token& stop) {
        try {
            work(stop);
        } catch (...) {
            error_ = std::current_exception();
        }
        const std::lock_guard hold(lock_);
        over_ = true;
        changed_.notify_all();
        if (QAbstractEventDispatcher* const dispatcher = QCoreApplication::eventDispatcher())
            dispatcher->wakeUp();
    }

    bool OverWithin(std::chrono::milliseconds time) {
        std::unique_lock hold(lock_);
        return changed_.wait_for(hold, time, [this] { return over_; });
    }

    void WaitVisibly() {
        const RunningHandler running; // What waits for the end of all handlers waits for this, too.
        const Shown shown;
        const HandsOff handsOff(thread_);
        while (!OverWithin({}))
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

    std::mutex lock_;
    std::condition_variable changed_;
    bool over_ = false;
    std::exception_ptr error_;
    std::jthread thread_; // Last: it uses the rest.
};

} // namespace

void WorkWhileWaiting(const std::function<void(const std::stop_token&)>& work) {
    if (waiting) return work({});
    Work(work).Wait();
}

bool Waiting() {
    return waiting;
}

} // namespace pintalux
