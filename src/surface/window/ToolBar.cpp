#include "surface/window/ToolBar.h"

#include "base/RuntimeError.h"
#include "surface/window/Accessible_native.h"
#include "surface/window/Icons_native.h"
#include "surface/window/Inputs_native.h"
#include "surface/window/ToolBar_native.h"

#include <algorithm>
#include <QAccessible>

namespace pintalux {

namespace {

constexpr int kImageSizeAtStart = 24;

} // namespace

ToolButton::ToolButton(ToolBar& bar, int index)
    : bar_(bar), index_(index), native_(std::make_unique<ToolButtonNative>()) {}

ToolButton::~ToolButton() = default;

void ToolButton::Enabled(bool value) {
    if (value == enabled_) return;
    enabled_ = value;
    if (native_->button == nullptr) return;
    native_->button->setEnabled(value);
    if (auto* bar = WidgetAs<BarWidget>(bar_)) bar->KeepTabStop();
}

void ToolButton::Value(int value) {
    if (Within(value, 0, 1) == value_ || style_ == ButtonStyle::Default || style_ == ButtonStyle::Separator)
        return;
    if (value == 1) {
        bar_.Press(*this);
    } else {
        ShowPressed(0);
    }
}

void ToolButton::ShowPressed(int value) {
    value_ = value;
    if (native_->button == nullptr) return;
    const QSignalBlocker blocker(native_->button);
    native_->button->setChecked(value == 1);
}

void ToolButton::Image(std::string resource) {
    image_ = std::move(resource);
    QToolButton* button = native_->button;
    if (button == nullptr) return;
    const QIcon icon = IconOf(image_);
    const bool present = !icon.isNull();
    button->setIcon(icon);
    button->setText(present ? QString() : ToQString(caption_.empty() ? key_ : caption_));
    button->setToolButtonStyle(present ? Qt::ToolButtonIconOnly : Qt::ToolButtonTextOnly);
    if (auto* bar = WidgetAs<BarWidget>(bar_)) bar->Arrange();
}

ToolBar::ToolBar(Container& parent, std::string name, const std::vector<Row>& rows)
    : Control(&parent, std::move(name)) {
    auto* widget = new BarWidget(ClientWidgetOf(parent));
    InstallWidget(*this, widget, true);
    for (const Row& row : rows)
        AddButton(row);
    ImageSize(kImageSizeAtStart);
    widget->KeepTabStop();
}

ToolBar::~ToolBar() = default;

void ToolBar::AddButton(const Row& row) {
    auto* bar = WidgetAs<BarWidget>(*this);
    buttons_.push_back(std::unique_ptr<ToolButton>(new ToolButton(*this, ButtonCount() + 1)));
    ToolButton& button = *buttons_.back();
    const auto textOf = [](const char* text) { return text == nullptr ? std::string() : std::string(text); };
    button.style_ = row.key == nullptr ? ButtonStyle::Separator : row.style;
    if (button.style_ == ButtonStyle::Separator) return bar->AddSeparator();
    button.key_ = row.key;
    button.caption_ = textOf(row.caption);
    button.toolTip_ = textOf(row.toolTip);
    QToolButton* widget = bar->AddButton();
    button.native_->button = widget;
    if (button.style_ == ButtonStyle::ButtonGroup)
        widget->setProperty(kSpokenRole, int{QAccessible::RadioButton}); // Before it is first spoken of.
    widget->setObjectName(ToQString(Name() + "_" + button.key_));
    widget->setToolTip(ToQString(button.toolTip_));
    for (const std::string& name : {textOf(row.spoken), button.caption_, button.toolTip_, button.key_})
        if (widget->accessibleName().isEmpty()) widget->setAccessibleName(ToQString(name));
    widget->setCheckable(button.style_ != ButtonStyle::Default);
    button.Image(textOf(row.image));
    widget->show();
    QObject::connect(widget, &QToolButton::clicked, widget,
                     [this, &button](bool pressed) { ClickedByHand(button, pressed); });
}

ToolButton& ToolBar::Buttons(int index) {
    if (index < 1 || index > ButtonCount()) throw RuntimeError(kSubscriptOutOfRange);
    return *buttons_[static_cast<std::size_t>(index - 1)];
}

ToolButton& ToolBar::Buttons(const std::string& key) {
    const auto found = std::find_if(buttons_.begin(), buttons_.end(), [&](const auto& button) {
        return button->style_ != ButtonStyle::Separator && button->key_ == key;
    });
    if (found == buttons_.end()) throw RuntimeError(kSubscriptOutOfRange, key);
    return **found;
}

double ToolBar::HeightFor(double width) const {
    const auto* bar = WidgetAs<BarWidget>(*this);
    return bar == nullptr ? Height()
                          : bar->heightForWidth(PixelsAround(*this, width)) * UnitsPerPixelAround(*this);
}

void ToolBar::ImageSize(int pixels) {
    for (const auto& button : buttons_)
        if (button->native_->button != nullptr) button->native_->button->setIconSize({pixels, pixels});
    if (auto* bar = WidgetAs<BarWidget>(*this)) bar->Arrange();
}

void ToolBar::Press(ToolButton& button) {
    button.ShowPressed(1);
    if (button.style_ != ButtonStyle::ButtonGroup) return;
    const auto releaseFrom = [&](int index, int step) {
        for (; index >= 1 && index <= ButtonCount(); index += step) {
            ToolButton& other = Buttons(index);
            if (other.style_ != ButtonStyle::ButtonGroup) return;
            if (other.value_ == 1) other.ShowPressed(0);
        }
    };
    releaseFrom(button.index_ - 1, -1);
    releaseFrom(button.index_ + 1, 1);
}

void ToolBar::ClickedByHand(ToolButton& button, bool pressed) {
    // The toolkit has released a pressed group button already; it stays pressed, and the click counts all the
    // same.
    if (button.style_ == ButtonStyle::ButtonGroup) Press(button);
    if (button.style_ == ButtonStyle::Check) button.value_ = pressed ? 1 : 0;
    if (ButtonClick) RunEvent(EventKind::Ordinary, [&] { ButtonClick(button); });
}

} // namespace pintalux
