// A piece as it shows on the screen, against slow models that go pixel by pixel.
#include "surface/raster/ScreenPiece.h"

#include "support/Pictures.h"
#include "support/ScreenModel.h"

#include <gtest/gtest.h>
#include <random>

namespace pintalux {
namespace {

constexpr Pixel kKey = 0x8894A0;

int Chance(std::mt19937& random, int least, int most) {
    return least + static_cast<int>(random() % static_cast<unsigned>(most - least + 1));
}

/// A picture with blots of the key, and single pixels of it.
Bitmap RandomPiece(int width, int height, unsigned seed) {
    std::mt19937 random(seed);
    Bitmap piece = RandomPicture(width, height, seed);
    for (int i = 0; i < 40; ++i) {
        const int left = Chance(random, 0, width - 1);
        const int top = Chance(random, 0, height - 1);
        const int side = i % 4 == 0 ? Chance(random, 1, 30) : 1;
        piece.Fill({left, top, left + side, top + side}, kKey);
    }
    return piece;
}

const std::vector<std::pair<int, int>> kZooms{{1, 16}, {1, 8}, {1, 5}, {1, 4}, {1, 3}, {1, 2}, {2, 3},
                                              {1, 1},  {4, 3}, {2, 1}, {3, 1}, {7, 2}, {16, 1}};

TEST(LayForScreen, MatchesTheSlowModelAtEveryZoom) {
    constexpr int kStride = 130;
    const Bitmap piece = RandomPiece(530, 90, 3);
    std::mt19937 random(4);
    for (const auto& [up, down] : kZooms) {
        for (int i = 0; i < 6; ++i) {
            const int width = std::max(1, 530 * up / down + i % 3 - 1);
            const int height = std::max(1, 90 * up / down + i / 3);
            const int left = Chance(random, 0, width - 1);
            const int top = Chance(random, 0, height - 1);
            const Box visible{left, top, std::min(width, left + 120), std::min(height, top + 60)};
            SCOPED_TRACE(testing::Message() << width << " x " << height << " at " << left << ", " << top);
            std::vector<std::uint32_t> below(std::size_t{kStride} * 60);
            for (std::uint32_t& pixel : below)
                pixel = i % 2 == 0 ? 0 : 0xFF000000 | random() % 0x1000000;
            std::vector<std::uint32_t> out = below;
            LayForScreen(piece, kKey, width, height, visible, out.data(), kStride);
            for (int y = 0; y < 60; ++y) {
                for (int x = 0; x < kStride; ++x) {
                    const auto at = static_cast<std::size_t>(y * kStride + x);
                    const bool shown = x < visible.Width() && y < visible.Height();
                    const std::uint32_t expected =
                        shown
                            ? ModelLaid(ModelPixels(piece, left + x, top + y, width, height), kKey, below[at])
                            : below[at];
                    ASSERT_EQ(out[at], expected) << x << ", " << y;
                }
            }
        }
    }
}

TEST(LayForScreen, AQuarterOfAPieceIsAQuarterOfThePixel) {
    Bitmap piece(2, 2, kKey);
    piece.Set(1, 0, 0x0000FF); // red
    std::uint32_t pixel = 0xFF000000;
    LayForScreen(piece, kKey, 1, 1, {0, 0, 1, 1}, &pixel, 1);
    EXPECT_EQ(pixel, 0xFF400000U); // 255 / 4 = 63.75
}

TEST(ShapeOnView, HoldsWhatHasASampleInThePiece) {
    const Bitmap piece = RandomPiece(130, 70, 5);
    for (const auto& [up, down] : kZooms) {
        for (int i = 0; i < 3; ++i) {
            const int width = std::max(1, 130 * up / down + i - 1);
            const int height = std::max(1, 70 * up / down + i);
            SCOPED_TRACE(testing::Message() << width << " x " << height);
            const Region shape = ShapeOnView(piece, kKey, width, height);
            for (int y = 0; y < height; ++y) {
                for (int x = 0; x < width; ++x) {
                    bool holds = false;
                    for (const Pixel p : ModelPixels(piece, x, y, width, height))
                        holds = holds || p != kKey;
                    ASSERT_EQ(shape.Holds(x, y), holds) << x << ", " << y;
                }
            }
            // As `CombineRgn` would have it: rows joined, runs apart.
            Region again;
            CombineRgn(again, shape, CreateRectRgn(0, 0, width, height), RGN_AND);
            EXPECT_EQ(shape.Boxes(), again.Boxes());
        }
    }
}

TEST(ShapeOnView, OfNothingIsEmpty) {
    EXPECT_TRUE(ShapeOnView(Bitmap(5, 5, kKey), kKey, 5, 5).stripes.empty());
    EXPECT_TRUE(ShapeOnView(Bitmap(), kKey, 5, 5).stripes.empty());
    EXPECT_TRUE(ShapeOnView(Bitmap(5, 5, 0), kKey, 0, 3).stripes.empty());
}

} // namespace
} // namespace pintalux
