#include "surface/window/Display.h"
#include "support/Pictures.h"
#include "surface/raster/Transfer.h"
#include "window/OnScreen.h"

#include <algorithm>
#include <cmath>

#include <QBackingStore>
#include <QImage>
#include <QScreen>
#include <QTransform>
#include <QWindow>

namespace pintalux {
namespace {

QRgb Screened(Pixel pixel) {
    return qRgb(static_cast<int>(pixel & 0xFF), static_cast<int>(pixel >> 8 & 0xFF),
                static_cast<int>(pixel >> 16));
}

/// No two neighbours alike, and all three channels in use.
Picture Patterned(int width, int height) {
    Picture picture(width, height, 0);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            picture.Set(x, y, static_cast<Pixel>(x * 0x1F3 + y * 0x10B57) & 0xFFFFFF);
    }
    return picture;
}

/// The mean of the samples that a reduced pixel stands for; a picture shown at its size or larger has one.
QRgb MeanPixel(const Picture& picture, int x, int y, const QSize& view) {
    const auto samples = [](int source, int shown) { return std::clamp((source + shown - 1) / shown, 1, 4); };
    const int across = samples(picture.Width(), view.width());
    const int down = samples(picture.Height(), view.height());
    int sums[3] = {};
    for (int i = 0; i < across * down; ++i) {
        const int column = StretchedCell(x * across + i % across, picture.Width(), view.width() * across);
        const int row = StretchedCell(y * down + i / across, picture.Height(), view.height() * down);
        for (int channel = 0; channel < 3; ++channel)
            sums[channel] += static_cast<int>(picture.At(column, row) >> 8 * channel & 0xFF);
    }
    const int count = across * down;
    const auto mean = [count](int sum) { return (2 * sum + count) / (2 * count); };
    return qRgb(mean(sums[0]), mean(sums[1]), mean(sums[2]));
}

/// The memory of the window as it is, in device pixels.
QImage DeviceShot(const std::string& name) {
    return FindWidget(name)->grab().toImage();
}

class DisplayTest : public testing::Test {
  protected:
    DisplayTest()
        : panel(form, "panel"), display(panel, "display"), line(panel, "line"), shape(panel, "shape") {
        form.Move(0, 0, 600 * 15, 500 * 15);
        panel.Move(0, 0, 600 * 15, 500 * 15);
        display.Move(0, 0, 600, 500);
        line.Visible(false);
        shape.Visible(false);
    }
    void Show() {
        form.Show();
        ASSERT_TRUE(WaitFor([] { return FindWidget("plain")->windowHandle()->isExposed(); }));
        LetEventsRun();
    }
    /// The window with the outline in front of a white picture.
    void ShowShape(double left, double top, double width, double height) {
        display.Picture(Picture(600, 500, 0xFFFFFF));
        shape.Move(left, top, width, height);
        shape.Visible(true);
        shape.BringToFront();
        Show();
    }
    /// A dotted line from 100, 50 to 200, 50 in front of the picture.
    void ShowInvertingLine() {
        line.DrawMode(kDrawInvert);
        line.X1(100);
        line.Y1(50);
        line.X2(200);
        line.Y2(50);
        line.Visible(true);
        line.BringToFront();
        Show();
    }
    static QImage Shown() { return ShownBy("panel"); }
    PlainForm form;
    Surface panel;
    Display display;
    LineControl line;
    ShapeControl shape;
};

TEST_F(DisplayTest, StretchesItsPictureInBlocks) {
    Picture picture(60, 50, 0xFFFFFF);
    picture.Set(1, 0, 0x0000FF);
    display.Picture(picture);
    Show();
    const QImage shown = Shown();
    EXPECT_EQ(shown.pixel(9, 0), 0xFFFFFFFFu);
    EXPECT_EQ(shown.pixel(10, 0), 0xFFFF0000u);
    EXPECT_EQ(shown.pixel(19, 9), 0xFFFF0000u);
    EXPECT_EQ(shown.pixel(20, 9), 0xFFFFFFFFu);
    EXPECT_EQ(shown.pixel(19, 10), 0xFFFFFFFFu);
}

TEST_F(DisplayTest, PaintsOnlyWhatDiffers) {
    Picture picture(600, 500, 0xFFFFFF);
    display.Picture(picture);
    Show();
    PaintedArea painted(FindWidget("display"));
    picture.Set(300, 100, 0);
    display.Picture(picture);
    display.Refresh();
    EXPECT_EQ(painted.region.boundingRect(), QRect(256, 96, 256, 32)); // the tile
}

TEST_F(DisplayTest, SamePictureAgainPaintsNothing) {
    const Picture picture(600, 500, 0xFFFFFF);
    display.Picture(picture);
    Show();
    PaintedArea painted(FindWidget("display"));
    display.Picture(picture);
    display.Refresh();
    LetEventsRun();
    EXPECT_TRUE(painted.region.isEmpty());
}

TEST_F(DisplayTest, MagnifiedDifferenceIsPaintedWhole) {
    Picture picture(60, 50, 0xFFFFFF);
    display.Move(0, 0, 599, 499); // no whole factor
    display.Picture(picture);
    Show();
    for (int y = 0; y < 50; ++y) {
        for (int x = 0; x < 60; ++x)
            picture.Set(x, y, static_cast<Pixel>(x * 4 + y * 1024));
    }
    display.Picture(picture);
    display.Refresh();
    // A pixel of the screen, since at a scale a pixel of the image may begin within a logical one.
    const QImage shown = FindWidget("panel")->grab().toImage();
    const int width = static_cast<int>(std::ceil(599 * shown.devicePixelRatio()));
    const int height = static_cast<int>(std::ceil(499 * shown.devicePixelRatio()));
    for (int y = 0; y < height; y += 7) {
        for (int x = 0; x < width; x += 3) {
            const Pixel expected = picture.At(StretchedCell(x, 60, width), StretchedCell(y, 50, height));
            const QRgb actual = shown.pixel(x, y);
            ASSERT_EQ(static_cast<Pixel>(qRed(actual)) | static_cast<Pixel>(qGreen(actual)) << 8, expected);
        }
    }
}

TEST_F(DisplayTest, ScreenShowsEachPixelOfTheStretchedPicture) {
    panel.Move(4 * 15, 8 * 15, 600 * 15, 500 * 15); // where a slip of the widget's place would show
    display.Move(-8, -12, 600, 480);
    for (const int width : {2400, 1201, 600, 150}) {
        SCOPED_TRACE(width);
        const int height = width * 4 / 5;
        const Picture picture = Patterned(width, height);
        display.Picture(picture);
        Show();
        display.Refresh();
        const QImage shown = DeviceScreen();
        const double scale = FindWidget("plain")->devicePixelRatio();
        const auto pixels = [scale](int length) { return static_cast<int>(length * scale); };
        const QSize view(pixels(600), pixels(480));
        for (int y = 0; y < pixels(480 - 12); ++y) {
            for (int x = 0; x < pixels(600 - 8); ++x) {
                ASSERT_EQ(shown.pixel(x + pixels(4), y + pixels(8)),
                          MeanPixel(picture, x + pixels(8), y + pixels(12), view))
                    << x << ", " << y;
            }
        }
    }
}

TEST_F(DisplayTest, AReducedPictureShowsWhatChangedWhileItWasOutOfSight) {
    Picture picture = Patterned(2400, 2000);
    display.Picture(picture);
    Show();
    const auto expectShown = [&] {
        display.Refresh();
        LetEventsRun();
        const QImage shown = DeviceScreen();
        const double scale = FindWidget("plain")->devicePixelRatio();
        const QSize view(static_cast<int>(600 * scale), static_cast<int>(500 * scale));
        for (int y = 0; y < view.height(); ++y)
            for (int x = 0; x < view.width(); ++x)
                ASSERT_EQ(shown.pixel(x, y), MeanPixel(picture, x, y, view)) << x << ", " << y;
    };
    expectShown();
    display.Visible(false);
    picture.Fill({1001, 777, 1300, 783}, 0x00FF00);
    display.Picture(picture);
    picture.Set(3, 3, 0);
    display.Picture(picture);
    display.Visible(true);
    expectShown();
    picture = Patterned(1200, 1000);
    display.Picture(picture);
    expectShown();
    picture.Set(1199, 999, 0x0000FF);
    display.Picture(picture);
    expectShown();
}

TEST_F(DisplayTest, RepaintLeavesAloneWhatLiesOverTheDisplay) {
    Surface over(panel, "over");
    over.BackColor(0x00FFFF);
    over.Move(100, 50, 200, 100);
    over.BringToFront();
    line.DrawMode(kDrawInvert);
    line.X1(0);
    line.Y1(200);
    line.X2(400);
    line.Y2(200);
    line.Visible(true);
    line.BringToFront();
    display.Picture(Picture(600, 500, 0));
    Show();
    display.Picture(Picture(600, 500, 0xFFFFFF));
    display.Refresh();
    const QImage shown = OnScreen();
    QImage expected(600, 500, QImage::Format_RGB32);
    expected.fill(Qt::white);
    for (int y = 50; y < 150; ++y) {
        for (int x = 100; x < 300; ++x)
            expected.setPixel(x, y, Screened(0x00FFFF));
    }
    int dots = 0;
    for (int y = 0; y < 500; ++y) {
        for (int x = 0; x < 600; ++x) {
            if (y == 200 && x <= 400) {
                dots += shown.pixel(x, y) == 0xFF000000u;
            } else {
                ASSERT_EQ(shown.pixel(x, y), expected.pixel(x, y)) << x << ", " << y;
            }
        }
    }
    EXPECT_NEAR(dots, 200, 10);
}

TEST_F(DisplayTest, RepaintKeepsToTheShapeOfItsWindow) {
    // A ragged cut of more rectangles than are painted one by one.
    Surface piece(panel, "piece");
    piece.Move(0, 0, 600, 300);
    piece.BringToFront();
    display.Picture(Picture(600, 500, 0x0000FF));
    for (const int teeth : {20, 140}) {
        SCOPED_TRACE(teeth);
        Region ragged = CreateRectRgn(0, 0, 600, 1);
        for (int tooth = 0; tooth < teeth; ++tooth) {
            Region row = CreateRectRgn(0, 2 * tooth, 100 + tooth, 2 * tooth + 1);
            CombineRgn(ragged, ragged, row, RGN_OR);
        }
        SetWindowRgn(piece, ragged);
        Show();
        piece.BackColor(0xFF0000 + static_cast<Colour>(teeth));
        piece.Control::Refresh();
        const QImage shown = OnScreen();
        for (int y = 0; y < 2 * teeth; ++y) {
            const int end = y == 0 ? 600 : y % 2 == 0 ? 100 + y / 2 : 0;
            for (int x = 0; x < 600; x += 3) {
                const Pixel pixel = x < end ? 0xFF0000 + static_cast<Pixel>(teeth) : 0x0000FF;
                // Teeth one pixel high are all edge, which is dotted in the opposite colour.
                const bool dot = x < end && shown.pixel(x, y) == Screened(pixel ^ 0xFFFFFF);
                ASSERT_EQ(shown.pixel(x, y), Screened(dot ? pixel ^ 0xFFFFFF : pixel)) << x << ", " << y;
            }
        }
    }
}

TEST_F(DisplayTest, TheEdgeOfAClippedSurfaceIsDottedInTheOppositeColour) {
    Surface piece(panel, "piece");
    piece.Move(0, 0, 60, 40);
    piece.BringToFront();
    piece.BackColor(0x204060);
    Show();
    SetWindowRgn(piece, CreateRectRgn(5, 5, 45, 35));
    piece.Control::Refresh();
    const QImage shown = OnScreen();
    int dots = 0;
    for (int y = 5; y < 35; ++y) {
        for (int x = 5; x < 45; ++x) {
            const bool edge = x == 5 || x == 44 || y == 5 || y == 34;
            const bool dot = shown.pixel(x, y) == Screened(0x204060 ^ 0xFFFFFF);
            ASSERT_TRUE(dot || shown.pixel(x, y) == Screened(0x204060)) << x << ", " << y;
            ASSERT_TRUE(edge || !dot) << x << ", " << y;
            dots += dot ? 1 : 0;
        }
    }
    EXPECT_GT(dots, 136 / 4);
    EXPECT_LT(dots, 136 * 3 / 4);
    ExpectSamePixels(piece.Image(), Picture(60, 40, 0x204060));
}

TEST_F(DisplayTest, ScrollingPaintsNoMoreThanTheViewport) {
    panel.Visible(false);
    Surface frame(form, "frame");
    frame.Move(0, 0, 200 * 15, 150 * 15);
    Surface back(frame, "back");
    back.Move(0, 0, 1000, 800);
    Display view(back, "view");
    view.Move(0, 0, 1000, 800);
    LineControl preview(back, "preview");
    preview.BringToFront();
    const Picture picture = Patterned(1000, 800);
    view.Picture(picture);
    Show();
    PaintedArea painted(FindWidget("view"));
    PaintedArea below(FindWidget("back"));
    for (const int step : {3, 10, 50}) {
        SCOPED_TRACE(step);
        painted.pixels = 0;
        back.Top(-step);
        back.Left(-2 * step);
        frame.Control::Refresh();
        EXPECT_LE(painted.pixels, 200 * 150);
        EXPECT_EQ(below.pixels, 0); // the view covers it
        // Between two scales no pixel of the image is one of the screen.
        const double scale = FindWidget("plain")->devicePixelRatio();
        if (scale != std::floor(scale)) continue;
        const QImage shown = OnScreen();
        for (int y = 0; y < 150; ++y) {
            for (int x = 0; x < 200; ++x)
                ASSERT_EQ(shown.pixel(x, y), Screened(picture.At(x + 2 * step, y + step))) << x << ", " << y;
        }
    }
}

TEST_F(DisplayTest, OtherSizePaintsAll) {
    display.Picture(Picture(600, 500, 0xFFFFFF));
    Show();
    PaintedArea painted(FindWidget("display"));
    display.Picture(Picture(300, 250, 0));
    display.Refresh();
    EXPECT_EQ(painted.region.boundingRect(), QRect(0, 0, 600, 500));
    EXPECT_EQ(Shown().pixel(599, 499), 0xFF000000u);
}

TEST_F(DisplayTest, LockedViewPaintsNothing) {
    display.Picture(Picture(600, 500, 0xFFFFFF));
    Show();
    PaintedArea painted(FindWidget("display"));
    LockWindowUpdate(&panel);
    display.Picture(Picture(600, 500, 0));
    display.Refresh();
    EXPECT_TRUE(painted.region.isEmpty());
    LockWindowUpdate(nullptr);
    LetEventsRun();
    EXPECT_FALSE(painted.region.isEmpty());
}

TEST_F(DisplayTest, GreatViewPaintsWhatIsSeen) {
    display.Move(-300000, -200000, 512000, 512000);
    display.Picture(Picture(32000, 32000, 0x00FF00));
    Show();
    PaintedArea painted(FindWidget("display"));
    FindWidget("display")->update();
    display.Refresh();
    EXPECT_EQ(painted.region.boundingRect().size(), QSize(600, 500));
    EXPECT_EQ(Shown().pixel(5, 5), 0xFF00FF00u);
}

int InvertedPixels(const QImage& image, const QRect& within) {
    int count = 0;
    for (int y = within.top(); y <= within.bottom(); ++y) {
        for (int x = within.left(); x <= within.right(); ++x)
            count += image.pixel(x, y) == 0xFF000000u;
    }
    return count;
}

TEST_F(DisplayTest, LineInvertsDottedAndChangesNoPixelOfTheSurface) {
    display.Picture(Picture(600, 500, 0xFFFFFF));
    ShowInvertingLine();
    const int dots = InvertedPixels(Shown(), QRect(100, 50, 100, 1));
    EXPECT_GE(dots, 40);
    EXPECT_LE(dots, 60);
    EXPECT_EQ(InvertedPixels(Shown(), QRect(100, 51, 100, 9)), 0);
    EXPECT_EQ(panel.Point(100, 50), kWhite);
    line.Visible(false);
    EXPECT_EQ(InvertedPixels(Shown(), QRect(0, 0, 600, 500)), 0);
}

// Black and white dots would stand for that on a display that cannot invert.
TEST_F(DisplayTest, WhatInvertsShowsTheOppositeOfItsGround) {
    display.Picture(Picture(600, 500, 0xA04020));
    ShowInvertingLine();
    const QImage shown = Shown();
    int opposite = 0;
    for (int x = 100; x <= 200; ++x) {
        const QRgb pixel = shown.pixel(x, 50);
        opposite += pixel == 0xFFDFBF5Fu;
        EXPECT_TRUE(pixel == 0xFFDFBF5Fu || pixel == 0xFF2040A0u) << x;
    }
    EXPECT_GE(opposite, 40);
}

TEST_F(DisplayTest, MovedLinePaintsOldAndNewPlaceOnly) {
    display.Picture(Picture(600, 500, 0xFFFFFF));
    line.X2(500);
    line.Y2(400);
    line.Visible(true);
    line.BringToFront();
    Show();
    PaintedArea painted(FindWidget("display"));
    line.X2(510);
    display.Refresh();
    int area = 0;
    for (const QRect& rect : painted.region)
        area += rect.width() * rect.height();
    EXPECT_GT(area, 500);
    EXPECT_LT(area, 600 * 500 / 5);
    // A line moved away leaves nothing behind.
    line.X2(0);
    line.Y2(0);
    display.Refresh();
    EXPECT_LE(InvertedPixels(Shown(), QRect(0, 0, 600, 500)), 1);
}

TEST_F(DisplayTest, ShapeOutlinesItsBox) {
    ShowShape(10, 20, 30, 40);
    const QImage shown = Shown();
    EXPECT_EQ(InvertedPixels(shown, QRect(0, 0, 600, 500)), 2 * 30 + 2 * 38);
    EXPECT_EQ(shown.pixel(10, 20), 0xFF000000u);
    EXPECT_EQ(shown.pixel(39, 59), 0xFF000000u);
    EXPECT_EQ(shown.pixel(11, 21), 0xFFFFFFFFu);
    EXPECT_EQ(ErrorOf([&] { shape.Shape(4); }), kInvalidPropertyValue);
}

TEST_F(DisplayTest, ABorderIsOneWholeDevicePixelAtEveryScale) {
    Surface swatch(panel, "swatch");
    swatch.Move(7, 11, 25, 28);
    swatch.BackColor(0x00FF00);
    swatch.BorderStyle(1);
    swatch.BringToFront();
    Show();
    const QImage shown = DeviceShot("swatch");
    const QRect edge = shown.rect();
    for (int y = 0; y < edge.height(); ++y) {
        for (int x = 0; x < edge.width(); ++x) {
            const bool inside = edge.adjusted(1, 1, -1, -1).contains(x, y);
            ASSERT_EQ(shown.pixel(x, y), inside ? qRgb(0, 255, 0) : qRgb(128, 128, 128)) << x << ", " << y;
        }
    }
}

TEST_F(DisplayTest, ABandIsAsThickEverywhereAtEveryScale) {
    ShowShape(11, 21, 31, 41);
    const QImage shown = DeviceShot("panel");
    const double scale = shown.devicePixelRatio();
    const int thick = std::max(1, static_cast<int>(scale));
    const auto dark = [&shown](int x, int y) { return shown.pixel(x, y) == 0xFF000000u; };
    const int middleX = static_cast<int>(26 * scale);
    const int middleY = static_cast<int>(41 * scale);
    std::vector<int> runs;
    for (const bool across : {true, false}) {
        int run = 0;
        for (int at = 0; at < static_cast<int>(70 * scale); ++at) {
            const bool on = across ? dark(at, middleY) : dark(middleX, at);
            if (on) ++run;
            if (!on && run > 0) runs.push_back(std::exchange(run, 0));
        }
    }
    EXPECT_EQ(runs, (std::vector<int>{thick, thick, thick, thick}));
}

TEST_F(DisplayTest, TextsLieOverThePictureInTheScreensOwnPixels) {
    display.Picture(Picture(600, 500, 0xFFFFFF));
    display.Texts({{20, 10, "250", 0x0000FF}});
    Show();
    const QImage shown = DeviceShot("panel");
    const int scale = static_cast<int>(shown.devicePixelRatio());
    int inked = 0;
    bool smooth = false;
    for (int y = 8 * scale; y < 24 * scale; ++y) {
        for (int x = 18 * scale; x < 45 * scale; ++x) {
            const QColor colour = shown.pixelColor(x, y);
            inked += colour != Qt::white;
            smooth |= colour != Qt::white && colour != Qt::red;
        }
    }
    EXPECT_GT(inked, 20);
    EXPECT_TRUE(smooth);
    EXPECT_EQ(display.Picture().At(21, 14), 0xFFFFFFu); // no pixel of the picture
}

TEST_F(DisplayTest, APanelHasTheColourOfTheDesktopWhateverItsBitmap) {
    Surface strip(panel, "strip");
    strip.AsPanel();
    strip.BackColor(0x00FF00);
    strip.Move(0, 0, 200, 40);
    strip.CurrentX(3);
    strip.CurrentY(3);
    strip.Print("Palete");
    strip.BringToFront();
    Show();
    const QImage shown = ShownBy("strip");
    EXPECT_EQ(shown.pixelColor(190, 30), QApplication::palette().color(QPalette::Window));
    ASSERT_EQ(strip.Texts().size(), 1u);
    EXPECT_EQ(strip.Point(5, 12), 0x00FF00);
    strip.Cls();
    EXPECT_TRUE(strip.Texts().empty());
}

TEST_F(DisplayTest, SquareIsCentredInItsBox) {
    shape.Shape(1);
    ShowShape(0, 0, 100, 40);
    EXPECT_EQ(Shown().pixel(30, 0), 0xFF000000u);
    EXPECT_EQ(Shown().pixel(69, 39), 0xFF000000u);
    EXPECT_EQ(Shown().pixel(29, 0), 0xFFFFFFFFu);
}

TEST_F(DisplayTest, AnOvalTouchesTheSidesOfItsBoxAndACircleThoseOfASquareWithin) {
    ShowShape(10, 20, 101, 41);
    for (const int kind : {2, 3}) {
        shape.Shape(kind);
        const QImage shown = DeviceShot("panel");
        const double scale = shown.devicePixelRatio();
        const auto inked = [&shown, scale](const QRect& part) {
            return InvertedPixels(shown, QTransform::fromScale(scale, scale).mapRect(part)) > 0;
        };
        EXPECT_TRUE(inked(QRect(55, 19, 12, 3)) && inked(QRect(55, 59, 12, 3))) << kind;  // above and below
        EXPECT_FALSE(inked(QRect(55, 35, 10, 10)) || inked(QRect(10, 20, 4, 4))) << kind; // inside, a corner
        const auto column = [&inked](int x) { return inked(QRect(x, 0, 1, 400)); };
        int first = 0, last = 200;
        while (first < last && !column(first))
            ++first;
        while (last > first && !column(last))
            --last;
        EXPECT_NEAR(first, kind == 2 ? 10 : 40, 1) << kind;
        EXPECT_NEAR(last, kind == 2 ? 110 : 80, 1) << kind;
    }
}

TEST_F(DisplayTest, AnOverlayLooksTheSameInWhateverOrderItIsDescribed) {
    display.Picture(Picture(600, 500, 0xFFFFFF));
    shape.Move(10, 20, 30, 40);
    line.X1(100);
    line.Y1(50);
    line.X2(200);
    line.Y2(50);
    for (Control* overlay : {static_cast<Control*>(&shape), static_cast<Control*>(&line)}) {
        overlay->Visible(true);
        overlay->BringToFront();
    }
    Show();
    const auto describe = [](auto& overlay, bool modeFirst, int mode, Colour colour) {
        if (modeFirst) overlay.DrawMode(mode);
        overlay.BorderColor(colour);
        if constexpr (requires { overlay.BorderWidth(1); }) overlay.BorderWidth(2);
        if (!modeFirst) overlay.DrawMode(mode);
    };
    const auto expect = [&](int mode, Colour colour, QRgb atLine, QRgb inShape) {
        for (const bool modeFirst : {true, false}) {
            describe(shape, modeFirst, mode, colour);
            describe(line, modeFirst, mode, colour);
            const QImage shown = Shown();
            EXPECT_EQ(shown.pixel(150, 50), atLine) << mode << modeFirst;
            EXPECT_EQ(shown.pixel(39, 59), inShape) << mode << modeFirst;
            EXPECT_EQ(shown.pixel(37, 57), 0xFFFFFFFFu) << mode << modeFirst;
        }
    };
    expect(kDrawCopyPen, 0x0000FF, 0xFFFF0000u, 0xFFFF0000u);
    describe(shape, true, kDrawInvert, 0x0000FF);
    describe(line, true, kDrawInvert, 0x0000FF);
    const QImage inverting = Shown();
    EXPECT_GT(InvertedPixels(inverting, QRect(10, 20, 30, 40)), 0);
    EXPECT_GT(InvertedPixels(inverting, QRect(100, 50, 101, 1)), 0);
    expect(kDrawCopyPen, 0x00FF00, 0xFF00FF00u, 0xFF00FF00u);
}

TEST_F(DisplayTest, OverlaysLetThePointerThrough) {
    shape.Move(0, 0, 600, 500);
    shape.Visible(true);
    shape.BringToFront();
    Show();
    EXPECT_EQ(FindWidget("panel")->childAt(0, 0), FindWidget("display"));
}

TEST_F(DisplayTest, DrawingOnAShownSurfacePaintsTheBoxOnly) {
    Surface small(panel, "small");
    small.Move(0, 0, 200, 200);
    small.BringToFront();
    Show();
    PaintedArea painted(FindWidget("small"));
    small.LineBF(10, 20, 29, 39, 255);
    small.Control::Refresh();
    EXPECT_EQ(painted.region.boundingRect(), QRect(10, 20, 20, 20));
}

} // namespace
} // namespace pintalux
