// The pixel library against the plainest code that does the same: flood fills, copies, screen stretching,
// strokes.
#include "surface/raster/Drawing.h"
#include "surface/raster/FloodFill.h"
#include "surface/raster/ReducedView.h"
#include "surface/raster/Region.h"
#include "surface/raster/Transfer.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstring>
#include <random>
#include <utility>
#include <vector>

namespace pintalux {

namespace {

constexpr int kWidth = 6000;
constexpr int kHeight = 4000;

// Corridors one pixel wide between walls one pixel thick, joined at their ends in turn.
Bitmap Serpentine(int width, int height, bool upright) {
    Bitmap bits(width, height, kWhite);
    const int lanes = upright ? width : height;
    for (int lane = 1; lane < lanes; lane += 2) {
        const int open = lane % 4 == 1 ? (upright ? height : width) - 1 : 0;
        bits.Fill(upright ? Box{lane, 0, lane + 1, height} : Box{0, lane, width, lane + 1}, 0);
        upright ? bits.Set(lane, open, kWhite) : bits.Set(open, lane, kWhite);
    }
    return bits;
}

// Pixels by a rule of their place; the first one is always white.
template <class IsWhite>
Bitmap Ruled(IsWhite isWhite) {
    Bitmap bits(kWidth, kHeight, 0);
    for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) {
            if (isWhite(x, y)) bits.Set(x, y, kWhite);
        }
    }
    bits.Set(0, 0, kWhite);
    return bits;
}

// Diagonal corridors of two pixels a step. Joined in turn they are one long way; with a common edge each
// stands alone on it.
Bitmap Stairs(bool joinedInTurn) {
    Bitmap bits = Ruled([](int x, int y) { return (x - y + kHeight) % 4 < 2; });
    if (!joinedInTurn) {
        bits.Fill({0, 0, kWidth, 1}, kWhite);
        bits.Fill({0, 0, 1, kHeight}, kWhite);
        return bits;
    }
    const auto join = [&](int x, int y, int odd) {
        const int stair = x - y + kHeight;
        if (stair / 4 % 2 == odd && stair % 4 >= 2) bits.Set(x, y, kWhite);
    };
    for (int x = 0; x < kWidth; ++x) {
        join(x, 0, 0);
        join(x, kHeight - 1, 1);
    }
    for (int y = 1; y < kHeight; ++y) {
        join(0, y, 0);
        join(kWidth - 1, y, 1);
    }
    return bits;
}

// One corridor that winds inwards.
Bitmap Spiral() {
    Bitmap bits(kWidth, kHeight, 0);
    for (int ring = 0; 2 * ring < kHeight; ring += 2) {
        const int right = kWidth - ring;
        const int bottom = kHeight - ring;
        bits.Fill({std::max(ring - 2, 0), ring, right, ring + 1}, kWhite);
        bits.Fill({right - 1, ring, right, bottom}, kWhite);
        bits.Fill({ring, bottom - 1, right, bottom}, kWhite);
        bits.Fill({ring, ring + 2, ring + 1, bottom}, kWhite);
    }
    return bits;
}

// Corridors one pixel wide that turn at random and branch, without a circle.
Bitmap Maze() {
    constexpr int kAcross = kWidth / 2;
    constexpr int kDown = kHeight / 2;
    std::mt19937 random(3);
    Bitmap bits(kWidth, kHeight, 0);
    std::vector<int> way{0};
    bits.Set(0, 0, kWhite);
    while (!way.empty()) {
        const int x = way.back() % kAcross;
        const int y = way.back() / kAcross;
        std::vector<std::pair<int, int>> steps;
        for (const auto& [dx, dy] : {std::pair{1, 0}, {-1, 0}, {0, 1}, {0, -1}}) {
            const bool inside = x + dx >= 0 && x + dx < kAcross && y + dy >= 0 && y + dy < kDown;
            if (inside && bits.At(2 * (x + dx), 2 * (y + dy)) == 0) steps.emplace_back(dx, dy);
        }
        if (steps.empty()) {
            way.pop_back();
            continue;
        }
        const auto [dx, dy] = steps[random() % steps.size()];
        bits.Set(2 * x + dx, 2 * y + dy, kWhite);
        bits.Set(2 * (x + dx), 2 * (y + dy), kWhite);
        way.push_back((y + dy) * kAcross + x + dx);
    }
    return bits;
}

void Flood(benchmark::State& state, const Bitmap& start) {
    Bitmap bits;
    DrawAttributes attributes;
    attributes.FillStyle = kFillSolid;
    attributes.FillColor = 0x0000FF;
    DeviceContext hdc(bits, attributes);
    for (auto _ : state) {
        bits = start;
        benchmark::DoNotOptimize(ExtFloodFill(hdc, 0, 0, kWhite, FLOODFILLSURFACE));
    }
    std::int64_t filled = 0;
    for (int y = 0; y < bits.Height(); ++y) {
        for (int x = 0; x < bits.Width(); ++x)
            filled += bits.At(x, y) == 0x0000FF;
    }
    state.SetItemsProcessed(state.iterations() * filled);
    state.counters["pixels"] = static_cast<double>(filled);
    using benchmark::Counter;
    state.counters["s_per_pixel"] =
        Counter(static_cast<double>(filled), Counter::kIsIterationInvariantRate | Counter::kInvert);
}

void FloodBlank(benchmark::State& state) {
    Flood(state, Bitmap(kWidth, kHeight, kWhite));
}
void FloodOwnBlank(benchmark::State& state) {
    Bitmap bits(kWidth, kHeight, kWhite);
    bits.Detach(bits.Bounds());
    Flood(state, bits);
}
// range(0) of a thousand pixels are specks. From 407 on the area falls into islands.
void FloodSpecks(benchmark::State& state) {
    std::mt19937 random(1);
    const auto perMille = static_cast<unsigned>(state.range(0));
    Bitmap bits = Ruled([&](int, int) { return random() % 1000 >= perMille; });
    bits.Fill({0, 0, kWidth, 1}, kWhite); // A way around the specks near the start.
    Flood(state, bits);
}
void FloodFlatSerpentine(benchmark::State& state) {
    Flood(state, Serpentine(kWidth, kHeight, false));
}
void FloodUprightSerpentine(benchmark::State& state) {
    Flood(state, Serpentine(kWidth, kHeight, true));
}
void FloodStairs(benchmark::State& state) {
    Flood(state, Stairs(false));
}
void FloodStairSerpentine(benchmark::State& state) {
    Flood(state, Stairs(true));
}
void FloodSpiral(benchmark::State& state) {
    Flood(state, Spiral());
}
void FloodUprightComb(benchmark::State& state) {
    Flood(state, Ruled([](int x, int y) { return x % 2 == 0 || y == 0; }));
}
void FloodFlatComb(benchmark::State& state) {
    Flood(state, Ruled([](int x, int y) { return y % 2 == 0 || x == 0; }));
}
// Blocks of 2 by 2 on the white fields of a chessboard, joined by single pixels: slantwise all, sideways a
// few.
void FloodChequers(benchmark::State& state) {
    Flood(state, Ruled([](int x, int y) {
              return (x / 2 + y / 2) % 2 == 0 || (y % 2 == 0 && (x % 2 == 0 || x % 32 == 1));
          }));
}
void FloodMaze(benchmark::State& state) {
    Flood(state, Maze());
}
BENCHMARK(FloodBlank)->Unit(benchmark::kMillisecond);
BENCHMARK(FloodOwnBlank)->Unit(benchmark::kMillisecond);
BENCHMARK(FloodSpecks)
    ->Arg(1)
    ->Arg(10)
    ->Arg(50)
    ->Arg(200)
    ->Arg(300)
    ->Arg(350)
    ->Arg(380)
    ->Arg(400)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(FloodFlatSerpentine)->Unit(benchmark::kMillisecond);
BENCHMARK(FloodUprightSerpentine)->Unit(benchmark::kMillisecond);
BENCHMARK(FloodStairs)->Unit(benchmark::kMillisecond);
BENCHMARK(FloodStairSerpentine)->Unit(benchmark::kMillisecond);
BENCHMARK(FloodSpiral)->Unit(benchmark::kMillisecond);
BENCHMARK(FloodUprightComb)->Unit(benchmark::kMillisecond);
BENCHMARK(FloodFlatComb)->Unit(benchmark::kMillisecond);
BENCHMARK(FloodChequers)->Unit(benchmark::kMillisecond);
BENCHMARK(FloodMaze)->Unit(benchmark::kMillisecond);

Bitmap Noise(int width, int height) {
    std::mt19937 random(2);
    Bitmap bits(width, height, 0);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            bits.Set(x, y, static_cast<Pixel>(random()) & 0xFFFFFF);
    }
    return bits;
}

std::vector<std::uint32_t> Flat(const Bitmap& bits) {
    std::vector<std::uint32_t> flat(static_cast<std::size_t>(bits.Width()) *
                                    static_cast<std::size_t>(bits.Height()));
    for (int y = 0; y < bits.Height(); ++y) {
        bits.ReadRow(0, y,
                     {flat.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(bits.Width()),
                      static_cast<std::size_t>(bits.Width())});
    }
    return flat;
}

constexpr int kScreenWidth = 1600;
constexpr int kScreenHeight = 1000;

// Screen size of the shown image: range(0) / range(1) of the source's.
int Shown(const benchmark::State& state, int extent) {
    return static_cast<int>(std::int64_t{extent} * state.range(0) / state.range(1));
}

void ScreenStretch(benchmark::State& state) {
    static const Bitmap source = Noise(kWidth, kHeight);
    const int width = Shown(state, kWidth);
    const int height = Shown(state, kHeight);
    const Box visible = Intersection({0, 0, width, height}, {0, 0, kScreenWidth, kScreenHeight});
    std::vector<std::uint32_t> screen(static_cast<std::size_t>(kScreenWidth) * kScreenHeight);
    for (auto _ : state) {
        StretchForScreen(source, width, height, visible, screen.data(), kScreenWidth);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * visible.Width() * visible.Height());
}

// A repaint of a reduced view that nothing has changed in, as while it scrolls.
void RepaintReduced(benchmark::State& state) {
    static const Bitmap source = Noise(kWidth, kHeight);
    const int width = Shown(state, kWidth);
    const int height = Shown(state, kHeight);
    const Box visible = Intersection({0, 0, width, height}, {0, 0, kScreenWidth, kScreenHeight});
    std::vector<std::uint32_t> screen(static_cast<std::size_t>(kScreenWidth) * kScreenHeight);
    ReducedView view;
    for (auto _ : state) {
        view.Show(source, width, height, visible, screen.data(), kScreenWidth);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * visible.Width() * visible.Height());
}

void PlainNearestNeighbour(benchmark::State& state) {
    static const Bitmap bits = Noise(kWidth, kHeight);
    static const std::vector<std::uint32_t> source = Flat(bits);
    const int width = Shown(state, kWidth);
    const int height = Shown(state, kHeight);
    const Box visible = Intersection({0, 0, width, height}, {0, 0, kScreenWidth, kScreenHeight});
    std::vector<std::uint32_t> screen(static_cast<std::size_t>(kScreenWidth) * kScreenHeight);
    for (auto _ : state) {
        std::vector<int> columns;
        for (int x = 0; x < visible.right; ++x)
            columns.push_back(StretchedCell(x, kWidth, width));
        for (int y = 0; y < visible.bottom; ++y) {
            const std::uint32_t* from =
                source.data() + static_cast<std::ptrdiff_t>(StretchedCell(y, kHeight, height)) * kWidth;
            std::uint32_t* to = screen.data() + static_cast<std::ptrdiff_t>(y) * kScreenWidth;
            for (std::size_t x = 0; x < columns.size(); ++x)
                to[x] = from[columns[x]];
        }
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * visible.Width() * visible.Height());
}

void Zooms(benchmark::internal::Benchmark* zooms) {
    zooms->Args({1, 16})->Args({1, 4})->Args({1, 3})->Args({1, 2})->Args({2, 3})->Args({1, 1});
    zooms->Args({3, 2})->Args({2, 1})->Args({3, 1})->Args({4, 1})->Args({8, 1})->Args({16, 1});
    zooms->Unit(benchmark::kMicrosecond);
}
BENCHMARK(ScreenStretch)->Apply(Zooms);
BENCHMARK(RepaintReduced)->Args({1, 16})->Args({1, 4})->Args({1, 2})->Unit(benchmark::kMicrosecond);
BENCHMARK(PlainNearestNeighbour)->Apply(Zooms);

// range(0): how far the copy is shifted, in pixels; 0 lines up with the tiles.
void CopyByBitBlt(benchmark::State& state) {
    Bitmap from = Noise(2000, 1500);
    Bitmap to(2100, 1600, 0);
    DrawAttributes attributes;
    const DeviceContext source(from, attributes);
    DeviceContext target(to, attributes);
    const int shift = static_cast<int>(state.range(0));
    for (auto _ : state)
        BitBlt(target, shift, shift, 2000, 1500, source, 0, 0, SRCCOPY);
    state.SetBytesProcessed(state.iterations() * 2000 * 1500 * 4);
}
BENCHMARK(CopyByBitBlt)->Arg(0)->Arg(7)->Unit(benchmark::kMicrosecond);

void CopyByMemcpy(benchmark::State& state) {
    const std::vector<std::uint32_t> from(2000 * 1500, 1);
    std::vector<std::uint32_t> to(2000 * 1500);
    for (auto _ : state) {
        std::memcpy(to.data(), from.data(), from.size() * 4);
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * 2000 * 1500 * 4);
}
BENCHMARK(CopyByMemcpy)->Unit(benchmark::kMicrosecond);

void FillAll(benchmark::State& state) {
    Bitmap bits = Noise(2000, 1500);
    for (auto _ : state)
        bits.Fill(bits.Bounds(), 0x0000FF);
    state.SetBytesProcessed(state.iterations() * 2000 * 1500 * 4);
}
BENCHMARK(FillAll)->Unit(benchmark::kMicrosecond);

// One step of a pen: a snapshot for undo, a dot, and what changed. It must not grow with the image.
void SnapshotAndDot(benchmark::State& state) {
    Bitmap bits(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)), kWhite);
    bits.Detach(bits.Bounds());
    DrawAttributes attributes;
    attributes.DrawWidth = 5;
    DeviceContext hdc(bits, attributes);
    for (auto _ : state) {
        const Bitmap before = bits;
        DrawDot(hdc, 100, 100, 0);
        benchmark::DoNotOptimize(Bitmap::Difference(before, bits));
    }
}
BENCHMARK(SnapshotAndDot)->Args({300, 300})->Args({6000, 4000})->Args({32000, 2000});

void WideLine(benchmark::State& state) {
    Bitmap bits(kWidth, kHeight, kWhite);
    DrawAttributes attributes;
    attributes.DrawWidth = static_cast<int>(state.range(0));
    DeviceContext hdc(bits, attributes);
    for (auto _ : state)
        DrawLine(hdc, 10, 10, 5900, 3900, 0);
}
BENCHMARK(WideLine)->Arg(1)->Arg(2)->Arg(10)->Arg(50)->Unit(benchmark::kMicrosecond);

void BigEllipse(benchmark::State& state) {
    Bitmap bits(kWidth, kHeight, kWhite);
    DrawAttributes attributes;
    attributes.DrawWidth = static_cast<int>(state.range(0));
    DeviceContext hdc(bits, attributes);
    for (auto _ : state)
        Ellipse(hdc, 100, 100, 5900, 3900);
}
BENCHMARK(BigEllipse)->Arg(1)->Arg(10)->Unit(benchmark::kMicrosecond);

void RegionOfRuns(benchmark::State& state) {
    const int runs = static_cast<int>(state.range(0));
    for (auto _ : state) {
        Region full = CreateRectRgn(0, 0, 2 * runs, runs);
        for (int y = 0; y < runs; ++y) {
            for (int x = 0; x < runs; ++x) {
                Region run = CreateRectRgn(2 * x + y % 2, y, 2 * x + 1 + y % 2, y + 1);
                CombineRgn(full, full, run, RGN_DIFF);
                DeleteObject(run);
            }
        }
        benchmark::DoNotOptimize(full);
    }
    state.SetItemsProcessed(state.iterations() * runs * runs);
}
BENCHMARK(RegionOfRuns)->Arg(100)->Arg(1000)->Arg(4000)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace pintalux

BENCHMARK_MAIN();
