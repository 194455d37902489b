// The toolkit half of a surface: the widget that shows its bitmap, and what of it is out of date.
#pragma once

#include "surface/window/Painting_native.h"
#include "surface/window/Surface.h"

#include <QPointer>
#include <QRegion>

#include <functional>

namespace pintalux {

struct SurfaceNative {
    QPointer<PaintedWidget> widget;
    Box pending;         ///< What was marked for painting and is not painted yet, in pixels.
    int borderStyle = 0; ///< 1: a thin line is painted along the edge of the widget.
    bool panel = false;  ///< The desktop's window colour shows instead of the bitmap.
    /// How much wider a panel wants to be at a height in pixels; null: no wider.
    std::function<int(int height)> widerBy;
    /// The pixels along the edge of the region that clips the surface. They are painted as dots. Empty: the
    /// surface is not clipped.
    QRegion edge;

    /// Takes a place that the toolkit gave, in pixels of the container; the bitmap follows.
    static void TakePlace(Surface& surface, const QRect& place);
    static SurfaceNative& Of(const Surface& surface) { return *surface.surface_; }

    /// Paints what the event names; `backColor` shows where the bitmap ends.
    void Paint(const Bitmap& bitmap, QPaintEvent& event, Colour backColor);
    /// The same of a picture in the widget's size; what lies below shows through `transparent`.
    void PaintPiece(const Bitmap& piece, Pixel transparent, QPaintEvent& event);
    /// Whether the widget counts as one that hides what lies below, for a picture in its size; true if it did
    /// and does so no longer.
    bool HideBelow(const Bitmap& piece);
    void PaintPanel(QPaintEvent& event, const std::vector<ScreenText>& texts);
    void PaintEdge(const QRegion& exposed);
    /// Has a part of the bitmap painted at the next occasion.
    void Mark(const Box& box);
};

} // namespace pintalux
