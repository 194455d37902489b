#include "surface/window/FileDrop_native.h"

#include "surface/window/Events.h"

#include <QApplication>
#include <QDropEvent>
#include <QFile>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

#include <utility>

namespace pintalux {

namespace {

std::vector<std::string> FilesOf(const QMimeData& data) {
    std::vector<std::string> paths;
    for (const QUrl& url : data.urls())
        if (url.isLocalFile()) paths.push_back(QFile::encodeName(url.toLocalFile()).toStdString());
    return paths;
}

class FileDrops final : public QObject {
  public:
    FileDrops(QWidget& window, std::function<void(const std::vector<std::string>&)> drop)
        : QObject(&window), drop_(std::move(drop)) {
        window.setAcceptDrops(true);
        window.installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override {
        switch (event->type()) {
        case QEvent::DragEnter:
        case QEvent::DragMove:
            Answer(static_cast<QDropEvent&>(*event));
            return true;
        case QEvent::Drop:
            Take(static_cast<QDropEvent&>(*event));
            return true;
        default:
            return false;
        }
    }

  private:
    static bool Answer(QDropEvent& event) {
        const bool taken =
            QApplication::activeModalWidget() == nullptr && !FilesOf(*event.mimeData()).empty();
        // Never moved: the other program would delete its file.
        event.setDropAction(taken ? Qt::CopyAction : Qt::IgnoreAction);
        event.setAccepted(taken);
        return taken;
    }
    void Take(QDropEvent& event) {
        if (!Answer(event)) return;
        // The other program waits for the answer, and a large picture takes its time.
        QMetaObject::invokeMethod(
            this,
            [this, paths = FilesOf(*event.mimeData())] {
                RunEvent(EventKind::Ordinary, [&] { drop_(paths); });
            },
            Qt::QueuedConnection);
    }

    std::function<void(const std::vector<std::string>&)> drop_;
};

} // namespace

void TakeFileDrops(QWidget& window, std::function<void(const std::vector<std::string>&)> drop) {
    new FileDrops(window, std::move(drop)); // The window's own.
}

} // namespace pintalux
