// A kept view shows what a fresh one would, whatever happened to its picture.
#include "surface/raster/ReducedView.h"

#include "support/Pictures.h"
#include "surface/raster/Transfer.h"

#include <random>

namespace pintalux {
namespace {

/// A part as it is kept, and as it is made anew.
void ExpectFresh(ReducedView& view, const Bitmap& picture, int width, int height, const Box& visible) {
    constexpr std::uint32_t kUntouched = 0x01020304;
    const int stride = visible.Width() + 3;
    std::vector<std::uint32_t> kept(
        static_cast<std::size_t>(stride) * static_cast<std::size_t>(visible.Height()), kUntouched);
    std::vector<std::uint32_t> fresh = kept;
    view.Show(picture, width, height, visible, kept.data(), stride);
    StretchForScreen(picture, width, height, visible, fresh.data(), stride);
    ASSERT_EQ(kept, fresh);
}

Box RandomPart(std::mt19937& random, int width, int height) {
    const int left = static_cast<int>(random() % static_cast<unsigned>(width));
    const int top = static_cast<int>(random() % static_cast<unsigned>(height));
    // Beyond the view, too.
    return {left - 2, top - 2, left + static_cast<int>(random() % 200) + 1,
            top + static_cast<int>(random() % 90) + 1};
}

TEST(ReducedView, ShowsEveryChangeOfItsPicture) {
    for (const auto& [width, height] :
         {std::pair{263, 101}, {175, 68}, {132, 51}, {33, 13}, {1057, 40}, {40, 900}}) {
        SCOPED_TRACE(testing::Message() << width << " x " << height);
        std::mt19937 random(6);
        Bitmap picture = RandomPicture(527, 203, 1);
        ReducedView view;
        for (int round = 0; round < 60; ++round) {
            for (int i = 0; i < 3; ++i)
                ExpectFresh(view, picture, width, height, RandomPart(random, width, height));
            const Bitmap before = picture;
            if (round % 20 == 19) {
                picture = RandomPicture(527, 203, static_cast<unsigned>(round));
            } else {
                // A dot, or a box.
                const Box part = RandomPart(random, 527, 203);
                picture.Fill(round % 2 == 0 ? Box{part.left, part.top, part.left + 3, part.top + 3} : part,
                             static_cast<Pixel>(random() & 0xFFFFFF));
            }
            view.Changed(before, picture);
        }
    }
}

TEST(ReducedView, FollowsThePicturesSizeAndItsOwn) {
    ReducedView view;
    Bitmap picture = RandomPicture(400, 300, 2);
    ExpectFresh(view, picture, 200, 150, {0, 0, 200, 150});
    ExpectFresh(view, picture, 100, 75, {0, 0, 100, 75});
    ExpectFresh(view, picture, 200, 150, {10, 10, 90, 90});
    const Bitmap larger = RandomPicture(600, 300, 3);
    view.Changed(picture, larger);
    ExpectFresh(view, larger, 200, 150, {0, 0, 200, 150});
    view.Changed(larger, {});
    ExpectFresh(view, {}, 200, 150, {0, 0, 20, 20});
}

TEST(ReducedView, ShowsAChangeThatIsAllOver) {
    Bitmap picture(4000, 3000, 0xFFFFFF);
    ReducedView view;
    ExpectFresh(view, picture, 1000, 750, {0, 0, 1000, 750});
    const Bitmap before = picture;
    // Dots in every second tile, so that no two of them are one change.
    for (int y = 10; y < 3000; y += Bitmap::kTileHeight)
        for (int x = 10; x < 4000; x += 2 * Bitmap::kTileWidth)
            picture.Fill({x, y, x + 4, y + 4}, 0x0000FF);
    ASSERT_GT(Bitmap::Difference(before, picture).size(), 256U);
    view.Changed(before, picture);
    ExpectFresh(view, picture, 1000, 750, {0, 0, 1000, 750});
}

TEST(ReducedView, KeepsWhatItShowedAndNothingAtOtherZooms) {
    const Bitmap picture = RandomPicture(400, 300, 2);
    ReducedView view;
    std::vector<std::uint32_t> out(400 * 300);
    view.Show(picture, 200, 150, {0, 0, 200, 150}, out.data(), 200);
    EXPECT_EQ(view.Pixels(), 200 * 150);
    // Nobody told it that the picture is another one.
    std::vector<std::uint32_t> kept(200 * 150);
    view.Show(Bitmap(400, 300, 0), 200, 150, {0, 0, 200, 150}, kept.data(), 200);
    EXPECT_TRUE(std::equal(kept.begin(), kept.end(), out.begin()));
    view.Show(picture, 400, 300, {0, 0, 400, 300}, out.data(), 400);
    EXPECT_EQ(view.Pixels(), 0);
}

TEST(ReducedView, WhatWasShownLongestAgoGoesFirst) {
    const Bitmap picture(8000, 6000, 0x123456);
    ReducedView views[6]; // of three million pixels each
    std::uint32_t pixel = 0;
    const auto show = [&](ReducedView& view) { view.Show(picture, 2000, 1500, {0, 0, 1, 1}, &pixel, 1); };
    for (int i = 0; i < 5; ++i)
        show(views[i]);
    show(views[0]);
    show(views[5]);
    const std::int64_t three = 3'000'000;
    EXPECT_EQ(views[0].Pixels(), three);
    EXPECT_EQ(views[1].Pixels(), 0);
    EXPECT_EQ(views[2].Pixels(), three);
    EXPECT_EQ(views[5].Pixels(), three);
    ReducedView large;
    large.Show(picture, 4000, 3000, {0, 0, 1, 1}, &pixel, 1);
    EXPECT_EQ(large.Pixels(), 0);
    EXPECT_EQ(pixel, 0xFF563412U);
    EXPECT_EQ(views[5].Pixels(), three);
}

} // namespace
} // namespace pintalux
