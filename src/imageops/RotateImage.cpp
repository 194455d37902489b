// Turns an image about a pixel in its middle, quadrant by quadrant.
#include "base/Arithmetic.h"
#include "imageops/ImgFiltMod.h"
#include "imageops/Landing.h"
#include "imageops/TurnedOffset.h"
#include "surface/raster/BandLoop.h"
#include "surface/raster/PixelWrite.h"
#include "surface/raster/StreamCopy.h"
#include "surface/window/Surface.h"

#include <algorithm>
#include <array>
#include <span>

namespace pintalux {

namespace {

/// A pixel of the source on its way to the destination; a place outside either is skipped.
struct Turn {
    const Bitmap from;
    Bitmap& to;
    int sx, sy;   ///< The centre of the source.
    int dx0, dy0; ///< The centre of the destination.
    int K;        ///< The largest distance from it.

    void Copy(int fromX, int fromY, int x, int y) const {
        if (from.Holds(fromX, fromY) && to.Holds(x, y)) to.Set(x, y, from.At(fromX, fromY));
    }
    /// The four pixels at distances i and j, one in each quadrant.
    void CopyFour(int i, int j, Offset o) const {
        Copy(sx + o.u, sy + o.v, dx0 + i, dy0 + j);
        Copy(sx - o.u, sy - o.v, dx0 - i, dy0 - j);
        Copy(sx + o.v, sy - o.u, dx0 + j, dy0 - i);
        Copy(sx - o.v, sy + o.u, dx0 - j, dy0 + i);
    }
};

void TurnByFormula(const Turn& turn, double angle) {
    for (int i = 0; i <= turn.K; ++i) {
        for (int j = 0; j <= turn.K; ++j)
            turn.CopyFour(i, j, TurnedOffset(i, j, angle));
    }
}

constexpr int kSide = 32; // Of the squares that are turned at a time, so that both sides of them stay cached.

/// The pixels of a square of the destination, which lies in one tile: at x, y the source's sx + sign * (y -
/// dy0), sy - sign * (x - dx0). What the square to the right will take is fetched ahead.
void TurnSquare(const Turn& turn, const Box& square, int sign) {
    const int width = square.Width();
    const int height = square.Height();
    const int first = turn.sx + sign * (square.top - turn.dy0);
    const int left = sign > 0 ? first : first - (height - 1);
    alignas(64) std::array<std::array<Pixel, kSide>, kSide> rows;
    std::array<Pixel, kSide> column; // A row of the source.
    for (int i = 0; i < width; ++i) {
        const int fromY = turn.sy - sign * (square.left + i - turn.dx0);
        const int laterY = fromY - sign * kSide;
        if (laterY >= 0 && laterY < turn.from.Height())
            FetchAhead(turn.from.Run(left, laterY).data(), height);
        turn.from.ReadRow(left, fromY, {column.data(), static_cast<std::size_t>(height)});
        for (int j = 0; j < height; ++j) {
            rows[static_cast<std::size_t>(sign > 0 ? j : height - 1 - j)][static_cast<std::size_t>(i)] =
                column[static_cast<std::size_t>(j)];
        }
    }
    for (int j = 0; j < height; ++j) {
        const std::span row(rows[static_cast<std::size_t>(j)]);
        StreamRow(turn.to, square.left, square.top + j, row.first(static_cast<std::size_t>(width)));
    }
}

/// A right angle without trigonometry: all offsets but those of i = 0 are the distances exchanged, so that
/// squares of pixels are exchanged as wholes. `sign` is 1 for 90 degrees, -1 for 270.
// Intended: the column i = 0 is turned by a = 0. What it wrote is rewritten when j is 0, except where that
// pixel lies outside the source.
void TurnRightAngle(const Turn& turn, int sign) {
    for (int j = 0; j <= turn.K; ++j)
        turn.CopyFour(0, j, RightAngleOffset(0, j, sign));

    const Bitmap& from = turn.from;
    const Box reached{turn.dx0 - turn.K, turn.dy0 - turn.K, turn.dx0 + turn.K + 1, turn.dy0 + turn.K + 1};
    const Box inside = sign > 0 ? Box{turn.dx0 + turn.sy - from.Height() + 1, turn.dy0 - turn.sx,
                                      turn.dx0 + turn.sy + 1, turn.dy0 - turn.sx + from.Width()}
                                : Box{turn.dx0 - turn.sy, turn.dy0 + turn.sx - from.Width() + 1,
                                      turn.dx0 - turn.sy + from.Height(), turn.dy0 + turn.sx + 1};
    const Box box = Intersection(Intersection(reached, inside), turn.to.Bounds());
    static_assert(Bitmap::kTileHeight % kSide == 0);
    if (box.Empty()) return;
    turn.to.DetachTable();
    ForBands(box, [&](int top, int bottom) {
        turn.to.Overwrite({box.left, top, box.right, bottom});
        for (int y = top / kSide * kSide; y < bottom; y += kSide) {
            for (int x = box.left / kSide * kSide; x < box.right; x += kSide)
                TurnSquare(turn, Intersection({x, y, x + kSide, y + kSide}, box), sign);
        }
    });
}

} // namespace

// Intended: distances are counted from a whole pixel on both sides, so that of an even side the first row or
// column of the turned image shows the background, and a turn and the turn back need not give the image
// again.
void RotateImage(Surface& source, Surface& destination, double& angle) {
    destination.AutoSize(false);
    destination.Height(source.Width());
    destination.Width(source.Height());
    destination.Picture({});
    const double degrees = angle;
    angle = RadiansOf(degrees);
    const int sx = ToInt32(source.ScaleWidth()) / 2;
    const int sy = ToInt32(source.ScaleHeight()) / 2;
    const int dx0 = ToInt32(destination.ScaleWidth()) / 2;
    const int dy0 = ToInt32(destination.ScaleHeight()) / 2;
    const int K = std::max(dx0, dy0) - 1;
    MultiplyInt16(2, K); // Error 6 for a side that 16-bit distances don't reach.

    {
        const PixelWrite write(destination.hDC());
        const Turn turn{source.hDC().Bits(), write.Bits(), sx, sy, dx0, dy0, K};
        if (degrees == 90 || degrees == 270) {
            TurnRightAngle(turn, degrees == 90 ? 1 : -1);
        } else {
            TurnByFormula(turn, angle);
        }
    }
    LandOnDestination(destination);
}

} // namespace pintalux
