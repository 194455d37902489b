// The layout of a document window: scroll bars, centring, scrolling. All measures are pixels of `PicFrame`.
#include "base/Arithmetic.h"
#include "document/frmImage.h"
#include "document/Globals.h"

#include <algorithm>
#include <cmath>

namespace pintalux {

namespace {

// Intended: the image is centred upright only with more than 13 pixels to spare, so that a window drawn tight
// around it does not make it jump.
constexpr double kVerticalSlack = 13;

} // namespace

void frmImage::ConnectScrollBars() {
    VS.Change = VS.Scroll = [this] { VS_Change(); };
    HS.Change = HS.Scroll = [this] { HS_Change(); };
}

void frmImage::Picsize() {
    LayOutHorizontal();
    LayOutVertical();
    LayOutCorner();
    if (VS.Visible()) {
        VS.Max(PicBG.ScaleHeight() - VS.Height());
        VS.LargeChange(VS.Max() / 10.0);
    }
    if (HS.Visible()) {
        HS.Max(PicBG.Width() - HS.Width());
        HS.LargeChange(HS.Max() / 10.0);
    }
    DrawCross();
}

void frmImage::LayOutHorizontal() {
    const double frame = PicFrame.ScaleWidth();
    if (PicBG.Width() > frame) {
        HS.Left(0);
        HS.Top(PicFrame.ScaleHeight() - HS.Height() - 2);
        HS.Width(frame);
        HS.Visible(true);
        const double end = HS.Top() + HS.Height();
        BelowBar.Move(0, end, frame, std::max(PicFrame.ScaleHeight() - end, 0.0));
        if (PicBG.Left() > 0) PicBG.Left(0);
    } else {
        HS.Visible(false);
        PicBG.Left(std::floor((frame - PicBG.Width()) / 2));
    }
}

void frmImage::LayOutVertical() {
    const double frame = PicFrame.ScaleHeight();
    if (PicBG.Height() > frame) {
        VS.Top(0);
        VS.Left(PicFrame.ScaleWidth() - VS.Width());
        VS.Height(frame);
        VS.Visible(true);
        if (PicBG.Top() > 0) PicBG.Top(0);
    } else {
        VS.Visible(false);
        // What was scrolled up out of view comes back with the bar's going.
        if (PicBG.Top() < 0) PicBG.Top(0);
        if (frame - kVerticalSlack > PicBG.Height()) PicBG.Top(std::floor((frame - PicBG.Height()) / 2));
    }
}

void frmImage::LayOutCorner() {
    const bool both = HS.Visible() && VS.Visible();
    if (both) {
        // A view smaller than a bar's depth leaves the other no length.
        HS.Width(std::max(HS.Width() - VS.Width(), 0.0));
        VS.Height(std::max(VS.Height() - HS.Height(), 0.0));
        piccorner.Top(HS.Top());
        piccorner.Left(VS.Left());
    }
    piccorner.Visible(both);
    BelowBar.Visible(HS.Visible());
}

void frmImage::VS_Change() {
    if (!VS.Visible()) return;
    PicBG.Top(-VS.Value());
    if (RulersOn) ImgLrule.Top(-VS.Value());
}

void frmImage::HS_Change() {
    if (!HS.Visible()) return;
    PicBG.Left(-HS.Value());
    if (RulersOn) ImgTrule.Left(LeftRuler.ScaleWidth() + PicBG.Left());
}

} // namespace pintalux
