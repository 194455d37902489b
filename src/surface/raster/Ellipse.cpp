#include "surface/raster/Drawing.h"
#include "surface/raster/EllipseOutline.h"
#include "surface/raster/Outlines.h"
#include "surface/raster/WidePen.h"

#include <optional>

namespace pintalux {

namespace {

void AddThinRing(Figure& ring, const LongBox& box) {
    WalkEllipse(box, [&](const OutlineStep& step) {
        ring.AddPixel(step.x0, step.upper);
        ring.AddPixel(step.x1, step.upper);
        ring.AddPixel(step.x0, step.lower);
        ring.AddPixel(step.x1, step.lower);
    });
}

// The ring of a thin pen as a closed chain of points, each painted as often as the chain comes by: where the
// halves of a flat ellipse share their middle row, the invert mode turns those pixels back.
class ThinChain {
  public:
    ThinChain(DeviceContext& hdc, Colour colour) : hdc_(hdc), pixel_(PixelOf(colour)) {}

    void Add(const OutlineStep& step) {
        PaintHalf(step, step.lower);
        // The halves of the chain begin in one row where the height is odd.
        if (!first_ || step.upper != step.lower) PaintHalf(step, step.upper);
        first_ = false;
    }
    Box Painted() const { return painted_; }

  private:
    void PaintHalf(const OutlineStep& step, std::int64_t row) {
        PaintPixel(step.x1, row);
        if (step.x0 != step.x1) PaintPixel(step.x0, row);
    }
    void PaintPixel(std::int64_t x, std::int64_t y) {
        const Box at = Cut({x, y, x + 1, y + 1}, hdc_.Bits().Bounds());
        if (at.Empty()) return;
        PaintSpan(hdc_.Bits(), at.top, at.left, at.right, pixel_, hdc_.Attributes().DrawMode);
        painted_ = Union(painted_, at);
    }

    DeviceContext& hdc_;
    Pixel pixel_;
    bool first_ = true;
    Box painted_;
};

Box PaintThinRing(DeviceContext& hdc, const LongBox& box, Colour colour) {
    ThinChain chain(hdc, colour);
    WalkEllipse(box, [&](const OutlineStep& step) { chain.Add(step); });
    return chain.Painted();
}

void AddFilling(Figure& filling, const LongBox& box) {
    WalkEllipse(box, [&](const OutlineStep& step) {
        filling.Add(step.upper, step.x0, step.x1 + 1);
        filling.Add(step.lower, step.x0, step.x1 + 1);
    });
}

// The ring of a wide pen: the outline's pixels as one closed chain of lines. The four quarters go side by
// side.
class RingChain {
  public:
    RingChain(Figure& ring, const WidePen& pen) : ring_(ring), pen_(pen) {}

    void Add(const OutlineStep& step) {
        const OutlineStep before = before_.value_or(step);
        Join({before.x0, before.upper}, {step.x0, step.upper});
        Join({before.x1, before.upper}, {step.x1, step.upper});
        Join({before.x0, before.lower}, {step.x0, step.lower});
        Join({before.x1, before.lower}, {step.x1, step.lower});
        if (!before_) JoinHalves(step);
        before_ = step;
    }

    void JoinTips() {
        if (!before_) return;
        pen_.AddBody(ring_, {before_->x0, before_->upper}, {before_->x1, before_->upper});
        pen_.AddBody(ring_, {before_->x0, before_->lower}, {before_->x1, before_->lower});
    }

  private:
    void Join(LongPoint from, LongPoint to) {
        pen_.AddDot(ring_, to);
        pen_.AddBody(ring_, from, to);
    }
    void JoinHalves(const OutlineStep& step) {
        pen_.AddBody(ring_, {step.x0, step.upper}, {step.x0, step.lower});
        pen_.AddBody(ring_, {step.x1, step.upper}, {step.x1, step.lower});
    }

    Figure& ring_;
    const WidePen& pen_;
    std::optional<OutlineStep> before_;
};

void AddWideRing(Figure& ring, const LongBox& box, int width) {
    const WidePen pen(width);
    RingChain chain(ring, pen);
    WalkEllipse(box, [&](const OutlineStep& step) { chain.Add(step); });
    chain.JoinTips();
}

} // namespace

void DrawEllipseIn(DeviceContext& hdc, const LongBox& corners, Colour penColour) {
    const LongBox box = Sorted(corners);
    if (box.Empty()) return;
    if (box.Width() <= 2 || box.Height() <= 2) return DrawRectangleIn(hdc, box, penColour);

    const DrawAttributes& attributes = hdc.Attributes();
    const OutlineWays ways(attributes);
    const Box bounds = hdc.Bits().Bounds();
    const LongBox reach = ways.wide ? box.Grown(std::int64_t{attributes.DrawWidth} + 2) : box;
    if (Cut(reach, bounds).Empty()) return;
    Box painted;
    if (ways.filled && !ways.asOne) {
        Figure filling(Cut(box, bounds));
        AddFilling(filling, box);
        painted = filling.Paint(hdc.Bits(), PixelOf(attributes.FillColor), attributes.DrawMode);
    }
    if (ways.wide || ways.asOne) {
        Figure ring(Cut(reach, bounds));
        if (ways.wide) AddWideRing(ring, box, attributes.DrawWidth);
        if (ways.penned && !ways.wide) AddThinRing(ring, box);
        if (ways.asOne) AddFilling(ring, box);
        painted = Union(painted, ring.Paint(hdc.Bits(), PixelOf(penColour), attributes.DrawMode));
    } else if (ways.penned) {
        painted = Union(painted, PaintThinRing(hdc, box, penColour));
    }
    hdc.Touched(painted);
}

void Ellipse(DeviceContext& hdc, int left, int top, int right, int bottom) {
    DrawEllipseIn(hdc, {left, top, right, bottom}, hdc.Attributes().ForeColor);
}

} // namespace pintalux
