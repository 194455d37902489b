// The toolkit half of a surface.
#pragma once

#include "surface/window/Painting_native.h"
#include "surface/window/Surface.h"

#include <QPointer>

namespace pintalux {

struct SurfaceNative {
    QPointer<PaintedWidget> widget;
    Box pending; ///< What was marked for painting and is not painted yet.
    int borderStyle = 0;

    /// Takes a place that the toolkit gave, in pixels of the container; the bitmap follows.
    static void TakePlace(Surface& surface, const QRect& place);

    void Paint(const Bitmap& bitmap, QPaintEvent& event, Colour backColor);
    void Mark(const Box& box);
};

} // namespace pintalux
