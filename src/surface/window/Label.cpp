#include "surface/window/Control_native.h"
#include "surface/window/Display.h"
#include "surface/window/Fonts_native.h"
#include "surface/window/Painting_native.h"

#include <QLabel>

namespace pintalux {

namespace {

QLabel* LabelWidget(const Label& label) {
    return static_cast<QLabel*>(WidgetOf(label));
}

void SetPaletteColour(QWidget& widget, QPalette::ColorRole role, Colour colour) {
    QPalette palette = widget.palette();
    palette.setColor(role, ToQColor(colour));
    widget.setPalette(palette);
}

} // namespace

Label::Label(Container& parent, std::string name, std::string caption)
    : Control(&parent, std::move(name)), caption_(std::move(caption)) {
    auto* widget = new QLabel(ClientWidgetOf(parent));
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
    QLabel* widget = LabelWidget(*this);
    if (!widget) return;
    widget->setText(ToQString(caption_));
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
    widget->setWordWrap(value);
    FitToCaption();
}

} // namespace pintalux
