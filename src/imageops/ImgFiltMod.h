// The pixel routines behind the image commands. Each runs over a work surface, and its result lands on the
// work and the live surface, each with a picture of its own. The command that calls decides what the two are,
// loads the work surface and commits what landed.
//
// What they share: W and H are the work surface's `ScaleWidth` and `ScaleHeight`; loops run on 16-bit
// coordinates, so that a side above 32767 is error 6; colours are taken apart by `SplitChannels`; a channel
// above 255 is cut to 255 at the write. Where a routine honours the mask and `FreeSelActive` is -1, pixels of
// the work surface that hold `MaskKeyColour` stay as they are. `Pb` gets its `Max`, moves with the work and
// is back at 0 at the end; `InvertFilter` alone leaves it as it is. All filters have one shape, so that a
// table can hold them; one without a level takes no notice of it.
#pragma once

#include <cstdint>

namespace pintalux {

class ProgressBar;
class Surface;

// Tone and neighbourhood. They read the state before the first write, so that no pixel sees a changed
// neighbour.

/// Level 1 to 10. Moves each channel away from its upper left neighbour by level / 2 of their difference;
/// above 200 becomes 240. First row and column stay.
void SharpenFilter(Surface& work, Surface& live, ProgressBar& Pb, std::int16_t level);

/// Level 1 to 10: the stride. A tenth of the sum of nine pixels, so that the picture also darkens by a tenth.
/// First row and column and the last level - 1 stay.
void SoftenFilter(Surface& work, Surface& live, ProgressBar& Pb, std::int16_t level);

/// Level -100 to -10 or 10 to 100, added to each channel. A channel that would fall below 0 is reflected: 5
/// at level -30 gives 25. The near-white rule follows.
void BrightnessFilter(Surface& work, Surface& live, ProgressBar& Pb, std::int16_t level);

/// 0.59 green + 0.3 red + 0.11 blue, added in this order, rounded half to even; white where two channels are
/// 241 or more.
void GreyFilter(Surface& work, Surface& live, ProgressBar& Pb, std::int16_t level);

/// Level 100 to 200: the grey of flat areas. The difference to the lower right neighbour is laid on it, at
/// most 220; beyond the right and bottom edge the neighbour is black.
void EmbossFilter(Surface& work, Surface& live, ProgressBar& Pb, std::int16_t level);

/// Inverts all 24 bits of every pixel, the mask colour's too. Lands from the live surface.
void InvertFilter(Surface& work, Surface& live, ProgressBar& Pb, std::int16_t level);

// Scatter, outline, pixelate.

/// Level 1 to 10: how far right and down a pixel may be fetched from, by `TheRandomNumbers`. First row and
/// column and the last two of each stay. In place, top to bottom.
void ScatterFilter(Surface& work, Surface& live, ProgressBar& Pb, std::int16_t level);

/// Level 50 to 250. Black where a pixel of the live surface differs from the one above or left of it by more
/// than level^3, both taken as plain numbers; the rest is the work surface's background. With `FreeSelActive`
/// at -1 nothing is drawn.
void OutlineFilter(Surface& work, Surface& live, ProgressBar& Pb, std::int16_t level);

/// Level 5 to 50: the side of a box. Reads the work surface, paints boxes on the live one; nothing lands.
void PixelateFilter(Surface& work, Surface& live, ProgressBar& Pb, std::int16_t level);

// Colour steps.

/// Mode 0, 1, 2: 20 more red, green, blue; 3, 4, 5: 20 less, reflected at 0. The near-white rule follows. The
/// mask is not honoured.
void ColourStep(Surface& work, Surface& live, ProgressBar& Pb, std::int16_t mode);

// Flip and rotate. The result lands on the destination only, which takes its size.

/// -1 mirrors left to right, anything else top to bottom.
void FlipImage(Surface& destination, Surface& source, std::int16_t horizontal);

/// Turns by `angle` degrees (in practice 90 or 270) over a polar mapping with whole radii, about the pixel in
/// the middle; where it leaves a hole, the background shows. `angle` holds radians afterwards. Error 6 where
/// the longer side exceeds 32769.
void RotateImage(Surface& source, Surface& destination, double& angle);

} // namespace pintalux
