// The pixel routines over an image of 6000 by 4000, as multiples of a plain copy of as many bytes on as many
// cores in the same run. `taskset -c 0` in front gives the figures of one core.
//
// Counters: `wall` and `cpu` are the multiples of elapsed and of processor time, best against best; on a busy
// machine only `cpu` means something. `kept` 1: freed memory is there again for the result, as in the course
// of work with several images; 0: the system hands out fresh memory and clears it page by page.
#include "base/Parallel.h"
#include "document/Globals.h"
#include "imageops/Frames.h"
#include "imageops/ImgFiltMod.h"
#include "surface/raster/Transfer.h"
#include "surface/system/App.h"
#include "surface/window/Form.h"
#include "surface/window/ProgressBar.h"
#include "surface/window/Surface.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace pintalux {
namespace {

constexpr int kWidth = 6000;
constexpr int kHeight = 4000;

/// A picture with soft shades, some grain and dark and bright places, in which no two tiles are shared.
Picture Photo(int width, int height) {
    Picture picture(width, height, 0);
    picture.Detach(picture.Bounds());
    std::uint32_t grain = 1;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            grain = grain * 1664525 + 1013904223;
            const auto channel = [&](int from, unsigned shift) {
                return static_cast<Pixel>(from + static_cast<int>(grain >> shift & 15)) & 0xFF;
            };
            picture.Set(x, y,
                        channel(x / 25, 28) | channel(y / 17, 24) << 8 | channel((x + y) / 40, 20) << 16);
        }
    }
    return picture;
}

/// Holds on to one tile in each block of tile memory, so that freed blocks stay with the process.
class KeptMemory {
  public:
    KeptMemory() {
        constexpr int kTiles = 12000;
        constexpr int kTilesOfBlock = 60;
        Bitmap all(Bitmap::kTileWidth, Bitmap::kTileHeight * kTiles, 0);
        all.Detach(all.Bounds());
        for (int i = 0; i < kTiles; i += kTilesOfBlock) {
            Bitmap tile(Bitmap::kTileWidth, Bitmap::kTileHeight * 2, 0);
            const int top = i * Bitmap::kTileHeight;
            tile.Copy(0, 0, all, {0, top, Bitmap::kTileWidth, top + Bitmap::kTileHeight});
            tiles_.push_back(std::move(tile));
        }
    }

  private:
    std::vector<Bitmap> tiles_;
};

class PlainForm : public Form {
  public:
    PlainForm() : Form("bench", Kind::Window) { ScaleMode(kScalePixels); }

  protected:
    void Form_Load() override {}
};

/// The surfaces of an operation.
struct Bench {
    Bench() : work(form, "work"), live(form, "live"), Pb(form, "Pb") {
        for (Surface* surface : {&work, &live}) {
            surface->Visible(false);
            surface->AutoSize(true);
        }
    }
    PlainForm form;
    Surface work, live;
    ProgressBar Pb;
    Picture photo = Photo(kWidth, kHeight);
    Picture masked = Masked();
    std::optional<KeptMemory> kept;
    std::vector<char> from = std::vector<char>(std::size_t{4} * kWidth * kHeight, 1);
    std::vector<char> to = from;

    void PlainCopy() {
        constexpr int kPart = 4096;
        SplitOverCores(static_cast<int>(from.size() / kPart), [&](int begin, int end) {
            const std::size_t first = static_cast<std::size_t>(begin) * kPart;
            std::memcpy(&to[first], &from[first], static_cast<std::size_t>(end - begin) * kPart);
        });
    }

  private:
    /// The photo inside an ellipse, `MaskKeyColour` outside.
    Picture Masked() const {
        Picture picture = photo;
        for (int y = 0; y < kHeight; ++y) {
            for (int x = 0; x < kWidth; ++x) {
                const double dx = (x - kWidth / 2.0) / (kWidth / 2.0);
                const double dy = (y - kHeight / 2.0) / (kHeight / 2.0);
                if (dx * dx + dy * dy > 1) picture.Set(x, y, MaskKeyColour);
            }
        }
        return picture;
    }
};

std::unique_ptr<Bench> theBench;

double ProcessorTime() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

/// The best of several runs.
struct Best {
    double wall = 1e9;
    double cpu = 1e9;
    double Run(const std::function<void()>& work) {
        const double cpuBefore = ProcessorTime();
        const auto before = std::chrono::steady_clock::now();
        work();
        const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - before;
        wall = std::min(wall, elapsed.count());
        cpu = std::min(cpu, ProcessorTime() - cpuBefore);
        return elapsed.count();
    }
};

/// Measures `routine`; both surfaces hold the picture before each run.
void Measure(benchmark::State& state, const Picture& picture, const std::function<void(Bench&)>& routine) {
    Bench& bench = *theBench;
    if (state.range(0) != 0 && !bench.kept) bench.kept.emplace();
    if (state.range(0) == 0) bench.kept.reset();
    FreeSelActive = false;
    Best copy, best;
    for (auto _ : state) {
        bench.work.Picture(picture);
        bench.live.Picture(bench.photo);
        copy.Run([&] { bench.PlainCopy(); });
        state.SetIterationTime(best.Run([&] { routine(bench); }));
    }
    state.counters["wall"] = best.wall / copy.wall;
    state.counters["cpu"] = best.cpu / copy.cpu;
    state.counters["copy_ms"] = copy.wall * 1e3;
}

void Filter(benchmark::State& state, void (*filter)(Surface&, Surface&, ProgressBar&, std::int16_t),
            std::int16_t level) {
    Measure(state, theBench->photo, [&](Bench& b) { filter(b.work, b.live, b.Pb, level); });
}

void Sharpen(benchmark::State& state) {
    Filter(state, SharpenFilter, 5);
}
void Soften(benchmark::State& state) {
    Filter(state, SoftenFilter, 5);
}
void Emboss(benchmark::State& state) {
    Filter(state, EmbossFilter, 128);
}
void Scatter(benchmark::State& state) {
    Filter(state, ScatterFilter, 5);
}
void Outline(benchmark::State& state) {
    Filter(state, OutlineFilter, 100);
}
void Pixelate(benchmark::State& state) {
    Filter(state, PixelateFilter, 12);
}
void Brighten(benchmark::State& state) {
    Filter(state, BrightnessFilter, 40);
}
void Step(benchmark::State& state) {
    Filter(state, ColourStep, 1);
}
void Grey(benchmark::State& state) {
    Filter(state, GreyFilter, 0);
}
void Invert(benchmark::State& state) {
    Filter(state, InvertFilter, 0);
}
void FlipAcross(benchmark::State& state) {
    Measure(state, theBench->photo, [](Bench& b) { FlipImage(b.live, b.work, -1); });
}
void FlipDown(benchmark::State& state) {
    Measure(state, theBench->photo, [](Bench& b) { FlipImage(b.live, b.work, 0); });
}
void Turn(benchmark::State& state) {
    Measure(state, theBench->photo, [](Bench& b) {
        double angle = 90;
        RotateImage(b.work, b.live, angle);
    });
}
/// A frame painted on the photo; `ns` is the time for each pixel of its bands.
void Frame(benchmark::State& state, int size, const std::function<void(Bench&)>& frame) {
    const double bandPixels = 2.0 * size * (kWidth + kHeight);
    Best best;
    for (auto _ : state) {
        theBench->live.Picture(theBench->photo);
        theBench->work.Picture(theBench->photo);
        state.SetIterationTime(best.Run([&] { frame(*theBench); }));
    }
    state.counters["ms"] = best.wall * 1e3;
    state.counters["ns"] = best.cpu * 1e9 / bandPixels;
}
void FramePlain(benchmark::State& state) {
    Frame(state, 20, [](Bench& b) { PlainFrame(b.work, b.live, 20, 0x3264C8, true, true, b.Pb); });
}
void FrameBevel(benchmark::State& state) {
    Frame(state, 20, [](Bench& b) {
        std::int16_t highlight = 60;
        std::int16_t shadow = 120;
        BevelFrame(b.work, b.live, 20, highlight, shadow, false, false, b.Pb);
    });
}
void FrameFadedBevel(benchmark::State& state) {
    Frame(state, 20, [](Bench& b) {
        std::int16_t highlight = 60;
        std::int16_t shadow = 120;
        FadedBevelFrame(b.work, b.live, 20, highlight, shadow, false, false, b.Pb);
    });
}
void FrameMould(benchmark::State& state) {
    Frame(state, 60, [](Bench& b) {
        std::int16_t size = 80;
        MouldFrame(b.work, b.live, size, 50, 0xC0C0C0, b.Pb);
    });
}
void FrameRidge(benchmark::State& state) {
    Frame(state, 10, [](Bench& b) {
        std::int16_t size = 80;
        RidgeFrame(b.work, b.live, size, false, false, true, b.Pb);
    });
}
/// The stretch of a new size: the photo, or a quarter of it, to `percent`. `copies` is the multiple of a copy
/// of what is stretched, which for the quarter is four times `cpu`.
void Stretch(benchmark::State& state) {
    const auto percent = static_cast<int>(state.range(1));
    const int width = percent > 100 ? kWidth / 2 : kWidth;
    const int height = percent > 100 ? kHeight / 2 : kHeight;
    Measure(state, Photo(width, height), [=](Bench& b) {
        b.live.AutoSize(false);
        b.live.Width(width * percent / 100);
        b.live.Height(height * percent / 100);
        b.live.Picture({});
        StretchBlt(b.live.hDC(), {0, 0, width * percent / 100, height * percent / 100}, b.work.hDC(),
                   {0, 0, width, height}, SRCCOPY);
        b.live.AutoSize(true);
    });
    const double share = static_cast<double>(width) * height / (static_cast<double>(kWidth) * kHeight);
    state.counters["copies"] = state.counters["cpu"] / share;
}
/// The copy into a larger canvas.
void Borders(benchmark::State& state) {
    Measure(state, theBench->photo, [](Bench& b) {
        constexpr int kMargin = 21;
        b.live.AutoSize(false);
        b.live.Picture({});
        b.live.Width(kWidth + 2 * kMargin);
        b.live.Height(kHeight + 2 * kMargin);
        b.live.BackColor(0x3264C8);
        StretchBlt(b.live.hDC(), {kMargin, kMargin, kWidth, kHeight}, b.work.hDC(), {0, 0, kWidth, kHeight},
                   SRCCOPY);
        b.live.AutoSize(true);
    });
}
/// A freehand piece as large as the image, dropped `state.range(1)` pixels right and down of its place.
void MaskedCommit(benchmark::State& state) {
    const auto at = static_cast<int>(state.range(1));
    Measure(state, theBench->masked, [at](Bench& b) {
        TransparentBlt(b.live.hDC(), {at, at, kWidth, kHeight}, b.work.hDC(), {0, 0, kWidth, kHeight},
                       MaskKeyColour);
    });
}

void Settings(benchmark::internal::Benchmark* benchmark) {
    benchmark->ArgName("kept")
        ->Arg(1)
        ->Arg(0)
        ->Unit(benchmark::kMillisecond)
        ->UseManualTime()
        ->Iterations(15);
}

BENCHMARK(Invert)->Apply(Settings);
BENCHMARK(FlipAcross)->Apply(Settings);
BENCHMARK(FlipDown)->Apply(Settings);
BENCHMARK(Pixelate)->Apply(Settings);
BENCHMARK(Brighten)->Apply(Settings);
BENCHMARK(Step)->Apply(Settings);
BENCHMARK(Grey)->Apply(Settings);
BENCHMARK(Emboss)->Apply(Settings);
BENCHMARK(Sharpen)->Apply(Settings);
BENCHMARK(Soften)->Apply(Settings);
BENCHMARK(Outline)->Apply(Settings);
BENCHMARK(Turn)->Apply(Settings);
BENCHMARK(Scatter)->Apply(Settings);
void FrameSettings(benchmark::internal::Benchmark* benchmark) {
    benchmark->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(15);
}
BENCHMARK(FramePlain)->Apply(FrameSettings);
BENCHMARK(FrameBevel)->Apply(FrameSettings);
BENCHMARK(FrameFadedBevel)->Apply(FrameSettings);
BENCHMARK(FrameMould)->Apply(FrameSettings);
BENCHMARK(FrameRidge)->Apply(FrameSettings);
BENCHMARK(Borders)->Apply(Settings);
BENCHMARK(Stretch)
    ->ArgNames({"kept", "percent"})
    ->Args({1, 50})
    ->Args({1, 200})
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->Iterations(15);
BENCHMARK(MaskedCommit)
    ->ArgNames({"kept", "at"})
    ->Args({1, 0})
    ->Args({1, 21})
    ->Args({0, 21})
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->Iterations(15);

} // namespace
} // namespace pintalux

int main(int argc, char** argv) {
    using namespace pintalux;
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    benchmark::Initialize(&argc, argv);
    const Application application(argc, argv);
    theBench = std::make_unique<Bench>();
    benchmark::RunSpecifiedBenchmarks();
    theBench.reset();
    return 0;
}
