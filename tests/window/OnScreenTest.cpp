// What has been drawn or moved is on the screen without a repaint of the whole.
#include "window/OnScreen.h"

#include "support/Pictures.h"

#include "surface/raster/Drawing.h"
#include "surface/raster/Transfer.h"
#include "surface/window/Display.h"

#include <QImage>

namespace pintalux {
namespace {

class OnScreenTest : public testing::Test {
  protected:
    OnScreenTest() : panel(form, "panel"), line(panel, "line") {
        form.Move(0, 0, 600 * 15, 500 * 15);
        panel.Move(0, 0, 600 * 15, 500 * 15);
        line.Visible(false);
    }
    void Show() {
        form.Show();
        ASSERT_TRUE(WaitFor([] { return FindWidget("plain")->windowHandle()->isExposed(); }));
        LetEventsRun();
    }
    static int Inked() {
        const QImage shown = OnScreen();
        int count = 0;
        for (int y = 0; y < shown.height(); ++y)
            for (int x = 0; x < shown.width(); ++x)
                count += shown.pixel(x, y) == 0xFF000000u;
        return count;
    }
    PlainForm form;
    Surface panel;
    LineControl line;
};

/// The screen shows what a whole repaint would, to the pixel of the device.
void ExpectAsPainted(const std::string& what) {
    LetEventsRun();
    const QImage shown = DeviceScreen();
    const QImage fresh = FindWidget("plain")->grab().toImage();
    QRect differing;
    for (int y = 0; y < fresh.height(); ++y)
        for (int x = 0; x < fresh.width(); ++x)
            if (shown.pixel(x, y) != fresh.pixel(x, y)) differing |= QRect(x, y, 1, 1);
    EXPECT_TRUE(differing.isEmpty()) << what << ": within " << differing.x() << ", " << differing.y() << ", "
                                     << differing.width() << " by " << differing.height();
}

TEST_F(OnScreenTest, ALineThatLeavesTheViewLeavesNothingBehind) {
    line.Visible(true);
    line.BringToFront();
    Show();
    struct Ends {
        double x1, y1, x2, y2;
        int seen; ///< About how many pixels.
        const char* name;
    };
    const Ends table[] = {{-200, 100, 200, 300, 200, "over the left edge"},
                          {200, 300, -200, 100, 200, "over the left edge, the other way"},
                          {400, 100, 900, 350, 200, "over the right edge"},
                          {900, 350, 400, 100, 200, "over the right edge, the other way"},
                          {300, -100, 250, 100, 100, "over the top"},
                          {250, 100, 300, -100, 100, "over the top, the other way"},
                          {100, 450, 130, 700, 50, "over the bottom"},
                          {130, 700, 100, 450, 50, "over the bottom, the other way"},
                          {-100, -100, 800, 700, 560, "from corner to corner"},
                          {-50, 250, 700, 250, 600, "straight across"},
                          {300, 900, 300, -900, 500, "straight down"},
                          {-50, 100, -10, 300, 0, "left of it"},
                          {-50, 600, 700, 600, 0, "below it"},
                          {700, -50, 650, 700, 0, "right of it"},
                          {-20, -20, 700, -30, 0, "above it"},
                          {-300, 200, 200, -300, 0, "past a corner"},
                          {20, 30, 300, 200, 280, "inside"}};
    for (const Ends& to : table) {
        line.X1(to.x1);
        line.Y1(to.y1);
        line.X2(to.x2);
        line.Y2(to.y2);
        ExpectAsPainted(to.name);
        // A line is a pixel of the screen thick, and between two scales some of those are left out.
        if (FindWidget("plain")->devicePixelRatio() == 1)
            EXPECT_NEAR(Inked(), to.seen, 5 + to.seen * 0.1) << to.name;
        else
            EXPECT_EQ(Inked() > 0, to.seen > 0) << to.name;
    }
}

// Between two scales a pixel of the screen may belong to the view by half.
TEST_F(OnScreenTest, AScrolledPictureHasNoSeams) {
    panel.Visible(false);
    Surface frame(form, "frame");
    Surface back(frame, "back");
    back.Move(0, 0, 1000, 800);
    Display view(back, "view");
    view.Move(0, 0, 1000, 800);
    view.Picture(RandomPicture(1000, 800, 1));
    Show();
    for (const int size : {200, 201, 202, 203}) {
        frame.Move(0, 0, size * 15, (size - 50) * 15);
        for (const auto& [left, top] : {std::pair{0, 0}, {6, 3}, {20, 10}, {100, 50}, {101, 90}, {60, 51}}) {
            back.Left(-left);
            back.Top(-top);
            ExpectAsPainted(std::to_string(size) + " wide at " + std::to_string(left));
        }
    }
}

TEST_F(OnScreenTest, WhatMovesOverAPictureLeavesNothingBehind) {
    panel.Visible(false);
    Surface back(form, "back");
    back.Move(15, 30, 500 * 15, 400 * 15);
    Display view(back, "view");
    view.Move(0, 0, 500, 400);
    view.Picture(RandomPicture(250, 200, 1));
    Surface piece(back, "piece");
    piece.ScaleMode(kScalePixels);
    ShapeControl band(back, "band");
    Picture lifted = RandomPicture(41, 31, 2);
    lifted.Fill({0, 0, 20, 10}, 0x112233);
    for (Control* part : {static_cast<Control*>(&piece), static_cast<Control*>(&band)})
        part->BringToFront();
    Show();
    for (const double factor : {1.0, 2.0, 0.5}) {
        piece.Move(0, 0, 41 * factor, 31 * factor);
        piece.ShowStretched(lifted, 0x112233);
        for (const auto& [left, top] :
             {std::pair{0, 0}, {1, 1}, {2, 5}, {33, 18}, {-7, -3}, {470, 380}, {101, 90}}) {
            piece.Move(left, top, 41 * factor, 31 * factor);
            piece.Visible(true);
            ExpectAsPainted("piece at " + std::to_string(left));
            band.Move(left, top, 41 * factor, 31 * factor);
            band.Visible(true);
            ExpectAsPainted("band at " + std::to_string(left));
        }
        piece.Visible(false);
        ExpectAsPainted("without the piece");
        band.Visible(false);
        ExpectAsPainted("without the band");
    }
}

TEST_F(OnScreenTest, AChangeOfAPictureStandsOnTheScreenAtEveryZoom) {
    panel.Visible(false);
    Surface back(form, "back");
    back.Move(15, 30, 590 * 15, 450 * 15);
    Display view(back, "view");
    Picture picture = RandomPicture(250, 200, 1);
    view.Picture(picture);
    Show();
    for (const auto& [width, height] :
         {std::pair{250, 200}, {500, 400}, {4000, 3200}, {749, 599}, {83, 67}, {16, 13}}) {
        view.Move(-3, -5, width, height);
        ExpectAsPainted("zoomed");
        for (const Box& part :
             {Box{0, 0, 1, 1}, {17, 21, 18, 22}, {5, 7, 40, 9}, {30, 20, 31, 60}, {249, 199, 250, 200}}) {
            picture.Fill(part, 0x123456);
            view.Picture(picture);
            view.Refresh();
            ExpectAsPainted(std::to_string(width) + " wide, changed at " + std::to_string(part.left));
        }
    }
}

TEST_F(OnScreenTest, WhatIsDrawnOnASurfaceStandsOnTheScreen) {
    Show();
    Picture red(30, 20, 0x0000FF);
    const std::pair<const char*, std::function<void()>> table[] = {
        {"PSet", [&] { panel.PSet(10, 12, 0xFF0000); }},
        {"Line", [&] { panel.Line(20, 300, 200, 280, 0xFF0000); }},
        {"LineB", [&] { panel.LineB(300, 30, 350, 80, 0x00FF00); }},
        {"LineBF", [&] { panel.LineBF(400, 30, 450, 80, 0x00FF00); }},
        {"Circle", [&] { panel.Circle(250, 200, 40, 0x0000FF); }},
        {"PaintPicture", [&] { panel.PaintPicture(red, 500, 400, 60, 40, 0, 0, 30, 20, SRCCOPY); }},
        {"PaintPicture, mirrored",
         [&] { panel.PaintPicture(red, 90, 490, -60, -40, 0, 0, 30, 20, SRCCOPY); }},
        {"SetPixel", [&] { SetPixel(panel.hDC(), 599, 499, 0x0000FF); }},
        {"Print",
         [&] {
             panel.CurrentX(330);
             panel.CurrentY(340);
             panel.Print("Largura");
         }},
        {"Print over an edge",
         [&] {
             panel.CurrentX(580);
             panel.CurrentY(490);
             panel.Print("Largura");
         }},
        {"Picture", [&] { panel.Picture(Picture(100, 90, 0x123456)); }},
        {"BackColor", [&] { panel.BackColor(0x654321); }},
        {"LineBF over all", [&] { panel.LineBF(0, 0, 599, 499, 0); }},
        {"Cls", [&] { panel.Cls(); }},
        {"ShowStretched", [&] { panel.ShowStretched(red, 0x112233); }},
    };
    for (const auto& [name, draw] : table) {
        const Picture before = panel.Image();
        draw();
        EXPECT_TRUE(panel.Image() != before) << name;
        ExpectAsPainted(name);
    }
}

} // namespace
} // namespace pintalux
