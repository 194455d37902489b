// Squares, rectangles, circles and ellipses.
#include "tools/ToolTest.h"

namespace pintalux {
namespace {

enum Shape { kSquare, kRectangle, kCircle, kEllipse };
const char* const kNames[] = {"square", "rectangle", "circle", "oval"};

// A number as a control in pixels keeps it.
double Whole(double value) {
    return std::nearbyint(value);
}

class ShapesTest : public ToolTest {
  protected:
    void SetUp() override {
        ToolTest::SetUp();
        Choose("Shapes");
    }

    static void ChooseShape(int shape, bool filled, int lineWidth = 1) {
        QWidget* button = Find(WidgetFor(frmMain->Toolbar2), std::string("Toolbar2_") + kNames[shape]);
        ASSERT_NE(button, nullptr);
        ClickWidget(*button);
        ASSERT_EQ(frmMain->ShapeType, shape);
        (filled ? frmMain->Option2 : frmMain->Option1).Value(true);
        frmMain->Slider3.Value(lineWidth);
    }

    /// What a drag in view pixels leaves, by the rules of the figures.
    static void DrawModel(DrawingModel& model, int shape, bool filled, int lineWidth, double f,
                          std::pair<double, double> from, std::pair<double, double> to) {
        const int sx = At(from.first, f);
        const int sy = At(from.second, f);
        const double X = std::floor(to.first);
        const double Y = std::floor(to.second);
        const int x = At(X, f);
        const int y = At(Y, f);
        const int width = filled ? 1 : lineWidth;
        const auto box = [&](int l, int t, int r, int b) {
            if (filled) {
                model.FilledBox(l, t, r, b, kInkPixel);
            } else {
                model.Box(l, t, r, b, width, kInkPixel);
            }
        };
        if (shape == kSquare) {
            const double a = sx * f;
            const double left = a >= X ? X : a;
            const double side = std::abs(a - X);
            const double top = Y < sy * f ? sy * f - side : sy * f;
            box(static_cast<int>(Whole(left / f)), static_cast<int>(Whole(top / f)),
                static_cast<int>(Whole(left / f + side / f)), static_cast<int>(Whole(top / f + side / f)));
        } else if (shape == kRectangle) {
            box(sx, sy, x, y);
        } else if (shape == kCircle) {
            const double radius = std::sqrt(static_cast<double>((sx - x) * (sx - x) + (sy - y) * (sy - y)));
            model.Circle(sx, sy, static_cast<int>(Whole(radius)), width, kInkPixel, filled);
        } else {
            model.Ellipse(sx, sy, x, y, width, kInkPixel, filled);
        }
    }
};

TEST_F(ShapesTest, EveryFigureOutlinedAndFilledInEveryDirection) {
    const std::pair<double, double> ends[] = {{50, 44}, {10.7, 48}, {8, 13}, {54, 9}};
    for (const int shape : {kSquare, kRectangle, kCircle, kEllipse}) {
        for (const bool filled : {false, true}) {
            for (const int width : {1, 4}) {
                ChooseShape(shape, filled, width);
                frmImage& image = NewDocument(64, 64);
                DrawingModel model(64, 64, 0xFFFFFF);
                for (const auto& end : ends) {
                    DrawModel(model, shape, filled, width, 1, {30, 28}, end);
                    Drag(image, {{30, 28}, {33, 60}, end});
                }
                SCOPED_TRACE(std::string(kNames[shape]) + (filled ? " filled " : " ") +
                             std::to_string(width));
                ExpectImage(image, model);
                EXPECT_EQ(States(image), 5);
                EXPECT_TRUE(image.Unload());
            }
        }
    }
}

TEST_F(ShapesTest, BoundsAtSeveralZooms) {
    for (const int level : {12, 13, 14, 16, 17, 22}) {
        const double f = FactorOf(level);
        for (const int shape : {kSquare, kRectangle, kCircle, kEllipse}) {
            ChooseShape(shape, false);
            frmImage& image = NewDocument(80, 80);
            ZoomToLevel(level);
            DrawingModel model(80, 80, 0xFFFFFF);
            const std::pair<double, double> from{31 * f + 0.7, 27 * f + 0.2};
            for (const auto& end : {std::pair(60 * f, 52 * f), {7 * f, 11 * f}, {9 * f, 70 * f}}) {
                DrawModel(model, shape, false, 1, f, from, end);
                Drag(image, {from, end});
            }
            SCOPED_TRACE(std::string(kNames[shape]) + " at " + std::to_string(f));
            ExpectImage(image, model);
            EXPECT_TRUE(image.Unload());
        }
    }
}

TEST_F(ShapesTest, PreviewOfABoxFollowsAndNoPixelChanges) {
    ChooseShape(kRectangle, false);
    frmImage& image = NewDocument(64, 64);
    EXPECT_FALSE(image.ShSquare.Visible());
    Press(image, 30, 28);
    EXPECT_TRUE(image.ShSquare.Visible());
    EXPECT_FALSE(image.Line1.Visible());
    EXPECT_EQ(image.ShSquare.Shape(), 0);
    EXPECT_EQ(image.ShSquare.BorderWidth(), 1);
    EXPECT_EQ(image.ShSquare.BorderColor(), 0);
    EXPECT_EQ(image.ShSquare.Width(), 0);
    MoveTo(image, 10, 50);
    EXPECT_EQ(image.ShSquare.Left(), 10);
    EXPECT_EQ(image.ShSquare.Width(), 20);
    EXPECT_EQ(image.ShSquare.Top(), 28);
    EXPECT_EQ(image.ShSquare.Height(), 22);
    ExpectImage(image, DrawingModel(64, 64, 0xFFFFFF));
    Release(image, 10, 50);
    EXPECT_FALSE(image.ShSquare.Visible());
}

TEST_F(ShapesTest, PreviewOfASquareHasTheWidthAsHeight) {
    ChooseShape(kSquare, false);
    frmImage& image = NewDocument(64, 64);
    Press(image, 30, 28);
    MoveTo(image, 41, 12);
    EXPECT_EQ(image.ShSquare.Left(), 30);
    EXPECT_EQ(image.ShSquare.Width(), 11);
    EXPECT_EQ(image.ShSquare.Height(), 11);
    EXPECT_EQ(image.ShSquare.Top(), 17);
    MoveTo(image, 41, 60);
    EXPECT_EQ(image.ShSquare.Top(), 28);
    Release(image, 41, 60);
}

TEST_F(ShapesTest, PreviewOfACircleIsItsRadius) {
    for (const int shape : {kCircle, kEllipse}) {
        ChooseShape(shape, false);
        frmImage& image = NewDocument(64, 64);
        ZoomToLevel(16);
        Press(image, 31, 29);
        EXPECT_TRUE(image.Line1.Visible());
        EXPECT_FALSE(image.ShSquare.Visible());
        EXPECT_EQ(image.Line1.X1(), 30);
        EXPECT_EQ(image.Line1.Y1(), 28);
        MoveTo(image, 50, 60);
        EXPECT_EQ(image.Line1.X2(), 50);
        EXPECT_EQ(image.Line1.Y2(), 60);
        Release(image, 50, 60);
        EXPECT_FALSE(image.Line1.Visible());
        EXPECT_TRUE(image.Unload());
    }
}

TEST_F(ShapesTest, ClickWithoutADragDrawsADotButNoEllipse) {
    for (const int shape : {kSquare, kRectangle, kCircle, kEllipse}) {
        for (const bool filled : {false, true}) {
            ChooseShape(shape, filled, 3);
            frmImage& image = NewDocument(11, 11);
            Click(image, 5, 6);
            DrawingModel model(11, 11, 0xFFFFFF);
            if (shape != kEllipse) model.Dot(5, 6, filled ? 1 : 3, kInkPixel);
            SCOPED_TRACE(std::string(kNames[shape]) + (filled ? " filled" : ""));
            ExpectImage(image, model);
            EXPECT_TRUE(image.Unload());
        }
    }
}

TEST_F(ShapesTest, SquareDraggedUpLeftKeepsItsAnchorAtTheBottomRight) {
    ChooseShape(kSquare, false);
    frmMain->SetCurrentColour(kBlack);
    frmImage& image = NewDocument(7, 6);
    Drag(image, {{5, 4}, {2, 3}});
    ExpectSamePixels(ImageOf(image),
                     PictureOf({".......", "..####.", "..#..#.", "..#..#.", "..####.", "......."}));
}

TEST_F(ShapesTest, EllipseLeavesTheForeColourChanged) {
    frmImage& image = NewDocument(30, 30);
    for (const bool filled : {false, true}) {
        image.PicMerge.ForeColor(0x00FF00);
        ChooseShape(kEllipse, filled);
        Drag(image, {{3, 3}, {20, 20}});
        EXPECT_EQ(image.PicMerge.ForeColor(), kInk);
        EXPECT_EQ(image.PicMerge.FillStyle(), 1);
    }
    image.PicMerge.ForeColor(0x00FF00);
    ChooseShape(kCircle, true);
    Drag(image, {{3, 3}, {20, 20}});
    EXPECT_EQ(image.PicMerge.ForeColor(), 0x00FF00);
}

TEST_F(ShapesTest, FilledFiguresIgnoreTheLineWidth) {
    ChooseShape(kEllipse, true, 20);
    frmImage& image = NewDocument(30, 30);
    Drag(image, {{8, 8}, {20, 22}});
    DrawingModel model(30, 30, 0xFFFFFF);
    model.Ellipse(8, 8, 20, 22, 1, kInkPixel, true);
    ExpectImage(image, model);
}

TEST_F(ShapesTest, ReleaseRestoresThePensWidth) {
    frmMain->Slider2.Value(9);
    ChooseShape(kRectangle, false, 3);
    frmImage& image = NewDocument(30, 30);
    Drag(image, {{8, 8}, {20, 22}});
    EXPECT_EQ(image.PicMerge.DrawWidth(), 9);
}

TEST_F(ShapesTest, BackgroundColourIsRaisedByFour) {
    frmMain->SetCurrentColour(0x102030);
    ChooseShape(kRectangle, true);
    frmImage& image = NewDocument(9, 9, 0x102030);
    Drag(image, {{2, 2}, {4, 4}});
    EXPECT_EQ(ImageOf(image).At(3, 3), 0x102034u);
}

} // namespace
} // namespace pintalux
