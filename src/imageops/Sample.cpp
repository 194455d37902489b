#include "imageops/Sample.h"

#include "base/Arithmetic.h"
#include "imageops/Scaffold.h"
#include "surface/raster/Transfer.h"
#include "surface/window/ProgressBar.h"
#include "surface/window/Screen.h"

#include <algorithm>

namespace pintalux {

namespace {

constexpr double kFrameSide = 3900; // twips of the sample's frame

struct SampleSize {
    double width, height; // twips
    double scale;
};

// Twips. The image's sides are whole 32-bit numbers: at 16 bits no image above 2184 pixels would have a
// sample.
// Intended: a tall image gets its sample's width from the frame, not from the image, so that it fills the
// frame's height and always fits; its sample looks narrower than the image.
SampleSize SizeFor(std::int32_t Wt, std::int32_t Ht, double Sw, double Sh) {
    const double innerWidth = Sw - 30;
    const double innerHeight = Sh - 30;
    const double byWidth = Wt / innerWidth;
    const double byHeight = Ht / innerHeight;
    if (Wt <= Sw - 120 && Ht <= Sh - 120) {
        const double scale = Wt <= Ht ? byHeight : byWidth;
        return {Wt / scale, Ht / scale, scale};
    }
    if (Wt > Ht) return {innerWidth, (Ht - 30) / byWidth, byWidth};
    if (Wt < Ht) return {innerWidth / byHeight, innerHeight, byHeight};
    return {innerWidth, innerHeight, byHeight};
}

} // namespace

SampleParts::SampleParts(Form& form) : form_(form) {
    SampleArea.BackColor(kWorkspaceColour);
    SampleArea.ScaleMode(kScaleTwips);
    SampleArea.Width(kFrameSide);
    SampleArea.Height(kFrameSide);
    ShBG.Move(0, 0, kFrameSide, kFrameSide);
    ShBG.BorderColor(0x808080);
    imgSample.AccessibleName("Amostra");
    picsource.Visible(false);
    PicDest.Visible(false);
}

void SampleParts::Startup(Surface& source) {
    if (HasPixels(source)) {
        const SampleSize size =
            SizeFor(ToInt32(source.ScaleWidth() * Screen.TwipsPerPixelX()),
                    ToInt32(source.ScaleHeight() * Screen.TwipsPerPixelY()), ShBG.Width(), ShBG.Height());
        SampleScale = size.scale;
        SizeSample(size.width, size.height);
        picsource.PaintPicture(source.Picture(), 0, 0, picsource.ScaleWidth(), picsource.ScaleHeight(), 0, 0,
                               source.ScaleWidth(), source.ScaleHeight(), SRCCOPY);
        untouched_ = picsource.Image();
    }
    picsource.Picture(untouched_);
    PicDest.Picture(untouched_);
    imgSample.Picture(PicDest.Image());
    PlaceSample();
}

// A side that would come out below a pixel, or below nothing, is one pixel: the narrowest image has a sample.
void SampleParts::SizeSample(double width, double height) {
    const auto atLeastAPixel = [](double twips) { return std::max<double>(twips, kTwipsPerPixel); };
    for (Control* sized : {static_cast<Control*>(&picsource), static_cast<Control*>(&PicDest),
                           static_cast<Control*>(&imgSample)}) {
        sized->Width(atLeastAPixel(width));
        sized->Height(atLeastAPixel(height));
    }
}

void SampleParts::PlaceSample() {
    imgSample.Left(ShBG.Left() + 15);
    const double room = ShBG.Width() - imgSample.Width() - 2;
    if (room > 0) imgSample.Left(room / 2 + ShBG.Left());
    imgSample.Top(ShBG.Top() + ShBG.Height() / 2 - imgSample.Height() / 2);
}

void SampleParts::Preview(const std::function<void()>& operation) {
    LockWindowUpdate(form_.hWnd());
    TheProgressBar().Visible(false);
    if (HasPixels(picsource)) {
        operation();
        imgSample.Picture(PicDest.Image());
        picsource.Picture(untouched_);
        PicDest.Picture(untouched_);
    }
    LockWindowUpdate(nullptr);
    TheProgressBar().Visible(true);
}

void SampleParts::ShowUntouched() {
    imgSample.Picture(PicDest.Image());
    picsource.Picture(untouched_);
}

} // namespace pintalux
