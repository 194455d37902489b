// The running program, offscreen: what a stroke, a repaint, an opened picture and a recorded state cost. Each
// figure that must not grow with the image stands beside that of a small image; the repaint beside a plain
// copy of its pixels.
#include "Program.h"

#include "colour/ModHSL.h"
#include "document/BarPositions.h"
#include "document/FileCommands.h"
#include "document/Globals.h"
#include "document/States.h"
#include "surface/system/Clipboard.h"
#include "surface/system/Pictures.h"
#include "surface/system/ToolkitImages_native.h"

#include <benchmark/benchmark.h>
#include <chrono>
#include <QClipboard>
#include <QMimeData>

namespace pintalux {
namespace {

/// Moves of a pressed tool, five view pixels apart, to and fro in a box that both images fill.
void Stroke(benchmark::State& state, int tool) {
    const bool large = state.range(0) != 0;
    const int level = static_cast<int>(state.range(1));
    const Document document(large ? kLargeWidth : 300, large ? kLargeHeight : 300, 300, 300);
    document.Zoom(level);
    frmImage& image = *document.image;
    CurrentTool = static_cast<std::int16_t>(tool);
    const int box = level == 0 ? 16 : 200;
    Send(image, QEvent::MouseButtonPress, 1, 1, Qt::LeftButton, Qt::LeftButton);
    int at = 0;
    for (auto _ : state) {
        at += 5;
        const int x = at % box;
        const int y = at / box * 3 % box;
        Send(image, QEvent::MouseMove, x, y, Qt::NoButton, Qt::LeftButton);
    }
    Send(image, QEvent::MouseButtonRelease, 1, 1, Qt::LeftButton, Qt::NoButton);
    CurrentTool = kPointerTool;
    States().Settle();
}

void PenEvent(benchmark::State& state) {
    Stroke(state, kPenTool);
}
void EraserEvent(benchmark::State& state) {
    Stroke(state, kEraserTool);
}
void LinePreviewEvent(benchmark::State& state) {
    Stroke(state, kLineTool);
}

/// One press and release of the pen: the dot and the recorded state, up to the return.
void PenClick(benchmark::State& state) {
    const bool large = state.range(0) != 0;
    const Document document(large ? kLargeWidth : 300, large ? kLargeHeight : 300, 300, 300);
    CurrentTool = kPenTool;
    for (auto _ : state) {
        Send(*document.image, QEvent::MouseButtonPress, 20, 20, Qt::LeftButton, Qt::LeftButton);
        Send(*document.image, QEvent::MouseButtonRelease, 20, 20, Qt::LeftButton, Qt::NoButton);
        state.PauseTiming();
        States().Settle();
        state.ResumeTiming();
    }
    CurrentTool = kPointerTool;
}

/// The pixels of a view copied from one array to another, the nearest ones taken.
class PlainCopy {
  public:
    explicit PlainCopy(double factor)
        : factor_(factor), from_(static_cast<std::size_t>(kLargeWidth) * kLargeHeight, 0x123456),
          to_(static_cast<std::size_t>(kViewWidth) * kViewHeight), columns_(kViewWidth) {
        for (std::size_t x = 0; x < columns_.size(); ++x)
            columns_[x] = static_cast<std::size_t>(static_cast<double>(x) / factor_);
    }

    void Run() {
        for (std::size_t y = 0; y < kViewHeight; ++y) {
            const Pixel* row =
                &from_[static_cast<std::size_t>(static_cast<double>(y) / factor_) * kLargeWidth];
            for (std::size_t x = 0; x < columns_.size(); ++x)
                to_[y * kViewWidth + x] = row[columns_[x]];
        }
        benchmark::DoNotOptimize(to_.data());
        benchmark::ClobberMemory();
    }

  private:
    double factor_;
    std::vector<Pixel> from_;
    std::vector<Pixel> to_;
    std::vector<std::size_t> columns_;
};

/// The shortest of many runs, in microseconds: what the work costs when nothing else uses the machine.
class Shortest {
  public:
    template <class Work>
    void Time(const Work& work) {
        const auto begin = std::chrono::steady_clock::now();
        work();
        const std::chrono::duration<double, std::micro> took = std::chrono::steady_clock::now() - begin;
        if (took.count() < shortest_) shortest_ = took.count();
    }
    double Microseconds() const { return shortest_; }

  private:
    double shortest_ = 1e9;
};

/// The visible part of a large image, painted anew, in turn with the plain copy of its pixels.
void RepaintView(benchmark::State& state) {
    const int level = static_cast<int>(state.range(0));
    const Document document(kLargeWidth, kLargeHeight, kViewWidth, kViewHeight);
    document.Zoom(level);
    frmImage& image = *document.image;
    QWidget& widget = *WidgetOf(image.Image1);
    const QRect visible = widget.visibleRegion().boundingRect();
    PlainCopy plain(ZoomFactor(level));
    Shortest repaint;
    Shortest copy;
    for (auto _ : state) {
        repaint.Time([&] {
            widget.update(visible);
            image.Image1.Refresh();
        });
        copy.Time([&] { plain.Run(); });
    }
    state.counters["pixels"] = visible.width() * visible.height();
    state.counters["repaint_us"] = repaint.Microseconds();
    state.counters["copy_us"] = copy.Microseconds();
    state.counters["ratio"] = repaint.Microseconds() / copy.Microseconds();
}

/// Scrolling by the bar: up to the repainted screen.
void ScrollView(benchmark::State& state) {
    const Document document(kLargeWidth, kLargeHeight, kViewWidth, kViewHeight);
    document.Zoom(15);
    int value = 0;
    for (auto _ : state) {
        value = (value + 7) % 2000;
        document.image->VS.Value(value);
        document.image->PicBG.Refresh();
    }
}

void OpenLargePicture(benchmark::State& state) {
    const std::string path = App.Path() + "/large.bmp";
    SavePicture(Noise(kLargeWidth, kLargeHeight), path);
    for (auto _ : state) {
        OpenDocument(path);
        state.PauseTiming();
        States().Settle();
        ActiveImage().Unload();
        PassEvents();
        state.ResumeTiming();
    }
}

void RecordState(benchmark::State& state) {
    const bool large = state.range(0) != 0;
    const Document document(large ? kLargeWidth : 300, large ? kLargeHeight : 300, 300, 300);
    for (auto _ : state) {
        document.image->Backup();
        state.PauseTiming();
        States().Settle();
        state.ResumeTiming();
    }
}

/// A bitmap copied inside the program: on the clipboard, in the tray and seen there.
void CaptureToTray(benchmark::State& state) {
    const Picture copied = Noise(kLargeWidth, kLargeHeight);
    ClipHookOn(*frmMain);
    SetClipboardViewer(*frmMain);
    for (auto _ : state) {
        Clipboard.SetData(copied);
        frmMain->PicTools(4).Refresh();
    }
    ClipHookOff(*frmMain);
    Clipboard.Clear();
}

/// What a capture from another program costs beside the decoding of its bytes.
void TakeDecodedBitmap(benchmark::State& state) {
    const QImage decoded = ImageOf(Noise(kLargeWidth, kLargeHeight));
    for (auto _ : state) {
        frmMain->PicClip(0).Picture(PictureOfImage(decoded));
        frmMain->ImgClip(0).Picture(frmMain->PicClip(0).Image());
        frmMain->PicTools(4).Refresh();
    }
    frmMain->PicClip(0).Picture(Picture());
}

/// The bytes of that bitmap, copied: 0 into fresh memory, as a capture does, 1 into memory that is there.
void CopyOfTheBytes(benchmark::State& state) {
    const std::vector<Pixel> from(static_cast<std::size_t>(kLargeWidth) * kLargeHeight, 0x123456);
    std::vector<Pixel> to(from);
    for (auto _ : state) {
        if (state.range(0) == 0) to = std::vector<Pixel>();
        to = from;
        benchmark::DoNotOptimize(to.data());
        benchmark::ClobberMemory();
    }
}

/// What another program waits for when it pastes ours: 0 BMP, 1 PNG.
void OfferBitmap(benchmark::State& state) {
    Clipboard.SetData(Noise(kLargeWidth, kLargeHeight));
    const QString format = state.range(0) == 0 ? "image/bmp" : "image/png";
    for (auto _ : state)
        benchmark::DoNotOptimize(QGuiApplication::clipboard()->mimeData()->data(format));
    Clipboard.Clear();
}

void ColourToHsl(benchmark::State& state) {
    Colour colour = 1;
    for (auto _ : state) {
        benchmark::DoNotOptimize(RgbToHsl(colour));
        colour = (colour * 5 + 0x2F1D) & 0xFFFFFF;
    }
}

void HslToColour(benchmark::State& state) {
    HslValue hsl{0, 1, 2};
    for (auto _ : state) {
        benchmark::DoNotOptimize(HslToRgb(hsl));
        hsl = {static_cast<std::int16_t>((hsl.Hue + 7) % 241),
               static_cast<std::int16_t>((hsl.Sat + 11) % 241),
               static_cast<std::int16_t>((hsl.Lum + 13) % 241)};
    }
}

void ImageAndZoom(benchmark::internal::Benchmark* benchmark) {
    benchmark->ArgNames({"large", "level"})->Unit(benchmark::kMicrosecond);
    for (const int level : {0, 15, 30})
        for (const int large : {0, 1})
            benchmark->Args({large, level});
}

BENCHMARK(PenEvent)->Apply(ImageAndZoom);
BENCHMARK(EraserEvent)->Apply(ImageAndZoom);
BENCHMARK(LinePreviewEvent)->Apply(ImageAndZoom);
BENCHMARK(PenClick)
    ->ArgName("large")
    ->Arg(0)
    ->Arg(1)
    ->Unit(benchmark::kMicrosecond)
    ->UseRealTime()
    ->Iterations(15);
BENCHMARK(RepaintView)
    ->ArgName("level")
    ->Arg(12)
    ->Arg(15)
    ->Arg(18)
    ->Unit(benchmark::kMicrosecond)
    ->Iterations(300);
BENCHMARK(ScrollView)->Unit(benchmark::kMicrosecond);
BENCHMARK(OpenLargePicture)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(5);
BENCHMARK(RecordState)
    ->ArgName("large")
    ->Arg(0)
    ->Arg(1)
    ->Unit(benchmark::kMicrosecond)
    ->UseRealTime()
    ->Iterations(15);
BENCHMARK(CopyOfTheBytes)->ArgName("there")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(CaptureToTray)->Unit(benchmark::kMillisecond);
BENCHMARK(TakeDecodedBitmap)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(OfferBitmap)->ArgName("png")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(ColourToHsl);
BENCHMARK(HslToColour);

} // namespace
} // namespace pintalux

int main(int argc, char** argv) {
    return pintalux::RunBenchmarks(argc, argv);
}
