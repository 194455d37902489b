// The loop of a pixel routine over the surface that it writes: bounds, cores, mask, progress.
//
// The columns and rows of an image are independent of each other, as the routines read a `PixelTable`. So the
// loop goes by rows, whose pixels lie side by side, in chunks of rows: all cores work on a chunk, then the
// progress bar moves.
#pragma once

#include "surface/raster/Bitmap.h"

#include <functional>
#include <span>

namespace pintalux {

class PixelTable;
struct ChannelRuns;
class ProgressBar;
class Surface;

/// The end, exclusive, of a loop whose last value is `last`, rounded to 16 bits. Error 6 where the loop would
/// count beyond 32767.
int LoopEnd(double last);

/// Sets `Pb.Max`; an image too small for its routine leaves it at 0.
void SetProgressMax(ProgressBar& Pb, double max);

enum class Cores { All, One };

/// Calls rows(top, bottom) for parts of the box that cover its rows once, from top to bottom if on one core.
/// They write every pixel of the box, cut to the surface: what it showed there is gone. Moves `Pb` from 0 to
/// its `Max` and back to 0.
void ForRows(Surface& surface, const Box& box, ProgressBar& Pb, Cores cores,
             const std::function<void(int top, int bottom)>& rows);

/// The same in place: what is not written stays as it was, and memory is taken for the tiles that are written
/// only. A part holds whole bands of rows. Each writes its own rows, by `WritableRun` or `WriteRow`, and may
/// read them; other rows it may not touch. As nothing is read beforehand, `Pb` starts in the middle.
void ForRowsInPlace(Surface& surface, const Box& box, ProgressBar& Pb,
                    const std::function<void(int top, int bottom)>& rows);

/// Writes the pixels of row y from x on, past the caches.
void StreamRow(Bitmap& bits, int x, int y, std::span<const Pixel> pixels);

/// Makes `out`, the `count` pixels of row y from x on; all lie in one tile.
using MakePixels = std::function<void(int x, int y, int count, Pixel* out)>;

/// Writes every pixel of the box, run by run.
void ForPixels(Surface& surface, const Box& box, ProgressBar& Pb, const MakePixels& make);

/// Makes the channels `computed` of `count` pixels of row y from x on, all in one tile, of their channels
/// `Px`.
using MakeChannels =
    std::function<void(int x, int y, int count, const ChannelRuns& Px, ChannelRuns& computed)>;

/// Whether the pixels that hold `MaskKeyColour` stay as they are: while `FreeSelActive` is set. A routine
/// reads it once, before its loop.
bool MaskIsUp();

/// Whether a routine heeds the mask.
enum class Mask { Honoured, Ignored };

/// The same from the table of the surface. What comes out above 255 is cut.
void ForChannels(Surface& work, const PixelTable& Px, const Box& box, Mask mask, ProgressBar& Pb,
                 const MakeChannels& make);

/// Puts back the pixels that the mask protects: those of the row of the table from x, y on.
void KeepMasked(const PixelTable& Px, int x, int y, int count, Pixel* out);

} // namespace pintalux
