// The wand, the floating text and the colour collection in the running program, offscreen. A wand's move must
// not grow with the image; beside it stands the repaint of as many pixels by the pen.
#include "Program.h"

#include "colour/ColourPanel.h"
#include "document/BarPositions.h"
#include "document/States.h"
#include "tools/frmText.h"
#include "tools/Text.h"
#include "tools/Wand.h"

#include <QTimer>

namespace pintalux {
namespace {

/// One pass of the largest disc, without the pointer handlers and the repaint.
void WandPass(benchmark::State& state) {
    const bool large = state.range(0) != 0;
    const Document document(large ? kLargeWidth : 1000, large ? kLargeHeight : 1000, 900, 700);
    frmImage& image = *document.image;
    WandStopped = false;
    float at = 0;
    for (auto _ : state) {
        at = at > 500 ? 0 : at + 5;
        image.picsource.Picture(image.PicMerge.Image());
        WandApply(image.PicMerge, image.picsource, image.picsource.hDC(), 200 + at, 300, {1, -1, 1}, 100, 50);
        image.Image1.Picture(image.PicMerge.Image());
    }
}

/// A move of the pressed wand with the largest disc and the most rings, repaint included.
void WandMoveEvent(benchmark::State& state) {
    const bool large = state.range(0) != 0;
    const Document document(large ? kLargeWidth : 1000, large ? kLargeHeight : 1000, 900, 700);
    frmImage& image = *document.image;
    CurrentTool = kColorWandTool;
    frmMain->Slider5.Value(100);
    frmMain->Slider6.Value(50);
    Send(image, QEvent::MouseButtonPress, 500, 500, Qt::LeftButton, Qt::LeftButton);
    int at = 0;
    for (auto _ : state) {
        at = at > 500 ? 0 : at + 5;
        Send(image, QEvent::MouseMove, 200 + at, 300, Qt::NoButton, Qt::LeftButton);
    }
    Send(image, QEvent::MouseButtonRelease, 500, 500, Qt::LeftButton, Qt::NoButton);
    CurrentTool = kPointerTool;
    States().Settle();
}

/// One tick of the drag of a text of 74 points, with the repaint of where it was and where it is.
void TextDragTick(benchmark::State& state) {
    const Document document(kLargeWidth, kLargeHeight, kViewWidth, kViewHeight);
    frmImage& image = *document.image;
    image.lbltext.FontSize(74);
    image.lbltext.Caption(" A rápida raposa");
    image.lbltext.Visible(true);
    PassEvents();
    int at = 0;
    for (auto _ : state) {
        at = at > 300 ? 0 : at + 7;
        QCursor::setPos(100 + at, 100 + at / 2);
        image.Timer3.Tick();
        PassEvents();
    }
    image.lbltext.Visible(false);
}

/// The dialog of the text, from its load to its first showing, with every font of the machine.
void OpenTextDialog(benchmark::State& state) {
    for (auto _ : state) {
        QTimer::singleShot(0, qApp, [] { frmText->Command3_Click(); });
        frmText->ShowModal();
    }
}

void LoadCollection(benchmark::State& state) {
    const std::string file = App.Path() + "/bench.klc";
    CollectionTexts texts;
    for (int i = 0; i < kCollectionCells; ++i)
        texts[static_cast<std::size_t>(i)] = " " + std::to_string(i * 200000);
    WriteCollection(file, texts);
    for (auto _ : state) {
        frmMain->unloadselected();
        for (const Colour c : ReadCollection(file)) {
            frmMain->TheColor.BackColor(c);
            frmMain->loadselected();
        }
        PassEvents();
    }
}

BENCHMARK(WandPass)->ArgName("large")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);
BENCHMARK(WandMoveEvent)->ArgName("large")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);
BENCHMARK(TextDragTick)->Unit(benchmark::kMicrosecond);
BENCHMARK(OpenTextDialog)->Unit(benchmark::kMillisecond);
BENCHMARK(LoadCollection)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace pintalux

int main(int argc, char** argv) {
    return pintalux::RunBenchmarks(argc, argv);
}
