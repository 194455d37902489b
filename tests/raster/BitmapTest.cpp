#include "surface/raster/Bitmap.h"

#include "base/RuntimeError.h"
#include "support/Errors.h"
#include "support/Pictures.h"

#include <sys/resource.h>

#include <fstream>
#include <thread>

namespace pintalux {

namespace {

// The slow twin: every pixel on its own.
struct PlainImage {
    int width = 0;
    int height = 0;
    std::vector<Pixel> pixels;

    explicit PlainImage(int w = 0, int h = 0, Pixel fill = 0)
        : width(w), height(h), pixels(static_cast<std::size_t>(w) * static_cast<std::size_t>(h), fill) {}

    bool Holds(int x, int y) const { return x >= 0 && y >= 0 && x < width && y < height; }
    Pixel& At(int x, int y) { return pixels[static_cast<std::size_t>(y * width + x)]; }

    void Fill(const Box& box, Pixel pixel) {
        for (int y = box.top; y < box.bottom; ++y) {
            for (int x = box.left; x < box.right; ++x) {
                if (Holds(x, y)) At(x, y) = pixel;
            }
        }
    }

    void Copy(int toX, int toY, PlainImage source, const Box& from) {
        for (int y = from.top; y < from.bottom; ++y) {
            for (int x = from.left; x < from.right; ++x) {
                const int dx = toX + x - from.left;
                const int dy = toY + y - from.top;
                if (source.Holds(x, y) && Holds(dx, dy)) At(dx, dy) = source.At(x, y);
            }
        }
    }
};

::testing::AssertionResult Equal(const Bitmap& bits, PlainImage& plain) {
    if (bits.Width() != plain.width || bits.Height() != plain.height) {
        return ::testing::AssertionFailure() << "size " << bits.Width() << " x " << bits.Height();
    }
    for (int y = 0; y < plain.height; ++y) {
        for (int x = 0; x < plain.width; ++x) {
            if (bits.At(x, y) != plain.At(x, y)) {
                return ::testing::AssertionFailure()
                       << "x " << x << ", y " << y << ": " << Hexadecimal(bits.At(x, y)) << ", expected "
                       << Hexadecimal(plain.At(x, y));
            }
        }
    }
    return ::testing::AssertionSuccess();
}

int Chance(std::mt19937& random, int low, int high) {
    return low + static_cast<int>(random() % static_cast<unsigned>(high - low + 1));
}

Box RandomBox(std::mt19937& random) {
    Box box{Chance(random, -40, 600), Chance(random, -20, 110), 0, 0};
    // Whole tiles now and then, so that sharing is met.
    if (Chance(random, 0, 1) == 0) box = {0, 0, 0, 0};
    box.right = box.left + Chance(random, 0, 700);
    box.bottom = box.top + Chance(random, 0, 120);
    return box;
}

TEST(Bitmap, ShrinksABoxToThePixelsThatDiffer) {
    const Bitmap before(3000, 100, 0xFFFFFF);
    Bitmap after = before;
    EXPECT_EQ(Bitmap::Shrunk(before, after, before.Bounds()), Box{});
    after.Set(5, 7, 0xFFFFFF); // Written, and equal all the same.
    EXPECT_EQ(Bitmap::Shrunk(before, after, before.Bounds()), Box{});
    after.Set(1500, 40, 0);
    EXPECT_EQ(Bitmap::Shrunk(before, after, before.Bounds()), (Box{1500, 40, 1501, 41}));
    after.Set(1200, 90, 0);
    after.Set(2999, 60, 0);
    EXPECT_EQ(Bitmap::Shrunk(before, after, before.Bounds()), (Box{1200, 40, 3000, 91}));
    EXPECT_EQ(Bitmap::Shrunk(before, after, {0, 41, 2999, 100}), (Box{1200, 90, 1201, 91}));
}

} // namespace

TEST(Bitmap, NoSizeIsTheEmptyPicture) {
    EXPECT_TRUE(Bitmap().Empty());
    EXPECT_TRUE(Bitmap(0, 5, 1).Empty());
    EXPECT_TRUE(Bitmap(5, 0, 1).Empty());
    EXPECT_EQ(Bitmap(5, 0, 1), Bitmap());
}

TEST(Bitmap, NegativeSizeIsError5) {
    EXPECT_EQ(ErrorOf([&] { const Bitmap bits(-1, 5, 0); }), kInvalidArgument);
}

TEST(Bitmap, OnePixelCanBeWrittenAndRead) {
    Bitmap bits(1, 1, 7);
    EXPECT_EQ(bits.At(0, 0), 7U);
    EXPECT_EQ(bits.Run(0, 0).size(), 1U);
    bits.Set(0, 0, 9);
    EXPECT_EQ(bits.At(0, 0), 9U);
}

TEST(Bitmap, TheLargestBlankSizeCostsNothingUntilItIsWritten) {
    // 4 GB of pixels, of which one tile exists, and after the write two.
    Bitmap bits(32000, 32000, 5);
    bits.Set(31999, 31999, 6);
    bits.Fill(bits.Bounds(), 8);
    bits.Set(0, 31999, 9);
    EXPECT_EQ(bits.At(31999, 31999), 8U);
    EXPECT_EQ(bits.At(0, 31999), 9U);
    EXPECT_EQ(bits.At(0, 0), 8U);
}

#ifndef __SANITIZE_ADDRESS__
TEST(Bitmap, MemoryThatRunsOutIsError7) {
    Bitmap bits(32000, 32000, 5);
    rlimit before{};
    getrlimit(RLIMIT_AS, &before);
    rlimit tight = before;
    std::size_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    tight.rlim_cur = pages * 4096 + 300'000'000;
    setrlimit(RLIMIT_AS, &tight);
    const int number = ErrorOf([&] { bits.Detach(bits.Bounds()); });
    setrlimit(RLIMIT_AS, &before);
    EXPECT_EQ(number, kOutOfMemory);
    EXPECT_EQ(bits.At(31999, 31999), 5U);
}
#endif

TEST(Bitmap, CopyKeepsItsPixelsWhenTheOriginalIsWritten) {
    Bitmap original(300, 40, 1);
    const Bitmap copy = original;
    original.Set(299, 39, 2);
    EXPECT_EQ(copy.At(299, 39), 1U);
    EXPECT_EQ(original.At(299, 39), 2U);
}

TEST(Bitmap, MovedAwayBitmapIsEmpty) {
    Bitmap original(3, 3, 1);
    const Bitmap taken = std::move(original);
    EXPECT_EQ(taken.At(2, 2), 1U);
    EXPECT_TRUE(original.Empty());
}

TEST(Bitmap, DifferenceNamesTheTilesWritten) {
    Bitmap changed(600, 70, 1);
    const Bitmap before = changed;
    EXPECT_TRUE(Bitmap::Difference(before, changed).empty());
    changed.Set(10, 5, 2);
    changed.Set(300, 5, 2);
    changed.Set(599, 69, 2);
    const std::vector<Box> expected{{0, 0, 512, 32}, {512, 64, 600, 70}};
    EXPECT_EQ(Bitmap::Difference(before, changed), expected);
}

TEST(Bitmap, DifferenceOfSizesIsTheWhole) {
    const std::vector<Box> whole{{0, 0, 5, 6}};
    EXPECT_EQ(Bitmap::Difference(Bitmap(4, 6, 0), Bitmap(5, 6, 0)), whole);
    EXPECT_TRUE(Bitmap::Difference(Bitmap(4, 6, 0), Bitmap()).empty());
}

TEST(Bitmap, EqualityLooksAtPixelsNotAtSharing) {
    Bitmap a(300, 40, 1);
    Bitmap b(300, 40, 1);
    EXPECT_EQ(a, b);
    b.Set(299, 39, 2);
    EXPECT_NE(a, b);
    a.Set(299, 39, 2);
    EXPECT_EQ(a, b);
}

TEST(Bitmap, CopyOfWholeTilesSharesThem) {
    const Bitmap source = RandomPicture(512, 64, 1);
    Bitmap target(512, 64, 0);
    target.Copy(256, 32, source, {0, 0, 256, 32});
    Bitmap moved = source;
    moved.Copy(256, 32, source, {0, 0, 256, 32});
    const std::vector<Box> expected{{256, 32, 512, 64}};
    EXPECT_EQ(Bitmap::Difference(source, moved), expected);
    // Back again: the same tiles, found without looking at pixels.
    moved.Copy(256, 32, source, {256, 32, 512, 64});
    EXPECT_TRUE(Bitmap::Difference(source, moved).empty());
    EXPECT_EQ(target.At(300, 40), source.At(44, 8));
}

TEST(Bitmap, RowsAreReadAndWrittenAcrossTiles) {
    Bitmap bits(700, 3, 0);
    std::vector<Pixel> row(600);
    for (std::size_t i = 0; i < row.size(); ++i)
        row[i] = static_cast<Pixel>(i + 1);
    bits.WriteRow(50, 1, row);
    EXPECT_EQ(bits.At(49, 1), 0U);
    EXPECT_EQ(bits.At(50, 1), 1U);
    EXPECT_EQ(bits.At(649, 1), 600U);
    EXPECT_EQ(bits.At(650, 1), 0U);
    std::vector<Pixel> back(600);
    bits.ReadRow(50, 1, back);
    EXPECT_EQ(back, row);
}

TEST(Bitmap, RunsEndAtTilesAndAtTheImage) {
    Bitmap bits(300, 1, 0);
    EXPECT_EQ(bits.Run(0, 0).size(), 256U);
    EXPECT_EQ(bits.Run(255, 0).size(), 1U);
    EXPECT_EQ(bits.WritableRun(256, 0).size(), 44U);
}

TEST(Bitmap, ResizedKeepsTheTopLeftCorner) {
    const Bitmap source = RandomPicture(300, 40, 3);
    const Bitmap grown = source.Resized(301, 80, 0xABCDEF);
    EXPECT_EQ(grown.At(299, 39), source.At(299, 39));
    EXPECT_EQ(grown.At(300, 39), 0xABCDEFU);
    EXPECT_EQ(grown.At(299, 40), 0xABCDEFU);
    EXPECT_EQ(grown.Resized(300, 40, 0), source);
    EXPECT_TRUE(source.Resized(0, 40, 0).Empty());
}

TEST(Bitmap, FarAwayBoxesCopyNothing) {
    Bitmap bits(10, 10, 1);
    const Bitmap source(10, 10, 2);
    const Bitmap before = bits;
    bits.Copy(2147483647, 0, source, source.Bounds());
    bits.Copy(-2147483647 - 1, -20, source, {-2147483647 - 1, 0, 2147483647, 10});
    bits.Fill({2147483646, 0, 2147483647, 5}, 3);
    EXPECT_EQ(bits, before);
}

TEST(Bitmap, RandomWritesMatchTheSlowTwin) {
    for (unsigned seed = 1; seed <= 150; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937 random(seed);
        const int width = Chance(random, 1, 600);
        const int height = Chance(random, 1, 100);
        Bitmap bits(width, height, 1);
        PlainImage plain(width, height, 1);
        Bitmap snapshot = bits;
        PlainImage plainSnapshot = plain;
        for (int step = 0; step < 10; ++step) {
            const Box box = RandomBox(random);
            const auto pixel = static_cast<Pixel>(random() & 0xFFFFFF);
            switch (Chance(random, 0, 5)) {
            case 0:
                bits.Fill(box, pixel);
                plain.Fill(box, pixel);
                break;
            case 1:
                bits.Set(width / 2, height / 2, pixel);
                plain.At(width / 2, height / 2) = pixel;
                break;
            case 2:
                snapshot = bits;
                plainSnapshot = plain;
                break;
            case 3: {
                const int x = Chance(random, -1, 2) * Chance(random, 255, 256);
                const int y = Chance(random, -1, 2) * Chance(random, 31, 32);
                bits.Copy(x, y, snapshot, box);
                plain.Copy(x, y, plainSnapshot, box);
                break;
            }
            case 4:
                bits.Copy(3, 1, bits, box);
                plain.Copy(3, 1, plain, box);
                break;
            default:
                bits.Detach(box);
                break;
            }
            ASSERT_TRUE(Equal(bits, plain));
            ASSERT_TRUE(Equal(snapshot, plainSnapshot));
        }
    }
}

TEST(Bitmap, ThreadsWriteDisjointRowsAfterDetach) {
    Bitmap bits(1000, 64, 0);
    const Bitmap before = bits;
    bits.Detach(bits.Bounds());
    const auto write = [&bits](int first) {
        for (int y = first; y < bits.Height(); y += 2) {
            for (int x = 0; x < bits.Width(); ++x)
                bits.Set(x, y, static_cast<Pixel>(y * 1000 + x));
        }
    };
    std::thread other(write, 1);
    write(0);
    other.join();
    for (int y = 0; y < 64; ++y)
        EXPECT_EQ(bits.At(999, y), static_cast<Pixel>(y * 1000 + 999));
    EXPECT_EQ(before.At(999, 63), 0U);
}

TEST(Bitmap, ThreadReadsItsCopyWhileTheOriginalIsWritten) {
    Bitmap bits(600, 100, 0);
    for (Pixel round = 1; round <= 50; ++round) {
        const Bitmap copy = bits;
        Bitmap theirs = copy;
        std::thread reader([theirs = std::move(theirs), round]() mutable {
            std::int64_t wrong = 0;
            for (int y = 0; y < 100; ++y) {
                for (int x = 0; x < 600; ++x)
                    wrong += theirs.At(x, y) != round - 1;
            }
            EXPECT_EQ(wrong, 0);
            theirs = Bitmap();
        });
        for (int y = 0; y < 100; ++y) {
            for (int x = 0; x < 600; ++x)
                bits.Set(x, y, round);
        }
        reader.join();
    }
}

} // namespace pintalux
