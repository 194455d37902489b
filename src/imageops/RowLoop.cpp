#include "imageops/RowLoop.h"

#include "base/Arithmetic.h"
#include "document/Globals.h"
#include "imageops/PixelTable.h"
#include "surface/raster/BandLoop.h"
#include "surface/raster/PixelWrite.h"
#include "surface/raster/StreamCopy.h"
#include "surface/window/ProgressBar.h"
#include "surface/window/Surface.h"

#include <algorithm>

namespace pintalux {

int LoopEnd(double last) {
    return AddInt16(ToInt16(last), 1);
}

void SetProgressMax(ProgressBar& Pb, double max) {
    Pb.Max(std::max(0.0, max));
}

void ForRows(Surface& surface, const Box& box, ProgressBar& Pb, Cores cores,
             const std::function<void(int top, int bottom)>& rows) {
    const PixelWrite write(surface.hDC(), box);
    Bitmap& bits = write.Bits();
    const Box& area = write.Area();
    if (area.Empty()) return;
    bits.DetachTable();
    const auto part = [&](int top, int bottom) {
        bits.Overwrite({area.left, top, area.right, bottom});
        rows(top, bottom);
    };
    const auto tell = [&](double share) { Pb.Value(Pb.Max() * share); };
    if (cores == Cores::All) {
        ForBands(area, part, tell);
    } else {
        ForBandsInTurn(area, part, tell);
    }
    Pb.Value(0);
}

void ForRowsInPlace(Surface& surface, const Box& box, ProgressBar& Pb,
                    const std::function<void(int top, int bottom)>& rows) {
    const PixelWrite write(surface.hDC(), box);
    Bitmap& bits = write.Bits();
    const Box& area = write.Area();
    if (area.Empty()) return;
    bits.DetachTable();
    ForBands(area, rows, [&](double share) { Pb.Value(Pb.Max() * (1 + share) / 2); });
    Pb.Value(0);
}

void KeepMasked(const PixelTable& Px, int x, int y, int count, Pixel* out) {
    PixelTable::Room room;
    const Pixel* before = Px.Run(x, y, count, room.data());
    for (int i = 0; i < count; ++i)
        out[i] = before[i] == MaskKeyColour ? before[i] : out[i];
}

void ForPixels(Surface& surface, const Box& box, ProgressBar& Pb, const MakePixels& make) {
    Bitmap& bits = surface.hDC().Bits();
    const int right = std::min(box.right, bits.Width());
    ForRows(surface, box, Pb, Cores::All, [&](int top, int bottom) {
        alignas(64) PixelTable::Room out;
        for (int y = top; y < bottom; ++y) {
            for (int x = box.left; x < right;) {
                const int count = std::min(static_cast<int>(bits.Run(x, y).size()), right - x);
                // What fills no vector is made with what lies before it, as pixels one by one would cost as
                // much as the run.
                const int rest = count > kVectorPixels ? count % kVectorPixels : 0;
                make(x, y, count - rest, out.data());
                if (rest > 0) {
                    const int last = count - kVectorPixels;
                    make(x + last, y, kVectorPixels, out.data() + last);
                }
                StreamRow(bits, x, y, {out.data(), static_cast<std::size_t>(count)});
                x += count;
            }
        }
    });
}

bool MaskIsUp() {
    return FreeSelActive;
}

void ForPixelsOf(const PixelTable& Px, Surface& work, const Box& box, Mask mask, ProgressBar& Pb,
                 const MakePixelsOf& make) {
    const bool masked = mask == Mask::Honoured && MaskIsUp();
    ForPixels(work, box, Pb, [&](int x, int y, int count, Pixel* out) {
        PixelTable::Room room;
        make(x, y, count, Px.RunDown(x, y, count, room.data()), out);
        if (masked) KeepMasked(Px, x, y, count, out);
    });
}

} // namespace pintalux
