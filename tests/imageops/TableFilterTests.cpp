// What holds for all filters that work on the table of split channels.
#include "imageops/ToneFilterCases.h"

namespace pintalux {
namespace {

using ToneModel = FilterModelTest;

TEST_P(ToneModel, AwkwardPictures) {
    ExpectAsModelEverywhere(GetParam());
}

TEST_P(ToneModel, EveryRedAndGreen) {
    Load(ColourTable());
    ExpectAsModel(GetParam(), GetParam().levels.front());
}

TEST_P(ToneModel, LiveSurfacesOfAnotherSize) {
    ExpectAsModelOnLiveOfSize(GetParam(), 25, 60);
    ExpectAsModelOnLiveOfSize(GetParam(), 60, 20);
}

TEST_P(ToneModel, MaskColourStaysWhileAFreehandSelectionFloats) {
    Bitmap picture = StrewnPicture(20, 20, 5);
    picture.Fill({5, 5, 9, 9}, Pixel{0x8894A0});
    FreeSelActive = true;
    const Bitmap masked = ResultOf(GetParam().routine, picture, GetParam().levels.back());
    for (int y = 0; y < 20; ++y) {
        for (int x = 0; x < 20; ++x) {
            if (picture.At(x, y) == 0x8894A0) {
                EXPECT_EQ(masked.At(x, y), 0x8894A0u) << x << ", " << y;
            }
        }
    }
}

TEST_P(ToneModel, MaskColourIsOrdinaryOtherwise) {
    Bitmap picture = Flat(20, 20, kBlack);
    picture.Fill({5, 5, 9, 9}, Pixel{0x8894A0});
    const Bitmap result = ResultOf(GetParam().routine, picture, GetParam().levels.back());
    EXPECT_NE(result.At(5, 5), 0x8894A0u);
}

TEST_P(ToneModel, ASideAbove32767Overflows) {
    const std::int16_t level = GetParam().levels.front();
    ExpectOverflow(GetParam().routine, level, 32768, 1);
    ExpectOverflow(GetParam().routine, level, 1, 32768);
    ExpectOverflow(GetParam().routine, level, 32769, 3);
    ExpectOverflow(GetParam().routine, level, 3, 32769);
}

TEST_P(ToneModel, ASideOf32767Runs) {
    Load(Flat(32767, 2, RGB(100, 90, 80)));
    ExpectAsModel(GetParam(), GetParam().levels.front());
    Load(Flat(2, 32767, RGB(100, 90, 80)));
    ExpectAsModel(GetParam(), GetParam().levels.front());
}

TEST_P(ToneModel, BothSurfacesGetAPictureOfTheirOwn) {
    const Bitmap result = ResultOf(GetParam().routine, StrewnPicture(30, 20, 3), GetParam().levels.front());
    work.LineBF(0, 0, 29, 19, RGB(1, 2, 3));
    ExpectSamePixels(live.Image(), result);
    live.LineBF(0, 0, 29, 19, RGB(4, 5, 6));
    EXPECT_EQ(work.Point(10, 10), RGB(1, 2, 3));
    live.Cls();
    ExpectSamePixels(live.Image(), result);
}

INSTANTIATE_TEST_SUITE_P(Filters, ToneModel, testing::Values(kSharpen, kSoften, kBrightness, kGrey, kEmboss),
                         NameOfCase);

} // namespace
} // namespace pintalux
