// Rulers of a document window: scales in image pixels along the top and the left edge, which follow zoom and
// scroll.
#include "base/Arithmetic.h"
#include "base/NumberText.h"
#include "document/frmImage.h"
#include "document/Globals.h"
#include "surface/system/Pictures.h"
#include "surface/window/Screen.h"

#include <algorithm>
#include <functional>

namespace pintalux {

namespace {

constexpr Colour kRed = 255;

// How one scale puts its marks and numbers on its surface, along its own direction.
struct ScalePen {
    std::function<void(double at)> longMark;
    std::function<void(double at)> shortMark;
    std::function<void(double at, int number)> number;
};

// Marks every 5, 50 and 100 pixels, one a pixel and a number every 5 from a factor above 5; only every
// hundredth at 0.25 and below.
void DrawScale(int pixels, double factor, const ScalePen& pen) {
    int m5 = 5;
    int m50 = 50;
    int m100 = 100;
    for (int i = 1; i <= pixels; ++i) {
        const double at = i * factor;
        if (factor <= 0.25) {
            if (i == m100) {
                pen.longMark(at);
                m100 += 100;
            }
            continue;
        }
        if (factor > 5 && i != m5 && i != m50 && i != m100) pen.shortMark(at);
        if (i == m5) {
            if (factor <= 5) {
                pen.shortMark(at);
            } else {
                pen.longMark(at);
                if (i != m50) pen.number(at, i);
            }
            m5 += 5;
        }
        if (i == m50) {
            pen.longMark(at);
            pen.number(at, i);
            m50 += 50;
        }
        if (i == m100) {
            pen.longMark(at);
            m100 += 100;
        }
    }
}

// A window may be smaller than the strips: an undo fits it to its image, and a minimised one shrinks each
// time.
double Without(double size, double strip) {
    return std::max(size - strip, 0.0);
}

} // namespace

void frmImage::Timer2_Timer() {
    const Flag wanted = RulersOn;
    if (wanted == rulersShown_) return;
    if (RulersOn) {
        ShowRulers();
    } else {
        HideRulers();
    }
    rulersShown_ = wanted;
}

void frmImage::ShowRulers() {
    LeftRuler.Visible(true);
    TopRuler.Visible(true);
    if (WindowState() == kNormal) {
        Height(Height() + TopRuler.Height());
        Width(Width() + LeftRuler.Width() + 15);
    }
    Form_Resize();
    drawrulers();
}

void frmImage::HideRulers() {
    LeftRuler.Visible(false);
    TopRuler.Visible(false);
    // Intended: only a minimised window shrinks here; a normal one is shrunk once, by `hiderulers`.
    if (WindowState() == kMinimised) {
        Height(Without(Height(), TopRuler.Height()));
        Width(Without(Width(), LeftRuler.Width() - 15));
    }
    Form_Resize();
    hiderulers();
}

void frmImage::hiderulers() {
    if (WindowState() == kMaximised) return;
    Width(Without(Width(), LeftRuler.Width()));
    Height(Without(Height(), TopRuler.Height()));
}

void frmImage::drawrulers() {
    if (!RulersOn) return; // Hidden scales are painted when they are shown.
    PicLrule.Height((Image1.Height() + 10) * Screen.TwipsPerPixelY());
    PicTrule.Width((Image1.Width() + 10) * Screen.TwipsPerPixelX());
    ImgTrule.Width(PicTrule.ScaleWidth());
    ImgTrule.Left(PicFrame.ScaleLeft() + PicBG.Left() + LeftRuler.ScaleWidth());
    ImgLrule.Top(PicBG.Top());
    ImgLrule.Height(PicLrule.ScaleHeight());
    for (Surface* scale : {&PicTrule, &PicLrule}) {
        scale->Cls();
        scale->DrawWidth(1);
        scale->ForeColor(kBlack);
    }
    PicTrule.Line(0, 7, 0, 23, kRed);
    DrawScale(ToInt32(PicMerge.ScaleWidth()), factor,
              {[this](double x) { PicTrule.Line(x, 15, x, 23, kRed); },
               [this](double x) { PicTrule.Line(x, 18, x, 23, kBlack); },
               [this](double x, int number) {
                   const std::string text = NumberText(number);
                   PicTrule.CurrentX(x - (2.0 * static_cast<double>(text.size()) + 1));
                   PicTrule.CurrentY(5);
                   PicTrule.Print(text);
               }});
    PicLrule.Line(15, 0, 31, 0, kRed);
    DrawScale(ToInt32(PicMerge.ScaleHeight()), factor,
              {[this](double y) { PicLrule.Line(23, y, 31, y, kRed); },
               [this](double y) { PicLrule.Line(26, y, 31, y, kBlack); },
               [this](double y, int number) {
                   const std::string text = NumberText(number);
                   PicLrule.CurrentX(5);
                   PicLrule.CurrentY(y - (2.0 * static_cast<double>(text.size()) + 1));
                   PicLrule.Print(text);
               }});
    ImgTrule.Picture(PicTrule.Image());
    ImgLrule.Picture(PicLrule.Image());
    ImgTrule.Texts(PicTrule.Texts());
    ImgLrule.Texts(PicLrule.Texts());
}

} // namespace pintalux
