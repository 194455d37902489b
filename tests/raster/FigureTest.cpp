// Boxes, circles and ellipses: what the measured cases leave to the program.
#include "support/Pictures.h"
#include "surface/raster/Drawing.h"

namespace pintalux {

namespace {

struct Canvas {
    explicit Canvas(int width, int height)
        : bits(width, height, kWhite), hdc(bits, attributes, [this](const Box& box) {
              touched = box;
              ++touches;
          }) {}

    Bitmap bits;
    DrawAttributes attributes;
    Box touched;
    int touches = 0;
    DeviceContext hdc;
};

bool RowIsPainted(const Bitmap& bits, int y) {
    for (int x = 0; x < bits.Width(); ++x) {
        if (bits.At(x, y) != kWhite) return true;
    }
    return false;
}

} // namespace

TEST(DrawBox, HoldsBothCorners) {
    Canvas canvas(6, 5);
    DrawBox(canvas.hdc, 4, 3, 1, 1, kBlack);
    ExpectSamePixels(canvas.bits, PictureOf({"......", ".####.", ".#..#.", ".####.", "......"}));
    EXPECT_EQ(canvas.touched, (Box{1, 1, 5, 4}));
    EXPECT_EQ(canvas.touches, 1);
}

TEST(DrawBox, WithoutExtentIsOneDot) {
    Canvas canvas(5, 5);
    canvas.attributes.DrawWidth = 3;
    DrawBox(canvas.hdc, 2, 2, 2, 2, kBlack);
    ExpectSamePixels(canvas.bits, PictureOf({".....", "..#..", ".###.", "..#..", "....."}));
}

TEST(DrawBox, OneColumnWideIsALine) {
    Canvas canvas(3, 5);
    DrawBox(canvas.hdc, 1, 1, 1, 3, kBlack);
    ExpectSamePixels(canvas.bits, PictureOf({"...", ".#.", ".#.", ".#.", "..."}));
}

TEST(DrawBox, FillsInsideTheOutline) {
    DrawAttributes attributes;
    attributes.FillStyle = kFillSolid;
    attributes.FillColor = 0x0000FF;
    Bitmap bits(5, 5, kWhite);
    DeviceContext hdc(bits, attributes);
    DrawBox(hdc, 0, 0, 4, 3, 0xFF0000);
    ExpectSamePixels(bits, PictureOf({"bbbbb", "brrrb", "brrrb", "bbbbb", "....."}));
}

TEST(DrawBox, InvertTurnsOutlineAndFillingOnce) {
    DrawAttributes attributes;
    attributes.FillStyle = kFillSolid;
    attributes.DrawMode = kDrawInvert;
    for (const int width : {1, 3}) {
        SCOPED_TRACE(width);
        attributes.DrawWidth = width;
        Bitmap bits(12, 12, kWhite);
        DeviceContext bitsContext(bits, attributes);
        DrawBox(bitsContext, 3, 3, 8, 8, 0);
        for (int i = 3; i <= 8; ++i) {
            EXPECT_EQ(bits.At(i, i), 0U);
            EXPECT_EQ(bits.At(3, i), 0U);
        }
        EXPECT_EQ(bits.At(0, 0), static_cast<Pixel>(kWhite));
    }
}

TEST(DrawBox, WidePenRoundsTheCorners) {
    Canvas canvas(10, 10);
    canvas.attributes.DrawWidth = 3;
    DrawBox(canvas.hdc, 2, 2, 7, 7, kBlack);
    EXPECT_EQ(canvas.bits.At(1, 1), static_cast<Pixel>(kWhite));
    EXPECT_EQ(canvas.bits.At(2, 1), 0U);
    EXPECT_EQ(canvas.bits.At(3, 3), 0U);
    EXPECT_EQ(canvas.bits.At(4, 4), static_cast<Pixel>(kWhite));
    EXPECT_EQ(canvas.touched, (Box{1, 1, 9, 9}));
}

TEST(DrawFilledBox, PaintsEveryPixelInTheLinesColour) {
    Canvas canvas(5, 4);
    canvas.attributes.FillColor = 0x00FF00;
    canvas.attributes.DrawWidth = 9;
    DrawFilledBox(canvas.hdc, 3, 2, 1, 1, 0x0000FF);
    ExpectSamePixels(canvas.bits, PictureOf({".....", ".rrr.", ".rrr.", "....."}));
    EXPECT_EQ(canvas.touched, (Box{1, 1, 4, 3}));
}

TEST(DrawFilledBox, InvertsOnceAndIsCut) {
    Canvas canvas(3, 2);
    canvas.attributes.DrawMode = kDrawInvert;
    DrawFilledBox(canvas.hdc, -2147483647 - 1, -5, 1, 2147483647, 0x0000FF);
    ExpectSamePixels(canvas.bits, PictureOf({"##.", "##."}));
    EXPECT_EQ(canvas.touched, (Box{0, 0, 2, 2}));
}

TEST(DrawCircle, RadiusZeroIsOneDot) {
    Canvas canvas(5, 5);
    DrawCircle(canvas.hdc, 2, 2, 0, kBlack);
    ExpectSamePixels(canvas.bits, PictureOf({".....", ".....", "..#..", ".....", "....."}));
}

TEST(DrawCircle, ReachesItsRadiusOnAllSides) {
    Canvas canvas(7, 7);
    DrawCircle(canvas.hdc, 3, 3, 2, kBlack);
    ExpectSamePixels(canvas.bits, PictureOf({".......", "..###..", ".#...#.", ".#...#.", ".#...#.", "..###..",
                                             "......."}));
    EXPECT_EQ(canvas.touched, (Box{1, 1, 6, 6}));
}

TEST(DrawCircle, FilledHasTheFillColourInside) {
    DrawAttributes attributes;
    attributes.FillStyle = kFillSolid;
    attributes.FillColor = 0x0000FF;
    Bitmap bits(7, 7, kWhite);
    DeviceContext bitsContext(bits, attributes);
    DrawCircle(bitsContext, 3, 3, 2, kBlack);
    ExpectSamePixels(
        bits, PictureOf({".......", "..###..", ".#rrr#.", ".#rrr#.", ".#rrr#.", "..###..", "......."}));
}

TEST(DrawCircle, LooksTheSameFromAllSides) {
    for (int radius = 1; radius <= 40; ++radius) {
        SCOPED_TRACE(radius);
        Canvas canvas(101, 101);
        DrawCircle(canvas.hdc, 50, 50, radius, kBlack);
        for (int y = 0; y < 101; ++y) {
            for (int x = 0; x < 101; ++x) {
                ASSERT_EQ(canvas.bits.At(x, y), canvas.bits.At(100 - x, y)) << x << ", " << y;
                ASSERT_EQ(canvas.bits.At(x, y), canvas.bits.At(x, 100 - y)) << x << ", " << y;
            }
        }
    }
}

TEST(DrawCircle, InvertsAFilledCircleOnce) {
    for (const int width : {1, 4}) {
        DrawAttributes attributes;
        attributes.FillStyle = kFillSolid;
        attributes.DrawWidth = width;
        Bitmap drawn(60, 60, kWhite);
        DeviceContext drawnContext(drawn, attributes);
        DrawCircle(drawnContext, 30, 30, 20, kBlack);
        attributes.DrawMode = kDrawInvert;
        Bitmap inverted(60, 60, kWhite);
        DeviceContext invertedContext(inverted, attributes);
        DrawCircle(invertedContext, 30, 30, 20, 0x0000FF);
        ExpectSamePixels(inverted, drawn);
    }
}

TEST(Ellipse, OnePixelBoxPaintsItsPixel) {
    for (const int mode : {kDrawCopyPen, kDrawInvert}) {
        Canvas canvas(3, 3);
        canvas.attributes.DrawMode = mode;
        Ellipse(canvas.hdc, 1, 1, 2, 2);
        ExpectSamePixels(canvas.bits, PictureOf({"...", ".#.", "..."}));
        canvas.bits = Bitmap(3, 3, kWhite);
        Rectangle(canvas.hdc, 2, 2, 1, 1);
        ExpectSamePixels(canvas.bits, PictureOf({"...", ".#.", "..."}));
    }
}

TEST(Ellipse, BoxWithoutExtentDrawsNothing) {
    Canvas canvas(9, 9);
    canvas.attributes.DrawWidth = 3;
    Ellipse(canvas.hdc, 2, 2, 2, 8);
    Rectangle(canvas.hdc, 2, 2, 8, 2);
    EXPECT_EQ(canvas.touches, 0);
}

TEST(Ellipse, SlimUprightOfFourColumnsByHand) {
    for (const int fill : {kFillTransparent, kFillSolid}) {
        Canvas canvas(4, 8);
        canvas.attributes.FillStyle = fill;
        canvas.attributes.FillColor = 0x0000FF;
        Ellipse(canvas.hdc, 0, 0, 4, 8);
        const char* middle = fill == kFillSolid ? "#rr#" : "#..#";
        ExpectSamePixels(canvas.bits,
                         PictureOf({".##.", ".##.", middle, middle, middle, middle, ".##.", ".##."}));
        EXPECT_EQ(canvas.touched, (Box{0, 0, 4, 8}));
    }
}

TEST(Ellipse, SlimUprightIsWhole) {
    for (int width = 3; width <= 12; ++width) {
        for (int height = 3; height < 300; height += 1 + height / 20) {
            SCOPED_TRACE(testing::Message() << width << " x " << height);
            Canvas canvas(width, height);
            Ellipse(canvas.hdc, 0, 0, width, height);
            for (int y = 0; y < height; ++y)
                ASSERT_TRUE(RowIsPainted(canvas.bits, y)) << y;
            for (const int middle : {(width - 1) / 2, width / 2}) {
                ASSERT_EQ(canvas.bits.At(middle, 0), 0U);
                ASSERT_EQ(canvas.bits.At(middle, height - 1), 0U);
            }
        }
    }
}

TEST(Ellipse, SlimUprightIsWholeInEveryPenAndFilling) {
    for (int height = 3; height < 60; ++height) {
        for (const int penWidth : {1, 2, 5}) {
            SCOPED_TRACE(testing::Message() << height << " high, pen " << penWidth);
            Canvas ring(20, height + 10);
            ring.attributes.DrawWidth = penWidth;
            Ellipse(ring.hdc, 8, 5, 12, 5 + height);
            ASSERT_EQ(ring.touched.top, 5 - penWidth / 2);
            ASSERT_EQ(ring.touched.bottom, 5 + height + (penWidth - 1) / 2);
        }
        Canvas filled(4, height);
        filled.attributes.FillStyle = kFillSolid;
        filled.attributes.DrawStyle = kDrawNone;
        Ellipse(filled.hdc, 0, 0, 4, height);
        for (int y = 0; y < height; ++y) {
            ASSERT_EQ(filled.bits.At(1, y), 0U) << y;
            ASSERT_EQ(filled.bits.At(2, y), 0U) << y;
        }
    }
}

TEST(Ellipse, SlimUprightInvertsEachPixelOnce) {
    for (int width = 3; width <= 12; ++width) {
        for (int height = 3 * width; height < 20 * width; ++height) {
            SCOPED_TRACE(testing::Message() << width << " x " << height);
            Canvas drawn(width, height);
            Ellipse(drawn.hdc, 0, 0, width, height);
            Canvas inverted(width, height);
            inverted.attributes.DrawMode = kDrawInvert;
            Ellipse(inverted.hdc, 0, 0, width, height);
            ASSERT_TRUE(inverted.bits == drawn.bits);
        }
    }
}

TEST(Ellipse, CornersComeInAnyOrder) {
    for (const int width : {1, 4}) {
        Canvas expected(40, 30);
        expected.attributes.DrawWidth = width;
        Ellipse(expected.hdc, 5, 6, 33, 21);
        Canvas canvas(40, 30);
        canvas.attributes.DrawWidth = width;
        Ellipse(canvas.hdc, 33, 21, 5, 6);
        ExpectSamePixels(canvas.bits, expected.bits);
    }
}

TEST(Ellipse, PartOutsideChangesNothingInside) {
    for (const int width : {1, 6}) {
        DrawAttributes attributes;
        attributes.DrawWidth = width;
        attributes.FillStyle = kFillSolid;
        attributes.FillColor = 0x0000FF;
        Bitmap large(120, 120, kWhite);
        DeviceContext largeContext(large, attributes);
        Ellipse(largeContext, 20, 30, 100, 90);
        Bitmap small(50, 40, kWhite);
        DeviceContext smallContext(small, attributes);
        Ellipse(smallContext, -20, -10, 60, 50);
        Bitmap part(50, 40, kWhite);
        part.Copy(0, 0, large, {40, 40, 90, 80});
        ExpectSamePixels(small, part);
    }
}

TEST(Ellipse, WithoutAPenIsFilledAtFullSize) {
    DrawAttributes attributes;
    attributes.FillStyle = kFillSolid;
    attributes.DrawStyle = kDrawNone;
    Bitmap bits(5, 5, kWhite);
    DeviceContext bitsContext(bits, attributes);
    Ellipse(bitsContext, 0, 0, 5, 5);
    ExpectSamePixels(bits, PictureOf({".###.", "#####", "#####", "#####", ".###."}));
}

TEST(Rectangle, InvertedColumnTurnsBackWhereItsEdgesMeet) {
    Canvas canvas(3, 5);
    canvas.attributes.DrawMode = kDrawInvert;
    Rectangle(canvas.hdc, 1, 0, 2, 5);
    ExpectSamePixels(canvas.bits, PictureOf({".#.", "...", "...", "...", ".#."}));
}

} // namespace pintalux
