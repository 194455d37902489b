// The panels along the edges of the main window. The toolkit's own dock areas would let the user move them.
#include "surface/window/Control_native.h"
#include "surface/window/Events.h"
#include "surface/window/MDIForm_native.h"
#include "surface/window/Surface_native.h"

#include <QScopeGuard>

#include <algorithm>

namespace pintalux {

namespace {

bool IsRow(Align edge) {
    return edge == Align::Top || edge == Align::Bottom;
}

/// Cuts the panel's place off the room that is left.
QRect CutOff(QRect& room, Align edge, int depth) {
    QRect place = room;
    if (IsRow(edge)) {
        place.setHeight(std::min(depth, room.height()));
    } else {
        place.setWidth(std::min(depth, room.width()));
    }
    switch (edge) {
    case Align::Top:
        room.setTop(place.bottom() + 1);
        break;
    case Align::Bottom:
        place.moveBottom(room.bottom());
        room.setBottom(place.top() - 1);
        break;
    case Align::Left:
        room.setLeft(place.right() + 1);
        break;
    case Align::Right:
        place.moveRight(room.right());
        room.setRight(place.left() - 1);
        break;
    }
    return place;
}

int DepthOf(const Surface& panel, Align edge) {
    return PixelsAround(panel, IsRow(edge) ? panel.Height() : panel.Width());
}

/// The depth stays as assigned, even where the window is too small for it.
QRect StoredPlace(const Surface& panel, Align edge, QRect place) {
    if (IsRow(edge)) {
        place.setHeight(DepthOf(panel, edge));
    } else {
        place.setWidth(DepthOf(panel, edge));
    }
    return place;
}

} // namespace

void MDIForm::AlignPanel(Surface& panel, Align edge) {
    mdi_->panels.push_back({&panel, edge});
    panel.Native().place = [this, &panel] { mdi_->LayOut(&panel); };
    mdi_->LayOut();
}

void MDINative::LayOut(const Surface* assigned) {
    // Before the window shows it has no size worth following.
    if (layingOut || !frame || !frame->isVisible()) return;
    for (const Surface* surface : PlacePanels()) {
        if (surface->Resize && surface != assigned) RunEvent(EventKind::Ordinary, surface->Resize);
    }
}

std::vector<Surface*> MDINative::PlacePanels() {
    layingOut = true;
    const auto done = qScopeGuard([this] { layingOut = false; });
    QRect room = frame->rect();
    std::vector<Surface*> changed;
    // Panels at the top and bottom have the full width; those at the sides share what is left.
    for (const bool rows : {true, false}) {
        for (const Panel& panel : panels) {
            Surface& surface = *panel.surface;
            if (IsRow(panel.edge) != rows || !surface.Visible() || !WidgetOf(surface)) continue;
            const QSize before(surface.PixelWidth(), surface.PixelHeight());
            const QRect place = CutOff(room, panel.edge, DepthOf(surface, panel.edge));
            WidgetOf(surface)->setGeometry(place);
            SurfaceNative::TakePlace(surface, StoredPlace(surface, panel.edge, place));
            const QSize after(surface.PixelWidth(), surface.PixelHeight());
            if (before != after) changed.push_back(panel.surface);
        }
    }
    area->setGeometry(room);
    return changed;
}

} // namespace pintalux
