// The pixel library against the plainest code that does the same: flood fills, copies, screen stretching,
// strokes.
#include "surface/raster/Drawing.h"
#include "surface/raster/FloodFill.h"
#include "surface/raster/Region.h"
#include "surface/raster/Transfer.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <random>
#include <vector>

namespace pintalux {

namespace {

constexpr int kWidth = 6000;
constexpr int kHeight = 4000;

Bitmap Speckled(int everyNth) {
    std::mt19937 random(1);
    Bitmap bits(kWidth, kHeight, kWhite);
    for (int i = 0; i < kWidth * kHeight / everyNth; ++i) {
        bits.Set(static_cast<int>(random() % kWidth), static_cast<int>(random() % kHeight), 0);
    }
    bits.Set(0, 0, kWhite);
    return bits;
}

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

void Flood(benchmark::State& state, const Bitmap& start) {
    Bitmap bits;
    DrawAttributes attributes;
    attributes.FillStyle = kFillSolid;
    attributes.FillColor = 0x0000FF;
    const DeviceContext hdc(bits, attributes);
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
}

void FloodBlank(benchmark::State& state) {
    Flood(state, Bitmap(kWidth, kHeight, kWhite));
}
void FloodSpecks(benchmark::State& state) {
    Flood(state, Speckled(static_cast<int>(state.range(0))));
}
void FloodFlatSerpentine(benchmark::State& state) {
    Flood(state, Serpentine(kWidth, kHeight, false));
}
void FloodUprightSerpentine(benchmark::State& state) {
    Flood(state, Serpentine(kWidth, kHeight, true));
}
BENCHMARK(FloodBlank)->Unit(benchmark::kMillisecond);
BENCHMARK(FloodSpecks)->Arg(1000)->Arg(100)->Arg(20)->Arg(5)->Unit(benchmark::kMillisecond);
BENCHMARK(FloodFlatSerpentine)->Unit(benchmark::kMillisecond);
BENCHMARK(FloodUprightSerpentine)->Unit(benchmark::kMillisecond);

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
BENCHMARK(PlainNearestNeighbour)->Apply(Zooms);

// range(0): how far the copy is shifted, in pixels; 0 lines up with the tiles.
void CopyByBitBlt(benchmark::State& state) {
    Bitmap from = Noise(2000, 1500);
    Bitmap to(2100, 1600, 0);
    DrawAttributes attributes;
    const DeviceContext source(from, attributes);
    const DeviceContext target(to, attributes);
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
    const DeviceContext hdc(bits, attributes);
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
    const DeviceContext hdc(bits, attributes);
    for (auto _ : state)
        DrawLine(hdc, 10, 10, 5900, 3900, 0);
}
BENCHMARK(WideLine)->Arg(1)->Arg(2)->Arg(10)->Arg(50)->Unit(benchmark::kMicrosecond);

void BigEllipse(benchmark::State& state) {
    Bitmap bits(kWidth, kHeight, kWhite);
    DrawAttributes attributes;
    attributes.DrawWidth = static_cast<int>(state.range(0));
    const DeviceContext hdc(bits, attributes);
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
