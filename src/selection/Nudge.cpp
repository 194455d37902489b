#include "selection/Nudge.h"

#include "selection/Floating.h"
#include "selection/FreehandSelection.h"
#include "selection/RectangleSelection.h"

#include <algorithm>

namespace pintalux {

namespace {

/// The place after a move on one axis.
double Moved(double place, double length, double step, double factor, double view) {
    return std::clamp(place + step, std::min(factor - length, place), std::max(view - factor, place));
}

void Move(frmImage& image, Control& what, int dx, int dy) {
    const double factor = image.factor;
    const double left = Moved(what.Left(), what.Width(), dx * factor, factor, image.Image1.Width());
    const double top = Moved(what.Top(), what.Height(), dy * factor, factor, image.Image1.Height());
    what.Move(left, top, what.Width(), what.Height());
}

} // namespace

bool Nudge(frmImage& image, int dx, int dy) {
    if (image.lbltext.Visible()) {
        Move(image, image.lbltext, dx, dy);
    } else if (image.PicSelect.Visible()) {
        // Only the first one stamps its hole: a piece that is carried in many small steps wipes no trail.
        if (image.piece == PieceState::Lifted) PicSelect_MouseDown(image);
        PicSelect_MouseUp(image);
        Move(image, image.PicSelect, dx, dy);
        TakeMembers(image, image.PicSelect);
    } else if (image.PicFreeSelect.Visible()) {
        PicFreeSelect_MouseDown(image);
        PicFreeSelect_MouseUp(image);
        Move(image, image.PicFreeSelect, dx, dy);
    } else {
        return false;
    }
    return true;
}

} // namespace pintalux
