// The pixel routines over an image of 6000 by 4000, as multiples of a plain copy of as many bytes on as many
// cores in the same run. `taskset -c 0` in front gives the figures of one core.
//
// Counters: `wall` and `cpu` are the multiples of elapsed and of processor time, best against best; on a busy
// machine only `cpu` means something. `kept` 1: freed memory is there again for the result, as in the course
// of work with several images; 0: the system hands out fresh memory and clears it page by page.
#include "ImageBench.h"

#include "imageops/Frames.h"
#include "imageops/ImgFiltMod.h"
#include "surface/raster/Transfer.h"
#include "surface/system/App.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <functional>
#include <memory>
#include <optional>

namespace pintalux {
namespace {

std::unique_ptr<Bench> theBench;

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
