#include "surface/window/Control_native.h"
#include "surface/window/Display.h"
#include "surface/window/Fonts_native.h"
#include "surface/window/Painting_native.h"

#include <QLabel>

namespace pintalux {

namespace {

/// A label that may be pressed shows where the focus is.
class FramedLabel final : public QLabel {
  public:
    using QLabel::QLabel;

  protected:
    void paintEvent(QPaintEvent* event) override {
        QLabel::paintEvent(event);
        // One that hands its focus on, as the text that floats, looks like what it will print.
        if (hasFocus() && focusProxy() == nullptr) PaintFocusFrame(*this);
    }
};

QLabel* LabelWidget(const Label& label) {
    return static_cast<QLabel*>(WidgetOf(label));
}

void SetPaletteColour(QWidget& widget, QPalette::ColorRole role, Colour colour) {
    QPalette palette = widget.palette();
    palette.setColor(role, ToQColor(colour));
    widget.setPalette(palette);
}

// The toolkit breaks a line between words alone, so that a word without end would make its window as wide.
// Invisible marks tell it where else it may.
QString WithBreaks(const QString& text) {
    constexpr int kLongestWord = 24;
    constexpr QChar kMayBreak(0x200B);
    QString shown;
    int length = 0;
    for (const QChar c : text) {
        length = c.isSpace() ? 0 : length + 1;
        // A character of two halves stays whole.
        if (length > kLongestWord && !c.isLowSurrogate()) shown += kMayBreak;
        shown += c;
    }
    return shown;
}

} // namespace

Label::Label(Container& parent, std::string name, std::string caption)
    : Control(&parent, std::move(name)), caption_(std::move(caption)) {
    auto* widget = new FramedLabel(ClientWidgetOf(parent));
    widget->setTextFormat(Qt::PlainText);
    InstallWidget(*this, widget);
    widget->setText(ToQString(caption_));
    FitToCaption();
}

void Label::FitToCaption() {
    QLabel* widget = LabelWidget(*this);
    if (!widget || sized_ || native_->place) return;
    widget->adjustSize();
    ControlNative::TakePlace(*this, QRect(PixelPlace(*this).topLeft(), widget->size()));
}

void Label::Placed() {
    const QWidget* widget = LabelWidget(*this);
    // A size other than the fitting one was assigned: from now on the label keeps it.
    if (widget && !native_->place && PixelPlace(*this).size() != widget->size()) sized_ = true;
    Control::Placed();
}

void Label::Caption(std::string value) {
    if (value == caption_) return;
    caption_ = std::move(value);
    ShowCaption();
}

void Label::ShowCaption() {
    QLabel* widget = LabelWidget(*this);
    if (!widget) return;
    const QString text = ToQString(caption_);
    widget->setText(wordWrap_ ? WithBreaks(text) : text);
    // A page of text takes the room that there is, so that its window stays lower than the screen.
    constexpr qsizetype kPage = 400; // characters
    if (wordWrap_ && text.size() > kPage && widget->maximumWidth() < QWIDGETSIZE_MAX)
        widget->setMinimumWidth(widget->maximumWidth());
    FitToCaption();
}

void Label::ForeColor(Colour value) {
    foreColor_ = value;
    if (QLabel* widget = LabelWidget(*this)) SetPaletteColour(*widget, QPalette::WindowText, value);
}

void Label::BackColor(Colour value) {
    QLabel* widget = LabelWidget(*this);
    if (!widget) return;
    widget->setAutoFillBackground(value != -1);
    if (value != -1) SetPaletteColour(*widget, QPalette::Window, value);
}

void Label::FontChanged() {
    QLabel* widget = LabelWidget(*this);
    if (!widget) return;
    widget->setFont(ToQFont(font_));
    FitToCaption();
}

void Label::FontName(std::string value) {
    font_.name = std::move(value);
    FontChanged();
}

void Label::FontSize(double value) {
    font_.size = value;
    FontChanged();
}

void Label::FontBold(bool value) {
    font_.bold = value;
    FontChanged();
}

void Label::FontItalic(bool value) {
    font_.italic = value;
    FontChanged();
}

void Label::FontUnderline(bool value) {
    font_.underline = value;
    FontChanged();
}

void Label::FontStrikethru(bool value) {
    font_.strikethru = value;
    FontChanged();
}

void Label::Alignment(int value) {
    const Qt::Alignment horizontal = value == 1   ? Qt::AlignRight
                                     : value == 2 ? Qt::AlignHCenter
                                                  : Qt::AlignLeft;
    if (QLabel* widget = LabelWidget(*this)) widget->setAlignment(horizontal | Qt::AlignVCenter);
}

void Label::WordWrap(bool value) {
    QLabel* widget = LabelWidget(*this);
    if (!widget) return;
    wordWrap_ = value;
    widget->setWordWrap(value);
    ShowCaption();
}

void Label::WidestLine(double twips) {
    if (QLabel* widget = LabelWidget(*this))
        widget->setMaximumWidth(static_cast<int>(twips / kTwipsPerPixel));
}

} // namespace pintalux
