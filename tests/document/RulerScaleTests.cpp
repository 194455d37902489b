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

    /// Whether something is printed in the strip of the numbers, between two places along the scale.
    template <class Along>
    static bool Printed(Along along, int from, int to) {
        for (int at = std::max(from, 1); at <= to; ++at)
            for (int across = 5; across < 14; ++across)
                if (along(across, at) != kPaper) return true;
        return false;
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
    const Picture top = image.PicTrule.Image();
    EXPECT_FALSE(Printed([&top](int across, int at) { return top.At(at, across); }, 1, 100));
}

TEST_F(RulerScaleTest, AHalfHasNumbersAtFiftyAndAHundred) {
    frmImage& image = NewDocument(300, 300);
    mnuZoomOutX_Click(1);
    image.drawrulers();
    const Picture top = image.PicTrule.Image();
    const auto along = [&top](int across, int at) { return top.At(at, across); };
    EXPECT_FALSE(Printed(along, 1, 19));
    EXPECT_TRUE(Printed(along, 25 - 5, 25 + 8)); // 50 at 25, from 2 * 2 + 1 before it
    EXPECT_TRUE(Printed(along, 50 - 7, 50 + 14));
}

TEST_F(RulerScaleTest, AboveFiveEveryFifthPixelHasItsNumber) {
    frmImage& image = NewDocument(100, 100);
    mnuZoomInX_Click(5);
    image.drawrulers();
    const Picture top = image.PicTrule.Image();
    const auto along = [&top](int across, int at) { return top.At(at, across); };
    EXPECT_FALSE(Printed(along, 1, 26));
    EXPECT_TRUE(Printed(along, 27, 36)); // 5 at 30, from 2 * 1 + 1 before it
    EXPECT_FALSE(Printed(along, 42, 54));
    EXPECT_TRUE(Printed(along, 55, 69));   // 10 at 60
    EXPECT_TRUE(Printed(along, 295, 309)); // 50 at 300
}

} // namespace
} // namespace pintalux
