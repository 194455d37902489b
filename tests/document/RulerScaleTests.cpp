// The marks and numbers of the rulers' scales.
#include "document/Globals.h"
#include "document/Zoom.h"
#include "imageops/frmResize.h"
#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/Program.h"

#include <cmath>

namespace pintalux {
namespace {

constexpr Pixel kRedMark = 0x0000FF;
constexpr Pixel kBlackMark = 0;
constexpr Pixel kPaper = 0xFFFFFF;

enum class Mark { None, Short, Long };

struct Expected {
    Mark mark = Mark::None;
    bool number = false;
};

/// What stands at image pixel i.
Expected ExpectedAt(int i, double factor) {
    const bool five = i % 5 == 0;
    const bool fifty = i % 50 == 0;
    if (factor <= 0.25) return {i % 100 == 0 ? Mark::Long : Mark::None, false};
    if (factor > 5) return {five ? Mark::Long : Mark::Short, five};
    return {fifty ? Mark::Long : five ? Mark::Short : Mark::None, fifty};
}

class RulerScaleTest : public ProgramTest {
  protected:
    void SetUp() override {
        ProgramTest::SetUp();
        Start();
        RulersOn = true;
    }
    void TearDown() override {
        RulersOn = false;
        ProgramTest::TearDown();
    }

    /// The mark that the scale bears at view pixel `at`; `along` gives its pixel across and along.
    template <class Along>
    static Mark MarkAt(Along along, int at, int shortStart, int longStart, int end) {
        const auto painted = [&](int from, Pixel colour) {
            for (int across = from; across <= end; ++across)
                if (along(across, at) != colour) return false;
            return true;
        };
        if (painted(longStart, kRedMark)) return Mark::Long;
        if (painted(shortStart, kBlackMark)) return Mark::Short;
        return Mark::None;
    }

    template <class Along>
    static void CheckMarks(Along along, int pixels, double factor, int shortStart, int longStart, int end) {
        std::vector<Mark> marks(static_cast<std::size_t>(std::lround(pixels * factor)) + 2, Mark::None);
        marks[0] = Mark::Long; // the origin
        for (int i = 1; i <= pixels; ++i) {
            const Mark mark = ExpectedAt(i, factor).mark;
            if (mark != Mark::None) marks[static_cast<std::size_t>(std::nearbyint(i * factor))] = mark;
        }
        for (std::size_t at = 0; at < marks.size(); ++at) {
            EXPECT_EQ(MarkAt(along, static_cast<int>(at), shortStart, longStart, end), marks[at])
                << "at " << at;
        }
    }

    /// The numbers over a scale, each with its place along it.
    static std::vector<std::pair<std::string, int>> Numbers(const Surface& scale, int first, int last) {
        std::vector<std::pair<std::string, int>> numbers;
        for (const ScreenText& text : scale.Texts()) {
            if (text.x >= first && text.x <= last) numbers.emplace_back(text.text, text.x);
        }
        return numbers;
    }
};

TEST_F(RulerScaleTest, MarksAtEveryKindOfZoom) {
    for (const int level : {0, 12, 13, 14, 15, 16, 19, 20, 24, 30}) {
        frmImage& image = NewDocument(230, 210);
        if (level >= 15) {
            mnuZoomInX_Click(level - 15);
        } else {
            mnuZoomOutX_Click(15 - level);
        }
        image.drawrulers();
        const Picture top = image.PicTrule.Image();
        const Picture left = image.PicLrule.Image();
        SCOPED_TRACE(level);
        CheckMarks([&top](int across, int at) { return top.At(at, across); }, 230, image.factor, 18, 15, 23);
        CheckMarks([&left](int across, int at) { return left.At(across, at); }, 210, image.factor, 26, 23,
                   31);
        EXPECT_TRUE(image.Unload());
    }
}

TEST_F(RulerScaleTest, ANewSizeDrawsTheScalesAnew) {
    frmImage& image = NewDocument(230, 110);
    image.drawrulers();
    const auto expectScalesOf = [&image](int width, int height) {
        const Picture top = image.PicTrule.Image();
        const Picture left = image.PicLrule.Image();
        CheckMarks([&top](int across, int at) { return top.At(at, across); }, width, 1, 18, 15, 23);
        CheckMarks([&left](int across, int at) { return left.At(across, at); }, height, 1, 26, 23, 31);
    };
    expectScalesOf(230, 110);
    Choose(frmMain->mnuRotate90);
    expectScalesOf(110, 230);
    const DialogScript script({[](QWidget&) {
        frmResize->ChAspRatio.Value(0);
        frmResize->txtPXw.Text("310");
        frmResize->txtPXh.Text("160");
        ClickWidget(WidgetFor(frmResize->cmdOK));
    }});
    Choose(frmMain->mnuResize);
    expectScalesOf(310, 160);
}

TEST_F(RulerScaleTest, OriginIsARedLineFromAboveTheMarks) {
    frmImage& image = NewDocument(100, 100);
    image.drawrulers();
    const Picture top = image.PicTrule.Image();
    const Picture left = image.PicLrule.Image();
    for (int across = 7; across <= 23; ++across)
        EXPECT_EQ(top.At(0, across), kRedMark);
    EXPECT_EQ(top.At(0, 6), kPaper);
    for (int across = 15; across <= 31; ++across)
        EXPECT_EQ(left.At(across, 0), kRedMark);
    EXPECT_EQ(left.At(14, 0), kPaper);
}

TEST_F(RulerScaleTest, AQuarterHasNoNumbers) {
    frmImage& image = NewDocument(400, 300);
    mnuZoomOutX_Click(3);
    image.drawrulers();
    EXPECT_TRUE(image.PicTrule.Texts().empty());
    EXPECT_TRUE(image.PicLrule.Texts().empty());
}

TEST_F(RulerScaleTest, AHalfHasNumbersAtFiftyAndAHundred) {
    frmImage& image = NewDocument(300, 300);
    mnuZoomOutX_Click(1);
    image.drawrulers();
    // 50 at 25, from 2 * 2 + 1 before it; 100 at 50, from 2 * 3 + 1 before it.
    const std::vector<std::pair<std::string, int>> expected = {{"50", 20}, {"100", 43}};
    EXPECT_EQ(Numbers(image.PicTrule, 0, 50), expected);
    for (const ScreenText& text : image.PicTrule.Texts())
        EXPECT_EQ(text.y, 5);
    for (const ScreenText& text : image.PicLrule.Texts())
        EXPECT_EQ(text.x, 5);
}

TEST_F(RulerScaleTest, AboveFiveEveryFifthPixelHasItsNumber) {
    frmImage& image = NewDocument(100, 100);
    mnuZoomInX_Click(5);
    image.drawrulers();
    const std::vector<std::pair<std::string, int>> first = {{"5", 27}, {"10", 55}, {"15", 85}};
    EXPECT_EQ(Numbers(image.PicTrule, 0, 100), first);
    const std::vector<std::pair<std::string, int>> fiftieth = {{"50", 295}};
    EXPECT_EQ(Numbers(image.PicTrule, 280, 310), fiftieth);
}

} // namespace
} // namespace pintalux
