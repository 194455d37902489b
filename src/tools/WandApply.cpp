// One pass of the colour wand over the pixels of its disc.
#include "base/Arithmetic.h"
#include "surface/raster/PixelWrite.h"
#include "surface/window/Surface.h"
#include "tools/Wand.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <vector>

namespace pintalux {

namespace {

/// How often the shift is added, by the squared distance from the centre: of each ring the part that no ring
/// before it covers. Empty if the wand was stopped.
using Repeats = std::vector<std::int32_t>;

Repeats RepeatsByDistance(std::int16_t radius, std::int16_t steps) {
    Repeats repeats;
    for (std::int16_t n = 1; n <= steps; ++n) {
        if (WandStopped) break;
        const std::int16_t r = ToInt16(static_cast<double>(radius) / steps * n);
        const auto covered = static_cast<std::size_t>(MultiplyInt16(r, r)) + 1;
        if (covered > repeats.size()) repeats.resize(covered, steps - n);
    }
    return repeats;
}

constexpr std::int32_t kFull = 255;

/// A step of a whole channel and more saturates at once; cut to it, no product of it overflows.
WandShift Cut(const WandShift& shift) {
    const auto cut = [](std::int32_t step) { return std::clamp(step, -kFull, kFull); };
    return {cut(shift.red), cut(shift.green), cut(shift.blue)};
}

Pixel Shifted(Pixel pixel, const WandShift& shift, std::int32_t repeats) {
    const auto channel = [&](int bit, std::int32_t step) {
        const auto value = static_cast<std::int32_t>(pixel >> bit & 0xFF);
        return static_cast<Pixel>(std::clamp(value + repeats * step, 0, kFull)) << bit;
    };
    return channel(0, shift.red) | channel(8, shift.green) | channel(16, shift.blue);
}

/// The part of the disc in one row of the bitmap: `b` pixels below the centre, from `left` on.
void ShiftRow(Bitmap& bits, const WandShift& shift, const Repeats& repeats, int centre, int b, int y,
              int left, int right) {
    int x = left;
    while (x < right) {
        const std::span<Pixel> run = bits.WritableRun(x, y);
        const int end = std::min(right, x + static_cast<int>(run.size()));
        for (Pixel& pixel : run.first(static_cast<std::size_t>(end - x))) {
            const int a = x++ - centre;
            pixel = Shifted(pixel, shift, repeats[static_cast<std::size_t>(a * a + b * b)]);
        }
    }
}

/// All rows of the disc that lie on the bitmap.
void ShiftDisc(DeviceContext& hDC, int X, int Y, const WandShift& shift, const Repeats& repeats) {
    const int reach = repeats.empty() ? -1 : static_cast<int>(std::sqrt(repeats.size() - 1));
    const PixelWrite write(hDC, {X - reach, Y - reach, X + reach + 1, Y + reach + 1});
    const Box& disc = write.Area();
    if (disc.Empty()) return;
    for (int y = disc.top; y < disc.bottom; ++y) {
        const int b = y - Y;
        const int half = static_cast<int>(std::sqrt(reach * reach - b * b));
        ShiftRow(write.Bits(), shift, repeats, X, b, y, std::max(disc.left, X - half),
                 std::min(disc.right, X + half + 1));
    }
}

} // namespace

void WandApply(Surface& destination, Surface& source, DeviceContext& hDC, float X, float Y,
               const WandShift& shift, std::int16_t radius, std::int16_t steps) {
    const Repeats repeats = RepeatsByDistance(radius, steps);
    ShiftDisc(hDC, ToInt32(static_cast<double>(X)), ToInt32(static_cast<double>(Y)), Cut(shift), repeats);
    const Picture result = source.Image();
    destination.Picture(result);
    source.Picture(result);
}

} // namespace pintalux
