// Scanner, printer and rulers: a page of the scanner library's test device beside the library's own program,
// a printed photograph beside the toolkit's painter alone, the rulers while the view scrolls.
#include "Program.h"

#include "devices/frmScan.h"
#include "devices/modTwain.h"
#include "devices/sane/SaneCalls.h"
#include "devices/sane/Scanner.h"
#include "surface/system/BmpRows.h"
#include "surface/system/Pictures.h"
#include "surface/system/Printer.h"
#include "surface/system/ToolkitImages_native.h"

#include <benchmark/benchmark.h>
#include <chrono>
#include <fstream>
#include <optional>
#include <QPainter>
#include <QPrinter>
#include <QTimer>
#include <sstream>

namespace pintalux {
namespace {

double MillisecondsSince(std::chrono::steady_clock::time_point begin) {
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

template <class Work>
double Milliseconds(const Work& work) {
    const auto begin = std::chrono::steady_clock::now();
    work();
    return MillisecondsSince(begin);
}

/// The shortest of two ways of doing the same, in turn, and their ratio.
class Race {
  public:
    template <class Ours, class Theirs>
    void Run(const Ours& ours, const Theirs& theirs) {
        Note(Milliseconds(ours), Milliseconds(theirs));
    }
    void Note(double ours, double theirs) {
        ours_ = std::min(ours_, ours);
        theirs_ = std::min(theirs_, theirs);
    }
    void Tell(benchmark::State& state) const {
        state.counters["ours_ms"] = ours_;
        state.counters["alone_ms"] = theirs_;
        state.counters["ratio"] = ours_ / theirs_;
    }

  private:
    double ours_ = 1e9, theirs_ = 1e9;
};

/// The library's test device as the only scanner; false without the library.
bool HaveTestDevice(benchmark::State& state) {
    const std::string folder = App.Path();
    std::ofstream(folder + "/dll.conf") << "test\n";
    std::ofstream(folder + "/test.conf")
        << "number_of_devices 1\nmode Color\nresolution_min 1\nresolution_max 1200\nresolution 300\n"
           "geometry_min 0\ngeometry_max 300\nbr_x 210\nbr_y 297\ntest-picture \"Color pattern\"\n";
    ::setenv("SANE_CONFIG_DIR", folder.c_str(), 1);
    if (OpenScannerLibrary() != nullptr) return true;
    state.SkipWithError("the scanner library is not installed");
    return false;
}

/// A4 in colour at 300 dots an inch by the library's own program, into a file.
void ScanByCommandLine() {
    const std::string command =
        "scanimage -d test:0 --format=pnm --mode Color --resolution 300 -l 0 -t 0 -x 210 -y 297 > " +
        App.Path() + "/page.pnm 2>/dev/null";
    if (std::system(command.c_str()) != 0) throw RuntimeError(kDeviceError);
}

/// The same by ours: the device opened, asked and read into a file, and its rest, which no user waits for.
void ScanA4(benchmark::State& state) {
    if (!HaveTestDevice(state)) return;
    const std::string path = App.Path() + "/page.bmp";
    const auto ours = [&path] {
        std::filesystem::remove(path);
        Scanner scanner("test:0");
        ScanProgress progress;
        std::optional<BmpRows> file;
        const auto take = [&](std::span<const std::uint8_t> row) {
            if (!file) file.emplace(path, static_cast<int>(row.size() / 3));
            file->Add(row);
        };
        scanner.Scan({300, "Color", {0, 0, 210, 297}}, progress, take, [&file] { file->Finish(); });
    };
    Race race;
    for (auto _ : state)
        race.Run(ours, ScanByCommandLine);
    const Picture page = LoadPicture(path);
    state.counters["pixels"] = static_cast<double>(page.Width()) * page.Height();
    race.Tell(state);
}

/// From the press of "Digitalizar" to the file, the windows of the wait included.
void ScanA4WithItsWindows(benchmark::State& state) {
    if (!HaveTestDevice(state)) return;
    std::chrono::steady_clock::time_point pressed;
    QTimer answers;
    QObject::connect(&answers, &QTimer::timeout, [&pressed] {
        if (!frmScan.Loaded() || !frmScan->Visible()) return;
        frmScan->cboPaper.ListIndex(1); // A4
        pressed = std::chrono::steady_clock::now();
        frmScan->cmdOK.Click();
    });
    answers.start(1);
    const std::string path = App.Path() + "/page.bmp";
    Race race;
    for (auto _ : state) {
        std::filesystem::remove(path);
        state.counters["result"] = TWAIN_AcquireToFilename(&*frmMain, path);
        race.Note(MillisecondsSince(pressed), Milliseconds(ScanByCommandLine));
    }
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

BENCHMARK(ScanA4)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(15);
BENCHMARK(ScanA4WithItsWindows)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(15);
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
