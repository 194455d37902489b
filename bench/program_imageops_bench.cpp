// Image commands on a photograph, from the click until the state lies on disk. The time of an iteration is
// that of the click; `recorded_ms` adds the writing behind it, `file_share` is the part of the state's file
// in that.
#include "Program.h"

#include "document/States.h"
#include "imageops/frmAddBord.h"
#include "imageops/frmBWiz.h"
#include "imageops/frmResize.h"
#include "imageops/ImageCommands.h"
#include "imageops/SizeCommands.h"

#include <chrono>
#include <fstream>
#include <QTimer>

namespace pintalux {
namespace {

double Milliseconds(std::chrono::steady_clock::duration time) {
    return std::chrono::duration<double, std::milli>(time).count();
}

/// A line of the process's memory figures, in bytes.
double MemoryFigure(const std::string& name) {
    std::ifstream figures("/proc/self/status");
    for (std::string word; figures >> word;) {
        double kilobytes = 0;
        if (word == name + ":" && figures >> kilobytes) return kilobytes * 1024;
    }
    return 0;
}

/// Memory now; the peak is counted from here.
double StartPeak() {
    std::ofstream("/proc/self/clear_refs") << 5;
    return MemoryFigure("VmRSS");
}

void WholeCommand(benchmark::State& state, void (*command)()) {
    const Document document(kLargeWidth, kLargeHeight, kViewWidth, kViewHeight);
    double click = 0;
    double whole = 0;
    double peak = 0;
    for (auto _ : state) {
        const double before = StartPeak();
        const auto start = std::chrono::steady_clock::now();
        command();
        const auto clicked = std::chrono::steady_clock::now();
        States().Settle();
        const auto recorded = std::chrono::steady_clock::now();
        click += Milliseconds(clicked - start);
        whole += Milliseconds(recorded - start);
        peak = std::max(peak, MemoryFigure("VmHWM") - before);
        state.SetIterationTime(Milliseconds(clicked - start) / 1000);
    }
    state.counters["recorded_ms"] = whole / static_cast<double>(state.iterations());
    state.counters["peak_bytes"] = peak / (double{kLargeWidth} * kLargeHeight);
    state.counters["file_share"] = (whole - click) / whole;
}

void FlipHorizontally(benchmark::State& state) {
    WholeCommand(state, mnuFlipH_Click);
}
void TurnHalf(benchmark::State& state) {
    WholeCommand(state, mnuRotate180_Click);
}
void TurnQuarter(benchmark::State& state) {
    WholeCommand(state, mnuRotate90_Click);
}
void StepRed(benchmark::State& state) {
    WholeCommand(state, [] { mnuColInc_Click(0); });
}
/// A command with a dialog, which is used at once as soon as it shows.
void WithDialog(void (*command)(), void (*use)()) {
    QTimer::singleShot(0, use);
    command();
}
void AddBorders(benchmark::State& state) {
    WholeCommand(state, [] {
        WithDialog(mnuAddBorders_Click, [] {
            frmAddBord->ChSym.Value(1);
            frmAddBord->VSLeft.Value(frmAddBord->VSLeft.Max() - 21);
            frmAddBord->cmdApply_Click();
        });
    });
}
/// To the largest size that the dialog allows.
void ResizeToFit(benchmark::State& state) {
    WholeCommand(state, [] {
        WithDialog(mnuResize_Click, [] {
            frmResize->VSPXw.Value(frmResize->VSPXw.Max() - 2133);
            frmResize->cmdOK_Click();
        });
    });
}
template <int style>
void PaintFrameOfStyle(benchmark::State& state) {
    WholeCommand(state, [] {
        WithDialog(mnuBorderWiz_Click, [] {
            frmBWiz->BordList.ListIndex(style);
            frmBWiz->SL1.Value(frmBWiz->SL1.Max());
            frmBWiz->SL2.Value(frmBWiz->SL2.Max());
            frmBWiz->cmdApply_Click();
        });
    });
}

BENCHMARK(FlipHorizontally)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(5);
BENCHMARK(TurnHalf)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(5);
BENCHMARK(TurnQuarter)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(5);
BENCHMARK(StepRed)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(5);
BENCHMARK(AddBorders)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(3);
BENCHMARK(ResizeToFit)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->Iterations(1); // Leaves a small image.
BENCHMARK(PaintFrameOfStyle<0>)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(3);
BENCHMARK(PaintFrameOfStyle<3>)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(3);
BENCHMARK(PaintFrameOfStyle<4>)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(3);

} // namespace
} // namespace pintalux

int main(int argc, char** argv) {
    return pintalux::RunBenchmarks(argc, argv);
}
