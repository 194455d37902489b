#include "surface/raster/Drawing.h"
#include "surface/raster/Outlines.h"
#include "surface/raster/ThinLine.h"
#include "surface/raster/WidePen.h"

#include <array>

namespace pintalux {

namespace {

// The four edges run around the box, each from one corner to the next.
std::array<LongPoint, 5> Round(const LongBox& box) {
    const std::int64_t right = box.right - 1;
    const std::int64_t bottom = box.bottom - 1;
    return {
        {{box.left, box.top}, {right, box.top}, {right, bottom}, {box.left, bottom}, {box.left, box.top}}};
}

void AddWideEdges(Figure& outline, const LongBox& box, int width) {
    const auto corners = Round(box);
    const WidePen pen(width);
    for (std::size_t i = 0; i + 1 < corners.size(); ++i)
        pen.AddLine(outline, corners[i], corners[i + 1]);
}

void AddRows(Figure& figure, const LongBox& box) {
    const Box inside = Cut(box, figure.Area());
    for (int y = inside.top; y < inside.bottom; ++y)
        figure.Add(y, inside.left, inside.right);
}

// The thin edges are lines of their own: where a box one pixel wide brings two together, the invert mode
// turns their pixels back.
Box PaintThinEdges(DeviceContext& hdc, const LongBox& box, Colour colour) {
    const auto corners = Round(box);
    // One pixel has four edges without length.
    if (box.Width() == 1 && box.Height() == 1) {
        return PaintThinLine(hdc, ThinLine(corners[0], corners[0]), LastPoint::Painted, colour);
    }
    Box painted;
    for (std::size_t i = 0; i + 1 < corners.size(); ++i) {
        const ThinLine edge(corners[i], corners[i + 1]);
        painted = Union(painted, PaintThinLine(hdc, edge, LastPoint::LeftOut, colour));
    }
    return painted;
}

// What the pen's middle line encloses; without a pen the filling ends one short of right and bottom.
LongBox FillingOf(const LongBox& box, bool penned) {
    if (penned) return {box.left + 1, box.top + 1, box.right - 1, box.bottom - 1};
    return {box.left, box.top, box.right - 1, box.bottom - 1};
}

Box PaintBox(DeviceContext& hdc, const LongBox& box, Colour colour) {
    const Box inside = Cut(box, hdc.Bits().Bounds());
    if (hdc.Attributes().DrawMode == kDrawInvert) {
        for (int y = inside.top; y < inside.bottom; ++y) {
            PaintSpan(hdc.Bits(), y, inside.left, inside.right, PixelOf(colour), kDrawInvert);
        }
    } else {
        hdc.Bits().Fill(inside, PixelOf(colour));
    }
    return inside;
}

} // namespace

void DrawRectangleIn(DeviceContext& hdc, const LongBox& corners, Colour penColour) {
    const LongBox box = Sorted(corners);
    if (box.Empty()) return;
    const DrawAttributes& attributes = hdc.Attributes();
    const OutlineWays ways(attributes);
    const LongBox reach = ways.wide ? box.Grown(std::int64_t{attributes.DrawWidth} + 2) : box;
    Box painted;
    if (ways.filled && !ways.asOne) {
        painted = PaintBox(hdc, FillingOf(box, ways.penned), attributes.FillColor);
    }
    if (ways.asOne && !ways.wide) {
        painted = PaintBox(hdc, ways.penned ? box : FillingOf(box, false), penColour);
    } else if (ways.wide) {
        Figure outline(Cut(reach, hdc.Bits().Bounds()));
        AddWideEdges(outline, box, attributes.DrawWidth);
        if (ways.asOne) AddRows(outline, box);
        painted = Union(painted, outline.Paint(hdc.Bits(), PixelOf(penColour), attributes.DrawMode));
    } else if (ways.penned) {
        painted = Union(painted, PaintThinEdges(hdc, box, penColour));
    }
    hdc.Touched(painted);
}

void Rectangle(DeviceContext& hdc, int left, int top, int right, int bottom) {
    DrawRectangleIn(hdc, {left, top, right, bottom}, hdc.Attributes().ForeColor);
}

void DrawBox(DeviceContext& hdc, int x1, int y1, int x2, int y2, Colour colour) {
    if (x1 == x2 && y1 == y2) return DrawDot(hdc, x1, y1, colour);
    LongBox box = Sorted({x1, y1, x2, y2});
    ++box.right;
    ++box.bottom;
    DrawRectangleIn(hdc, box, colour);
}

void DrawFilledBox(DeviceContext& hdc, int x1, int y1, int x2, int y2, Colour colour) {
    LongBox box = Sorted({x1, y1, x2, y2});
    ++box.right;
    ++box.bottom;
    hdc.Touched(PaintBox(hdc, box, colour));
}

} // namespace pintalux
