// GIF files: the first frame, cut to its screen, whatever a file does to its frames.
#include "support/Folders.h"
#include "support/LongGif.h"
#include "surface/system/Pictures.h"
#include "system/GifBytes.h"

#include <cstdio>
#include <map>

namespace pintalux {
namespace {

constexpr Pixel kRedPixel = 0x0000FF;
constexpr Pixel kGreenPixel = 0x00FF00;
constexpr Pixel kBluePixel = 0xFF0000;

Picture Load(const std::string& bytes) {
    const Sandbox box;
    PutBytes(box / "a.gif", bytes);
    return LoadPicture(box / "a.gif");
}

std::vector<Pixel> PixelsOf(const std::string& bytes) {
    const Picture picture = Load(bytes);
    std::vector<Pixel> pixels;
    for (int y = 0; y < picture.Height(); ++y)
        for (int x = 0; x < picture.Width(); ++x)
            pixels.push_back(picture.At(x, y));
    return pixels;
}

TEST(LoadGif, AFrameIsCutToItsScreen) {
    // The image begins in the last column and ends behind it and below.
    EXPECT_EQ(PixelsOf(GifScreen(2, 1) + GifImage(1, 0, 2, 2, {0, 1, 2, 3}) + ";"),
              (std::vector<Pixel>{kWhite, kRedPixel}));
    EXPECT_EQ(PixelsOf(GifScreen(2, 1) + GifImage(2, 0, 1, 1, {0}) + ";"),
              (std::vector<Pixel>{kWhite, kWhite}));
}

// Two colours, whose codes begin with two bits: clear (2), colour 1, end (3), from the lowest bit up.
TEST(LoadGif, ColoursMayHaveOneBitAndNotNone) {
    using namespace std::string_literals;
    const std::string head = GifScreen(1, 1) + "\x2C\0\0\0\0\1\0\1\0\0"s;
    EXPECT_EQ(PixelsOf(head + "\x01\x01\x36\0;"s), std::vector<Pixel>{kGreenPixel});
    EXPECT_EQ(ErrorOf([&] { Load(head + "\0\x01\x36\0;"s); }), 481);
}

// Every eighth row comes first, then those in their middles: 0, 4, 2, 6, 1, 3, 5, 7 of eight.
TEST(LoadGif, InterlacedRowsComeInTheirOrderAndThoseThatAreMissingRepeatTheOnesAbove) {
    const std::vector<int> stored = {0, 1, 2, 3, 0, 1, 2, 3};
    const int orders[8] = {0, 4, 2, 6, 1, 3, 5, 7};
    for (const int came : {8, 7, 3, 1}) {
        SCOPED_TRACE(came);
        std::string image = GifImage(0, 0, 1, 8, {stored.begin(), stored.begin() + came});
        image[9] = 0x40;
        std::vector<Pixel> expected(8);
        const Pixel colours[] = {kRedPixel, kGreenPixel, kBluePixel, 0};
        for (int row = 0; row < 8; ++row) {
            int last = 0; // the nearest row above that came, or the row itself
            for (int i = 0; i < came; ++i)
                if (orders[i] <= row && orders[i] >= orders[last]) last = i;
            expected[static_cast<std::size_t>(row)] = colours[stored[static_cast<std::size_t>(last)]];
        }
        EXPECT_EQ(PixelsOf(GifScreen(1, 8) + image + ";"), expected);
    }
}

TEST(LoadGif, ImagesWithoutDelayAreOneFrame) {
    EXPECT_EQ(PixelsOf(GifScreen(3, 1) + GifImage(0, 0, 3, 1, {0, 0, 0}) + GifControl(0, 3) +
                       GifImage(1, 0, 2, 1, {1, 3}) + ";"),
              (std::vector<Pixel>{kRedPixel, kGreenPixel, kRedPixel}));
}

TEST(LoadGif, AFrameEndsWithTheFirstDelay) {
    EXPECT_EQ(PixelsOf(GifScreen(2, 1) + GifControl(5, -1) + GifImage(0, 0, 1, 1, {0}) +
                       GifImage(1, 0, 1, 1, {1}) + ";"),
              (std::vector<Pixel>{kRedPixel, kWhite}));
}

TEST(LoadGif, AnImageIsTakenAwayAsItAsks) {
    const std::string under = GifScreen(2, 1) + GifImage(0, 0, 2, 1, {2, 2});
    const std::string next = GifImage(1, 0, 1, 1, {1}) + ";";
    EXPECT_EQ(PixelsOf(under + GifControl(0, -1, 1) + GifImage(0, 0, 1, 1, {0}) + next),
              (std::vector<Pixel>{kRedPixel, kGreenPixel}));
    EXPECT_EQ(PixelsOf(under + GifControl(0, -1, 2) + GifImage(0, 0, 1, 1, {0}) + next),
              (std::vector<Pixel>{kWhite, kGreenPixel}));
    EXPECT_EQ(PixelsOf(under + GifControl(0, -1, 3) + GifImage(0, 0, 1, 1, {0}) + next),
              (std::vector<Pixel>{kBluePixel, kGreenPixel}));
}

TEST(LoadGif, AWholeFileWithoutAnImageIsItsEmptyScreen) {
    EXPECT_EQ(PixelsOf(GifScreen(2, 1) + ";"), (std::vector<Pixel>{kWhite, kWhite}));
    EXPECT_EQ(ErrorOf([] { Load(GifScreen(2, 1)); }), 481);
    EXPECT_EQ(ErrorOf([] { Load(GifScreen(0, 1) + ";"); }), 481);
}

TEST(LoadGif, WhatEndsEarlyShowsWhatIsThere) {
    const std::string whole = GifScreen(2, 2) + GifImage(0, 0, 2, 2, {0, 1, 2, 0});
    EXPECT_EQ(PixelsOf(whole.substr(0, whole.size() - 3)),
              (std::vector<Pixel>{kRedPixel, kGreenPixel, kWhite, kWhite}));
}

TEST(LoadGif, AnImpossibleCodeIsRefusedUnlessAnImageIsThere) {
    std::string broken = GifImage(0, 0, 2, 1, {0, 0});
    broken[broken.size() - 3] = '\xFF'; // code 7, where none was made
    EXPECT_EQ(ErrorOf([&] { Load(GifScreen(2, 1) + broken + ";"); }), 481);
    EXPECT_EQ(PixelsOf(GifScreen(2, 1) + GifImage(0, 0, 2, 1, {1, 2}) + broken + ";"),
              (std::vector<Pixel>{kGreenPixel, kBluePixel}));
}

TEST(LoadGif, ALongOneIsReadToItsEnd) {
    EXPECT_TRUE(Load(LongGif(5000, 4000)) == Picture(5000, 4000, kWhite));
}

/// What the suite says about one of its files.
struct Described {
    int width = 0;
    int height = 0;
    bool forced = false;
    std::string lastPixels; ///< Of the first frame; of the last one where none has a delay. Empty: no frame.
};

Described Describe(const std::filesystem::path& description) {
    Described described;
    std::ifstream lines(description);
    std::string line;
    while (std::getline(lines, line)) {
        const std::size_t sign = line.find(" = ");
        if (sign == std::string::npos) continue;
        const std::string key = line.substr(0, sign);
        const std::string value = line.substr(sign + 3);
        if (key == "width") described.width = std::stoi(value);
        if (key == "height") described.height = std::stoi(value);
        if (key == "force-animation") described.forced = value == "yes";
        if (key == "pixels" && (described.forced || described.lastPixels.empty()))
            described.lastPixels = value;
    }
    return described;
}

Picture PictureOfBytes(const std::string& rgba, int width, int height) {
    Picture picture(width, height, kWhite);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const auto* at = reinterpret_cast<const unsigned char*>(rgba.data()) +
                             (static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                              static_cast<std::size_t>(x)) *
                                 4;
            if (at[3] != 0) picture.Set(x, y, Pixel{at[2]} << 16 | Pixel{at[1]} << 8 | at[0]);
        }
    return picture;
}

TEST(SharedGifs, TheSuiteShowsItsPixels) {
    const std::filesystem::path suite = SharedCorpora() + "/gif-suite";
    if (!std::filesystem::is_directory(suite)) GTEST_SKIP() << "the collection is not here";
    int shown = 0;
    for (const auto& entry : std::filesystem::directory_iterator(suite)) {
        if (entry.path().extension() != ".conf") continue;
        const Described described = Describe(entry.path());
        std::filesystem::path gif = entry.path();
        gif.replace_extension(".gif");
        SCOPED_TRACE(gif.filename());
        const bool illegal = std::max(described.width, described.height) > kMaxPictureSide;
        // No text is drawn: the picture under it shows.
        if (gif.filename() == "plain-text.gif") continue;
        if (illegal || described.lastPixels.empty()) {
            EXPECT_EQ(ErrorOf([&] { LoadPicture(gif.string()); }), 481);
            continue;
        }
        ++shown;
        const std::string rgba = BytesOf((suite / described.lastPixels).string());
        const int error = ErrorOf([&] {
            EXPECT_TRUE(LoadPicture(gif.string()) == PictureOfBytes(rgba, described.width, described.height));
        });
        EXPECT_EQ(error, 0);
    }
    EXPECT_GE(shown, 60);
}

} // namespace
} // namespace pintalux
