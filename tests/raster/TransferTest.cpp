// Copies, stretched and mirrored, and the picture on the screen.
#include "surface/raster/Transfer.h"

#include "base/RuntimeError.h"
#include "support/Errors.h"
#include "support/Pictures.h"

#include <optional>

namespace pintalux {

namespace {

// Draws on a bitmap with attributes that no copy looks at.
struct Target {
    explicit Target(Bitmap start)
        : bits(std::move(start)), hdc(bits, attributes, [this](const Box& box) {
              touched = box;
              ++touches;
          }) {}

    Bitmap bits;
    DrawAttributes attributes;
    Box touched;
    int touches = 0;
    DeviceContext hdc;
};

// The source cell under the centre of cell d, found by search: the lowest c with (c + 1) / s >= (d + 1/2) /
// D.
int SlowCell(int d, int s, int D) {
    int cell = 0;
    while (2 * (cell + 1) * D < (2 * d + 1) * s)
        ++cell;
    return cell;
}

int Low(int start, int extent) {
    return extent < 0 ? start + extent : start;
}

// The slow twin: pixel by pixel, from a copy of the source.
std::optional<Pixel> SlowPixel(const Bitmap& from, const Extent& place, const Extent& fromPlace, int x,
                               int y) {
    const int width = std::abs(place.width);
    const int height = std::abs(place.height);
    int dx = x - Low(place.x, place.width);
    int dy = y - Low(place.y, place.height);
    if (dx < 0 || dy < 0 || dx >= width || dy >= height) return {};
    if ((place.width < 0) != (fromPlace.width < 0)) dx = width - 1 - dx;
    if ((place.height < 0) != (fromPlace.height < 0)) dy = height - 1 - dy;
    if (fromPlace.width == 0 || fromPlace.height == 0) return {};
    const int sx = Low(fromPlace.x, fromPlace.width) + SlowCell(dx, std::abs(fromPlace.width), width);
    const int sy = Low(fromPlace.y, fromPlace.height) + SlowCell(dy, std::abs(fromPlace.height), height);
    if (!from.Holds(sx, sy)) return {};
    return from.At(sx, sy);
}

void SlowStretch(Bitmap& to, const Extent& place, Bitmap from, const Extent& fromPlace, Pixel inversion,
                 std::optional<Pixel> key = {}) {
    for (int y = 0; y < to.Height(); ++y) {
        for (int x = 0; x < to.Width(); ++x) {
            const auto pixel = SlowPixel(from, place, fromPlace, x, y);
            if (pixel && pixel != key) to.Set(x, y, *pixel ^ inversion);
        }
    }
}

int Chance(std::mt19937& random, int low, int high) {
    return low + static_cast<int>(random() % static_cast<unsigned>(high - low + 1));
}

Extent RandomExtent(std::mt19937& random, int width, int height) {
    return {Chance(random, -width / 2, width), Chance(random, -height / 2, height),
            Chance(random, -2 * width, 2 * width), Chance(random, -2 * height, 2 * height)};
}

} // namespace

TEST(StretchedCell, TakesTheCellUnderTheCentre) {
    for (int s = 1; s <= 20; ++s) {
        for (int D = 1; D <= 40; ++D) {
            for (int d = 0; d < D; ++d)
                ASSERT_EQ(StretchedCell(d, s, D), SlowCell(d, s, D)) << d << s << D;
        }
    }
}

TEST(StretchedCell, ExactBoundaryGoesToTheLowerCell) {
    // Two cells on three: the centre of the middle one is exactly between them.
    EXPECT_EQ(StretchedCell(1, 2, 3), 0);
}

TEST(StretchedCell, IsExactForTheLargestSizes) {
    EXPECT_EQ(StretchedCell(2147483646, 2147483647, 2147483647), 2147483646);
    EXPECT_EQ(StretchedCell(0, 2147483647, 2147483647), 0);
    EXPECT_EQ(StretchedCell(0, 2147483647, 1), 1073741823);
}

TEST(StretchBlt, MatchesTheSlowTwin) {
    const Bitmap source = RandomPicture(300, 40, 1);
    std::mt19937 random(2);
    for (int i = 0; i < 600; ++i) {
        const Extent place = RandomExtent(random, 290, 45);
        const Extent fromPlace = RandomExtent(random, 300, 40);
        SCOPED_TRACE(testing::Message() << place.x << ' ' << place.y << ' ' << place.width << ' '
                                        << place.height << " from " << fromPlace.x << ' ' << fromPlace.y
                                        << ' ' << fromPlace.width << ' ' << fromPlace.height);
        Target target(Bitmap(290, 45, 0x112233));
        DrawAttributes attributes;
        Bitmap from = source;
        const bool inverted = i % 2 == 1;
        StretchBlt(target.hdc, place, DeviceContext(from, attributes), fromPlace,
                   inverted ? NOTSRCCOPY : SRCCOPY);
        Bitmap expected(290, 45, 0x112233);
        SlowStretch(expected, place, source, fromPlace, inverted ? 0xFFFFFF : 0);
        ASSERT_TRUE(ExpectSamePixels(target.bits, expected));
    }
}

TEST(StretchBlt, OverManyTilesMatchesTheSlowTwin) {
    const Bitmap source = RandomPicture(700, 150, 11);
    const std::vector<Extent> places = {{0, 0, 350, 75},    {0, 0, 1400, 300},    {37, 5, 1111, 233},
                                        {250, 30, 333, 64}, {1400, 0, -900, 300}, {3, 300, 1300, -290}};
    for (const Extent& place : places) {
        for (const std::uint32_t operation : {SRCCOPY, NOTSRCCOPY}) {
            SCOPED_TRACE(testing::Message() << place.x << ' ' << place.y << ' ' << place.width << ' '
                                            << place.height << ", " << operation);
            Target target(Bitmap(1400, 300, 0x112233));
            StretchBits(target.hdc, place, source, {0, 0, 700, 150}, operation);
            Bitmap expected(1400, 300, 0x112233);
            SlowStretch(expected, place, source, {0, 0, 700, 150}, operation == SRCCOPY ? 0 : 0xFFFFFF);
            ExpectSamePixels(target.bits, expected);
        }
    }
}

TEST(StretchBlt, OntoItselfReadsBeforeItWrites) {
    std::mt19937 random(3);
    for (int i = 0; i < 300; ++i) {
        const Bitmap start = RandomPicture(280, 40, static_cast<unsigned>(i));
        Extent place = RandomExtent(random, 280, 40);
        const Extent fromPlace = RandomExtent(random, 280, 40);
        // Every other time at equal size, the way a selection is moved.
        if (i % 2 == 0) place = {place.x, place.y, fromPlace.width, fromPlace.height};
        Target target(start);
        StretchBlt(target.hdc, place, target.hdc, fromPlace, SRCCOPY);
        Bitmap expected = start;
        SlowStretch(expected, place, start, fromPlace, 0);
        ASSERT_TRUE(ExpectSamePixels(target.bits, expected)) << i;
    }
}

TEST(StretchBlt, NegativeSizeMirrorsEveryColumnAndTwiceGivesItBack) {
    const Bitmap source = PictureOf({"#rgb", "y..#"});
    Target target(Bitmap(4, 2, kWhite));
    DrawAttributes attributes;
    Bitmap from = source;
    const DeviceContext fromContext(from, attributes);
    StretchBlt(target.hdc, {4, 0, -4, 2}, fromContext, {0, 0, 4, 2}, SRCCOPY);
    ExpectSamePixels(target.bits, PictureOf({"bgr#", "#..y"}));
    StretchBlt(target.hdc, {0, 0, 4, 2}, target.hdc, {4, 0, -4, 2}, SRCCOPY);
    ExpectSamePixels(target.bits, source);
    StretchBlt(target.hdc, {0, 2, 4, -2}, fromContext, {0, 0, 4, 2}, SRCCOPY);
    ExpectSamePixels(target.bits, PictureOf({"y..#", "#rgb"}));
}

TEST(StretchBlt, LeavesAloneWhatHasNoSource) {
    Target target(Bitmap(4, 3, 0x0000FF));
    StretchBits(target.hdc, {0, 0, 4, 3}, PictureOf({"##", "##"}), {-1, -1, 4, 3}, SRCCOPY);
    ExpectSamePixels(target.bits, PictureOf({"rrrr", "r##r", "r##r"}));
    EXPECT_EQ(target.touched, (Box{1, 1, 3, 3}));
    EXPECT_EQ(target.touches, 1);
}

TEST(StretchBlt, UnknownOperationIsError5) {
    Target target(Bitmap(2, 2, 0));
    EXPECT_EQ(ErrorOf([&] {
                  StretchBits(target.hdc, {0, 0, 0, 0}, Bitmap(1, 1, 0), {0, 0, 1, 1}, 0x123456);
              }),
              kInvalidArgument);
}

TEST(StretchBlt, WithoutExtentTouchesNothing) {
    Target target(Bitmap(2, 2, 0));
    StretchBits(target.hdc, {0, 0, 0, 2}, Bitmap(1, 1, 5), {0, 0, 1, 1}, SRCCOPY);
    StretchBits(target.hdc, {0, 0, 2, 2}, Bitmap(1, 1, 5), {0, 0, 1, 0}, SRCCOPY);
    StretchBits(target.hdc, {0, 0, 2, 2}, Bitmap(), {0, 0, 1, 1}, SRCCOPY);
    StretchBits(target.hdc, {2147483647, 0, 2147483647, 2}, Bitmap(1, 1, 5), {0, 0, 1, 1}, SRCCOPY);
    StretchBits(target.hdc, {0, 0, -2147483647 - 1, 2}, Bitmap(1, 1, 5), {0, 0, 1, 1}, SRCCOPY);
    EXPECT_EQ(target.touches, 0);
}

TEST(StretchBlt, HugeEnlargementCostsOnlyWhatIsInside) {
    Target target(Bitmap(4, 1, 0));
    StretchBits(target.hdc, {-1000000000, 0, 2000000000, 1}, PictureOf({"rg"}), {0, 0, 2, 1}, SRCCOPY);
    EXPECT_EQ(target.bits.At(0, 0), NamedPixel('g'));
    EXPECT_EQ(target.bits.At(3, 0), NamedPixel('g'));
}

// A width and places at which runs end inside a cache line, so large that pixels are streamed.
TEST(StretchBlt, FlipsOfALargePictureTakeTheOppositePixels) {
    constexpr int kWidth = 701;
    constexpr int kHeight = 403;
    const Bitmap source = RandomPicture(kWidth, kHeight, 12);
    for (const auto& [across, down] : {std::pair{true, false}, {false, true}, {true, true}, {false, false}}) {
        for (const int at : {0, 5, -300}) {
            SCOPED_TRACE(testing::Message() << across << down << " at " << at);
            Target target(Bitmap(kWidth, kHeight, 0x112233));
            StretchBits(target.hdc, {at, at, kWidth, kHeight}, source,
                        {across ? kWidth : 0, down ? kHeight : 0, across ? -kWidth : kWidth,
                         down ? -kHeight : kHeight},
                        NOTSRCCOPY);
            Bitmap expected(kWidth, kHeight, 0x112233);
            for (int y = 0; y < kHeight; ++y) {
                for (int x = 0; x < kWidth; ++x) {
                    const int fromX = across ? kWidth - 1 - (x - at) : x - at;
                    const int fromY = down ? kHeight - 1 - (y - at) : y - at;
                    if (source.Holds(fromX, fromY)) expected.Set(x, y, source.At(fromX, fromY) ^ 0xFFFFFF);
                }
            }
            EXPECT_TRUE(ExpectSamePixels(target.bits, expected));
        }
    }
}

TEST(BitBlt, AlignedCopySharesTheTiles) {
    Bitmap from = RandomPicture(600, 100, 4);
    DrawAttributes attributes;
    Target target(Bitmap(600, 100, 0));
    BitBlt(target.hdc, 0, 0, 600, 100, DeviceContext(from, attributes), 0, 0, SRCCOPY);
    EXPECT_TRUE(Bitmap::Difference(from, target.bits).empty());
}

TEST(BitBlt, NegatedCopyInvertsThe24Bits) {
    Target target(Bitmap(1, 1, 0));
    Bitmap from(1, 1, 0x0000FF);
    DrawAttributes attributes;
    BitBlt(target.hdc, 0, 0, 1, 1, DeviceContext(from, attributes), 0, 0, NOTSRCCOPY);
    EXPECT_EQ(target.bits.At(0, 0), 0xFFFF00U);
}

TEST(TransparentBlt, MatchesTheSlowTwin) {
    // Few colours, so that the key is met often.
    const Bitmap source = RandomPicture(300, 40, 6, 0x000003);
    std::mt19937 random(7);
    for (int i = 0; i < 300; ++i) {
        const Extent place = RandomExtent(random, 290, 45);
        const Extent fromPlace = RandomExtent(random, 300, 40);
        Target target(Bitmap(290, 45, 0x112233));
        Bitmap from = source;
        DrawAttributes attributes;
        TransparentBlt(target.hdc, place, DeviceContext(from, attributes), fromPlace, 2);
        Bitmap expected(290, 45, 0x112233);
        SlowStretch(expected, place, source, fromPlace, 0, Pixel{2});
        ASSERT_TRUE(ExpectSamePixels(target.bits, expected)) << i;
    }
}

// Tiles inside the ellipse, outside it and on its edge; so large that pixels are streamed.
TEST(TransparentBlt, AMovedPieceCoversWhatItHoldsAndNothingElse) {
    constexpr Pixel kKey = 0x8894A0;
    Bitmap piece = RandomPicture(700, 400, 10);
    for (int y = 0; y < 400; ++y)
        for (int x = 0; x < 700; ++x)
            if ((x - 350) * (x - 350) + (y - 200) * (y - 200) * 3 > 350 * 350) piece.Set(x, y, kKey);
    const Bitmap below = RandomPicture(700, 400, 11);
    DrawAttributes attributes;
    // Among them: pieces of tiles narrower than 16 pixels, on the left, on the right, and both.
    for (const auto& [dx, dy] : {std::pair{0, 0},
                                 {21, 21},
                                 {-37, 5},
                                 {256, 32},
                                 {-256, -64},
                                 {16, -400},
                                 {3, 1},
                                 {250, -3},
                                 {-250, 7},
                                 {240, 0},
                                 {180, 2}}) {
        SCOPED_TRACE(testing::Message() << dx << ", " << dy);
        Target target(below);
        TransparentBlt(target.hdc, {dx, dy, 700, 400}, DeviceContext(piece, attributes), {0, 0, 700, 400},
                       kKey);
        Bitmap expected = below;
        for (int y = 0; y < 400; ++y)
            for (int x = 0; x < 700; ++x)
                if (piece.Holds(x - dx, y - dy) && piece.At(x - dx, y - dy) != kKey)
                    expected.Set(x, y, piece.At(x - dx, y - dy));
        EXPECT_TRUE(ExpectSamePixels(target.bits, expected));
    }
}

TEST(TransparentBlt, NothingButTheKeyWritesNoTile) {
    Target target(Bitmap(300, 40, 1));
    const Bitmap before = target.bits;
    Bitmap from(300, 40, 0x8894A0);
    DrawAttributes attributes;
    TransparentBlt(target.hdc, {0, 0, 300, 40}, DeviceContext(from, attributes), {0, 0, 300, 40}, 0x8894A0);
    EXPECT_TRUE(Bitmap::Difference(before, target.bits).empty());
}

/// How many samples an axis takes: as many as image pixels fall on a screen pixel, at most four.
int SlowSamples(int source, int shown) {
    int samples = 1;
    while (samples < 4 && samples * shown < source)
        ++samples;
    return samples;
}

/// The mean of the samples that lie evenly spread over a screen pixel, each channel rounded to nearest.
std::uint32_t SlowScreenPixel(const Bitmap& source, int x, int y, int width, int height) {
    const int across = SlowSamples(source.Width(), width);
    const int down = SlowSamples(source.Height(), height);
    int red = 0;
    int green = 0;
    int blue = 0;
    for (int i = 0; i < down; ++i) {
        for (int j = 0; j < across; ++j) {
            const Pixel p = source.At(SlowCell(x * across + j, source.Width(), width * across),
                                      SlowCell(y * down + i, source.Height(), height * down));
            red += static_cast<int>(p % 256);
            green += static_cast<int>(p / 256 % 256);
            blue += static_cast<int>(p / 65536);
        }
    }
    const int samples = across * down;
    const auto mean = [samples](int sum) {
        return static_cast<std::uint32_t>((2 * sum + samples) / (2 * samples));
    };
    return 0xFF000000 + mean(red) * 65536 + mean(green) * 256 + mean(blue);
}

TEST(StretchForScreen, AReducedPixelIsTheMeanOfThoseItStandsFor) {
    // By hand: of 4 by 4 shown at 1:4 the sixteenth parts; of a chequerboard at 1:2 the middle.
    Bitmap source(4, 4, 0);
    source.Set(3, 2, 0x0000FF); // red
    std::uint32_t pixel = 0;
    StretchForScreen(source, 1, 1, {0, 0, 1, 1}, &pixel, 1);
    EXPECT_EQ(pixel, 0xFF100000U); // 255 / 16 = 15.9
    Bitmap chequered(2, 2, 0);
    chequered.Set(0, 0, 0xFFFFFF);
    chequered.Set(1, 1, 0xFFFFFF);
    StretchForScreen(chequered, 1, 1, {0, 0, 1, 1}, &pixel, 1);
    EXPECT_EQ(pixel, 0xFF808080U);
}

TEST(StretchForScreen, AtItsOwnSizeAndLargerNothingIsMixed) {
    Bitmap source(2, 1, 0);
    source.Set(1, 0, 0xFFFFFF);
    for (const int width : {2, 3, 4, 7}) {
        std::vector<std::uint32_t> out(static_cast<std::size_t>(width));
        StretchForScreen(source, width, 1, {0, 0, width, 1}, out.data(), width);
        for (const std::uint32_t pixel : out)
            EXPECT_TRUE(pixel == 0xFF000000U || pixel == 0xFFFFFFFFU) << width;
    }
}

TEST(StretchForScreen, MatchesTheSlowTwinAtEveryZoom) {
    constexpr std::uint32_t kUntouched = 0x01020304;
    const Bitmap source = RandomPicture(530, 70, 8);
    const std::vector<std::pair<int, int>> zooms{{1, 16}, {1, 8}, {1, 4}, {1, 3}, {1, 2}, {2, 3},  {1, 1},
                                                 {4, 3},  {3, 2}, {2, 1}, {3, 1}, {4, 1}, {16, 1}, {7, 5}};
    std::mt19937 random(9);
    for (const auto& [up, down] : zooms) {
        for (int i = 0; i < 6; ++i) {
            // Odd sizes, too: the display may be a pixel larger or smaller than the zoom says.
            const int width = std::max(1, 530 * up / down + i % 3 - 1);
            const int height = std::max(1, 70 * up / down + i / 3);
            const int left = Chance(random, 0, width - 1);
            const int top = Chance(random, 0, height - 1);
            const Box visible{left, top, std::min(width, left + 200), std::min(height, top + 90)};
            SCOPED_TRACE(testing::Message() << width << " x " << height << " at " << left << ", " << top);
            constexpr int kStride = 203;
            std::vector<std::uint32_t> out(static_cast<std::size_t>(kStride) * 90, kUntouched);
            StretchForScreen(source, width, height, visible, out.data(), kStride);
            for (int y = 0; y < 90; ++y) {
                for (int x = 0; x < kStride; ++x) {
                    std::uint32_t expected = kUntouched;
                    if (x < visible.Width() && y < visible.Height()) {
                        expected = SlowScreenPixel(source, left + x, top + y, width, height);
                    }
                    ASSERT_EQ(out[static_cast<std::size_t>(y * kStride + x)], expected) << x << ", " << y;
                }
            }
        }
    }
}

TEST(StretchForScreen, LargeReductionMatchesTheSlowTwin) {
    // Large enough to be split over the cores; the second repeats image rows, the last skips whole bands.
    const Bitmap source = RandomPicture(2100, 700, 10);
    const std::vector<std::pair<int, int>> sizes{{525, 310}, {700, 1500}, {1049, 233}, {350, 400}, {30, 11}};
    for (const auto& [width, height] : sizes) {
        SCOPED_TRACE(testing::Message() << width << " x " << height);
        const Box visible{3, 1, width, height};
        std::vector<std::uint32_t> out(static_cast<std::size_t>(visible.Width()) *
                                       static_cast<std::size_t>(visible.Height()));
        StretchForScreen(source, width, height, visible, out.data(), visible.Width());
        std::size_t i = 0;
        for (int y = visible.top; y < height; ++y) {
            for (int x = visible.left; x < width; ++x) {
                ASSERT_EQ(out[i++], SlowScreenPixel(source, x, y, width, height)) << x << ", " << y;
            }
        }
    }
}

TEST(StretchForScreen, EmptyPictureLeavesTheScreenAlone) {
    std::uint32_t pixel = 7;
    StretchForScreen(Bitmap(), 1, 1, {0, 0, 1, 1}, &pixel, 1);
    EXPECT_EQ(pixel, 7U);
}

TEST(StretchForScreen, ShowsTheCornerOfTheLargestSize) {
    Bitmap source(32000, 32000, 0x0000FF);
    source.Set(31999, 31999, 0x00FF00);
    std::uint32_t pixels[4] = {};
    StretchForScreen(source, 512000, 512000, {511983, 511999, 511985, 512000}, pixels, 2);
    EXPECT_EQ(pixels[0], 0xFFFF0000U);
    EXPECT_EQ(pixels[1], 0xFF00FF00U);
}

} // namespace pintalux
