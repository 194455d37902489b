// The panels along the edges of the main window. The toolkit's own dock areas would let the user move them.
#include "surface/window/Control_native.h"
#include "surface/window/Events.h"
#include "surface/window/MDIForm_native.h"
#include "surface/window/Surface_native.h"

#include <algorithm>

namespace pintalux {

namespace {

bool IsRow(Align edge) {
    return edge == Align::Top || edge == Align::Bottom;
}

/// Cuts the panel's place off the room that is left.
QRect CutOff(QRect& room, Align edge, int depth) {
    const bool row = IsRow(edge);
    const int taken = std::min(depth, row ? room.height() : room.width());
    QRect place(room.topLeft(), row ? QSize(room.width(), taken) : QSize(taken, room.height()));
    if (edge == Align::Bottom) place.moveBottom(room.bottom());
    if (edge == Align::Right) place.moveRight(room.right());
    room.adjust(edge == Align::Left ? taken : 0, edge == Align::Top ? taken : 0,
                edge == Align::Right ? -taken : 0, edge == Align::Bottom ? -taken : 0);
    return place;
}

int DepthOf(const Surface& panel, Align edge) {
    return PixelsAround(panel, IsRow(edge) ? panel.Height() : panel.Width());
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
    const FromUs ours(layingOut);
    QRect room = frame->rect();
    std::vector<Surface*> changed;
    // Panels at the top and bottom have the full width; those at the sides share what is left.
    for (const bool rows : {true, false}) {
        for (const Panel& panel : panels) {
            Surface& surface = *panel.surface;
            if (IsRow(panel.edge) != rows || !surface.Visible() || !WidgetOf(surface)) continue;
            const QSize before(surface.PixelWidth(), surface.PixelHeight());
            const int depth = DepthOf(surface, panel.edge);
            const auto& widerBy = SurfaceNative::Of(surface).widerBy;
            const int wider = rows || !widerBy ? 0 : widerBy(room.height());
            QRect place = CutOff(room, panel.edge, depth + wider);
            WidgetOf(surface)->setGeometry(place);
            // The depth stays as assigned, even where the window is too small for it.
            rows ? place.setHeight(depth) : place.setWidth(depth);
            SurfaceNative::TakePlace(surface, place);
            const QSize after(surface.PixelWidth(), surface.PixelHeight());
            if (before != after) changed.push_back(panel.surface);
        }
    }
    area->setGeometry(room);
    return changed;
}

} // namespace pintalux
