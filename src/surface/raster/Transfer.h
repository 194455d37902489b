// Copies between contexts: plain, stretched, mirrored, inverted, with a transparent colour.
//
// A destination cell d of D cells takes the source cell under its centre, ceil((d + 1/2) * s / D) - 1 of s.
// Of 4 cells copied to 2 these are cells 0 and 2. Pixels are repeated or dropped, never blended. A negative
// width or height mirrors exactly. A destination pixel whose source lies outside is left alone. Copying a
// bitmap onto itself reads before it writes.
#pragma once

#include "surface/raster/DeviceContext.h"

#include <cstdint>

namespace pintalux {

inline constexpr std::uint32_t SRCCOPY = 0x00CC0020;
inline constexpr std::uint32_t NOTSRCCOPY = 0x00330008; ///< Inverts the 24 bits on the way.

/// A place with an extent; negative extents mirror.
struct Extent {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
};

/// The cell, of `source` cells, that cell `d` of `destination` cells takes: cell 1 of 2 takes cell 2 of 4.
/// Exact for every size above 0.
int StretchedCell(int d, int source, int destination);

/// Copies without stretching.
void BitBlt(DeviceContext& to, int x, int y, int width, int height, const DeviceContext& from, int fromX,
            int fromY, std::uint32_t rop);

/// Copies the source extent to the destination extent. `rop` is SRCCOPY or NOTSRCCOPY; another is error 5.
void StretchBlt(DeviceContext& to, const Extent& place, const DeviceContext& from, const Extent& fromPlace,
                std::uint32_t rop);

/// The same from a bitmap that has no context.
void StretchBits(DeviceContext& to, const Extent& place, const Bitmap& from, const Extent& fromPlace,
                 std::uint32_t rop);

/// Copies like `StretchBlt`, leaving the destination alone where the stretched pixel has the key colour.
void TransparentBlt(DeviceContext& to, const Extent& place, const DeviceContext& from,
                    const Extent& fromPlace, Colour key);

/// What a stretching display puts on the screen: `source` at `width` by `height` pixels, of which the part
/// `visible` is written. Enlarged pixels stay hard. Along an axis that is reduced a screen pixel is the mean
/// of up to four evenly spread samples, so that a photograph does not glitter. `out` takes visible.Height()
/// rows, `stride` pixels apart, as 0xFFRRGGBB. Costs what is visible, whatever the size of the source.
void StretchForScreen(const Bitmap& source, int width, int height, const Box& visible, std::uint32_t* out,
                      int stride);

} // namespace pintalux
