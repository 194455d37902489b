#include "surface/window/TextPaste_native.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>

namespace pintalux {

namespace {

std::function<QString(QClipboard::Mode)> textAsker;

void PasteInto(QLineEdit& line, QClipboard::Mode mode) {
    const QPointer<QLineEdit> there = &line;
    const QString text = TextToPaste(mode);
    if (there != nullptr && !text.isEmpty() && !line.isReadOnly()) line.insert(text);
}

/// The lines in the toolkit's own dialogs.
class ToolkitLines final : public QObject {
  public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override {
        const QEvent::Type type = event->type();
        if (type != QEvent::KeyPress && type != QEvent::ContextMenu && type != QEvent::MouseButtonRelease)
            return false;
        auto* line = qobject_cast<QLineEdit*>(watched);
        if (line == nullptr || dynamic_cast<SelfPasting*>(line) != nullptr) return false;
        if (type == QEvent::KeyPress) return Key(*line, static_cast<QKeyEvent&>(*event));
        if (type == QEvent::MouseButtonRelease) return Release(*line, static_cast<QMouseEvent&>(*event));
        ShowLineMenu(*line, static_cast<QContextMenuEvent*>(event)->globalPos(),
                     [line] { PasteInto(*line, QClipboard::Clipboard); });
        return true;
    }

  private:
    static bool Key(QLineEdit& line, const QKeyEvent& event) {
        if (!event.matches(QKeySequence::Paste)) return false;
        PasteInto(line, QClipboard::Clipboard);
        return true;
    }
    static bool Release(QLineEdit& line, const QMouseEvent& event) {
        if (event.button() != Qt::MiddleButton || !QGuiApplication::clipboard()->supportsSelection())
            return false;
        line.setCursorPosition(line.cursorPositionAt(event.position().toPoint()));
        PasteInto(line, QClipboard::Selection);
        return true;
    }
};

QAction* AddItem(QMenu& menu, const QString& text, QKeySequence::StandardKey key, bool enabled) {
    const QString keys = QKeySequence(key).toString(QKeySequence::NativeText);
    QAction* item = menu.addAction(keys.isEmpty() ? text : text + '\t' + keys);
    item->setEnabled(enabled);
    return item;
}

} // namespace

void AskForTextBy(std::function<QString(QClipboard::Mode)> asker) {
    textAsker = std::move(asker);
    auto* program = QCoreApplication::instance();
    program->installEventFilter(new ToolkitLines(program));
}

QString TextToPaste(QClipboard::Mode mode) {
    return textAsker ? textAsker(mode) : QGuiApplication::clipboard()->text(mode);
}

void ShowLineMenu(QLineEdit& line, const QPoint& where, const std::function<void()>& paste,
                  const std::function<void()>& done) {
    auto* menu = new QMenu(&line);
    const bool writable = !line.isReadOnly();
    const bool plain = line.echoMode() == QLineEdit::Normal;
    const bool selected = line.hasSelectedText();
    const auto add = [&](const char* text, QKeySequence::StandardKey key, bool enabled, auto&& act) {
        QAction* item = AddItem(*menu, QLineEdit::tr(text), key, enabled);
        QObject::connect(item, &QAction::triggered, &line, act);
        return item;
    };
    const auto tell = [&](QAction* item) { // behind what the item itself does
        if (done) QObject::connect(item, &QAction::triggered, &line, done);
    };
    if (writable) {
        tell(add("&Undo", QKeySequence::Undo, line.isUndoAvailable(), [&line] { line.undo(); }));
        tell(add("&Redo", QKeySequence::Redo, line.isRedoAvailable(), [&line] { line.redo(); }));
        menu->addSeparator();
        tell(add("Cu&t", QKeySequence::Cut, selected && plain, [&line] { line.cut(); }));
    }
    tell(add("&Copy", QKeySequence::Copy, selected && plain, [&line] { line.copy(); }));
    if (writable) {
        // The wait for another program runs events, and the menu must be gone by then.
        const auto later = [&line, paste, done] {
            const auto both = [there = QPointer<QLineEdit>(&line), paste, done] {
                paste();
                if (there != nullptr && done) done();
            };
            QMetaObject::invokeMethod(&line, both, Qt::QueuedConnection);
        };
        add("&Paste", QKeySequence::Paste, true, later);
        tell(add("Delete", QKeySequence::Delete, selected, [&line] { line.del(); }));
    }
    menu->addSeparator();
    tell(add("Select All", QKeySequence::SelectAll,
             !line.text().isEmpty() && line.selectedText() != line.text(), [&line] { line.selectAll(); }));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(where);
}

} // namespace pintalux
