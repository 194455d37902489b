// The lines, dots and boxes of a surface: what the measured cases leave to the program.
#include "support/Pictures.h"
#include "surface/raster/Drawing.h"

#include <cstdlib>

namespace pintalux {

namespace {

// A surface to draw on, with its attributes.
struct Canvas {
    explicit Canvas(int width, int height) : bits(width, height, kWhite), hdc(bits, attributes, Note()) {}

    std::function<void(const Box&)> Note() {
        return [this](const Box& box) {
            touched = box;
            ++touches;
        };
    }

    Bitmap bits;
    DrawAttributes attributes;
    Box touched;
    int touches = 0;
    DeviceContext hdc;
};

// The slow twin of the thin line: the exact coordinate of each step in 128 bits, no clipping, SetPixel.
void SlowLine(Bitmap& bits, std::int64_t x1, std::int64_t y1, std::int64_t x2, std::int64_t y2) {
    const std::int64_t dx = x2 - x1;
    const std::int64_t dy = y2 - y1;
    const bool flat = std::abs(dx) >= std::abs(dy);
    const std::int64_t n = flat ? std::abs(dx) : std::abs(dy);
    for (std::int64_t i = 0; i <= n; ++i) {
        // ceil(i * d / n - 1/2) = ceil((2 i d - n) / 2n), by searching downwards from above.
        const std::int64_t d = flat ? dy : dx;
        std::int64_t offset = n == 0 ? 0 : (2 * i * d - n) / (2 * n) + 2;
        while (n != 0 && 2 * n * (offset - 1) >= 2 * i * d - n)
            --offset;
        const std::int64_t step = flat ? (dx < 0 ? -i : i) : (dy < 0 ? -i : i);
        const std::int64_t x = flat ? x1 + step : x1 + offset;
        const std::int64_t y = flat ? y1 + offset : y1 + step;
        if (x >= 0 && y >= 0 && x < bits.Width() && y < bits.Height()) {
            bits.Set(static_cast<int>(x), static_cast<int>(y), 0);
        }
    }
}

int Chance(std::mt19937& random, int low, int high) {
    return low + static_cast<int>(random() % static_cast<unsigned>(high - low + 1));
}

std::int64_t BlackCount(const Bitmap& bits) {
    std::int64_t count = 0;
    for (int y = 0; y < bits.Height(); ++y) {
        for (int x = 0; x < bits.Width(); ++x)
            count += bits.At(x, y) == 0;
    }
    return count;
}

} // namespace

TEST(DrawLine, PaintsBothEnds) {
    Canvas canvas(5, 3);
    DrawLine(canvas.hdc, 0, 0, 4, 2, kBlack);
    ExpectSamePixels(canvas.bits, PictureOf({"##...", "..##.", "....#"}));
}

TEST(PenLine, LeavesOutItsLastPoint) {
    Canvas canvas(5, 1);
    PenLine(canvas.hdc, 0, 0, 4, 0, kBlack);
    ExpectSamePixels(canvas.bits, PictureOf({"####."}));
    PenLine(canvas.hdc, 4, 0, 4, 0, kBlack);
    ExpectSamePixels(canvas.bits, PictureOf({"####."}));
}

TEST(DrawLine, FromAPointToItselfIsOneDot) {
    Canvas canvas(4, 3);
    DrawLine(canvas.hdc, 1, 1, 1, 1, kBlack);
    ExpectSamePixels(canvas.bits, PictureOf({"....", ".#..", "...."}));
    EXPECT_EQ(canvas.touched, (Box{1, 1, 2, 2}));
}

TEST(DrawLine, InvertTurnsEveryPixelOnceTheLastOneToo) {
    Canvas canvas(6, 1);
    canvas.attributes.DrawMode = kDrawInvert;
    DrawLine(canvas.hdc, 1, 0, 4, 0, 0x123456);
    ExpectSamePixels(canvas.bits, PictureOf({".####."}));
    DrawLine(canvas.hdc, 4, 0, 1, 0, 0);
    ExpectSamePixels(canvas.bits, PictureOf({"......"}));
}

TEST(DrawLine, InvertsAWideLineOnce) {
    Canvas canvas(40, 30);
    canvas.attributes.DrawWidth = 7;
    DrawLine(canvas.hdc, 8, 9, 30, 20, kBlack);
    const Bitmap drawn = canvas.bits;
    canvas.bits = Bitmap(40, 30, kWhite);
    canvas.attributes.DrawMode = kDrawInvert;
    DrawLine(canvas.hdc, 8, 9, 30, 20, 0x00FF00);
    ExpectSamePixels(canvas.bits, drawn);
}

TEST(DrawLine, MatchesTheSlowTwinInsideAndOutside) {
    std::mt19937 random(5);
    for (int i = 0; i < 2000; ++i) {
        const int reach = i % 2 == 0 ? 40 : 400;
        const int x1 = Chance(random, -reach, reach);
        const int y1 = Chance(random, -reach, reach);
        const int x2 = Chance(random, -reach, reach);
        const int y2 = Chance(random, -reach, reach);
        SCOPED_TRACE(testing::Message() << x1 << ", " << y1 << " to " << x2 << ", " << y2);
        Canvas canvas(37, 29);
        Bitmap slow(37, 29, kWhite);
        DrawLine(canvas.hdc, x1, y1, x2, y2, kBlack);
        SlowLine(slow, x1, y1, x2, y2);
        ASSERT_TRUE(ExpectSamePixels(canvas.bits, slow));
        ASSERT_EQ(canvas.touches, BlackCount(slow) > 0 ? 1 : 0);
    }
}

TEST(DrawLine, FarEndsCostNothingAndHitTheRightPixels) {
    Canvas canvas(5, 5);
    DrawLine(canvas.hdc, -2000000000, -2000000000, 2000000000, 2000000000, kBlack);
    ExpectSamePixels(canvas.bits, PictureOf({"#....", ".#...", "..#..", "...#.", "....#"}));
    // The exact heights at x = 0 to 4 are 1.5: the half goes to the smaller coordinate before the middle.
    canvas.bits = Bitmap(5, 5, kWhite);
    DrawLine(canvas.hdc, -2147483647, 1, 2147483647, 2, kBlack);
    EXPECT_EQ(canvas.bits.At(0, 1), 0U);
    EXPECT_EQ(canvas.bits.At(1, 2), 0U);
    EXPECT_EQ(BlackCount(canvas.bits), 5);
    EXPECT_EQ(canvas.touched, (Box{0, 1, 5, 3}));
}

TEST(DrawLine, FarWideEndsCostNothing) {
    Canvas canvas(50, 50);
    canvas.attributes.DrawWidth = 9;
    DrawLine(canvas.hdc, -2000000000, -2000000000, 2000000000, 2000000000, kBlack);
    EXPECT_EQ(canvas.bits.At(25, 25), 0U);
    EXPECT_EQ(canvas.bits.At(25, 33), static_cast<Pixel>(kWhite));
    EXPECT_EQ(canvas.touches, 1);
}

TEST(DrawLine, DashesStartAnewWithEachLine) {
    Canvas canvas(30, 2);
    canvas.attributes.DrawStyle = kDrawDash;
    PenLine(canvas.hdc, 0, 0, 30, 0, kBlack);
    PenLine(canvas.hdc, 29, 1, -1, 1, kBlack);
    ExpectSamePixels(canvas.bits,
                     PictureOf({"##################......######", "######......##################"}));
}

TEST(DrawLine, DashesCountThePixelsOutside) {
    Canvas canvas(10, 1);
    canvas.attributes.DrawStyle = kDrawDash;
    PenLine(canvas.hdc, -15, 0, 10, 0, kBlack);
    ExpectSamePixels(canvas.bits, PictureOf({"###......#"}));
}

TEST(DrawLine, DashedWidePenDrawsSolid) {
    Canvas solid(60, 9);
    solid.attributes.DrawWidth = 3;
    DrawLine(solid.hdc, 4, 4, 55, 4, kBlack);
    Canvas dashed(60, 9);
    dashed.attributes.DrawWidth = 3;
    dashed.attributes.DrawStyle = kDrawDash;
    DrawLine(dashed.hdc, 4, 4, 55, 4, kBlack);
    ExpectSamePixels(dashed.bits, solid.bits);
}

TEST(DrawLine, ColourOutOfRangeDrawsWhite) {
    Canvas canvas(3, 1);
    canvas.bits.Fill(canvas.bits.Bounds(), 0x0000FF);
    DrawLine(canvas.hdc, 0, 0, 1, 0, 0x1000003);
    ExpectSamePixels(canvas.bits, PictureOf({"..r"}));
}

TEST(DrawLine, WithoutAPenPaintsNothing) {
    Canvas canvas(5, 5);
    canvas.attributes.DrawStyle = kDrawNone;
    DrawLine(canvas.hdc, 0, 0, 4, 4, kBlack);
    DrawDot(canvas.hdc, 2, 2, kBlack);
    EXPECT_EQ(canvas.touches, 0);
}

TEST(DrawDot, HasTheDrawWidth) {
    const std::vector<std::pair<int, Bitmap>> dots{
        {1, PictureOf({".....", ".....", "..#..", ".....", "....."})},
        {2, PictureOf({".....", ".##..", ".##..", ".....", "....."})},
        {3, PictureOf({".....", "..#..", ".###.", "..#..", "....."})},
        {4, PictureOf({".##..", "####.", "####.", ".##..", "....."})},
        {5, PictureOf({".###.", "#####", "#####", "#####", ".###."})},
    };
    for (const auto& [width, expected] : dots) {
        SCOPED_TRACE(width);
        Canvas canvas(5, 5);
        canvas.attributes.DrawWidth = width;
        DrawDot(canvas.hdc, 2, 2, kBlack);
        ExpectSamePixels(canvas.bits, expected);
        EXPECT_EQ(canvas.touches, 1);
    }
}

TEST(DrawDot, IsCutAtTheEdge) {
    Canvas canvas(3, 3);
    canvas.attributes.DrawWidth = 5;
    DrawDot(canvas.hdc, 0, 0, kBlack);
    ExpectSamePixels(canvas.bits, PictureOf({"###", "###", "##."}));
    DrawDot(canvas.hdc, -100, 2147483647, kBlack);
    EXPECT_EQ(canvas.touches, 1);
}

TEST(GetPixel, OutsideIsMinusOne) {
    Canvas canvas(2, 2);
    EXPECT_EQ(GetPixel(canvas.hdc, 1, 1), kWhite);
    EXPECT_EQ(GetPixel(canvas.hdc, 2, 1), -1);
    EXPECT_EQ(GetPixel(canvas.hdc, 1, -1), -1);
}

TEST(SetPixel, TouchesOnlyWhatLiesInside) {
    Canvas canvas(2, 2);
    SetPixel(canvas.hdc, 2, 0, kBlack);
    EXPECT_EQ(canvas.touches, 0);
    SetPixel(canvas.hdc, 1, 0, kBlack);
    ExpectSamePixels(canvas.bits, PictureOf({".#", ".."}));
    EXPECT_EQ(canvas.touched, (Box{1, 0, 2, 1}));
}

TEST(DrawingOnAnEmptyBitmap, DoesNothing) {
    Canvas canvas(0, 0);
    for (const int width : {1, 4}) {
        canvas.attributes.DrawWidth = width;
        canvas.attributes.FillStyle = kFillSolid;
        DrawLine(canvas.hdc, 0, 0, 5, 5, 0);
        DrawDot(canvas.hdc, 0, 0, 0);
        DrawBox(canvas.hdc, -5, -5, 5, 5, 0);
        DrawFilledBox(canvas.hdc, -5, -5, 5, 5, 0);
        DrawCircle(canvas.hdc, 0, 0, 5, 0);
        Ellipse(canvas.hdc, -5, -5, 5, 5);
    }
    EXPECT_EQ(canvas.touches, 0);
}

} // namespace pintalux
