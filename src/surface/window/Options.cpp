#include "surface/window/Options.h"

#include "surface/window/Inputs_native.h"

#include <QCheckBox>
#include <QRadioButton>

namespace pintalux {

namespace {

/// A radio button that knows its control, so that the options of a container find each other.
class OptionWidget final : public QRadioButton {
  public:
    OptionWidget(OptionButton& option, const QString& text, QWidget* parent)
        : QRadioButton(text, parent), owner(&option) {}
    OptionButton* owner;
};

} // namespace

CheckBox::CheckBox(Container& parent, std::string name, std::string caption)
    : Control(&parent, std::move(name)) {
    auto* widget = new QCheckBox(ToQString(caption), ClientWidgetOf(parent));
    InstallWidget(*this, widget, true);
    QObject::connect(widget, &QCheckBox::clicked, widget,
                     [this](bool checked) { TakeByHand(value_, checked ? 1 : 0, Click); });
}

void CheckBox::Value(int value) {
    const auto show = [&](QCheckBox& box) { box.setChecked(value == 1); };
    AssignValue(
        value_, Within(value, 0, 1), [&] { Quietly<QCheckBox>(*this, show); }, Click);
}

OptionButton::OptionButton(Container& parent, std::string name, std::string caption)
    : Control(&parent, std::move(name)) {
    auto* widget = new OptionWidget(*this, ToQString(caption), ClientWidgetOf(parent));
    InstallWidget(*this, widget, true);
    QObject::connect(widget, &QRadioButton::clicked, widget, [this] {
        ClearSiblings();
        TakeByHand(value_, true, Click);
    });
}

OptionButton::~OptionButton() {
    if (auto* widget = WidgetAs<OptionWidget>(*this)) widget->owner = nullptr;
}

std::vector<OptionButton*> OptionButton::Siblings() const {
    std::vector<OptionButton*> siblings;
    const QWidget* widget = WidgetOf(*this);
    if (widget == nullptr || widget->parentWidget() == nullptr) return siblings;
    for (QObject* child : widget->parentWidget()->children()) {
        const auto* option = dynamic_cast<OptionWidget*>(child);
        if (option != nullptr && option->owner != nullptr && option->owner != this)
            siblings.push_back(option->owner);
    }
    return siblings;
}

void OptionButton::ClearSiblings() {
    for (OptionButton* sibling : Siblings())
        sibling->value_ = false;
}

void OptionButton::Value(bool value) {
    const auto show = [value](QRadioButton& button) {
        button.setAutoExclusive(value); // The toolkit refuses to clear the chosen one of a group.
        button.setChecked(value);
        button.setAutoExclusive(true);
    };
    if (value) ClearSiblings();
    const std::function<void()> nothing;
    AssignValue(
        value_, value, [&] { Quietly<QRadioButton>(*this, show); }, value ? Click : nothing);
}

} // namespace pintalux
