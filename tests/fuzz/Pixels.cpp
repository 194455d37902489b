// The pixel routines beside their slow models. The first bytes choose routine, level, size and whether a
// piece is cut out; the others are the pixels.
#include "fuzz/Fuzz.h"

#include "base/Parallel.h"
#include "document/Globals.h"
#include "imageops/FilterModels.h"
#include "imageops/ImgFiltMod.h"
#include "support/Errors.h"
#include "surface/system/App.h"
#include "surface/window/Form.h"
#include "surface/window/ProgressBar.h"
#include "surface/window/Surface.h"

#include <functional>

namespace pintalux {
namespace {

struct Routine {
    void (*real)(Surface&, Surface&, ProgressBar&, std::int16_t);
    void (*slow)(FilterModel&, int level);
    int lowest;
    int count; ///< Of levels.
};
constexpr Routine kRoutines[] = {
    {SharpenFilter, [](FilterModel& m, int level) { m.Sharpen(level); }, 1, 10},
    {SoftenFilter, [](FilterModel& m, int level) { m.Soften(level); }, 1, 10},
    {BrightnessFilter, [](FilterModel& m, int level) { m.Brightness(level); }, -100, 201},
    {GreyFilter, [](FilterModel& m, int) { m.Grey(); }, 0, 1},
    {EmbossFilter, [](FilterModel& m, int level) { m.Emboss(level); }, 100, 101},
    {InvertFilter, [](FilterModel& m, int) { m.Invert(); }, 0, 1},
    {ColourStep, [](FilterModel& m, int level) { m.ColourStep(level); }, 0, 6},
    {OutlineFilter, [](FilterModel& m, int level) { m.Outline(level); }, 50, 201},
    {PixelateFilter, [](FilterModel& m, int level) { m.Pixelate(level); }, 5, 46},
};

class Window : public Form {
  public:
    Window() : Form("pixels", Kind::Dialog) {
        ScaleMode(kScalePixels);
        work.AutoSize(true);
        live.AutoSize(true);
    }
    Surface work{*this, "picsource"};
    Surface live{*this, "PicMerge"};
    ProgressBar Pb{*this, "Pb"};
};

/// The bytes as pixels, over and over.
Bitmap PictureFrom(int width, int height, std::span<const std::uint8_t> bytes) {
    Bitmap picture(width, height, 0);
    std::size_t at = 0;
    const auto next = [&] { return bytes.empty() ? Pixel{0} : Pixel{bytes[at++ % bytes.size()]}; };
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const Pixel red = next();
            const Pixel green = next();
            picture.Set(x, y, red == 7 ? PixelOf(MaskKeyColour) : red | green << 8 | next() << 16);
        }
    }
    return picture;
}

ModelSurface ModelOf(const Surface& surface) {
    ModelSurface model(surface.Image(), surface.BackColor(), surface.AutoSize());
    model.stored = surface.Picture();
    return model;
}

} // namespace
} // namespace pintalux

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace pintalux;
    static int argc = 1;
    static char name[] = "fuzz";
    static char* argv[] = {name, nullptr};
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    // Neither goes: the toolkit's own tables are gone before what stands here would be.
    static auto& application = *new Application(argc, argv);
    static auto& window = *new Window;
    static_cast<void>(application);
    if (size < 6) return 0;
    const Routine& routine = kRoutines[data[0] % std::size(kRoutines)];
    const auto level = static_cast<std::int16_t>(routine.lowest + data[1] % routine.count);
    FreeSelActive = data[2] % 2 != 0;
    // About the edges of the tiles too.
    const int width = 1 + data[3] + (data[2] & 2) * 4;
    const int height = 1 + data[4] % 70;
    const std::span<const std::uint8_t> bytes(data + 5, size - 5);
    window.live.Picture(PictureFrom(width, height, bytes.subspan(bytes.size() / 2)));
    window.work.Picture(PictureFrom(width, height, bytes));
    FilterModel expected(ModelOf(window.work), ModelOf(window.live), FreeSelActive);
    const int expectedError = ErrorOf([&] { routine.slow(expected, level); });
    const int error = ErrorOf([&] { routine.real(window.work, window.live, window.Pb, level); });
    Demand(error == expectedError);
    if (error != 0) return 0;
    Demand(window.work.Image() == expected.work.shown);
    Demand(window.live.Image() == expected.live.shown);
    Demand(window.work.Picture() == expected.work.stored);
    Demand(window.live.Picture() == expected.live.stored);
    return 0;
}
