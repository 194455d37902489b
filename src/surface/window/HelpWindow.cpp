#include "surface/window/HelpWindow.h"

#include "surface/window/Control_native.h"
#include "surface/window/DialogOwner_native.h"

#include <QDialog>
#include <QFile>
#include <QScrollBar>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace pintalux {

namespace {

constexpr QSize kSize{640, 560};

QDialog* MakeWindow(const QString& name) {
    auto* window = new QDialog(nullptr, Qt::Window);
    window->setObjectName(name);
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
    DeleteBeforeExit(window);
    return window;
}

} // namespace

void ShowHelpPage(const std::string& title, const std::string& resource) {
    static QPointer<QDialog> window;
    const bool fresh = !window;
    if (fresh) window = MakeWindow(QStringLiteral("help"));
    auto* text = window->findChild<QTextBrowser*>();
    window->setWindowTitle(ToQString(title));
    text->setAccessibleName(ToQString(title));
    QFile page(ToQString(resource));
    if (fresh && page.open(QIODevice::ReadOnly)) text->setHtml(QString::fromUtf8(page.readAll()));
    if (!window->isVisible()) PlaceOverOwner(*window);
    window->show();
    window->raise();
    window->activateWindow();
    text->setFocus();
}

} // namespace pintalux
