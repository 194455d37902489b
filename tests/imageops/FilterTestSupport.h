// What the tests of the pixel routines share: two surfaces and a progress bar, pictures to run over, and the
// run of a routine beside its model.
#pragma once

#include "base/RuntimeError.h"
#include "document/Globals.h"
#include "imageops/FilterModels.h"
#include "imageops/ImgFiltMod.h"
#include "support/Errors.h"
#include "support/Pictures.h"
#include "surface/window/Form.h"
#include "surface/window/ProgressBar.h"
#include "surface/window/Surface.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <gtest/gtest.h>
#include <ostream>
#include <random>
#include <string>
#include <vector>

namespace pintalux {

inline Bitmap Flat(int width, int height, Colour colour) {
    return {width, height, PixelOf(colour)};
}

/// The picture of rows of colours.
inline Bitmap ColoursOf(const std::vector<std::vector<Colour>>& rows) {
    Bitmap picture(static_cast<int>(rows.front().size()), static_cast<int>(rows.size()), 0);
    for (int y = 0; y < picture.Height(); ++y) {
        for (int x = 0; x < picture.Width(); ++x) {
            const Colour colour = rows[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)];
            picture.Set(x, y, PixelOf(colour));
        }
    }
    return picture;
}

/// Grey of one level. Its split has green and blue one higher from 129 on.
inline Colour GreyOf(int level) {
    return RGB(level, level, level);
}

/// Red, green, blue. Braces draw random channels in this order, which the arguments of a call don't.
inline Colour ComposedOf(const std::array<int, 3>& channels) {
    return RGB(channels[0], channels[1], channels[2]);
}

/// A random picture with pixels of every kind that a routine treats apart: the mask colour, white and nearly
/// white, black and nearly black, channels about 128, small steps from the pixel before.
inline Bitmap StrewnPicture(int width, int height, unsigned seed) {
    std::mt19937 random(seed);
    const auto below = [&](unsigned limit) { return static_cast<int>(random() % limit); };
    Bitmap picture(width, height, 0);
    Colour before = 0;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            Colour colour = below(0x1000000);
            const int kind = below(16);
            if (kind < 2) colour = MaskKeyColour;
            if (kind == 2) colour = kWhite;
            if (kind == 3) colour = kBlack;
            if (kind == 4 || kind == 5)
                colour = ComposedOf({235 + below(21), 235 + below(21), 235 + below(21)});
            if (kind == 6) colour = ComposedOf({below(256), 235 + below(21), 235 + below(21)});
            if (kind == 7) colour = ComposedOf({below(20), below(20), below(20)});
            if (kind == 8 || kind == 9) colour = ComposedOf({127 + below(3), 126 + below(4), below(256)});
            if (kind >= 10 && kind < 13) colour = std::clamp(before + below(0x50000) - 0x28000, 0, 0xFFFFFF);
            picture.Set(x, y, static_cast<Pixel>(colour));
            before = colour;
        }
    }
    return picture;
}

/// Every red with every green, over blues at the ends and in the middle of their range.
inline Bitmap ColourTable() {
    constexpr int kBlues[] = {0, 1, 127, 128, 240, 241, 254, 255};
    Bitmap picture(256, 256 * 8, 0);
    for (int y = 0; y < picture.Height(); ++y) {
        for (int x = 0; x < 256; ++x)
            picture.Set(x, y, PixelOf(RGB(x, y % 256, kBlues[y / 256])));
    }
    return picture;
}

struct PictureSize {
    int width;
    int height;
};

/// Sizes at which routines come to grief: slim, small, odd, and about the edges of the tiles of 256 by 32 in
/// which a bitmap is stored.
inline const std::vector<PictureSize> kAwkwardSizes = {
    {1, 1},   {1, 2},    {2, 1},    {1, 9},    {9, 1},    {2, 2},    {2, 3},    {3, 2},   {3, 3},
    {4, 3},   {3, 4},    {4, 4},    {5, 5},    {5, 4},    {7, 12},   {12, 7},   {10, 10}, {11, 30},
    {31, 31}, {33, 32},  {32, 33},  {17, 65},  {255, 1},  {256, 2},  {257, 3},  {1, 33},  {2, 257},
    {3, 100}, {255, 31}, {256, 32}, {257, 33}, {255, 33}, {257, 31}, {300, 70}, {70, 131}};

inline ModelSurface ModelOf(const Surface& surface) {
    ModelSurface model(surface.Image(), surface.BackColor(), surface.AutoSize());
    model.stored = surface.Picture();
    return model;
}

using FilterRoutine = void (*)(Surface& work, Surface& live, ProgressBar& Pb, std::int16_t level);
using FilterOnModel = std::function<void(FilterModel&, int level)>;

/// A routine beside its model, with the levels to try: the lowest, some between, the highest.
struct FilterCase {
    std::string name;
    FilterRoutine routine;
    FilterOnModel model;
    std::vector<std::int16_t> levels;
};

inline void PrintTo(const FilterCase& filter, std::ostream* out) {
    *out << filter.name;
}

inline std::string NameOfCase(const testing::TestParamInfo<FilterCase>& info) {
    return info.param.name;
}

class FilterTest : public testing::Test {
  protected:
    FilterTest()
        : form("filters", Form::Kind::Dialog), work(form, "picsource"), live(form, "PicMerge"),
          Pb(form, "Pb") {
        form.ScaleMode(kScalePixels);
        work.AutoSize(true);
        live.AutoSize(true);
        FreeSelActive = false;
    }
    ~FilterTest() override {
        FreeSelActive = false;
        TheRandomNumbers.Seed(0);
    }

    /// Both surfaces, loaded as a command does it for the whole image.
    void Load(const Bitmap& picture) {
        live.Picture(picture);
        work.Picture(live.Image());
    }

    /// What `routine` makes of a picture. Expects it on both surfaces, as their stored picture too.
    Bitmap ResultOf(FilterRoutine routine, const Bitmap& picture, std::int16_t level = 0) {
        Load(picture);
        routine(work, live, Pb, level);
        ExpectSamePixels(live.Image(), work.Image());
        ExpectSamePixels(live.Picture(), work.Image());
        ExpectSamePixels(work.Picture(), work.Image());
        return work.Image();
    }

    /// Runs routine and model over the surfaces as they stand and compares all that is left of them.
    void ExpectAsModel(const FilterCase& filter, std::int16_t level) {
        FilterModel expected(ModelOf(work), ModelOf(live), FreeSelActive);
        const int expectedError = ErrorOf([&] { filter.model(expected, level); });
        ASSERT_EQ(ErrorOf([&] { filter.routine(work, live, Pb, level); }), expectedError);
        if (expectedError != 0) return;
        ExpectSamePixels(work.Image(), expected.work.shown);
        ExpectSamePixels(live.Image(), expected.live.shown);
        ExpectSamePixels(work.Picture(), expected.work.stored);
        ExpectSamePixels(live.Picture(), expected.live.stored);
        EXPECT_EQ(Pb.Value(), 0);
        EXPECT_EQ(Pb.Max(), std::max(0.0, expected.pbMax));
    }

    /// Over random pictures of the awkward sizes, at every level, with and without a freehand selection.
    void ExpectAsModelEverywhere(const FilterCase& filter) {
        unsigned seed = 1;
        for (const PictureSize size : kAwkwardSizes) {
            for (const std::int16_t level : filter.levels) {
                for (const bool freehand : {false, true}) {
                    SCOPED_TRACE(std::to_string(size.width) + " x " + std::to_string(size.height) +
                                 ", level " + std::to_string(level) + ", FreeSelActive " +
                                 std::to_string(freehand) + ", seed " + std::to_string(seed));
                    FreeSelActive = freehand;
                    work.Picture(StrewnPicture(size.width, size.height, seed));
                    live.Picture(StrewnPicture(size.width, size.height, seed + 1000000));
                    ExpectAsModel(filter, level);
                    if (HasFailure()) return; // One failure is enough to look at.
                    ++seed;
                }
            }
        }
    }

    /// A live surface that keeps its own size and another background.
    void ExpectAsModelOnLiveOfSize(const FilterCase& filter, int width, int height) {
        live.AutoSize(false);
        live.Width(width);
        live.Height(height);
        live.BackColor(RGB(10, 20, 30));
        live.Picture(StrewnPicture(width, height, 7));
        work.Picture(StrewnPicture(40, 35, 8));
        ExpectAsModel(filter, filter.levels.front());
        EXPECT_EQ(live.Image().Width(), width);
        EXPECT_EQ(live.Image().Height(), height);
    }

    /// Error 6 for a picture of this size, with nothing changed on the live surface.
    void ExpectOverflow(FilterRoutine routine, std::int16_t level, int width, int height) {
        SCOPED_TRACE(std::to_string(width) + " x " + std::to_string(height));
        const Bitmap picture = Flat(width, height, RGB(1, 2, 3));
        Load(picture);
        EXPECT_EQ(ErrorOf([&] { routine(work, live, Pb, level); }), kOverflow);
        EXPECT_TRUE(live.Image() == picture);
    }

    Form form;
    Surface work;
    Surface live;
    ProgressBar Pb;
};

/// One routine after the other against its model.
class FilterModelTest : public FilterTest, public testing::WithParamInterface<FilterCase> {};

inline Colour PixelAt(const Bitmap& picture, int x, int y) {
    return static_cast<Colour>(picture.At(x, y));
}

} // namespace pintalux
