// Large images: the routines work on them in chunks of rows and over the cores, which nobody may see.
#include "document/Globals.h"
#include "imageops/ImgFiltMod.h"
#include "imageops/RandomNumbers.h"
#include "support/Pictures.h"
#include "surface/window/Form.h"
#include "surface/window/ProgressBar.h"
#include "surface/window/Surface.h"

#include <gtest/gtest.h>
#include <string>

namespace pintalux {
namespace {

constexpr int kWidth = 1500; // Wide enough for several chunks below each other.
constexpr int kHeight = 4300;

class PlainWindow : public Form {
  public:
    PlainWindow() : Form("parallel", Kind::Window) { ScaleMode(kScalePixels); }

  protected:
    void Form_Load() override {}
};

struct Case {
    std::string name;
    void (*filter)(Surface& work, Surface& live, ProgressBar& Pb, std::int16_t level);
    std::int16_t level;
    double max; ///< What `Pb.Max` is for the large image.
    int reach;  ///< Rows above and below that a pixel depends on.
};

void PrintTo(const Case& c, std::ostream* out) {
    *out << c.name;
}

class LargeImage : public testing::TestWithParam<Case> {
  protected:
    void TearDown() override {
        FreeSelActive = false;
        TheRandomNumbers.Seed(0);
    }

    /// What the routine makes of a picture, with the random numbers that stand `ahead` further on.
    Picture Result(const Picture& picture, std::uint64_t ahead) {
        PlainWindow window;
        Surface work(window, "work"), live(window, "live");
        ProgressBar Pb(window, "Pb");
        for (Surface* surface : {&work, &live}) {
            surface->AutoSize(true);
            surface->Picture(picture);
        }
        TheRandomNumbers = RandomNumbers(0).Ahead(ahead);
        GetParam().filter(work, live, Pb, GetParam().level);
        EXPECT_EQ(Pb.Value(), 0);
        if (picture.Height() == kHeight) {
            EXPECT_EQ(Pb.Max(), GetParam().max);
        }
        EXPECT_TRUE(work.Image() == live.Image());
        return live.Image();
    }

    static Picture Rows(const Picture& picture, int top, int bottom) {
        Picture rows(picture.Width(), bottom - top, 0);
        rows.Copy(0, 0, picture, {0, top, picture.Width(), bottom});
        return rows;
    }

    void ExpectNoSeams() {
        const Picture picture = RandomPicture(kWidth, kHeight, 5);
        const Picture whole = Result(picture, 0);
        const int reach = GetParam().reach;
        constexpr int kRows = 150;
        for (int top = 0; top + kRows <= kHeight; top += kRows - 2 * reach) {
            const auto ahead = std::uint64_t{2} * (kWidth - 3) * static_cast<std::uint64_t>(top);
            const Picture part = Result(Rows(picture, top, top + kRows), ahead);
            const int first = top == 0 ? 0 : reach;
            ASSERT_TRUE(ExpectSamePixels(Rows(part, first, kRows - reach),
                                         Rows(whole, top + first, top + kRows - reach)))
                << "from row " << top;
        }
    }
};

TEST_P(LargeImage, HasNoSeams) {
    ExpectNoSeams();
}

TEST_P(LargeImage, HasNoSeamsUnderTheMask) {
    // A scattered pixel asks for the mask elsewhere, so that its rows do not stand for themselves.
    if (GetParam().name == "Scatter") return;
    FreeSelActive = true;
    ExpectNoSeams();
}

INSTANTIATE_TEST_SUITE_P(
    Routines, LargeImage,
    testing::Values(Case{"Sharpen", SharpenFilter, 7, 2998, 1}, Case{"Soften", SoftenFilter, 10, 2989, 10},
                    Case{"Emboss", EmbossFilter, 130, 2998, 1}, Case{"Outline", OutlineFilter, 120, 1499, 1},
                    Case{"Scatter", ScatterFilter, 9, kHeight - 3, 12}, Case{"Grey", GreyFilter, 0, 2998, 0},
                    Case{"Brightness", BrightnessFilter, -60, 2998, 0},
                    Case{"ColourStep", ColourStep, 4, 2998, 0}),
    [](const auto& tested) { return tested.param.name; });

} // namespace
} // namespace pintalux
