// Clipping a surface to the pixels that are not one colour.
#include "selection/SelectionTest.h"

#include <QRegion>

namespace pintalux {
namespace {

class ShapeMeTest : public SelectionTest {
  protected:
    /// Clips a surface that shows the picture; each pixel that is not the key must be in the mask, no other.
    void ExpectOutline(const Bitmap& picture) {
        frmImage& image = ActiveImage();
        Surface& surface = image.PicFreeSelect;
        surface.Picture(picture);
        surface.Visible(true);
        for (const bool horizontal : {true, false}) {
            surface.ScaleMode(kScalePoints);
            image.ShapeMe(0x8894A0, horizontal, surface);
            EXPECT_EQ(surface.ScaleMode(), kScalePixels);
            EXPECT_TRUE(surface.AutoRedraw());
            const QRegion mask = WidgetFor(surface).mask();
            for (int y = 0; y < picture.Height(); ++y)
                for (int x = 0; x < picture.Width(); ++x)
                    ASSERT_EQ(mask.contains(QPoint(x, y)), picture.At(x, y) != 0x8894A0)
                        << x << ", " << y << (horizontal ? " by lines" : " by columns");
        }
    }
    void SetUp() override {
        SelectionTest::SetUp();
        NewDocument(300, 200);
    }
};

TEST_F(ShapeMeTest, AnOutlineWithHoles) {
    ExpectOutline(
        PictureOf({"kkkkkkkk", "kk....kk", "k..kk..k", "k.k..k.k", "k..kk..k", "kk....kk", "kkkkkkkk"}));
}

TEST_F(ShapeMeTest, PiecesThatTouchTheEdges) {
    ExpectOutline(PictureOf({"..kk..", "..kk..", "kk..kk", "..kk..", "k....k"}));
}

TEST_F(ShapeMeTest, OnePixelWide) {
    ExpectOutline(PictureOf({".kk", "k.k", "kk."}));
    ExpectOutline(PictureOf({"."}));
    ExpectOutline(PictureOf({"k"}));
    ExpectOutline(PictureOf({".k.k.k"}));
    ExpectOutline(PictureOf({".", "k", ".", "k"}));
}

TEST_F(ShapeMeTest, ARunOverTheEndsOfLinesIsOutOnEachOfThem) {
    ExpectOutline(PictureOf({"..kk", "kkkk", "kk..", "...k", "kkkk"}));
}

TEST_F(ShapeMeTest, NothingButTheColourHidesTheSurfaceWhole) {
    ExpectOutline(PictureOf({"kkkk", "kkkk", "kkkk"}));
}

TEST_F(ShapeMeTest, NoneOfTheColourShowsItWhole) {
    ExpectOutline(PictureOf({"....", "r.g.", "...."}));
}

TEST_F(ShapeMeTest, RandomPictures) {
    for (unsigned seed = 1; seed <= 20; ++seed) {
        std::mt19937 random(seed);
        Bitmap picture(static_cast<int>(random() % 70 + 1), static_cast<int>(random() % 50 + 1), 0xFFFFFF);
        const auto density = random() % 9 + 1;
        for (int y = 0; y < picture.Height(); ++y)
            for (int x = 0; x < picture.Width(); ++x)
                if (random() % 10 < density) picture.Set(x, y, 0x8894A0);
        SCOPED_TRACE(seed);
        ExpectOutline(picture);
    }
}

} // namespace
} // namespace pintalux
