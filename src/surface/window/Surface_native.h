// The toolkit half of a surface.
#pragma once

#include "surface/window/Painting_native.h"
#include "surface/window/Surface.h"

#include <QPointer>
#include <QRegion>

namespace pintalux {

struct SurfaceNative {
    QPointer<PaintedWidget> widget;
    Box pending; ///< What was marked for painting and is not painted yet.
    int borderStyle = 0;
    QRegion edge; ///< The pixels along the edge of the region that clips the surface; dotted when painted.

    /// Takes a place that the toolkit gave, in pixels of the container; the bitmap follows.
    static void TakePlace(Surface& surface, const QRect& place);
    static SurfaceNative& Of(const Surface& surface) { return *surface.surface_; }

    void Paint(const Bitmap& bitmap, QPaintEvent& event, Colour backColor);
    void PaintEdge(const QRegion& exposed);
    void Mark(const Box& box);
};

} // namespace pintalux
