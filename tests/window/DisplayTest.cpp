#include "surface/window/Display.h"
#include "surface/raster/Transfer.h"
#include "window/WindowTest.h"

#include <QImage>
#include <QPaintEvent>
#include <QWindow>

namespace pintalux {
namespace {

/// Adds up what the toolkit has a widget paint.
class PaintedArea : public QObject {
  public:
    explicit PaintedArea(QWidget* widget) : QObject(widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) region += static_cast<QPaintEvent*>(event)->region();
        return false;
    }
    QRegion region;
};

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
    const QImage shown = Shown();
    for (int y = 0; y < 499; y += 7) {
        for (int x = 0; x < 599; x += 3) {
            const Pixel expected = picture.At(StretchedCell(x, 60, 599), StretchedCell(y, 50, 499));
            const QRgb actual = shown.pixel(x, y);
            ASSERT_EQ(static_cast<Pixel>(qRed(actual)) | static_cast<Pixel>(qGreen(actual)) << 8, expected);
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
    line.DrawMode(kDrawInvert);
    line.X1(100);
    line.Y1(50);
    line.X2(200);
    line.Y2(50);
    line.Visible(true);
    line.BringToFront();
    Show();
    const int dots = InvertedPixels(Shown(), QRect(100, 50, 100, 1));
    EXPECT_GE(dots, 40);
    EXPECT_LE(dots, 60);
    EXPECT_EQ(InvertedPixels(Shown(), QRect(100, 51, 100, 9)), 0);
    EXPECT_EQ(panel.Point(100, 50), kWhite);
    line.Visible(false);
    EXPECT_EQ(InvertedPixels(Shown(), QRect(0, 0, 600, 500)), 0);
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
    display.Picture(Picture(600, 500, 0xFFFFFF));
    shape.Move(10, 20, 30, 40);
    shape.Visible(true);
    shape.BringToFront();
    Show();
    const QImage shown = Shown();
    EXPECT_EQ(InvertedPixels(shown, QRect(0, 0, 600, 500)), 2 * 30 + 2 * 38);
    EXPECT_EQ(shown.pixel(10, 20), 0xFF000000u);
    EXPECT_EQ(shown.pixel(39, 59), 0xFF000000u);
    EXPECT_EQ(shown.pixel(11, 21), 0xFFFFFFFFu);
    EXPECT_EQ(ErrorOf([&] { shape.Shape(4); }), kInvalidPropertyValue);
}

TEST_F(DisplayTest, SquareIsCentredInItsBox) {
    display.Picture(Picture(600, 500, 0xFFFFFF));
    shape.Move(0, 0, 100, 40);
    shape.Shape(1);
    shape.Visible(true);
    shape.BringToFront();
    Show();
    EXPECT_EQ(Shown().pixel(30, 0), 0xFF000000u);
    EXPECT_EQ(Shown().pixel(69, 39), 0xFF000000u);
    EXPECT_EQ(Shown().pixel(29, 0), 0xFFFFFFFFu);
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
