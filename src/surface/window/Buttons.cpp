#include "surface/window/Buttons.h"

#include "surface/window/FormWindow_native.h"
#include "surface/window/Icons_native.h"
#include "surface/window/Inputs_native.h"
#include "surface/window/Painting_native.h"

#include <QGroupBox>
#include <QPainter>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionButton>

#include <optional>

namespace pintalux {

namespace {

/// A push button that may show a colour instead of the desktop's face.
class PushWidget final : public QPushButton {
  public:
    using QPushButton::QPushButton;
    std::optional<QColor> face;
    std::optional<bool> open; ///< Of a head: whether its page is open.

  protected:
    // A style would mix the colour with light and shade.
    void paintEvent(QPaintEvent* event) override {
        if (open) return PaintHead();
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

  private:
    // Flat, over the full width; a triangle shows whether the page is open.
    void PaintHead() {
        constexpr int kMark = 8;
        constexpr int kGap = 4;
        QPainter painter(this);
        const QPalette& colours = palette();
        painter.fillRect(rect(),
                         colours.color(isDown() || underMouse() ? QPalette::Midlight : QPalette::Button));
        painter.fillRect(QRect(0, height() - 1, width(), 1), colours.color(QPalette::Mid));
        if (hasFocus()) PaintFocusFrame(painter, rect(), colours);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(colours.color(QPalette::ButtonText));
        painter.drawPolygon(MarkIn(QRectF(kGap, (height() - kMark) / 2.0, kMark, kMark)));
        painter.setPen(colours.color(QPalette::ButtonText));
        painter.drawText(rect().adjusted(kMark + 2 * kGap, 0, -kGap, 0), Qt::AlignVCenter | Qt::AlignLeft,
                         text());
    }
    /// A triangle that points to the text, or down to the open page.
    QPolygonF MarkIn(const QRectF& box) const {
        const double deep = box.width() * 5 / 8;
        if (*open)
            return QPolygonF({{box.left(), box.center().y() - deep / 2},
                              {box.right(), box.center().y() - deep / 2},
                              {box.center().x(), box.center().y() + deep / 2}});
        return QPolygonF({{box.center().x() - deep / 2, box.top()},
                          {box.center().x() + deep / 2, box.center().y()},
                          {box.center().x() - deep / 2, box.bottom()}});
    }
};

} // namespace

CommandButton::CommandButton(Container& parent, std::string name, std::string caption)
    : Control(&parent, std::move(name)), caption_(std::move(caption)) {
    auto* widget = new PushWidget(ToQString(caption_), ClientWidgetOf(parent));
    widget->setAutoDefault(true); // Enter presses it while it has the focus, also outside a dialog.
    InstallWidget(*this, widget, true);
    QObject::connect(widget, &QPushButton::clicked, widget, [this] { RunByHand(Click); });
}

void CommandButton::Caption(std::string value) {
    if (value == caption_) return;
    caption_ = std::move(value);
    if (auto* widget = WidgetAs<QPushButton>(*this)) widget->setText(ToQString(caption_));
}

void CommandButton::Default(bool value) {
    if (auto* widget = WidgetAs<QPushButton>(*this)) widget->setDefault(value);
}

void CommandButton::Cancel(bool value) {
    if (QWidget* widget = WidgetOf(*this)) widget->setProperty(kCancelMark, value);
}

void CommandButton::Picture(const std::string& resource) {
    if (auto* widget = WidgetAs<QPushButton>(*this)) widget->setIcon(IconOf(resource));
}

void CommandButton::HeadsPage(bool open) {
    if (auto* widget = WidgetAs<PushWidget>(*this)) {
        widget->open = open;
        widget->update();
    }
}

void CommandButton::BackColor(Colour value) {
    backColor_ = value;
    if (auto* widget = WidgetAs<PushWidget>(*this)) {
        widget->face.reset();
        if (value != kSystemMenu) widget->face = DesktopColour(value);
        widget->update();
    }
}

Frame::Frame(Container& parent, std::string name, const std::string& caption)
    : Container(&parent, std::move(name), kScaleTwips) {
    InstallWidget(*this, new QGroupBox(ToQString(caption), ClientWidgetOf(parent)));
}

int Frame::PixelWidth() const {
    return WidgetSize(*this).width();
}

int Frame::PixelHeight() const {
    return WidgetSize(*this).height();
}

} // namespace pintalux
