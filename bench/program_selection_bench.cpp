// Selections on a photograph: lifting, carrying by one step, merging, for a rectangle and for a drawn
// outline. `per_pixel` is the time by the pixels of the piece's box.
#include "Program.h"

#include "document/BarPositions.h"
#include "selection/FreehandSelection.h"
#include "selection/RectangleSelection.h"
#include "surface/system/Pictures.h"

namespace pintalux {
namespace {

constexpr int kSide = 2000;

void PerPixel(benchmark::State& state) {
    state.counters["per_pixel"] =
        benchmark::Counter(static_cast<double>(kSide) * kSide * static_cast<double>(state.iterations()),
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void DragOver(frmImage& image, int tool, const std::vector<QPoint>& points) {
    CurrentTool = static_cast<std::int16_t>(tool);
    Send(image, QEvent::MouseButtonPress, points.front().x(), points.front().y(), Qt::LeftButton,
         Qt::LeftButton);
    for (const QPoint& point : points)
        Send(image, QEvent::MouseMove, point.x(), point.y(), Qt::NoButton, Qt::LeftButton);
    Send(image, QEvent::MouseButtonRelease, points.back().x(), points.back().y(), Qt::LeftButton,
         Qt::NoButton);
}

void LiftRectangle(benchmark::State& state) {
    const Document document(kLargeWidth, kLargeHeight, kViewWidth, kViewHeight);
    frmImage& image = *document.image;
    image.SelectLeft = image.SelectTop = 300;
    image.Selectwidth = image.Selectheight = kSide;
    for (auto _ : state)
        SelectionBlit(image);
    PerPixel(state);
}

// What one tick of a drag costs, the repaint with it.
void CarryRectangle(benchmark::State& state) {
    const Document document(kLargeWidth, kLargeHeight, kViewWidth, kViewHeight);
    frmImage& image = *document.image;
    DragOver(image, kSelectTool, {{300, 300}, {300 + kSide, 300 + kSide}});
    int at = 0;
    for (auto _ : state) {
        image.PicSelect.Move(-++at % 100, 10, image.PicSelect.Width(), image.PicSelect.Height());
        QCoreApplication::processEvents();
    }
    CurrentTool = kPointerTool;
}

void MergeRectangle(benchmark::State& state) {
    const Document document(kLargeWidth, kLargeHeight, kViewWidth, kViewHeight);
    frmImage& image = *document.image;
    for (auto _ : state) {
        state.PauseTiming();
        DragOver(image, kSelectTool, {{300, 300}, {300 + kSide, 300 + kSide}});
        image.PicSelect.Left(image.PicSelect.Left() + 37);
        state.ResumeTiming();
        image.NeedtoPaste();
    }
    PerPixel(state);
    CurrentTool = kPointerTool;
}

// A diamond whose box is 2000 by 2000.
const std::vector<QPoint> kDiamond = {{1300, 301}, {2299, 1300}, {1300, 2300}, {300, 1300}};

void LiftFreehand(benchmark::State& state) {
    const Document document(kLargeWidth, kLargeHeight, kViewWidth, kViewHeight);
    frmImage& image = *document.image;
    for (auto _ : state) {
        state.PauseTiming();
        image.PicFreeSelect.Visible(false);
        CurrentTool = kFreeSelectTool;
        FreeSelectPress(image, kDiamond.front().x(), kDiamond.front().y());
        for (const QPoint& point : kDiamond)
            FreeSelectMove(image, point.x(), point.y());
        state.ResumeTiming();
        image.MakeSelection();
    }
    PerPixel(state);
    CurrentTool = kPointerTool;
}

void Shape(benchmark::State& state) {
    const Document document(kLargeWidth, kLargeHeight, kViewWidth, kViewHeight);
    frmImage& image = *document.image;
    DragOver(image, kFreeSelectTool, kDiamond);
    for (auto _ : state)
        image.ShapeMe(MaskKeyColour, true, image.PicFreeSelect);
    PerPixel(state);
    image.PicFreeSelect.Visible(false);
    CurrentTool = kPointerTool;
}

BENCHMARK(LiftRectangle)->Unit(benchmark::kMillisecond);
BENCHMARK(CarryRectangle)->Unit(benchmark::kMicrosecond);
BENCHMARK(MergeRectangle)->Unit(benchmark::kMillisecond)->Iterations(10);
BENCHMARK(LiftFreehand)->Unit(benchmark::kMillisecond)->Iterations(10);
BENCHMARK(Shape)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace pintalux

int main(int argc, char** argv) {
    return pintalux::RunBenchmarks(argc, argv);
}
