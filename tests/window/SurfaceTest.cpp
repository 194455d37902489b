#include "surface/window/Surface.h"
#include "surface/raster/Drawing.h"
#include "surface/raster/Transfer.h"
#include "surface/window/Display.h"
#include "window/WindowTest.h"

#include <QFontMetrics>
#include <QPainter>

namespace pintalux {
namespace {

constexpr Colour kRed = 0x0000FF;
constexpr Colour kGreen = 0x00FF00;
constexpr Colour kBlue = 0xFF0000;

class SurfaceTest : public testing::Test {
  protected:
    SurfaceTest() : surface(form, "surface"), other(form, "other") {
        form.ScaleMode(kScalePixels);
        surface.Width(10);
        surface.Height(8);
        other.Width(10);
        other.Height(8);
    }
    PlainForm form;
    Surface surface, other;
};

TEST_F(SurfaceTest, StartsWhite) {
    EXPECT_EQ(surface.Point(0, 0), kWhite);
    EXPECT_EQ(surface.Point(9, 7), kWhite);
}

TEST_F(SurfaceTest, PointOutsideIsMinusOne) {
    EXPECT_EQ(surface.Point(-1, -1), -1);
    EXPECT_EQ(surface.Point(10, 0), -1);
    EXPECT_EQ(surface.Point(0, 8), -1);
}

TEST_F(SurfaceTest, BackColorClearsWhatWasDrawn) {
    surface.PSet(3, 3, kRed);
    surface.BackColor(kGreen);
    EXPECT_EQ(surface.Point(3, 3), kGreen);
    surface.PSet(3, 3, kRed);
    surface.BackColor(kGreen); // the same value clears as well
    EXPECT_EQ(surface.Point(3, 3), kGreen);
}

TEST_F(SurfaceTest, ClsGoesBackToBackColorWithoutPicture) {
    surface.BackColor(kBlue);
    surface.LineBF(0, 0, 9, 7, kRed);
    surface.Cls();
    EXPECT_EQ(surface.Point(5, 5), kBlue);
}

TEST_F(SurfaceTest, OwnImageAsPictureKeepsPixelsThroughCls) {
    SetPixel(surface.hDC(), 2, 3, kRed);
    surface.Picture(surface.Image());
    SetPixel(surface.hDC(), 4, 4, kGreen);
    surface.Cls();
    EXPECT_EQ(surface.Point(2, 3), kRed);
    EXPECT_EQ(surface.Point(4, 4), kWhite);
}

TEST_F(SurfaceTest, ImageIsASnapshot) {
    const Picture before = surface.Image();
    surface.PSet(1, 1, kRed);
    EXPECT_EQ(before.At(1, 1), 0xFFFFFFu);
    EXPECT_EQ(surface.Image().At(1, 1), 0x0000FFu);
}

TEST_F(SurfaceTest, PictureCopiesAnotherSurface) {
    other.LineBF(0, 0, 9, 7, kBlue);
    surface.Picture(other.Image());
    other.PSet(0, 0, kRed);
    EXPECT_EQ(surface.Point(0, 0), kBlue);
}

TEST_F(SurfaceTest, SmallerPictureLiesTopLeftOverBackColor) {
    surface.BackColor(kGreen);
    surface.Picture(Picture(4, 3, 0x0000FF));
    EXPECT_EQ(surface.Width(), 10);
    EXPECT_EQ(surface.Point(3, 2), kRed);
    EXPECT_EQ(surface.Point(4, 2), kGreen);
    EXPECT_EQ(surface.Point(3, 3), kGreen);
}

TEST_F(SurfaceTest, EmptyPictureLeavesBackColor) {
    surface.BackColor(kGreen);
    surface.Picture(Picture(10, 8, 0));
    surface.Picture({});
    EXPECT_EQ(surface.Point(0, 0), kGreen);
    EXPECT_TRUE(surface.Picture().Empty());
}

TEST_F(SurfaceTest, EachAttributeOfTheFontIsSeen) {
    surface.Move(0, 0, 120, 40);
    const auto printed = [this](const std::function<void()>& choose) {
        surface.FontBold(false);
        surface.FontItalic(false);
        surface.FontUnderline(false);
        surface.FontStrikethru(false);
        surface.FontSize(12);
        choose();
        surface.Cls();
        surface.CurrentX(3);
        surface.CurrentY(3);
        surface.Print("Ola");
        return surface.Image();
    };
    const Picture plain = printed([] {});
    EXPECT_NE(printed([this] { surface.FontBold(true); }), plain);
    EXPECT_NE(printed([this] { surface.FontItalic(true); }), plain);
    EXPECT_NE(printed([this] { surface.FontUnderline(true); }), plain);
    EXPECT_NE(printed([this] { surface.FontStrikethru(true); }), plain);
    EXPECT_NE(printed([this] { surface.FontSize(16); }), plain);
    EXPECT_EQ(printed([] {}), plain);
}

TEST_F(SurfaceTest, WithoutAutoSizeTheSizeIsKept) {
    surface.AutoSize(true);
    surface.Picture(Picture(25, 31, 0x0000FF));
    surface.Width(7);
    surface.AutoSize(false);
    EXPECT_EQ(surface.Width(), 7);
    surface.Picture(Picture(14, 15, 0x0000FF));
    EXPECT_EQ(surface.Width(), 7);
    EXPECT_EQ(surface.Height(), 31);
    surface.AutoSize(true);
    EXPECT_EQ(surface.Width(), 14);
    EXPECT_EQ(surface.Height(), 15);
}

TEST_F(SurfaceTest, AutoSizeTakesThePicturesSize) {
    surface.AutoSize(true);
    surface.Picture(Picture(25, 31, 0x0000FF));
    EXPECT_EQ(surface.Width(), 25);
    EXPECT_EQ(surface.Height(), 31);
    EXPECT_EQ(surface.Point(24, 30), kRed);
    surface.Picture({});
    EXPECT_EQ(surface.Width(), 25);
    EXPECT_EQ(surface.Point(24, 30), kWhite);
}

TEST_F(SurfaceTest, AutoSizeSwitchedOnTakesTheSizeAtOnce) {
    surface.Picture(Picture(4, 3, 0x0000FF));
    surface.AutoSize(true);
    EXPECT_EQ(surface.ScaleWidth(), 4);
    EXPECT_EQ(surface.ScaleHeight(), 3);
}

TEST_F(SurfaceTest, ResizingKeepsPixelsAndShowsBackColorBeside) {
    surface.PSet(9, 7, kRed);
    surface.Width(12);
    surface.Height(9);
    EXPECT_EQ(surface.Point(9, 7), kRed);
    EXPECT_EQ(surface.Point(11, 8), kWhite);
    EXPECT_EQ(surface.Point(12, 8), -1);
}

TEST_F(SurfaceTest, ShrinkingCutsTheImage) {
    surface.Width(5);
    EXPECT_EQ(surface.Image().Width(), 5);
    EXPECT_EQ(surface.Point(5, 0), -1);
}

TEST_F(SurfaceTest, GreatSurfaceCostsNothingYet) {
    surface.Move(0, 0, 32000, 32000);
    EXPECT_EQ(surface.Point(31999, 31999), kWhite);
    surface.PSet(31999, 31999, kRed);
    EXPECT_EQ(surface.Image().At(31999, 31999), 0x0000FFu);
}

TEST_F(SurfaceTest, WithoutAutoRedrawDrawingIsLostToImage) {
    surface.PSet(1, 1, kGreen);
    surface.AutoRedraw(false);
    surface.PSet(1, 1, kRed);
    EXPECT_EQ(surface.Point(1, 1), kRed);
    EXPECT_EQ(surface.Image().At(1, 1), 0x00FF00u);
    surface.AutoRedraw(true);
    EXPECT_EQ(surface.Point(1, 1), kGreen);
}

TEST_F(SurfaceTest, WithoutAutoRedrawARefreshLosesTheDrawing) {
    surface.AutoRedraw(false);
    surface.PSet(1, 1, kRed);
    surface.Refresh();
    EXPECT_EQ(surface.Point(1, 1), kWhite);
}

TEST_F(SurfaceTest, WithoutAutoRedrawClsBringsBackWhatWasKept) {
    surface.PSet(1, 1, kGreen);
    surface.AutoRedraw(false);
    surface.LineBF(0, 0, 9, 7, kRed);
    surface.Cls();
    EXPECT_EQ(surface.Point(1, 1), kGreen);
    EXPECT_EQ(surface.Point(2, 2), kWhite);
    EXPECT_EQ(surface.Image().At(1, 1), 0x00FF00u);
    surface.LineBF(0, 0, 9, 7, kRed);
    surface.BackColor(kBlue); // clears what is kept as well
    EXPECT_EQ(surface.Point(1, 1), kBlue);
    surface.Width(12);
    EXPECT_EQ(surface.Point(11, 7), kBlue);
    surface.PSet(11, 7, kRed);
    surface.AutoRedraw(true);
    EXPECT_EQ(surface.Point(11, 7), kBlue);
}

TEST_F(SurfaceTest, DeviceContextFollowsAutoRedraw) {
    DeviceContext& hdc = surface.hDC();
    surface.AutoRedraw(false);
    SetPixel(hdc, 0, 0, kRed);
    surface.AutoRedraw(true);
    EXPECT_EQ(GetPixel(hdc, 0, 0), kWhite);
}

TEST_F(SurfaceTest, LinePaintsBothEnds) {
    surface.Line(2, 2, 6, 2, kRed);
    EXPECT_EQ(surface.Point(2, 2), kRed);
    EXPECT_EQ(surface.Point(6, 2), kRed);
    EXPECT_EQ(surface.Point(7, 2), kWhite);
}

TEST_F(SurfaceTest, CoordinatesRoundHalfToEven) {
    surface.PSet(2.5, 3.5, kRed);
    EXPECT_EQ(surface.Point(2, 4), kRed);
}

TEST_F(SurfaceTest, CoordinateBeyond32BitsIsOverflow) {
    EXPECT_EQ(ErrorOf([&] { surface.PSet(3e9, 0, kRed); }), kOverflow);
    EXPECT_EQ(ErrorOf([&] { surface.Line(0, 0, 0, -3e9, kRed); }), kOverflow);
}

TEST_F(SurfaceTest, BoxHasBothCorners) {
    surface.FillStyle(kFillTransparent);
    surface.LineB(1, 1, 4, 3, kRed);
    EXPECT_EQ(surface.Point(1, 1), kRed);
    EXPECT_EQ(surface.Point(4, 3), kRed);
    EXPECT_EQ(surface.Point(2, 2), kWhite);
    surface.LineBF(1, 1, 4, 3, kBlue);
    EXPECT_EQ(surface.Point(2, 2), kBlue);
}

TEST_F(SurfaceTest, CircleOfRadiusZeroIsADot) {
    surface.Circle(5, 5, 0, kRed);
    EXPECT_EQ(surface.Point(5, 5), kRed);
    EXPECT_EQ(surface.Point(4, 5), kWhite);
}

TEST_F(SurfaceTest, NegativeWidthMirrors) {
    other.LineBF(0, 0, 4, 7, kRed); // the left half
    surface.PaintPicture(other.Image(), 10, 0, -10, 8, 0, 0, 10, 8, SRCCOPY);
    EXPECT_EQ(surface.Point(0, 0), kWhite);
    EXPECT_EQ(surface.Point(4, 0), kWhite);
    EXPECT_EQ(surface.Point(5, 0), kRed);
    EXPECT_EQ(surface.Point(9, 7), kRed);
}

TEST_F(SurfaceTest, DrawWidthBelowOneIsRefused) {
    EXPECT_EQ(ErrorOf([&] { surface.DrawWidth(0); }), kInvalidPropertyValue);
    EXPECT_EQ(ErrorOf([&] { surface.DrawWidth(32768); }), kInvalidPropertyValue);
    EXPECT_EQ(surface.DrawWidth(), 1);
}

TEST_F(SurfaceTest, PrintSetsPixelsInForeColorAndMovesDown) {
    surface.Move(0, 0, 60, 40);
    surface.ForeColor(kRed);
    surface.CurrentX(3);
    surface.CurrentY(3);
    surface.Print("HM");
    int red = 0;
    for (int y = 0; y < 40; ++y) {
        for (int x = 0; x < 60; ++x) {
            const Colour colour = surface.Point(x, y);
            // No smoothing: a pixel is ink or paper.
            ASSERT_TRUE(colour == kRed || colour == kWhite);
            red += colour == kRed;
        }
    }
    EXPECT_GT(red, 10);
    EXPECT_EQ(surface.CurrentX(), 0);
    EXPECT_GT(surface.CurrentY(), 10);
}

TEST_F(SurfaceTest, PrintOutsideChangesNothing) {
    surface.CurrentX(-500);
    surface.CurrentY(2000);
    surface.Print("X");
    EXPECT_EQ(surface.Image(), Picture(10, 8, 0xFFFFFF));
}

TEST_F(SurfaceTest, SmallFontsAreAboutSevenPixels) {
    surface.Move(0, 0, 60, 30);
    surface.FontName("Small Fonts");
    surface.Print("8");
    int lowest = -1;
    int highest = 30;
    for (int y = 0; y < 30; ++y) {
        for (int x = 0; x < 60; ++x) {
            if (surface.Point(x, y) != kBlack) continue;
            lowest = y;
            highest = std::min(highest, y);
        }
    }
    EXPECT_GE(lowest - highest + 1, 4);
    EXPECT_LE(lowest - highest + 1, 8);
}

TEST_F(SurfaceTest, SmallFontsAreTheDesktopsFaceAtEightPixels) {
    QFont small = QGuiApplication::font();
    small.setPixelSize(8);
    surface.FontName("Small Fonts");
    surface.Print("8");
    EXPECT_EQ(surface.CurrentY(), QFontMetrics(small).height());
    Label label(form, "label", "8");
    label.FontName("Small Fonts");
    const QFont shown = FindWidget("label")->font();
    EXPECT_EQ(shown.family(), small.family());
    EXPECT_EQ(shown.pixelSize(), 8);
}

TEST_F(SurfaceTest, ShowsItsBitmapPixelByPixel) {
    form.Width(100 * 15);
    form.Height(100 * 15);
    surface.PSet(3, 2, kRed);
    form.Show();
    LetEventsRun();
    const QImage shown = ShownBy("surface");
    EXPECT_EQ(shown.pixel(3, 2), 0xFFFF0000u);
    EXPECT_EQ(shown.pixel(4, 2), 0xFFFFFFFFu);
    form.Hide();
}

TEST_F(SurfaceTest, RegionClipsPointerAndView) {
    Region region = CreateRectRgn(0, 0, 5, 8);
    SetWindowRgn(surface, region);
    EXPECT_EQ(FindWidget("surface")->mask().boundingRect(), QRect(0, 0, 5, 8));
    SetWindowRgn(surface, Region());
    EXPECT_FALSE(FindWidget("surface")->mask().contains(QPoint(0, 0)));
    EXPECT_FALSE(FindWidget("surface")->mask().isEmpty());
}

TEST_F(SurfaceTest, AMoveKeepsWhatIsShown) {
    surface.AsPanel();
    surface.Print("Palete");
    other.AutoRedraw(false);
    other.PSet(2, 3, kRed);
    for (Surface* moved : {&surface, &other}) {
        moved->Left(20);
        moved->Top(30);
        moved->Move(5, 6, 10, 8);
    }
    EXPECT_EQ(surface.Texts().size(), 1U);
    EXPECT_EQ(other.Point(2, 3), kRed);
}

TEST_F(SurfaceTest, WhatAPanelPrintsLiesLineBelowLineAndNotInItsBitmap) {
    surface.Move(0, 0, 100, 60);
    other.Move(0, 0, 100, 60);
    surface.AsPanel();
    for (Surface* printed : {&surface, &other}) {
        printed->CurrentX(7);
        printed->CurrentY(4);
        printed->Print("H");
        printed->Print("M");
    }
    EXPECT_EQ(surface.Image(), Picture(100, 60, 0xFFFFFF));
    EXPECT_NE(other.Image(), Picture(100, 60, 0xFFFFFF));
    EXPECT_EQ(surface.CurrentX(), 0);
    EXPECT_EQ(surface.CurrentY(), other.CurrentY());
    ASSERT_EQ(surface.Texts().size(), 2U);
    EXPECT_EQ(surface.Texts()[0].x, 7);
    EXPECT_EQ(surface.Texts()[0].y, 4);
    EXPECT_EQ(surface.Texts()[1].x, 0);
    EXPECT_EQ(surface.Texts()[1].y * 2 - 4, surface.CurrentY());
}

constexpr Colour kKey = 0x8894A0;

/// What `StretchBlt` makes of a picture on an empty surface.
Picture StretchedTo(int width, int height, const Picture& picture) {
    Bitmap bits(width, height, 0xFFFFFF);
    DrawAttributes attributes;
    DeviceContext to(bits, attributes);
    StretchBits(to, {0, 0, width, height}, picture, {0, 0, picture.Width(), picture.Height()}, SRCCOPY);
    return bits;
}

class StretchedSurfaceTest : public SurfaceTest {
  protected:
    StretchedSurfaceTest() {
        piece.Set(1, 1, kKey);
        piece.Set(2, 0, 0x0000FF);
        piece.Set(0, 2, 0x00FF00);
        surface.ShowStretched(piece, kKey);
    }
    Picture piece{4, 3, 0xFF0000};
};

TEST_F(StretchedSurfaceTest, ItsImageIsTheStretchedPicture) {
    EXPECT_EQ(surface.Image(), StretchedTo(10, 8, piece));
    EXPECT_EQ(surface.Image(), surface.Image());
    EXPECT_EQ(surface.Point(9, 7), kBlue);
    EXPECT_EQ(GetPixel(surface.hDC(), 3, 3), kKey);
}

TEST_F(StretchedSurfaceTest, WhatIsDrawnLiesOverIt) {
    surface.PSet(0, 0, kGreen);
    Picture expected = StretchedTo(10, 8, piece);
    expected.Set(0, 0, 0x00FF00);
    EXPECT_EQ(surface.Image(), expected);
}

TEST_F(StretchedSurfaceTest, AnotherSizeKeepsItsPixels) {
    surface.Width(12);
    Picture expected = StretchedTo(10, 8, piece).Resized(12, 8, 0xFFFFFF);
    EXPECT_EQ(surface.Image(), expected);
}

TEST_F(StretchedSurfaceTest, ClsAndAnotherPictureEndIt) {
    surface.Cls();
    EXPECT_EQ(surface.Image(), Picture(10, 8, 0xFFFFFF));
    surface.ShowStretched(piece, kKey);
    surface.Picture(Picture(2, 2, 0x0000FF));
    EXPECT_EQ(surface.Point(1, 1), kRed);
    EXPECT_EQ(surface.Point(3, 3), kWhite);
}

TEST_F(StretchedSurfaceTest, WithoutAutoRedrawItIsWhatIsDrawnOn) {
    surface.AutoRedraw(false);
    surface.PSet(0, 0, kGreen);
    EXPECT_EQ(surface.Image(), StretchedTo(10, 8, piece));
    EXPECT_EQ(surface.Point(0, 0), kGreen);
    EXPECT_EQ(surface.Point(9, 7), kBlue);
    surface.ShowStretched(piece, kKey);
    EXPECT_TRUE(surface.AutoRedraw());
}

} // namespace
} // namespace pintalux
