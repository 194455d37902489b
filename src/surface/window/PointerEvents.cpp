// The road of pointer, wheel and key events from the toolkit to the handlers of a control.
#include "surface/window/Accessible_native.h"
#include "surface/window/Control_native.h"
#include "surface/window/Events.h"
#include "surface/window/KeyCodes_native.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

namespace pintalux {

namespace {

int ButtonBits(Qt::MouseButtons buttons) {
    return (buttons.testFlag(Qt::LeftButton) ? kLeftButton : 0) |
           (buttons.testFlag(Qt::RightButton) ? kRightButton : 0) |
           (buttons.testFlag(Qt::MiddleButton) ? kMiddleButton : 0);
}

int ShiftBitsOf(Qt::KeyboardModifiers modifiers) {
    return (modifiers.testFlag(Qt::ShiftModifier) ? kShiftMask : 0) |
           (modifiers.testFlag(Qt::ControlModifier) ? kCtrlMask : 0) |
           (modifiers.testFlag(Qt::AltModifier) ? kAltMask : 0);
}

/// Watches one widget; dies with it.
class PointerFilter : public QObject {
  public:
    PointerFilter(Control& control, QWidget* widget, bool ownsClick)
        : QObject(widget), control_(control), ownsClick_(ownsClick) {}

    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* widget = static_cast<QWidget*>(watched);
        if (!widget->isEnabled()) return false;
        switch (event->type()) {
        case QEvent::MouseButtonPress:
            Press(*static_cast<QMouseEvent*>(event));
            break;
        case QEvent::MouseButtonDblClick:
            // A quick second press is a press too: whoever dots with the pen loses none.
            Press(*static_cast<QMouseEvent*>(event));
            Run(control_.DblClick);
            break;
        case QEvent::MouseMove:
            Move(*static_cast<QMouseEvent*>(event));
            break;
        case QEvent::MouseButtonRelease:
            Release(*static_cast<QMouseEvent*>(event), widget);
            break;
        case QEvent::Wheel:
            return Turn(*static_cast<QWheelEvent*>(event));
        case QEvent::KeyPress:
            return Type(control_.Key, *static_cast<QKeyEvent*>(event));
        case QEvent::KeyRelease:
            return Type(control_.KeyReleased, *static_cast<QKeyEvent*>(event));
        case QEvent::FocusIn:
        case QEvent::FocusOut:
            MoveFocus(*static_cast<QFocusEvent*>(event));
            break;
        default:
            break;
        }
        return false;
    }

  private:
    static double UnitOf(const Control& control) {
        const auto* container = dynamic_cast<const Container*>(&control);
        return container ? container->UnitsPerPixel() : kTwipsPerPixel;
    }

    void Send(const PointerEvent& handler, int button, const QMouseEvent& event) {
        if (!handler) return;
        const QPointF place = event.position() * UnitOf(control_);
        const int shift = ShiftBitsOf(event.modifiers());
        // A copy: a handler may well replace itself.
        RunEvent(EventKind::Pointer, [&, run = handler] { run(button, shift, place.x(), place.y()); });
    }

    void Run(const std::function<void()>& handler) {
        if (handler) RunEvent(EventKind::Ordinary, std::function<void()>(handler));
    }

    void Press(const QMouseEvent& event) { Send(control_.MouseDown, ButtonBits(event.button()), event); }

    void Move(const QMouseEvent& event) { Send(control_.MouseMove, ButtonBits(event.buttons()), event); }

    void Release(const QMouseEvent& event, QWidget* widget) {
        const bool click = !ownsClick_ && event.button() == Qt::LeftButton &&
                           widget->rect().contains(event.position().toPoint());
        Send(control_.MouseUp, ButtonBits(event.button()), event);
        if (click) Run(control_.Click);
    }

    /// The control around hears of it where this one does not.
    bool Turn(QWheelEvent& event) {
        const Control* hears = &control_;
        while (hears != nullptr && !hears->MouseWheel)
            hears = hears->Parent();
        const QWidget* widget = hears ? WidgetOf(*hears) : nullptr;
        if (widget == nullptr) return false;
        const QPointF place = widget->mapFromGlobal(event.globalPosition()) * UnitOf(*hears);
        const QPoint angle = event.angleDelta();
        const WheelTurn turn{ShiftBitsOf(event.modifiers()), place.x(), place.y(), -1.0 * angle.x(),
                             -1.0 * angle.y()};
        RunEvent(EventKind::Pointer, [&turn, run = hears->MouseWheel] { run(turn); });
        event.accept();
        return true;
    }

    /// What keys do stands for what the pointer does: an overflow ends the handler alone.
    static bool Type(const std::function<bool(const KeyStroke&)>& handler, QKeyEvent& event) {
        if (!handler || event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab) return false;
        bool used = false;
        const KeyStroke stroke{KeyCodeOf(event), ShiftOf(event), event.isAutoRepeat()};
        RunEvent(EventKind::Pointer, [&, run = handler] { used = run(stroke); });
        if (used) event.accept();
        return used;
    }

    void MoveFocus(const QFocusEvent& event) {
        if (!control_.FocusMoved) return;
        const bool byKeys = event.reason() == Qt::TabFocusReason ||
                            event.reason() == Qt::BacktabFocusReason ||
                            event.reason() == Qt::ShortcutFocusReason;
        RunEvent(EventKind::Pointer,
                 [got = event.gotFocus(), byKeys, run = control_.FocusMoved] { run(got, byKeys); });
    }

    Control& control_;
    bool ownsClick_;
};

} // namespace

void InstallWidget(Control& control, QWidget* widget, bool ownsClick) {
    SpeakForOurWidgets();
    control.Native().widget = widget;
    widget->setObjectName(ToQString(control.Name()));
    widget->setMouseTracking(true);
    // A press belongs to the control under the pointer alone, even if that has no handler for it.
    widget->setAttribute(Qt::WA_NoMousePropagation);
    widget->installEventFilter(new PointerFilter(control, widget, ownsClick));
    if (widget->isWindow()) return;
    widget->setGeometry(0, 0, 0, 0);
    widget->setVisible(control.Visible());
}

} // namespace pintalux
