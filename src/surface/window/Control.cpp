#include "surface/window/Control.h"

#include "base/Arithmetic.h"
#include "base/RuntimeError.h"
#include "surface/window/Accessible_native.h"
#include "surface/window/Control_native.h"
#include "surface/window/Cursors_native.h"
#include "surface/window/KeyCodes.h"
#include "surface/window/Painting_native.h"

#include <QAccessible>
#include <QApplication>
#include <QEvent>
#include <QTextDocument>

#include <algorithm>

namespace pintalux {

Control::Control(Container* parent, std::string name)
    : parent_(parent), name_(std::move(name)), native_(std::make_unique<ControlNative>()) {
    if (parent_) parent_->Native().children.push_back(this);
}

Control::~Control() {
    if (parent_) std::erase(parent_->Native().children, this);
    for (Control* child : native_->children)
        child->parent_ = nullptr;
    delete native_->widget.data();
}

namespace {

/// Refuses what no widget could take: beyond 32 bits of pixels error 6, a negative size error 380.
void CheckPlace(const Control& control, double place) {
    PixelsAround(control, place);
}
void CheckSize(const Control& control, double size) {
    CheckPlace(control, size);
    if (size < 0) throw RuntimeError(kInvalidPropertyValue);
}

} // namespace

void Control::Assign(double& member, double value) {
    if (value == member) return;
    member = value;
    Placed();
}

void Control::Left(double value) {
    CheckPlace(*this, value);
    hasPlace_ = true;
    Assign(left_, value);
}

void Control::Top(double value) {
    CheckPlace(*this, value);
    hasPlace_ = true;
    Assign(top_, value);
}

void Control::Width(double value) {
    CheckSize(*this, value);
    Assign(width_, value);
}

void Control::Height(double value) {
    CheckSize(*this, value);
    Assign(height_, value);
}

void Control::Move(double left, double top, double width, double height) {
    CheckPlace(*this, left);
    CheckPlace(*this, top);
    CheckSize(*this, width);
    CheckSize(*this, height);
    hasPlace_ = true;
    if (left == left_ && top == top_ && width == width_ && height == height_) return;
    left_ = left;
    top_ = top;
    width_ = width;
    height_ = height;
    Placed();
}

void Control::Placed() {
    QWidget* widget = WidgetOf(*this);
    if (!widget) return;
    if (native_->place) {
        native_->place();
    } else {
        widget->setGeometry(PixelPlace(*this));
    }
}

void Control::Visible(bool value) {
    if (value == visible_) return;
    visible_ = value;
    VisibleChanged();
}

void Control::VisibleChanged() {
    if (QWidget* widget = WidgetOf(*this)) widget->setVisible(visible_);
    if (native_->place) native_->place();
}

void Control::Enabled(bool value) {
    if (value == enabled_) return;
    enabled_ = value;
    if (QWidget* widget = WidgetOf(*this)) widget->setEnabled(value);
}

void Control::MousePointer(int value) {
    if (value == mousePointer_) return;
    mousePointer_ = value;
    QWidget* widget = WidgetOf(*this);
    if (!widget) return;
    if (value == kPointerDefault) {
        widget->unsetCursor();
    } else {
        widget->setCursor(CursorOf(value, mouseIcon_));
    }
}

void Control::MouseIcon(Icon value) {
    if (value == mouseIcon_) return;
    mouseIcon_ = std::move(value);
    QWidget* widget = WidgetOf(*this);
    if (widget && mousePointer_ == kPointerCustom) widget->setCursor(CursorOf(mousePointer_, mouseIcon_));
}

void Control::ToolTipText(std::string value) {
    toolTip_ = std::move(value);
    // A tip is plain text, whatever signs it holds: escaped only where the toolkit would take it for rich
    // text.
    const QString tip = ToQString(toolTip_);
    if (QWidget* widget = WidgetOf(*this))
        widget->setToolTip(Qt::mightBeRichText(tip) ? tip.toHtmlEscaped() : tip);
}

void Control::AccessibleName(const std::string& value) {
    if (QWidget* widget = WidgetOf(*this)) NameForReaders(*widget, ToQString(value));
}

void Control::AccessibleRole(SpokenRole role) {
    static constexpr QAccessible::Role kRoles[] = {QAccessible::Button, QAccessible::Grouping,
                                                   QAccessible::Canvas, QAccessible::ColorChooser};
    QWidget* widget = WidgetOf(*this);
    if (!widget) return;
    widget->setProperty(kSpokenRole, int{kRoles[static_cast<std::size_t>(role)]});
    // What was spoken of before, as at the naming, would keep the role that the toolkit had for it.
    QAccessible::deleteAccessibleInterface(
        QAccessible::uniqueId(QAccessible::queryAccessibleInterface(widget)));
}

bool Control::HasFocus() const {
    const QWidget* widget = WidgetOf(*this);
    return widget != nullptr && widget->hasFocus();
}

void Control::TakesFocus(FocusBy how) {
    static constexpr Qt::FocusPolicy kPolicies[] = {Qt::NoFocus, Qt::TabFocus, Qt::StrongFocus};
    if (QWidget* widget = WidgetOf(*this)) widget->setFocusPolicy(kPolicies[static_cast<std::size_t>(how)]);
}

void Control::LeavesFocusTo(const Control& other) {
    QWidget* widget = WidgetOf(*this);
    if (!widget) return;
    widget->setFocusPolicy(Qt::ClickFocus);
    widget->setFocusProxy(WidgetOf(other));
}

void Control::PressedByKeys(std::function<void()> press) {
    TakesFocus(FocusBy::Tab);
    AccessibleRole(SpokenRole::Button);
    if (auto* painted = dynamic_cast<PaintedWidget*>(WidgetOf(*this))) painted->framed = true;
    Key = [press = std::move(press)](const KeyStroke& key) {
        if ((key.code != kEnter && key.code != kSpace) || (key.shift & ~kShiftMask) != 0) return false;
        if (!key.repeated) press();
        return true;
    };
}

void Control::SetFocus() {
    QWidget* widget = WidgetOf(*this);
    if (!widget) return;
    if (widget->isWindow()) {
        widget->raise();
        widget->activateWindow();
    }
    widget->setFocus(Qt::OtherFocusReason);
}

void Control::BringToFront() {
    if (QWidget* widget = WidgetOf(*this)) widget->raise();
}

void Control::Refresh() {
    FlushPaint(WidgetOf(*this));
}

void ControlNative::TakePlace(Control& control, const QRect& place) {
    const double unit = UnitsPerPixelAround(control);
    const auto take = [unit, &control](double& member, int pixels) {
        // A value that already gives these pixels stays as it was assigned.
        if (PixelsAround(control, member) != pixels) member = pixels * unit;
    };
    take(control.left_, place.x());
    take(control.top_, place.y());
    take(control.width_, place.width());
    take(control.height_, place.height());
}

QWidget* WidgetOf(const Control& control) {
    return control.Native().widget.data();
}

double UnitsPerPixelAround(const Control& control) {
    return control.Parent() ? control.Parent()->UnitsPerPixel() : kTwipsPerPixel;
}

int PixelsAround(const Control& control, double length) {
    return ToInt32(length / UnitsPerPixelAround(control));
}

QRect PixelPlace(const Control& control) {
    return {PixelsAround(control, control.Left()), PixelsAround(control, control.Top()),
            PixelsAround(control, control.Width()), PixelsAround(control, control.Height())};
}

void FlushPaint(QWidget* widget) {
    if (!widget || !widget->isVisible() || !widget->updatesEnabled()) return;
    // The toolkit's own repaint would paint the whole widget; this paints only what was marked.
    QEvent request(QEvent::UpdateRequest);
    QCoreApplication::sendEvent(widget->window(), &request);
}

namespace {

std::vector<QPointer<QWidget>>& OwnedWindows() {
    static std::vector<QPointer<QWidget>> windows;
    return windows;
}

void DeleteOwnedWindows() {
    for (const QPointer<QWidget>& window : std::exchange(OwnedWindows(), {}))
        delete window.data();
}

} // namespace

void DeleteBeforeExit(QWidget* widget) {
    if (OwnedWindows().empty()) qAddPostRoutine(DeleteOwnedWindows);
    std::erase_if(OwnedWindows(), [](const auto& window) { return window.isNull(); });
    OwnedWindows().emplace_back(widget);
}

} // namespace pintalux
