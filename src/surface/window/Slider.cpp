#include "surface/window/Slider.h"

#include "base/Arithmetic.h"
#include "surface/window/Display.h"
#include "surface/window/Inputs_native.h"

#include <algorithm>
#include <limits>
#include <QHelpEvent>
#include <QLabel>
#include <QPointer>
#include <QSlider>
#include <QStyleOptionSlider>
#include <QToolTip>

namespace pintalux {

namespace {

int Positive(int value) {
    return Within(value, 1, std::numeric_limits<int>::max());
}

/// A number at the right end of a label.
class ValueText final : public QLabel {
  public:
    explicit ValueText(QWidget* label) : QLabel(label) {
        setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        setTextFormat(Qt::PlainText);
        setAttribute(Qt::WA_TransparentForMouseEvents);
        label->installEventFilter(this);
        setEnabled(false); // dimmed, and still read on the window's ground
        show();
    }
    void Show(int value) {
        setText(QString::number(value));
        Place();
    }

  protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Resize) Place();
        return false;
    }
    void changeEvent(QEvent* event) override {
        QLabel::changeEvent(event);
        if (event->type() == QEvent::FontChange) Place();
    }

  private:
    void Place() {
        const QRect around = parentWidget()->rect();
        const int width = sizeHint().width();
        setGeometry(around.right() + 1 - width, around.top(), width, around.height());
    }
};

/// Shows its value in a bubble while it moves, and behind its tip.
class SliderWidget final : public QSlider {
  public:
    explicit SliderWidget(QWidget* parent) : QSlider(Qt::Horizontal, parent) {
        connect(this, &QSlider::sliderPressed, this, [this] { ShowBubble(); });
        connect(this, &QSlider::sliderReleased, this, [] { QToolTip::hideText(); });
    }

    void ShowValueIn(QWidget& label) {
        text_ = new ValueText(&label);
        text_->Show(value());
    }

  protected:
    // By hand alone: what code assigns comes without signals and without a bubble.
    void sliderChange(SliderChange change) override {
        QSlider::sliderChange(change);
        if (change == SliderValueChange && text_ != nullptr) text_->Show(value());
        if (change == SliderValueChange && isVisible() && !signalsBlocked()) ShowBubble();
    }
    bool event(QEvent* event) override {
        if (event->type() != QEvent::ToolTip) return QSlider::event(event);
        const QString value = QString::number(this->value());
        const bool alone = toolTip().isEmpty() || toolTip() == value;
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                           alone ? value : toolTip() + ": " + value, this);
        return true;
    }
    void hideEvent(QHideEvent* event) override {
        QSlider::hideEvent(event);
        QToolTip::hideText();
    }

  private:
    // Keys and the wheel say no end: there the bubble goes a moment after the last step.
    void ShowBubble() {
        QStyleOptionSlider option;
        initStyleOption(&option);
        const QRect handle =
            style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this);
        constexpr int kMoment = 1500;  // ms
        constexpr int kWhileHeld = -1; // the toolkit's own time
        QToolTip::showText(mapToGlobal(handle.topRight()), QString::number(value()), this, rect(),
                           isSliderDown() ? kWhileHeld : kMoment);
    }

    QPointer<ValueText> text_;
};

} // namespace

Slider::Slider(Container& parent, std::string name, int min, int max)
    : RangeControl(parent, std::move(name), min, max) {
    auto* widget = new SliderWidget(ClientWidgetOf(parent));
    widget->setTickPosition(QSlider::TicksBelow);
    widget->setPageStep(1);
    InstallWidget(*this, widget);
    Follow();
}

void Slider::ShowValueIn(Label& label) {
    auto* widget = WidgetAs<SliderWidget>(*this);
    QWidget* const beside = WidgetOf(label);
    if (widget != nullptr && beside != nullptr) widget->ShowValueIn(*beside);
}

int Slider::Whole(double value) const {
    return ToInt32(value);
}

void Slider::Min(int value) {
    Range(value, std::max(value, Max()));
}

void Slider::Max(int value) {
    Range(std::min(Min(), value), value);
}

void Slider::SmallChange(int value) {
    Quietly<QSlider>(*this, [step = Positive(value)](QSlider& slider) { slider.setSingleStep(step); });
}

void Slider::LargeChange(int value) {
    Quietly<QSlider>(*this, [step = Positive(value)](QSlider& slider) { slider.setPageStep(step); });
}

void Slider::TickFrequency(int value) {
    Quietly<QSlider>(*this, [step = Positive(value)](QSlider& slider) { slider.setTickInterval(step); });
}

} // namespace pintalux
