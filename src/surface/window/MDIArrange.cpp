// Arranging the document windows.
#include "base/RuntimeError.h"
#include "surface/window/Control_native.h"
#include "surface/window/Form_native.h"
#include "surface/window/MDIForm_native.h"

#include <QMdiSubWindow>

#include <algorithm>

namespace pintalux {

namespace {

enum Layout : int { kCascade = 0, kTileHorizontally = 1, kTileVertically = 2 };

/// Each a step further down and to the right, three quarters of the room in size; from the first place again
/// where the next would not lie within the room.
QRect CascadePlace(const QSize& room, int index) {
    constexpr int kStep = 24;
    constexpr int kMostPlaces = 10;
    const int left = std::min(room.width(), room.height()) / 4;
    const int places = std::clamp(left / kStep + 1, 2, kMostPlaces);
    const int offset = index % places * std::min(kStep, left);
    return {offset, offset, room.width() * 3 / 4, room.height() * 3 / 4};
}

/// Share `index` of `count` of a length, without gaps: where it begins.
int ShareBegin(int length, int index, int count) {
    return length * index / count;
}

QRect PlaceOf(int layout, const QSize& room, int index, int count) {
    if (layout == kCascade) return CascadePlace(room, index);
    if (layout == kTileHorizontally) {
        const int top = ShareBegin(room.height(), index, count);
        return {0, top, room.width(), ShareBegin(room.height(), index + 1, count) - top};
    }
    const int left = ShareBegin(room.width(), index, count);
    return {left, 0, ShareBegin(room.width(), index + 1, count) - left, room.height()};
}

} // namespace

std::vector<Form*> MDINative::Arrangeable() const {
    std::vector<Form*> result;
    if (!area) return result;
    for (const QMdiSubWindow* window : area->subWindowList(QMdiArea::ActivationHistoryOrder)) {
        for (const std::unique_ptr<Form>& child : form.children_) {
            if (WidgetOf(*child) == window && child->visible_ && !window->isMinimized())
                result.push_back(child.get());
        }
    }
    const auto last = std::find(result.begin(), result.end(), active);
    if (last != result.end()) std::rotate(last, last + 1, result.end());
    return result;
}

void StayInWorkspace(Form& window) {
    const QMdiSubWindow* frame = qobject_cast<QMdiSubWindow*>(WidgetOf(window));
    if (!frame || !frame->mdiArea() || window.WindowState() != kNormal) return;
    const QSize room = frame->mdiArea()->maximumViewportSize();
    const QSize excess = (frame->size() - room).expandedTo({0, 0});
    if (excess.width() > 0) window.Width(window.Width() - excess.width() * kTwipsPerPixel);
    if (excess.height() > 0) window.Height(window.Height() - excess.height() * kTwipsPerPixel);
    const auto moved = [](int place, int size, int length) {
        return std::max(0, std::min(place, length - size)) * kTwipsPerPixel;
    };
    // A place that is inside already stays as it was assigned.
    if (frame->x() < 0 || frame->x() + frame->width() > room.width())
        window.Left(moved(frame->x(), frame->width(), room.width()));
    if (frame->y() < 0 || frame->y() + frame->height() > room.height())
        window.Top(moved(frame->y(), frame->height(), room.height()));
}

void MDIForm::Arrange(int layout) {
    if (layout < kCascade || layout > kTileVertically) throw RuntimeError(kInvalidArgument);
    if (!mdi_->area) return;
    const std::vector<Form*> windows = mdi_->Arrangeable();
    for (const Form* window : windows) {
        if (WidgetOf(*window)->isMaximized()) WidgetOf(*window)->showNormal();
    }
    const QSize room = mdi_->area->maximumViewportSize();
    const int count = static_cast<int>(windows.size());
    for (int index = 0; index < count; ++index) {
        QWidget* window = WidgetOf(*windows[static_cast<std::size_t>(index)]);
        window->setGeometry(PlaceOf(layout, room, index, count));
        window->raise();
    }
}

} // namespace pintalux
