#include "surface/window/TextBox.h"

#include "surface/window/Inputs_native.h"
#include "surface/window/KeyCodes.h"
#include "surface/window/KeyCodes_native.h"
#include "surface/window/TextPaste_native.h"

#include <limits>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QLineEdit>
#include <QPointer>

namespace pintalux {

namespace {

constexpr int kToolkitLongest = 32767;

/// The line that shows a text box. Whatever brings characters in (keys, paste, input methods) asks `KeyPress`
/// first.
class LineWidget final : public QLineEdit, public SelfPasting {
  public:
    LineWidget(TextBox& owner, QWidget* parent) : QLineEdit(parent), owner_(&owner) { setAcceptDrops(false); }
    void Orphan() { owner_ = nullptr; }

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (owner_ != nullptr && owner_->KeyDown)
            Run([&] { owner_->KeyDown(KeyCodeOf(*event), ShiftOf(*event)); });
        if (event->matches(QKeySequence::Paste)) return PasteByKey();
        const int typed = CharacterOf(*event);
        const int landing = typed == 0 ? 0 : Filtered(typed);
        if (landing == typed) return QLineEdit::keyPressEvent(event);
        if (landing != 0 && !isReadOnly()) insert(TextOf(landing));
    }
    void keyReleaseEvent(QKeyEvent* event) override {
        QLineEdit::keyReleaseEvent(event);
        if (event->isAutoRepeat() || owner_ == nullptr || !owner_->KeyUp) return;
        Run([&] { owner_->KeyUp(KeyCodeOf(*event), ShiftOf(*event)); });
    }
    void inputMethodEvent(QInputMethodEvent* event) override {
        QInputMethodEvent filtered(event->preeditString(), event->attributes());
        filtered.setCommitString(Filtered(event->commitString()), event->replacementStart(),
                                 event->replacementLength());
        QLineEdit::inputMethodEvent(&filtered);
        event->setAccepted(filtered.isAccepted());
    }
    void mouseReleaseEvent(QMouseEvent* event) override {
        if (event->button() != Qt::MiddleButton) return QLineEdit::mouseReleaseEvent(event);
        if (!QGuiApplication::clipboard()->supportsSelection()) return;
        setCursorPosition(cursorPositionAt(event->position().toPoint()));
        const QPointer<LineWidget> there = this;
        const QString before = text();
        PasteFrom(QClipboard::Selection);
        if (there != nullptr) TellOfMouse(before);
    }
    void contextMenuEvent(QContextMenuEvent* event) override {
        ShowLineMenu(
            *this, event->globalPos(), [this] { PasteFrom(QClipboard::Clipboard); },
            [this, before = text()] { TellOfMouse(before); });
    }
    void focusInEvent(QFocusEvent* event) override {
        QLineEdit::focusInEvent(event);
        if (event->reason() != Qt::PopupFocusReason && owner_ != nullptr) RunByHand(owner_->GotFocus);
    }
    void focusOutEvent(QFocusEvent* event) override {
        QLineEdit::focusOutEvent(event);
        if (event->reason() != Qt::PopupFocusReason && owner_ != nullptr) RunByHand(owner_->LostFocus);
    }

  private:
    static void Run(const std::function<void()>& handler) { RunEvent(EventKind::Ordinary, handler); }

    static QString TextOf(int character) {
        const auto code = static_cast<char32_t>(character);
        return QString::fromUcs4(&code, 1);
    }
    /// The character that a key brings in, 8 for backspace, 0 for keys that bring none.
    static int CharacterOf(const QKeyEvent& event) {
        if (event.key() == Qt::Key_Backspace) return kBackspace;
        const Qt::KeyboardModifiers held = event.modifiers();
        const bool shortcut = held.testFlag(Qt::ControlModifier) && !held.testFlag(Qt::AltModifier);
        const auto characters = event.text().toUcs4();
        if (shortcut || characters.isEmpty() || !QChar::isPrint(characters.front())) return 0;
        return static_cast<int>(characters.front());
    }
    int Filtered(int character) const {
        if (owner_ == nullptr || !owner_->KeyPress) return character;
        int landing = character;
        Run([&] { owner_->KeyPress(landing); });
        return landing;
    }
    QString Filtered(const QString& text) const {
        QString landing;
        for (const uint character : text.toUcs4()) {
            if (!QChar::isPrint(character)) continue;
            const int kept = Filtered(static_cast<int>(character));
            if (kept != 0) landing += TextOf(kept);
        }
        return landing;
    }
    /// A form that follows the keys must hear as well of what came without one.
    void TellOfMouse(const QString& before) {
        if (text() == before || owner_ == nullptr || !owner_->KeyUp) return;
        Run([&] { owner_->KeyUp(kInsert, kShiftMask); });
    }
    void PasteFrom(QClipboard::Mode mode) {
        const QPointer<LineWidget> there = this;
        const QString given = TextToPaste(mode);
        if (there == nullptr) return;
        const QString landing = Filtered(given);
        if (!landing.isEmpty() && !isReadOnly()) insert(landing);
    }
    /// Where the other program took its time, the release of the key has gone by unheard.
    void PasteByKey() {
        const QPointer<LineWidget> there = this;
        const QString before = text();
        QElapsedTimer waiting;
        waiting.start();
        PasteFrom(QClipboard::Clipboard);
        constexpr qint64 kNoWait = 30; // milliseconds
        if (there != nullptr && waiting.hasExpired(kNoWait)) TellOfMouse(before);
    }

    TextBox* owner_;
};

} // namespace

TextBox::TextBox(Container& parent, std::string name) : Control(&parent, std::move(name)) {
    auto* widget = new LineWidget(*this, ClientWidgetOf(parent));
    InstallWidget(*this, widget);
    QObject::connect(widget, &QLineEdit::textChanged, widget,
                     [this](const QString& text) { TakeByHand(text_, text.toStdString(), Change); });
}

TextBox::~TextBox() {
    if (auto* widget = WidgetAs<LineWidget>(*this)) {
        // Only ours: the toolkit, too, listens to the end of the widget, for what screen readers know of it.
        QObject::disconnect(widget, &QLineEdit::textChanged, widget, nullptr);
        widget->Orphan();
    }
}

void TextBox::Text(const std::string& value) {
    QString shown = ToQString(value);
    if (maxLength_ > 0) shown.truncate(maxLength_);
    const auto show = [&](QLineEdit& line) { line.setText(shown); };
    AssignValue(
        text_, shown.toStdString(), [&] { Quietly<QLineEdit>(*this, show); }, Change);
}

void TextBox::MaxLength(int value) {
    maxLength_ = Within(value, 0, std::numeric_limits<int>::max());
    Quietly<QLineEdit>(*this,
                       [&](QLineEdit& line) { line.setMaxLength(value == 0 ? kToolkitLongest : value); });
}

void TextBox::BackColor(Colour value) {
    backColor_ = value;
    Quietly<QLineEdit>(*this, [&](QLineEdit& line) {
        QPalette palette = line.palette();
        palette.setColor(QPalette::Base, DesktopColour(value));
        line.setPalette(palette);
    });
}

void TextBox::SelectAll() {
    Quietly<QLineEdit>(*this, [](QLineEdit& line) { line.selectAll(); });
}

} // namespace pintalux
