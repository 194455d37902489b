#include "surface/window/HelpWindow.h"

#include "surface/window/Control_native.h"
#include "surface/window/DialogOwner_native.h"

#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QKeyEvent>
#include <QPointer>
#include <QScrollBar>
#include <QTextBrowser>
#include <QVBoxLayout>
#include <utility>

namespace pintalux {

namespace {

constexpr QSize kSize{640, 560};

QDialog* MakeWindow(QWidget* owner) {
    auto* window = new QDialog(owner, Qt::Window);
    window->setObjectName(QStringLiteral("help"));
    auto* text = new QTextBrowser(window);
    text->setObjectName(QStringLiteral("helpText"));
    text->setFrameShape(QFrame::NoFrame);
    text->document()->setDocumentMargin(12);
    text->verticalScrollBar()->setAccessibleName(QStringLiteral("Deslocamento vertical"));
    text->horizontalScrollBar()->setAccessibleName(QStringLiteral("Deslocamento horizontal"));
    auto* layout = new QVBoxLayout(window);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(text);
    window->resize(kSize);
    return window;
}

/// Gives the text, which has the focus.
QTextBrowser& Show(QDialog& window, const HelpPage& page) {
    auto* text = window.findChild<QTextBrowser*>();
    window.setWindowTitle(ToQString(page.title));
    text->setAccessibleName(ToQString(page.title));
    QFile file(ToQString(page.resource));
    if (text->document()->isEmpty() && file.open(QIODevice::ReadOnly))
        text->setHtml(QString::fromUtf8(file.readAll()));
    window.show();
    window.raise();
    window.activateWindow();
    text->setFocus();
    return *text;
}

/// Short cuts of windows are dead behind a dialog.
class HelpKey final : public QObject {
  public:
    HelpKey(QObject* parent, HelpPage page) : QObject(parent), page_(std::move(page)) {}

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::KeyPress || !watched->isWidgetType()) return false;
        const auto& key = static_cast<const QKeyEvent&>(*event);
        QWidget* const dialog = QApplication::activeModalWidget();
        if (key.key() != Qt::Key_F1 || key.modifiers() != Qt::NoModifier || dialog == nullptr) return false;
        if (static_cast<QWidget*>(watched)->window() == dialog) ShowIn(*dialog);
        return true;
    }

  private:
    // A window of its own: the dialog lets none be used but those that belong to it.
    void ShowIn(QWidget& dialog) {
        auto* window = dialog.findChild<QDialog*>(QStringLiteral("help"), Qt::FindDirectChildrenOnly);
        if (window == nullptr) window = MakeWindow(&dialog);
        Show(*window, page_).scrollToAnchor(ToQString(page_.dialogs));
    }
    HelpPage page_;
};

} // namespace

void ShowHelpPage(const HelpPage& page) {
    static QPointer<QDialog> window;
    if (!window) {
        window = MakeWindow(nullptr);
        DeleteBeforeExit(window);
    }
    if (!window->isVisible()) PlaceOverOwner(*window);
    Show(*window, page);
}

void HelpInDialogs(const HelpPage& page) {
    auto* program = QCoreApplication::instance();
    delete program->findChild<QObject*>(QStringLiteral("helpKey"), Qt::FindDirectChildrenOnly);
    auto* key = new HelpKey(program, page);
    key->setObjectName(QStringLiteral("helpKey"));
    program->installEventFilter(key);
}

} // namespace pintalux
