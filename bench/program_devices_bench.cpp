// Scanner, printer and rulers: a page of the scanner library's test device beside the library's own program,
// a printed photograph beside the toolkit's painter alone, the rulers while the view scrolls.
#include "Program.h"

#include "devices/frmScan.h"
#include "devices/modTwain.h"
#include "devices/sane/SaneCalls.h"
#include "surface/system/Pictures.h"
#include "surface/system/Printer.h"
#include "surface/system/ToolkitImages_native.h"

#include <benchmark/benchmark.h>
#include <chrono>
#include <fstream>
#include <QPainter>
#include <QPrinter>
#include <QTimer>
#include <sstream>

namespace pintalux {
namespace {

template <class Work>
double Milliseconds(const Work& work) {
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

/// The shortest of two ways of doing the same, in turn, and their ratio.
class Race {
  public:
    template <class Ours, class Theirs>
    void Run(const Ours& ours, const Theirs& theirs) {
        ours_ = std::min(ours_, Milliseconds(ours));
        theirs_ = std::min(theirs_, Milliseconds(theirs));
    }
    void Tell(benchmark::State& state) const {
        state.counters["ours_ms"] = ours_;
        state.counters["alone_ms"] = theirs_;
        state.counters["ratio"] = ours_ / theirs_;
    }

  private:
    double ours_ = 1e9, theirs_ = 1e9;
};

/// A4 in colour at 300 dots an inch: the whole command up to the file, its windows answered at once.
void ScanA4(benchmark::State& state) {
    const std::string folder = App.Path();
    std::ofstream(folder + "/dll.conf") << "test\n";
    std::ofstream(folder + "/test.conf")
        << "number_of_devices 1\nmode Color\nresolution_min 1\nresolution_max 1200\nresolution 300\n"
           "geometry_min 0\ngeometry_max 300\nbr_x 210\nbr_y 297\ntest-picture \"Color pattern\"\n";
    ::setenv("SANE_CONFIG_DIR", folder.c_str(), 1);
    if (OpenScannerLibrary() == nullptr) {
        state.SkipWithError("the scanner library is not installed");
        return;
    }
    QTimer answers;
    QObject::connect(&answers, &QTimer::timeout, [] {
        if (!frmScan.Loaded() || !frmScan->Visible()) return;
        frmScan->cboPaper.ListIndex(1); // A4
        frmScan->cmdOK.Click();
    });
    answers.start(1);
    const std::string ours = folder + "/page.bmp";
    const std::string command =
        "scanimage -d test:0 --format=pnm --mode Color --resolution 300 -l 0 -t 0 -x 210 "
        "-y 297 > " +
        folder + "/page.pnm 2>/dev/null";
    Race race;
    for (auto _ : state) {
        race.Run([&] { TWAIN_AcquireToFilename(&*frmMain, ours); },
                 [&] { state.counters["code"] = std::system(command.c_str()); });
    }
    const Picture page = LoadPicture(ours);
    state.counters["pixels"] = static_cast<double>(page.Width()) * page.Height();
    race.Tell(state);
}

/// A line of the system's report on this process, in megabytes.
double Megabytes(const std::string& name) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with(name + ":")) return std::stod(line.substr(name.size() + 1)) / 1024;
    }
    return 0;
}

/// How much more memory the work takes than was there before it, at its peak.
template <class Work>
double PeakAbove(const Work& work) {
    std::ofstream("/proc/self/clear_refs") << 5;
    const double before = Megabytes("VmRSS");
    work();
    return Megabytes("VmHWM") - before;
}

/// 24 million pixels into a PDF file: 0 at their own size, which a page cuts off, 1 all of them on the page.
void PrintPhotograph(benchmark::State& state) {
    const bool whole = state.range(0) != 0;
    const Picture picture = Noise(kLargeWidth, kLargeHeight);
    const std::string file = App.Path() + "/page.pdf";
    const auto ours = [&] {
        Printer().PrintToFileForTests(file);
        if (whole) {
            const double width = Printer().ScaleWidth();
            Printer().PaintPicture(picture, 0, 0, width, width * kLargeHeight / kLargeWidth);
        } else {
            Printer().PaintPicture(picture, 0, 0);
        }
        Printer().EndDoc();
    };
    const QImage image = ImageOf(picture);
    const auto alone = [&] {
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(QString::fromStdString(file));
        QPainter painter(&printer);
        painter.setRenderHint(QPainter::LosslessImageRendering);
        const double side = whole ? printer.pageRect(QPrinter::DevicePixel).width()
                                  : kLargeWidth * printer.resolution() / 96.0;
        painter.drawImage(QRectF(0, 0, side, side * kLargeHeight / kLargeWidth), image);
        painter.end();
    };
    Race race;
    for (auto _ : state)
        race.Run(ours, alone);
    race.Tell(state);
    state.counters["peak_MB"] = PeakAbove(ours);
    Printer().PrintToFileForTests("");
}

/// Both scales moved on and painted, as each step of a scroll does.
void RulersWhileScrolling(benchmark::State& state) {
    RulersOn = true;
    const int level = static_cast<int>(state.range(0));
    const Document document(level == 30 ? 2000 : kLargeWidth, level == 30 ? 1500 : kLargeHeight, kViewWidth,
                            kViewHeight);
    frmImage& image = *document.image;
    image.Timer2.Tick();
    document.Zoom(level);
    int at = 0;
    for (auto _ : state) {
        at = (at + 7) % 200;
        image.ImgTrule.Left(image.LeftRuler.ScaleWidth() - at);
        image.ImgLrule.Top(-at);
        image.TopRuler.Refresh();
        image.LeftRuler.Refresh();
    }
    RulersOn = false;
}

/// The scales drawn anew, as each zoom and resize does.
void DrawRulers(benchmark::State& state) {
    RulersOn = true;
    const int level = static_cast<int>(state.range(0));
    const Document document(level == 30 ? 2000 : kLargeWidth, level == 30 ? 1500 : kLargeHeight, kViewWidth,
                            kViewHeight);
    document.Zoom(level);
    for (auto _ : state)
        document.image->drawrulers();
    RulersOn = false;
}

BENCHMARK(ScanA4)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(7);
BENCHMARK(PrintPhotograph)
    ->ArgName("whole")
    ->Arg(0)
    ->Arg(1)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(3);
BENCHMARK(RulersWhileScrolling)->ArgName("level")->Arg(0)->Arg(15)->Arg(30)->Unit(benchmark::kMicrosecond);
BENCHMARK(DrawRulers)->ArgName("level")->Arg(0)->Arg(15)->Arg(30)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace pintalux

int main(int argc, char** argv) {
    return pintalux::RunBenchmarks(argc, argv);
}
