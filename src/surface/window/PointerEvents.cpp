// The road of pointer events from the toolkit to the handlers of a control.
#include "surface/window/Control_native.h"
#include "surface/window/Events.h"

#include <QMouseEvent>

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
        default:
            break;
        }
        return false;
    }

  private:
    void Send(const PointerEvent& handler, int button, const QMouseEvent& event) {
        if (!handler) return;
        const auto* container = dynamic_cast<const Container*>(&control_);
        const double unit = container ? container->UnitsPerPixel() : kTwipsPerPixel;
        const QPointF place = event.position() * unit;
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

    Control& control_;
    bool ownsClick_;
};

} // namespace

void InstallWidget(Control& control, QWidget* widget, bool ownsClick) {
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
