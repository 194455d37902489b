#include "base/VectorClones.h"
#include "imageops/ImgFiltMod.h"
#include "imageops/Landing.h"
#include "imageops/PixelTable.h"
#include "imageops/RowLoop.h"
#include "surface/window/ProgressBar.h"
#include "surface/window/Surface.h"

#include <algorithm>
#include <cstdlib>

namespace pintalux {

namespace {

/// level^3, cut to what a difference of two colours can be compared with.
int LimitOf(std::int64_t level) {
    return static_cast<int>(std::clamp<std::int64_t>(level * level * level, -1, 0xFFFFFF));
}

/// Black where a pixel differs by more than `limit` from the one above or left of it, else `blank`.
// Intended: colours are compared as plain numbers, so that a step of blue counts 65536 times one of red and
// outlines follow the light of the picture's blue.
PINTALUX_VECTOR_CLONES
void OutlineRun(const Pixel* pixels, const Pixel* above, const Pixel* left, Pixel* out, int count, int limit,
                Pixel blank) {
    for (int i = 0; i < count; ++i) {
        const int colour = static_cast<int>(pixels[i]);
        const int toAbove = std::abs(colour - static_cast<int>(above[i]));
        const int toLeft = std::abs(colour - static_cast<int>(left[i]));
        out[i] = std::max(toAbove, toLeft) > limit ? Pixel{0} : blank;
    }
}

} // namespace

void OutlineFilter(Surface& work, Surface& live, ProgressBar& Pb, std::int16_t level) {
    const Box loop{1, 1, LoopEnd(live.ScaleWidth() - 1), LoopEnd(live.ScaleHeight() - 1)};
    SetProgressMax(Pb, work.ScaleWidth() - 1);
    work.Picture({});
    // Intended: a freehand selection gets no outlines and ends as a blank rectangle.
    if (!MaskIsUp()) {
        const PixelTable read = ReadPixels(live);
        const int limit = LimitOf(level);
        const Pixel blank = PixelOf(work.BackColor());
        ForPixels(work, loop, Pb, [&](int x, int y, int count, Pixel* out) {
            PixelTable::Room here, upper, before;
            OutlineRun(read.Run(x, y, count, here.data()), read.Run(x, y - 1, count, upper.data()),
                       read.Run(x - 1, y, count, before.data()), out, count, limit, blank);
        });
    }
    Pb.Value(0);
    Land(work, live, work);
}

} // namespace pintalux
