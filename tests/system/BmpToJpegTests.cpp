#include "surface/system/Pictures.h"
#include "system/Sandbox.h"

#include <cerrno>
#include <cmath>

namespace pintalux {
namespace {

/// A soft picture, as photographs are.
Picture Soft(int width, int height) {
    Picture picture(width, height, kWhite);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            picture.Set(x, y,
                        static_cast<Pixel>(255 * x / width) | static_cast<Pixel>(255 * y / height) << 8 |
                            static_cast<Pixel>(128) << 16);
    return picture;
}

/// Largest difference of any channel of any pixel.
int LargestDifference(const Picture& a, const Picture& b) {
    int largest = 0;
    for (int y = 0; y < a.Height(); ++y)
        for (int x = 0; x < a.Width(); ++x)
            for (int shift = 0; shift < 24; shift += 8)
                largest = std::max(largest, std::abs(static_cast<int>(a.At(x, y) >> shift & 0xFF) -
                                                     static_cast<int>(b.At(x, y) >> shift & 0xFF)));
    return largest;
}

class JpegSizes : public testing::TestWithParam<std::pair<int, int>> {};

TEST_P(JpegSizes, PictureComesThroughTheRightWayUp) {
    const auto [width, height] = GetParam();
    const Sandbox box;
    const Picture picture = Soft(width, height);
    SavePicture(picture, box / "a.bmp");
    BmpToJpeg(box / "a.bmp", box / "a.jpg", 90);
    const Picture back = LoadPicture(box / "a.jpg");
    ASSERT_EQ(back.Bounds(), picture.Bounds());
    EXPECT_LE(LargestDifference(back, picture), 12);
}

INSTANTIATE_TEST_SUITE_P(Sizes, JpegSizes,
                         testing::Values(std::pair{1, 1}, std::pair{7, 5}, std::pair{16, 16},
                                         std::pair{641, 479}, std::pair{32000, 1}));

TEST(BmpToJpeg, HigherQualityIsLongerAndTruer) {
    const Sandbox box;
    const Picture picture = Pattern(200, 200);
    SavePicture(picture, box / "a.bmp");
    BmpToJpeg(box / "a.bmp", box / "low.jpg", 10);
    BmpToJpeg(box / "a.bmp", box / "high.jpg", 90);
    EXPECT_LT(BytesOf(box / "low.jpg").size() * 2, BytesOf(box / "high.jpg").size());
    EXPECT_GT(LargestDifference(LoadPicture(box / "low.jpg"), picture),
              LargestDifference(LoadPicture(box / "high.jpg"), picture));
}

TEST(BmpToJpeg, QualityOutOfRangeCountsAsItsNearestEnd) {
    const Sandbox box;
    SavePicture(Soft(32, 32), box / "a.bmp");
    const auto bytesAt = [&](int quality) {
        BmpToJpeg(box / "a.bmp", box / "a.jpg", quality);
        return BytesOf(box / "a.jpg");
    };
    EXPECT_EQ(bytesAt(-5), bytesAt(1));
    EXPECT_EQ(bytesAt(0), bytesAt(1));
    EXPECT_EQ(bytesAt(1000), bytesAt(100));
}

TEST(BmpToJpeg, AMissingOrForeignSourceIsAnErrorAndLeavesNoFile) {
    const Sandbox box;
    PutBytes(box / "text.bmp", "no picture at all");
    EXPECT_EQ(ErrorOf([&] { BmpToJpeg(box / "no.bmp", box / "a.jpg", 50); }), 53);
    EXPECT_EQ(ErrorOf([&] { BmpToJpeg(box / "text.bmp", box / "a.jpg", 50); }), 481);
    EXPECT_EQ(box.Names(), std::vector<std::string>{"text.bmp"});
}

TEST(BmpToJpeg, EveryFailingStepLeavesTheOldFileAndNothingElse) {
    const Sandbox box;
    SavePicture(Soft(32, 32), box / "a.bmp");
    const auto step = [&] {
        PutBytes(box / "a.jpg", "old");
        BmpToJpeg(box / "a.bmp", box / "a.jpg", 50);
    };
    int refused = 0;
    const int count = FailEachOperation(ENOSPC, step, [&](int n, int error) {
        // Only the mode of the new file may be refused.
        EXPECT_EQ(BytesOf(box / "a.jpg") == "old", error == 61) << "operation " << n;
        EXPECT_EQ(box.Names().size(), 2U) << "operation " << n;
        refused += error == 0 ? 1 : 0;
    });
    EXPECT_GE(count, 10);
    EXPECT_EQ(refused, 1);
}

} // namespace
} // namespace pintalux
