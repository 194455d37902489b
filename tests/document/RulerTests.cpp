// Rulers: shown and hidden in every window, laid out with it.
#include "document/Globals.h"
#include "document/Zoom.h"
#include "support/Documents.h"
#include "support/Program.h"

#include <QImage>
#include <QWidget>
#include <string>
#include <tuple>
#include <vector>

namespace pintalux {
namespace {

class RulerTest : public ProgramTest {
  protected:
    void SetUp() override {
        ProgramTest::SetUp();
        Start();
    }

    /// Waits for the windows to follow; a tick of theirs is 250 ms.
    static bool Shows(const frmImage& image, bool shown) {
        return WaitFor(
            [&] { return image.TopRuler.Visible() == shown && image.LeftRuler.Visible() == shown; });
    }
    /// Whether anything black stands in a part of a ruler as it is shown.
    static bool Inked(const Display& ruler, const QRect& part) {
        const QImage shown = WidgetFor(ruler).grab(part).toImage();
        for (int y = 0; y < shown.height(); ++y)
            for (int x = 0; x < shown.width(); ++x)
                if (qGray(shown.pixel(x, y)) < 100) return true;
        return false;
    }
};

TEST_F(RulerTest, HiddenAtTheLoad) {
    frmImage& image = NewDocument(100, 100);
    EXPECT_FALSE(image.TopRuler.Visible());
    EXPECT_FALSE(image.LeftRuler.Visible());
    EXPECT_EQ(image.Timer2.Interval(), 250);
    EXPECT_TRUE(image.Timer2.Enabled());
}

TEST_F(RulerTest, MenuSwitchesThemInEveryWindow) {
    frmImage* windows[] = {&NewDocument(100, 100), &NewDocument(120, 100), &NewDocument(100, 150)};
    Choose(frmMain->mnuViewRulers);
    EXPECT_TRUE(frmMain->mnuViewRulers.Checked());
    EXPECT_TRUE(RulersOn);
    for (frmImage* image : windows)
        EXPECT_TRUE(Shows(*image, true));
    Choose(frmMain->mnuViewRulers);
    for (frmImage* image : windows)
        EXPECT_TRUE(Shows(*image, false));
}

// A number of n letters begins 2n + 1 pixels before its mark.
TEST_F(RulerTest, NumbersStandAtTheirMarks) {
    using Numbers = std::vector<std::tuple<int, int, std::string>>;
    const auto numbersOf = [](const Surface& scale) {
        Numbers numbers;
        for (const ScreenText& text : scale.Texts())
            numbers.emplace_back(text.x, text.y, text.text);
        return numbers;
    };
    frmImage& image = NewDocument(120, 60);
    Choose(frmMain->mnuViewRulers);
    ASSERT_TRUE(Shows(image, true));
    EXPECT_EQ(numbersOf(image.PicTrule), (Numbers{{45, 5, "50"}, {93, 5, "100"}}));
    EXPECT_EQ(numbersOf(image.PicLrule), (Numbers{{5, 45, "50"}}));
    EXPECT_TRUE(Inked(image.ImgTrule, QRect(45, 5, 10, 10)) && Inked(image.ImgTrule, QRect(93, 5, 15, 10)));
    EXPECT_TRUE(Inked(image.ImgLrule, QRect(5, 45, 10, 15)));
    EXPECT_FALSE(Inked(image.ImgTrule, QRect(60, 5, 30, 9)) || Inked(image.ImgLrule, QRect(5, 5, 15, 35)));
    Choose(frmMain->mnuZoomInX(15));
    const Numbers across = numbersOf(image.PicTrule);
    ASSERT_EQ(across.size(), 24U);
    EXPECT_EQ(across[0], (Numbers::value_type{80 - 3, 5, "5"}));
    EXPECT_EQ(across[23], (Numbers::value_type{1920 - 7, 5, "120"}));
    const Numbers down = numbersOf(image.PicLrule);
    ASSERT_EQ(down.size(), 12U);
    EXPECT_EQ(down[1], (Numbers::value_type{5, 160 - 5, "10"}));
    Choose(frmMain->mnuZoomOutX(3));
    EXPECT_TRUE(numbersOf(image.PicTrule).empty());
    Choose(frmMain->mnuViewRulers);
}

TEST_F(RulerTest, NewWindowFollowsAtItsFirstTick) {
    RulersOn = true;
    frmImage& image = NewDocument(100, 100);
    EXPECT_TRUE(Shows(image, true));
    RulersOn = false;
}

TEST_F(RulerTest, WindowGrowsByTheStripsAndKeepsFifteenTwips) {
    frmImage& image = NewDocument(100, 100);
    const double width = image.Width();
    const double height = image.Height();
    RulersOn = true;
    ASSERT_TRUE(Shows(image, true));
    EXPECT_EQ(image.Height(), height + image.TopRuler.Height());
    EXPECT_EQ(image.Width(), width + image.LeftRuler.Width() + 15);
    EXPECT_EQ(image.PicFrame.Left(), image.LeftRuler.Width());
    EXPECT_EQ(image.PicFrame.Top(), image.TopRuler.Height());
    EXPECT_EQ(image.PicFrame.Width(), image.Width() - image.LeftRuler.Width() - 120);
    EXPECT_EQ(image.PicFrame.Height(), image.Height() - image.TopRuler.Height() - 420);
    RulersOn = false;
    ASSERT_TRUE(Shows(image, false));
    EXPECT_EQ(image.Height(), height);
    EXPECT_EQ(image.Width(), width + 15);
    EXPECT_EQ(image.PicFrame.Left(), 0);
    EXPECT_EQ(image.PicFrame.Top(), 0);
}

TEST_F(RulerTest, MaximisedWindowKeepsItsSizeWhenTheyGo) {
    frmImage& image = NewDocument(100, 100);
    image.WindowState(kMaximised);
    RulersOn = true;
    ASSERT_TRUE(Shows(image, true));
    const double width = image.Width();
    const double height = image.Height();
    RulersOn = false;
    ASSERT_TRUE(Shows(image, false));
    EXPECT_EQ(image.Width(), width);
    EXPECT_EQ(image.Height(), height);
    EXPECT_EQ(image.WindowState(), kMaximised);
}

TEST_F(RulerTest, HiderulersTakesTheStripsOffUnlessMaximised) {
    frmImage& image = NewDocument(200, 200);
    const double width = image.Width();
    const double height = image.Height();
    image.hiderulers();
    EXPECT_EQ(image.Width(), width - image.LeftRuler.Width());
    EXPECT_EQ(image.Height(), height - image.TopRuler.Height());
    image.WindowState(kMaximised);
    const double full = image.Width();
    image.hiderulers();
    EXPECT_EQ(image.Width(), full);
}

TEST_F(RulerTest, MinimisedWindowShrinksTwice) {
    frmImage& image = NewDocument(200, 200);
    RulersOn = true;
    ASSERT_TRUE(Shows(image, true));
    image.WindowState(kMinimised);
    const double width = image.Width();
    const double height = image.Height();
    RulersOn = false;
    ASSERT_TRUE(Shows(image, false));
    EXPECT_EQ(image.Width(), width - 2 * image.LeftRuler.Width() + 15);
    EXPECT_EQ(image.Height(), height - 2 * image.TopRuler.Height());
}

TEST_F(RulerTest, AMinimisedWindowMayShrinkToNothing) {
    frmImage& image = NewDocument(40, 30);
    image.WindowState(kMinimised);
    for (int i = 0; i < 4; ++i) {
        RulersOn = true;
        image.Timer2.Tick();
        RulersOn = false;
        EXPECT_NO_THROW(image.Timer2.Tick());
        EXPECT_FALSE(image.TopRuler.Visible());
    }
    EXPECT_EQ(image.Width(), 0);
    EXPECT_EQ(image.Height(), 0);
    image.WindowState(kNormal);
    EXPECT_TRUE(image.PicBG.Visible());
}

TEST_F(RulerTest, TheyLeaveAWindowThatAnUndoMadeSmallerThanThem) {
    frmImage& image = NewDocument(10, 10);
    Edit(image, 0);
    RulersOn = true;
    ASSERT_TRUE(Shows(image, true));
    Choose(frmMain->mnuEditUndo);
    ASSERT_LT(image.Width(), image.LeftRuler.Width());
    RulersOn = false;
    ASSERT_TRUE(Shows(image, false));
    EXPECT_GE(image.Width(), 0);
}

TEST_F(RulerTest, ScalesCoverTheImageAndFollowItsPlace) {
    frmImage& image = NewDocument(200, 150);
    RulersOn = true;
    ASSERT_TRUE(Shows(image, true));
    Choose(frmMain->mnuZoomInX(2));
    ASSERT_TRUE(image.HS.Visible());
    image.HS.Value(40);
    image.VS.Value(30);
    EXPECT_EQ(image.PicTrule.ScaleWidth(), 200 * 3 + 10);
    EXPECT_EQ(image.PicLrule.ScaleHeight(), 150 * 3 + 10);
    EXPECT_EQ(image.ImgTrule.Width(), 610);
    EXPECT_EQ(image.ImgLrule.Height(), 460);
    EXPECT_EQ(image.ImgTrule.Left(), image.LeftRuler.ScaleWidth() - 40);
    EXPECT_EQ(image.ImgLrule.Top(), -30);
    EXPECT_EQ(image.ImgTrule.Picture().Width(), 610);
    EXPECT_EQ(image.ImgLrule.Picture().Height(), 460);
    RulersOn = false;
}

} // namespace
} // namespace pintalux
