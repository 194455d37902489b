// The 31 zoom levels: factors, sizes, ticks of the menu.
#include "document/Globals.h"
#include "document/Zoom.h"
#include "support/Documents.h"
#include "support/Pictures.h"
#include "support/Program.h"

#include <cmath>

namespace pintalux {
namespace {

class ZoomLevelTest : public ProgramTest {
  protected:
    void SetUp() override {
        ProgramTest::SetUp();
        Start();
    }

    static MenuItem& ItemOf(int level) {
        return level < 15 ? frmMain->mnuZoomOutX(15 - level) : frmMain->mnuZoomInX(level - 15);
    }

    /// The ticks of both menus below their first entries, as the levels they stand for.
    static std::vector<int> TickedLevels() {
        std::vector<int> levels;
        for (int i = 15; i >= 1; --i)
            if (frmMain->mnuZoomOutX(i).Checked()) levels.push_back(15 - i);
        for (int i = 1; i <= 15; ++i)
            if (frmMain->mnuZoomInX(i).Checked()) levels.push_back(15 + i);
        return levels;
    }
};

constexpr double kFactors[31] = {
    1.0 / 16, 1.0 / 15, 1.0 / 14, 1.0 / 13, 1.0 / 12, 1.0 / 11, 1.0 / 10, 1.0 / 9, 1.0 / 8, 1.0 / 7, 1.0 / 6,
    1.0 / 5,  1.0 / 4,  1.0 / 3,  1.0 / 2,  1,        2,        3,        4,       5,       6,       7,
    8,        9,        10,       11,       12,       13,       14,       15,      16};

TEST_F(ZoomLevelTest, FactorSizeAndTickOfEveryLevel) {
    frmImage& image = NewDocument(300, 200);
    for (int level = 0; level <= 30; ++level) {
        Choose(ItemOf(level));
        SCOPED_TRACE(level);
        const double factor = kFactors[level];
        EXPECT_EQ(image.factorlevel, level);
        EXPECT_EQ(image.factor, factor);
        EXPECT_EQ(image.Image1.Width(), 300 * factor);
        EXPECT_EQ(image.Image1.Height(), 200 * factor);
        EXPECT_EQ(image.PicBG.Width(), image.Image1.Width());
        EXPECT_EQ(image.PicBG.Height(), image.Image1.Height());
        EXPECT_EQ(TickedLevels(), level == 15 ? std::vector<int>{} : std::vector<int>{level});
        EXPECT_EQ(frmMain->mnuZoomActual.Enabled(), level != 15);
        EXPECT_FALSE(ScreenLocked());
    }
    ExpectSamePixels(ImageOf(image), Picture(300, 200, 0xFFFFFF));
}

TEST_F(ZoomLevelTest, ApplyGivesTheFactorOfTheLevel) {
    frmImage& image = NewDocument(20, 20);
    for (int level = 0; level <= 30; ++level) {
        image.factorlevel = static_cast<std::int16_t>(level);
        ApplyZoomLevel();
        EXPECT_EQ(image.factor, kFactors[level]) << level;
        EXPECT_EQ(TickedLevels(), level == 15 ? std::vector<int>{} : std::vector<int>{level});
    }
}

TEST_F(ZoomLevelTest, EntriesOfOneToOneStayTicked) {
    NewDocument(20, 20);
    EXPECT_TRUE(frmMain->mnuZoomInX(0).Checked());
    EXPECT_TRUE(frmMain->mnuZoomOutX(0).Checked());
    Choose(frmMain->mnuZoomInX(7));
    EXPECT_TRUE(frmMain->mnuZoomInX(0).Checked());
    EXPECT_TRUE(frmMain->mnuZoomOutX(0).Checked());
}

TEST_F(ZoomLevelTest, BothFirstEntriesAreOneToOne) {
    frmImage& image = NewDocument(20, 20);
    Choose(frmMain->mnuZoomInX(3));
    Choose(frmMain->mnuZoomOutX(0));
    EXPECT_EQ(image.factorlevel, 15);
    Choose(frmMain->mnuZoomOutX(3));
    Choose(frmMain->mnuZoomInX(0));
    EXPECT_EQ(image.factorlevel, 15);
}

TEST_F(ZoomLevelTest, CaptionsOfTheMenus) {
    EXPECT_EQ(frmMain->mnuZoomActual.Caption(), "Tamanho actual");
    EXPECT_EQ(frmMain->mnuZoomIn.Caption(), "Ampliar Imagem");
    EXPECT_EQ(frmMain->mnuZoomOut.Caption(), "Diminuir Imagem");
    for (int i = 0; i < 16; ++i) {
        EXPECT_EQ(frmMain->mnuZoomInX(i).Caption(), std::to_string(i + 1) + ":1");
        EXPECT_EQ(frmMain->mnuZoomOutX(i).Caption(), "1:" + std::to_string(i + 1));
    }
}

TEST_F(ZoomLevelTest, ActualSizeIsDisabledAtOneToOne) {
    frmImage& image = NewDocument(40, 30);
    EXPECT_FALSE(frmMain->mnuZoomActual.Enabled());
    Choose(frmMain->mnuZoomInX(4));
    EXPECT_TRUE(frmMain->mnuZoomActual.Enabled());
    Choose(frmMain->mnuZoomActual);
    EXPECT_EQ(image.factorlevel, 15);
    EXPECT_EQ(image.factor, 1);
    EXPECT_EQ(image.Image1.Width(), 40);
    EXPECT_EQ(image.PicBG.Height(), 30);
    EXPECT_FALSE(frmMain->mnuZoomActual.Enabled());
    EXPECT_FALSE(ScreenLocked());
}

TEST_F(ZoomLevelTest, WindowActivatedAgainGetsItsOwnTick) {
    frmImage& first = NewDocument(40, 30);
    Choose(frmMain->mnuZoomInX(4));
    frmImage& second = NewDocument(40, 30);
    EXPECT_EQ(TickedLevels(), std::vector<int>{});
    EXPECT_FALSE(frmMain->mnuZoomActual.Enabled());
    Choose(frmMain->mnuZoomOutX(2));
    EXPECT_EQ(TickedLevels(), std::vector<int>{13});
    first.SetFocus();
    EXPECT_TRUE(WaitFor([] { return TickedLevels() == std::vector<int>{19}; }));
    EXPECT_EQ(first.factor, 5);
    EXPECT_EQ(second.factor, 1.0 / 3);
}

TEST_F(ZoomLevelTest, EighteenAndThreeQuartersAreKeptAndShowAsNineteen) {
    frmImage& image = NewDocument(300, 300);
    Choose(frmMain->mnuZoomOutX(15));
    EXPECT_EQ(300 * image.factor, 18.75);
    EXPECT_EQ(image.Image1.Width(), 18.75);
    EXPECT_EQ(image.PicBG.Width(), 18.75);
    EXPECT_EQ(image.PicBG.PixelWidth(), 19);
}

// Three pixels at 1:16 are none on the screen; the next zoom brings them back.
TEST_F(ZoomLevelTest, TinyImageComesBackFromTheLeastZoom) {
    frmImage& image = NewDocument(3, 5);
    Choose(frmMain->mnuZoomOutX(15));
    EXPECT_EQ(image.Image1.Width(), 3.0 / 16);
    EXPECT_EQ(image.PicBG.PixelWidth(), 0);
    Choose(frmMain->mnuZoomInX(1));
    EXPECT_EQ(image.Image1.Width(), 6);
    EXPECT_EQ(image.Image1.Height(), 10);
    EXPECT_TRUE(untrapped.empty());
}

} // namespace
} // namespace pintalux
