#include "surface/window/Buttons.h"

#include "surface/window/Inputs_native.h"

#include <QFile>
#include <QGroupBox>
#include <QKeyEvent>
#include <QPainter>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionButton>

#include <optional>

namespace pintalux {

namespace {

/// A push button that hears Enter and Escape of its whole window: what no control of the window took arrives
/// there.
class PushWidget final : public QPushButton {
  public:
    using QPushButton::QPushButton;
    bool isDefaultOfForm = false;
    bool isCancelOfForm = false;
    std::optional<QColor> face; ///< Shown instead of the desktop's.

    void ListenToWindow() {
        window()->removeEventFilter(this);
        window()->installEventFilter(this);
    }

  protected:
    // A style would mix the colour with light and shade.
    void paintEvent(QPaintEvent* event) override {
        QPushButton::paintEvent(event);
        if (!face) return;
        constexpr int kEdge = 4;
        constexpr int kReadableOnBlack = 128;
        QStyleOptionButton option;
        initStyleOption(&option);
        QPainter painter(this);
        painter.fillRect(rect().adjusted(kEdge, kEdge, -kEdge, -kEdge), *face);
        painter.setPen(qGray(face->rgb()) < kReadableOnBlack ? Qt::white : Qt::black);
        int flags = Qt::AlignCenter | Qt::TextShowMnemonic;
        if (style()->styleHint(QStyle::SH_UnderlineShortcut, &option, this) == 0)
            flags |= Qt::TextHideMnemonic;
        painter.drawText(rect(), flags, text());
    }
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched != window() || event->type() != QEvent::KeyPress) return false;
        const auto* key = static_cast<QKeyEvent*>(event);
        const bool enter = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
        const bool escape = key->key() == Qt::Key_Escape;
        if (!(enter && isDefaultOfForm) && !(escape && isCancelOfForm)) return false;
        if (!isVisible() || !isEnabled()) return false;
        // A held key must not press the button of the window that comes next.
        if (!key->isAutoRepeat()) click();
        return true;
    }
    void initStyleOption(QStyleOptionButton* option) const override {
        QPushButton::initStyleOption(option);
        const auto* focused = qobject_cast<QPushButton*>(window()->focusWidget());
        const bool enterPressesIt = focused == nullptr ? isDefaultOfForm : focused == this;
        option->features.setFlag(QStyleOptionButton::DefaultButton, enterPressesIt);
    }
};

} // namespace

CommandButton::CommandButton(Container& parent, std::string name, std::string caption)
    : Control(&parent, std::move(name)), caption_(std::move(caption)) {
    auto* widget = new PushWidget(ToQString(caption_), ClientWidgetOf(parent));
    widget->setAutoDefault(true); // Enter presses it while it has the focus
    InstallWidget(*this, widget, true);
    QObject::connect(widget, &QPushButton::clicked, widget, [this] { RunByHand(Click); });
}

void CommandButton::Caption(std::string value) {
    if (value == caption_) return;
    caption_ = std::move(value);
    if (auto* widget = WidgetAs<QPushButton>(*this)) widget->setText(ToQString(caption_));
}

void CommandButton::Default(bool value) {
    if (auto* widget = WidgetAs<PushWidget>(*this)) {
        widget->isDefaultOfForm = value;
        widget->ListenToWindow();
        widget->update();
    }
}

void CommandButton::Cancel(bool value) {
    if (auto* widget = WidgetAs<PushWidget>(*this)) {
        widget->isCancelOfForm = value;
        widget->ListenToWindow();
    }
}

void CommandButton::Picture(const std::string& resource) {
    const QString file = ToQString(resource);
    if (auto* widget = WidgetAs<QPushButton>(*this))
        widget->setIcon(QFile::exists(file) ? QIcon(file) : QIcon());
}

void CommandButton::BackColor(Colour value) {
    backColor_ = value;
    if (auto* widget = WidgetAs<PushWidget>(*this)) {
        widget->face.reset();
        if (value != kSystemMenu) widget->face = DesktopColour(value);
        widget->update();
    }
}

Frame::Frame(Container& parent, std::string name, std::string caption)
    : Container(&parent, std::move(name), kScaleTwips) {
    InstallWidget(*this, new QGroupBox(ToQString(caption), ClientWidgetOf(parent)));
}

int Frame::PixelWidth() const {
    const QWidget* widget = WidgetOf(*this);
    return widget == nullptr ? 0 : widget->width();
}

int Frame::PixelHeight() const {
    const QWidget* widget = WidgetOf(*this);
    return widget == nullptr ? 0 : widget->height();
}

} // namespace pintalux
