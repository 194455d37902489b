// Every measured case of the drawing calls, pixel by pixel and value by value.
#include "raster/MeasuredCases.h"
#include "support/Pictures.h"
#include "surface/raster/Drawing.h"
#include "surface/raster/FloodFill.h"
#include "surface/raster/Region.h"
#include "surface/raster/Transfer.h"

#include <functional>
#include <map>

namespace pintalux {

namespace {

Pixel ScatteredPixel(unsigned x, unsigned y, unsigned a) {
    std::uint32_t v = a * 2654435761U + x * 40503U + y * 67480413U;
    v ^= v >> 15;
    v *= 2246822519U;
    v ^= v >> 13;
    v *= 3266489917U;
    return (v ^ v >> 16) & 0xFFFFFF;
}

// Plays the steps of a case. A step that is told a value compares it.
class Player {
  public:
    explicit Player(const MeasuredCase& played)
        : bits_(played.width, played.height, played.background), context_(bits_, attributes_),
          sourceContext_(source_, attributes_) {}

    void Play(const CaseStep& step) {
        const auto found = commands_.find(step.words.at(0));
        ASSERT_NE(found, commands_.end()) << step.words.at(0);
        found->second(step);
    }

    const Bitmap& Bits() const { return bits_; }

  private:
    using Command = std::function<void(const CaseStep&)>;

    static void Compare(const CaseStep& step, std::int64_t value) {
        if (step.value.empty()) return;
        EXPECT_EQ(std::to_string(value), step.value) << step.words[0];
    }

    void Row(const CaseStep& s) {
        const std::string& text = s.words.at(2);
        for (std::size_t x = 0; x < text.size(); ++x) {
            bits_.Set(static_cast<int>(x), s.Number(1), NamedPixel(text[x]));
        }
    }

    void Checks(const CaseStep& s) {
        const int n = s.Number(2);
        for (int y = 0; y < bits_.Height(); ++y) {
            for (int x = 0; x < bits_.Width(); ++x) {
                bits_.Set(x, y, (x / n + y / n) % 2 == 1 ? 0 : 0xFFFFFF);
            }
        }
    }

    void SourcePattern(const CaseStep& s) {
        const std::string& kind = s.words.at(1);
        const auto seed = static_cast<unsigned>(s.Number(2));
        for (int y = 0; y < source_.Height(); ++y) {
            for (int x = 0; x < source_.Width(); ++x) {
                const auto column = static_cast<unsigned>(x);
                const auto row = static_cast<unsigned>(y);
                Pixel pixel = ScatteredPixel(column, row, seed);
                if (kind == "cols") pixel = 0x100000 + column + 1;
                if (kind == "rows") pixel = 0x200000 + row + 1;
                if (kind == "xy") pixel = 0x400000 + ((row + 1) << 8) + column + 1;
                source_.Set(x, y, pixel);
            }
        }
    }

    void Pen(const CaseStep& s) {
        attributes_.DrawStyle = s.Number(1) == 1 ? kDrawDash : kDrawSolid;
        attributes_.DrawWidth = s.Number(2);
        attributes_.ForeColor = s.ColourAt(3);
    }

    void Brush(const CaseStep& s) {
        attributes_.FillStyle = kFillSolid;
        attributes_.FillColor = s.ColourAt(1);
    }

    void LineTo(const CaseStep& s) {
        PenLine(context_, x_, y_, s.Number(1), s.Number(2), attributes_.ForeColor);
        x_ = s.Number(1);
        y_ = s.Number(2);
    }

    void ReadPixel(const CaseStep& s) {
        EXPECT_EQ(GetPixel(context_, s.Number(1), s.Number(2)), std::stoi(s.value, nullptr, 16));
    }

    static Extent ExtentAt(const CaseStep& s, std::size_t first) {
        return {s.Number(first), s.Number(first + 1), s.Number(first + 2), s.Number(first + 3)};
    }

    static Region RegionAt(const CaseStep& s, std::size_t first) {
        return CreateRectRgn(s.Number(first), s.Number(first + 1), s.Number(first + 2), s.Number(first + 3));
    }

    void FillRegion(const CaseStep& s) {
        for (const Box& box : region_.Boxes())
            bits_.Fill(box, PixelOf(s.ColourAt(1)));
    }

    void RegionBox(const CaseStep& s) {
        const Box b = region_.Bounds();
        std::ostringstream text;
        text << region_.Kind() << ' ' << b.left << ' ' << b.top << ' ' << b.right << ' ' << b.bottom;
        EXPECT_EQ(text.str(), s.value);
    }

    Bitmap bits_;
    Bitmap source_;
    DrawAttributes attributes_;
    DeviceContext context_;
    DeviceContext sourceContext_;
    Region region_;
    int x_ = 0;
    int y_ = 0;

    const std::map<std::string, Command> commands_{
        {"row", [this](const CaseStep& s) { Row(s); }},
        {"pat", [this](const CaseStep& s) { Checks(s); }},
        {"src",
         [this](const CaseStep& s) {
             source_ = Bitmap(s.Number(1), s.Number(2), static_cast<Pixel>(s.ColourAt(3)));
         }},
        {"srcset",
         [this](const CaseStep& s) {
             source_.Set(s.Number(1), s.Number(2), static_cast<Pixel>(s.ColourAt(3)));
         }},
        {"srcpat", [this](const CaseStep& s) { SourcePattern(s); }},
        {"pen", [this](const CaseStep& s) { Pen(s); }},
        {"nopen", [this](const CaseStep&) { attributes_.DrawStyle = kDrawNone; }},
        {"brush", [this](const CaseStep& s) { Brush(s); }},
        {"nobrush", [this](const CaseStep&) { attributes_.FillStyle = kFillTransparent; }},
        {"rop2", [this](const CaseStep& s) { attributes_.DrawMode = s.Number(1); }},
        {"bkmode", [](const CaseStep&) {}},
        {"getmode", [](const CaseStep&) {}},
        {"move",
         [this](const CaseStep& s) {
             x_ = s.Number(1);
             y_ = s.Number(2);
         }},
        {"line", [this](const CaseStep& s) { LineTo(s); }},
        {"ellipse",
         [this](const CaseStep& s) {
             Ellipse(context_, s.Number(1), s.Number(2), s.Number(3), s.Number(4));
         }},
        {"rect",
         [this](const CaseStep& s) {
             Rectangle(context_, s.Number(1), s.Number(2), s.Number(3), s.Number(4));
         }},
        {"flood",
         [this](const CaseStep& s) {
             Compare(s, ExtFloodFill(context_, s.Number(1), s.Number(2), s.ColourAt(3), s.Number(4)));
         }},
        {"setpix",
         [this](const CaseStep& s) { SetPixel(context_, s.Number(1), s.Number(2), s.ColourAt(3)); }},
        {"getpix", [this](const CaseStep& s) { ReadPixel(s); }},
        {"stretch",
         [this](const CaseStep& s) {
             StretchBlt(context_, ExtentAt(s, 1), sourceContext_, ExtentAt(s, 5),
                        static_cast<std::uint32_t>(s.ColourAt(9)));
         }},
        {"trans",
         [this](const CaseStep& s) {
             TransparentBlt(context_, ExtentAt(s, 1), sourceContext_, ExtentAt(s, 5), s.ColourAt(9));
         }},
        {"rgn", [this](const CaseStep& s) { region_ = RegionAt(s, 1); }},
        {"comb",
         [this](const CaseStep& s) {
             Compare(s, CombineRgn(region_, region_, RegionAt(s, 2), s.Number(1)));
         }},
        {"fillrgn", [this](const CaseStep& s) { FillRegion(s); }},
        {"ptin", [this](const CaseStep& s) { Compare(s, region_.Holds(s.Number(1), s.Number(2))); }},
        {"rgnbox", [this](const CaseStep& s) { RegionBox(s); }},
    };
};

const std::vector<MeasuredCase>& Cases() {
    static const std::vector<MeasuredCase> cases = ReadMeasuredCases();
    return cases;
}

// Intended: a colour out of range draws white, so that a raised white stays white; it was measured as black.
Bitmap WithWhiteForBlack(const Bitmap& measured) {
    Bitmap ours = measured;
    for (int y = 0; y < ours.Height(); ++y) {
        for (int x = 0; x < ours.Width(); ++x) {
            if (ours.At(x, y) == 0) ours.Set(x, y, 0xFFFFFF);
        }
    }
    return ours;
}

class MeasuredCases : public testing::TestWithParam<std::size_t> {};

TEST_P(MeasuredCases, PaintsTheMeasuredPixels) {
    const MeasuredCase& tested = Cases().at(GetParam());
    SCOPED_TRACE(tested.name);
    Player player(tested);
    for (const CaseStep& step : tested.steps)
        player.Play(step);
    const bool outOfRange = tested.name.starts_with("pixel/pen_");
    ExpectSamePixels(player.Bits(), outOfRange ? WithWhiteForBlack(tested.expected) : tested.expected);
}

// The case's name in letters that a test's name may have.
std::string TestName(const testing::TestParamInfo<std::size_t>& test) {
    std::string name = Cases().at(test.param).name;
    for (char& c : name) {
        if (c == '-') c = 'm';
        if (std::isalnum(static_cast<unsigned char>(c)) == 0) c = '_';
    }
    return name + "_" + std::to_string(test.param);
}

INSTANTIATE_TEST_SUITE_P(All, MeasuredCases, testing::Range<std::size_t>(0, Cases().size()), TestName);

TEST(MeasuredCasesFiles, HoldAllCases) {
    EXPECT_EQ(Cases().size(), 1209U);
}

} // namespace

} // namespace pintalux
