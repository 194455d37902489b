#include "surface/window/ScrollPanel.h"

#include "surface/window/Control_native.h"
#include "surface/window/Events_native.h"
#include "surface/window/Painting_native.h"
#include "surface/window/Surface_native.h"

#include <QApplication>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>

namespace pintalux {

namespace {

/// Inputs that the wheel turns by itself.
bool TurnsByItself(const QWidget* widget) {
    for (const char* type : {"QAbstractSlider", "QComboBox", "QAbstractItemView"})
        if (widget->inherits(type)) return true;
    return false;
}

} // namespace

/// Moves the widget that holds the controls, and watches what would change how far.
struct ScrollPanelNative : QObject {
    ScrollPanelNative(Surface& owner, QWidget* outer)
        : surface(owner), frame(outer), content(new QWidget(outer)),
          bar(new QScrollBar(Qt::Vertical, outer)) {
        content->setMouseTracking(true);
        content->setProperty(kScrolledMark, true);
        bar->setSingleStep(kStep);
        bar->hide();
        qApp->installEventFilter(this);
        connect(bar, &QScrollBar::valueChanged, this, [this] { Place(); });
        connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { Reveal(now); });
    }

    int BarWidth() const { return bar->sizeHint().width(); }
    int HeaderHeight() const { return header ? header->height() : 0; }

    /// The lowest edge of what shows, in pixels of the panel.
    int Bottom() const {
        int bottom = 0;
        for (const QObject* child : content->children()) {
            const auto* widget = qobject_cast<const QWidget*>(child);
            if (widget && !widget->isHidden()) bottom = std::max(bottom, widget->geometry().bottom() + 1);
        }
        return bottom;
    }
    int WiderBy(int height) const { return Bottom() > height ? BarWidth() : 0; }

    void Fit() {
        if (!content || fitting) return;
        const FromUs ours(fitting);
        const int hidden = std::max(0, Bottom() - frame->height());
        const bool needed = hidden > 0;
        if (needed == bar->isHidden()) {
            bar->setVisible(needed);
            if (surface.Native().place) surface.Native().place();
        }
        bar->setRange(0, hidden);
        bar->setPageStep(std::max(1, frame->height() - HeaderHeight()));
        Place();
    }
    void Place() {
        const int top = HeaderHeight();
        const int width = bar->isHidden() ? frame->width() : frame->width() - BarWidth();
        bar->setGeometry(width, top, BarWidth(), std::max(0, frame->height() - top));
        content->setGeometry(0, -bar->value(), width, std::max(Bottom(), frame->height()));
        if (header) header->raise();
        bar->raise();
    }
    void Reveal(const QWidget* control) {
        if (!control || !content || bar->isHidden() || !content->isAncestorOf(control)) return;
        const int top = control->mapTo(content, QPoint(0, 0)).y();
        const int lowest = top - HeaderHeight();
        const int highest = top + control->height() - frame->height();
        bar->setValue(std::clamp(bar->value(), std::min(lowest, highest), lowest));
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (!content) return false;
        if (event->type() == QEvent::Wheel) return Wheel(watched, *static_cast<QWheelEvent*>(event));
        const bool child = watched->parent() == content;
        switch (event->type()) {
        case QEvent::Resize:
        case QEvent::Move:
        case QEvent::ShowToParent:
        case QEvent::HideToParent:
            if (child || (watched == frame && event->type() == QEvent::Resize)) Fit();
            break;
        default:
            break;
        }
        return false;
    }
    bool Wheel(QObject* watched, const QWheelEvent& event) {
        auto* widget = qobject_cast<QWidget*>(watched);
        if (!widget || bar->isHidden() || !frame->isAncestorOf(widget) || widget == bar ||
            TurnsByItself(widget))
            return false;
        constexpr int kNotch = 120;
        bar->setValue(bar->value() - event.angleDelta().y() * 3 * kStep / kNotch);
        return true;
    }

    static constexpr int kStep = 20; // pixels
    Surface& surface;
    QPointer<QWidget> frame;
    QPointer<QWidget> content;
    QPointer<QScrollBar> bar;
    QPointer<QWidget> header;
    bool fitting = false;
};

ScrollPanel::ScrollPanel(Container& parent, std::string name) : Surface(parent, std::move(name)) {
    AsPanel();
    scroll_ = std::make_unique<ScrollPanelNative>(*this, WidgetOf(*this));
    Native().client = scroll_->content;
    SurfaceNative::Of(*this).widerBy = [this](int height) { return scroll_->WiderBy(height); };
}

ScrollPanel::~ScrollPanel() {
    SurfaceNative::Of(*this).widerBy = nullptr;
}

void ScrollPanel::Header(Control& control) {
    QWidget* widget = WidgetOf(control);
    if (widget == scroll_->header) return scroll_->Fit();
    const bool shown = control.Visible();
    widget->setParent(scroll_->frame);
    widget->setVisible(shown);
    scroll_->header = widget;
    scroll_->Fit();
}

} // namespace pintalux
