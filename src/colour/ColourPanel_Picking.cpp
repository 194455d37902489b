// Picking colours with the pointer: from the spectrum, the strip of shades, the grid, the colour dialog.
#include "base/Arithmetic.h"
#include "base/RuntimeError.h"
#include "colour/ColourPanel.h"
#include "surface/raster/Drawing.h"
#include "surface/system/CommonDialog.h"

#include <algorithm>

namespace pintalux {

namespace {

constexpr double kGridLine = 155; // Y of the line above the grid

// The readout of the box's background.
// Intended: a cell that holds exactly the grid's own grey counts as empty, so that an empty cell is never
// picked by accident.
bool IsEmptyCell(Colour c) {
    return RgbReadout(c) == "RGB: 192, 192, 192";
}

} // namespace

void ColourPanel::ConnectBox() {
    Image1.MouseMove = [this](int Button, int, double, double) { Image1_MouseMove(Button); };
    Image1.MouseDown = [this](int Button, int, double X, double Y) { Image1_MouseDown(Button, X, Y); };
    ColorBox.MouseMove = [this](int Button, int, double X, double Y) { ColorBox_MouseMove(Button, X, Y); };
    ColorBox.MouseDown = [this](int Button, int, double X, double Y) { ColorBox_MouseDown(Button, X, Y); };
    picColBlowup.MouseMove = [this](int, int, double, double) { picColBlowup_MouseMove(); };
    picColBlowup.MouseDown = [this](int, int, double, double) { CommitWorkingColour(); };
    for (Control* around : {static_cast<Control*>(&ColTB), static_cast<Control*>(&Picture4),
                            static_cast<Control*>(&Picture5), static_cast<Control*>(&lblColor)}) {
        around->MouseMove = [this](int, int, double, double) { FallBackToCurrent(); };
    }
    Toolbar3.ButtonClick = [this](ToolButton& button) { Toolbar3_ButtonClick(button); };
}

// What the screen shows counts, whatever drew it. Pixel 0, 0 of `TheColor` holds the sample.
std::optional<Colour> ColourPanel::SampleAtPointer(CursorPosition& remembered) {
    const CursorPosition place = GetCursorPos();
    if (place == remembered) return {};
    remembered = place;
    Colour sample = -1;
    ResumeNext([&] { sample = ScreenPixel(place); },
               [&] {
                   if (sample == -1) sample = RenderedPixel(place);
               },
               [&] {
                   if (sample != -1) SetPixel(TheColor.hDC(), 0, 0, sample);
               });
    return GetPixel(TheColor.hDC(), 0, 0);
}

void ColourPanel::Image1_MouseMove(int Button) {
    if ((Button & kRightButton) != 0) return;
    const auto sample = SampleAtPointer(overSpectrum_);
    if (!sample) return;
    ChangeColor(*sample);
    picColBlowup.Visible(false);
}

void ColourPanel::Image1_MouseDown(int Button, double X, double Y) {
    if (Button == kLeftButton) return CommitWorkingColour();
    const auto sample = SampleAtPointer(spectrumPress_);
    if (!sample) return;
    PlaceBlowup(X / Screen.TwipsPerPixelX() + Image1.Left() - picColBlowup.Width() / 2,
                Y / Screen.TwipsPerPixelY() + Image1.Top() - picColBlowup.Height() / 10);
    ColorBlowup(*sample);
}

void ColourPanel::CommitWorkingColour() {
    SetCurrentColour(Picture6.BackColor());
    if (!ColorLock) loadselected();
}

// The strip stays within the box's width.
void ColourPanel::PlaceBlowup(double left, double top) {
    picColBlowup.Left(std::max(0.0, std::min(left, ColorBox.Width() - picColBlowup.Width())));
    picColBlowup.Top(top);
}

// A channel within 25 of black starts at black. None starts so high that 25 more would leave its range: 255
// less 25 is 230, and 230 plus 25 is 255 still. Above that the ramp runs into white and stays there.
void ColourPanel::ColorBlowup(Colour c) {
    constexpr int kBelow = 25;
    const auto base = [](int channel) { return channel > kBelow ? channel - kBelow : 0; };
    int red = base(c % 256);
    int green = base(c / 256 % 256);
    int blue = base(c / 256 / 256 % 256);
    int s = 1;
    for (int y = 0; y <= picColBlowup.ScaleHeight(); ++y) {
        for (int x = 0; x <= picColBlowup.ScaleWidth(); ++x)
            SetPixel(picColBlowup.hDC(), x, y, RGB(red, green, blue));
        s = s != 1 ? 1 : 0;
        red += s;
        green += s;
        blue += s;
    }
    picColBlowup.Visible(true);
}

void ColourPanel::picColBlowup_MouseMove() {
    if (const auto sample = SampleAtPointer(overBlowup_)) ChangeColor(*sample);
}

/// The pixel of the box under the pointer, below the line; nothing above it and outside.
std::optional<Colour> ColourPanel::GridColourAt(double X, double Y) const {
    if (Y <= kGridLine) return {};
    const Colour c = GetPixel(ColorBox.hDC(), ToInt32(X), ToInt32(Y));
    if (c == -1) return {};
    return c;
}

void ColourPanel::ColorBox_MouseMove(int Button, double X, double Y) {
    if ((Button & kRightButton) != 0) return;
    if (picColBlowup.Visible()) FallBackToCurrent();
    const auto c = GridColourAt(X, Y);
    if (c && *c != GetPixel(ColorBox.hDC(), 1, 1)) ChangeColor(*c);
}

void ColourPanel::ColorBox_MouseDown(int Button, double X, double Y) {
    const auto c = GridColourAt(X, Y);
    if (!c || IsEmptyCell(*c)) return;
    if (Button == kLeftButton) {
        ChangeColor(*c);
        SetCurrentColour(*c);
    } else if (Button == kRightButton) {
        PlaceBlowup(X - picColBlowup.Width() / 2, Y - (picColBlowup.Height() - picColBlowup.Height() / 10));
        ColorBlowup(*c);
    }
}

void ColourPanel::FallBackToCurrent() {
    picColBlowup.Visible(false);
    ChangeColor(TheColor.BackColor());
}

// Intended: a cancelled dialog gives black, so that Escape in it is the short way to the colour most used.
Colour ColourPanel::PickColorDialog() try {
    CommonDialog1.CancelError = true;
    CommonDialog1.Color = TheColor.BackColor();
    CommonDialog1.ShowColor();
    return CommonDialog1.Color;
} catch (...) {
    return kBlack;
}

void ColourPanel::PickByDialog() {
    const Colour result = PickColorDialog();
    if (result != -1) SetCurrentColour(result);
}

} // namespace pintalux
