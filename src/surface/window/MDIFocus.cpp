// Where the Tab key and F6 lead in the main window: Tab from control to control, F6 from area to area. Of the
// documents the active one alone takes part, and nothing that cannot be seen.
#include "surface/window/Control_native.h"
#include "surface/window/Events.h"
#include "surface/window/Form_native.h"
#include "surface/window/MDIForm_native.h"
#include "surface/window/Painting_native.h"

#include <QApplication>
#include <QMdiSubWindow>
#include <QShortcut>

#include <algorithm>

namespace pintalux {

namespace {

/// What scrolls comes into sight when it gets the focus.
bool CanBeSeen(const QWidget& widget) {
    const QWidget* scrolled = &widget;
    while (scrolled != nullptr && !scrolled->property(kScrolledMark).toBool())
        scrolled = scrolled->parentWidget();
    return !VisibleRect(widget, scrolled).isEmpty();
}

/// The frame of a document window would only pass the focus on.
bool IsTabStop(const QWidget& widget) {
    if (qobject_cast<const QMdiSubWindow*>(&widget)) return false;
    return (widget.focusPolicy() & Qt::TabFocus) != 0 && widget.focusProxy() == nullptr &&
           widget.isVisible() && widget.isEnabled() && CanBeSeen(widget);
}

int Next(int place, int count, bool forward) {
    if (place < 0) return forward ? 0 : count - 1;
    return (place + (forward ? 1 : count - 1)) % count;
}

} // namespace

void MDIForm::FocusAreas(std::vector<FocusArea> areas) {
    mdi_->areas = std::move(areas);
}

const QWidget* MDINative::WidgetOfArea(const FocusArea& place) const {
    const Control* control = place.area ? place.area : active;
    return control ? WidgetOf(*control) : nullptr;
}

// An area may lie in another one; the inner one counts.
int MDINative::AreaOf(const QWidget* widget) const {
    for (; widget != nullptr; widget = widget->parentWidget()) {
        for (std::size_t i = 0; i < areas.size(); ++i)
            if (WidgetOfArea(areas[i]) == widget) return static_cast<int>(i);
    }
    return -1;
}

std::vector<QWidget*> MDINative::TabStopsOf(int place) const {
    std::vector<QWidget*> stops;
    QWidget* const window = Window();
    for (QWidget* at = window->nextInFocusChain(); at != window; at = at->nextInFocusChain())
        if (IsTabStop(*at) && at->window() == window && AreaOf(at) == place) stops.push_back(at);
    return stops;
}

bool MDINative::StepFocus(bool next) {
    std::vector<QWidget*> stops;
    for (int i = 0; i < static_cast<int>(areas.size()); ++i) {
        const std::vector<QWidget*> own = TabStopsOf(i);
        stops.insert(stops.end(), own.begin(), own.end());
    }
    if (stops.empty() || closing) return false;
    const auto placeOf = [&stops](const QWidget* widget) {
        const auto here = std::find(stops.begin(), stops.end(), widget);
        return here == stops.end() ? -1 : static_cast<int>(here - stops.begin());
    };
    // What has just been hidden or switched off gives the focus to what stood around it.
    QWidget* const focus = QApplication::focusWidget();
    int place = placeOf(focus);
    for (QWidget* at = focus; place < 0 && at != nullptr;) {
        at = at->previousInFocusChain();
        if (at == focus) break;
        place = placeOf(at);
    }
    stops[static_cast<std::size_t>(Next(place, static_cast<int>(stops.size()), next))]->setFocus(
        next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

void MDINative::StepArea(bool next) {
    const int count = static_cast<int>(areas.size());
    int place = AreaOf(QApplication::focusWidget());
    for (int tried = 0; tried < count; ++tried) {
        place = Next(place, count, next);
        const std::vector<QWidget*> stops = TabStopsOf(place);
        if (stops.empty()) continue;
        const Control* first = areas[static_cast<std::size_t>(place)].first;
        const auto wanted = std::find(stops.begin(), stops.end(), first ? WidgetOf(*first) : nullptr);
        return (wanted == stops.end() ? stops.front() : *wanted)->setFocus(Qt::ShortcutFocusReason);
    }
}

void MDINative::ConnectFocus() {
    FormNative::Of(form).focusStep = [this](bool next) { return StepFocus(next); };
    const auto connect = [this](const QKeySequence& key, bool next) {
        auto* shortcut = new QShortcut(key, Window());
        QObject::connect(shortcut, &QShortcut::activated, area, [this, next] { StepArea(next); });
    };
    connect(Qt::Key_F6, true);
    connect(Qt::SHIFT | Qt::Key_F6, false);
}

void MDIForm::OnKey(const std::string& key, std::function<void()> command) {
    auto* shortcut = new QShortcut(QKeySequence::fromString(ToQString(key)), mdi_->Window());
    QObject::connect(shortcut, &QShortcut::activated, shortcut, [run = std::move(command)] {
        if (QApplication::mouseButtons() == Qt::NoButton) RunEvent(EventKind::Ordinary, run);
    });
}

} // namespace pintalux
