// Flood fill.
#include "tools/PaintingTools.h"
#include "tools/ToolTest.h"

namespace pintalux {
namespace {

class FloodTest : public ToolTest {
  protected:
    void SetUp() override {
        ToolTest::SetUp();
        Choose("Flood");
    }

    /// Presses where the bucket's tip lies on an image pixel.
    static void FillAt(frmImage& image, int x, int y) {
        Click(image, (x + 0.5) * image.factor + 14, (y + 0.5) * image.factor - 16);
    }

    frmImage& Document(const std::vector<std::string_view>& rows) {
        return OpenPicture("flood.bmp", PictureOf(rows));
    }
};

TEST_F(FloodTest, FillsTheFourConnectedArea) {
    frmMain->SetCurrentColour(0x0000FF);
    frmImage& image = Document({"..#..", ".#...", "#....", ".#.##", "..#.."});
    FillAt(image, 4, 0);
    ExpectSamePixels(ImageOf(image), PictureOf({"..#rr", ".#rrr", "#rrrr", ".#r##", "..#.."}));
}

TEST_F(FloodTest, SpreadsOverExactlyTheColourOfTheStart) {
    Picture picture(6, 1, 0x808080);
    picture.Set(3, 0, 0x808081);
    frmImage& image = OpenPicture("flood.bmp", picture);
    FillAt(image, 0, 0);
    EXPECT_EQ(ImageOf(image).At(2, 0), kInkPixel);
    EXPECT_EQ(ImageOf(image).At(3, 0), 0x808081u);
    EXPECT_EQ(ImageOf(image).At(4, 0), 0x808080u);
}

TEST_F(FloodTest, RandomPicturesFillAsTheSlowModel) {
    for (unsigned seed = 1; seed <= 12; ++seed) {
        // Two colours, so that areas wind.
        const Picture picture = RandomPicture(37, 29, seed, 0x000001);
        frmImage& image = OpenPicture("flood.bmp", picture);
        const int x = static_cast<int>(seed * 5 % 37);
        const int y = static_cast<int>(seed * 7 % 29);
        DrawingModel model(picture);
        model.Flood(x, y, kInkPixel);
        FillAt(image, x, y);
        SCOPED_TRACE(seed);
        ExpectImage(image, model);
        EXPECT_TRUE(image.Unload());
    }
}

TEST_F(FloodTest, StartsFourteenLeftOfAndSixteenBelowThePointerAtEveryZoom) {
    for (const int level : {0, 12, 13, 15, 17, 30}) {
        const Picture picture = RandomPicture(200, 200, 3);
        frmImage& image = OpenPicture("flood.bmp", picture);
        ZoomToLevel(level);
        const double f = FactorOf(level);
        const double X = std::floor(150 * f) + 14.25;
        const double Y = std::floor(120 * f) - 15.5;
        DrawingModel model(picture);
        model.Flood(At(X - 14, f), At(Y + 16, f), kInkPixel);
        SCOPED_TRACE(f);
        Click(image, X, Y);
        ExpectImage(image, model);
        EXPECT_TRUE(image.Unload());
    }
}

TEST_F(FloodTest, ClickThatPutsTheTipOffTheImageFillsNothingAndTakesAState) {
    frmImage& image = NewDocument(40, 40, kBlack);
    const int states = States(image);
    Click(image, 13.9, 5);
    Click(image, 30, 24);
    ExpectImage(image, DrawingModel(40, 40, 0));
    EXPECT_EQ(States(image), states + 2);
}

TEST_F(FloodTest, FillingWithTheColourAlreadyThereChangesNoPixel) {
    frmMain->SetCurrentColour(kWhite);
    frmImage& image = Document({".....", ".###.", "....."});
    const int states = States(image);
    FillAt(image, 0, 0);
    ExpectSamePixels(ImageOf(image), PictureOf({".....", ".###.", "....."}));
    EXPECT_EQ(States(image), states + 1);
}

TEST_F(FloodTest, TakesThePanelsColourWithoutTheRaise) {
    frmMain->SetCurrentColour(0x102030);
    frmImage& image = NewDocument(20, 20, 0x102030);
    image.PicMerge.LineBF(0, 0, 19, 19, kWhite);
    FillAt(image, 3, 3);
    EXPECT_EQ(ImageOf(image).At(3, 3), 0x102030u);
    EXPECT_EQ(image.curdrawcolor, 0x102034);
}

TEST_F(FloodTest, PressFillsAndOnlyTheReleaseShowsIt) {
    frmImage& image = NewDocument(40, 40);
    Press(image, 30, 10);
    EXPECT_EQ(ImageOf(image).At(0, 0), kInkPixel);
    MoveTo(image, 25, 10);
    EXPECT_EQ(image.Image1.Picture().At(0, 0), 0xFFFFFFu);
    Release(image, 25, 10);
    EXPECT_EQ(image.Image1.Picture().At(0, 0), kInkPixel);
    EXPECT_EQ(image.PicMerge.FillStyle(), 1);
    EXPECT_EQ(image.PicMerge.FillColor(), kInk);
}

TEST_F(FloodTest, MaskIsFilledWithBlack) {
    frmImage& image = NewDocument(10, 10);
    image.PicMask.Width(6);
    image.PicMask.Height(1);
    image.PicMask.BackColor(kWhite);
    image.PicMask.LineBF(3, 0, 3, 0, 0x0000FF);
    FloodMaskOutside(image.PicMask, kWhite, 0, 0, 0);
    ExpectSamePixels(image.PicMask.Image(), PictureOf({"###r.."}));
    EXPECT_EQ(image.PicMask.FillStyle(), 1);
}

} // namespace
} // namespace pintalux
