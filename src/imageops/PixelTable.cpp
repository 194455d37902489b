#include "imageops/PixelTable.h"

#include "surface/raster/StreamCopy.h"
#include "surface/window/Surface.h"

#include <algorithm>

namespace pintalux {

const Pixel* PixelTable::RunDown(int x, int y, int count, Pixel* room) const {
    FetchRow(pixels_, x, y + 1, count);
    return Run(x, y, count, room);
}

const Pixel* PixelTable::Run(int x, int y, int count, Pixel* room) const {
    if (pixels_.Holds(x, y)) {
        const auto run = pixels_.Run(x, y);
        if (run.size() >= static_cast<std::size_t>(count)) return run.data();
    }
    const Box there = Intersection({x, y, x + count, y + 1}, pixels_.Bounds());
    if (there.Width() < count) std::fill_n(room, count, Pixel{0});
    if (!there.Empty()) {
        pixels_.ReadRow(there.left, y, {room + (there.left - x), static_cast<std::size_t>(there.Width())});
    }
    return room;
}

PixelTable ReadPixels(const Surface& surface) {
    return PixelTable(surface.hDC().Bits());
}

} // namespace pintalux
