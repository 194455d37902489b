// The loop of a pixel routine over the surface that it writes: bounds, cores, mask, progress.
//
// A routine reads a `PixelTable`, which no write changes. So it may compute the pixels of an image in any
// order. The loop takes them row by row, since the pixels of a row lie side by side. It takes the rows in
// parts of whole bands, about a million pixels each. Each core takes the next part when it is done with one;
// the progress bar moves after each part of the program's own thread.
//
// Three loops stand on one another: `ForRows` hands out rows, `ForPixels` runs of pixels, `ForPixelsOf` runs
// with what a table has there; `ForRowsInPlace` is `ForRows` for a routine that writes few of the pixels.
#pragma once

#include "surface/raster/Bitmap.h"

#include <functional>
#include <span>

namespace pintalux {

class PixelTable;
class ProgressBar;
class Surface;

/// What vectors hold at most: row functions are quick where they take a multiple of it.
inline constexpr int kVectorPixels = 32;

/// The end, exclusive, of a loop whose last value is `last`, rounded half to even: 99.5 gives 101. Error 6
/// where the end would lie beyond 32767.
int LoopEnd(double last);

/// Sets `Pb.Max`; an image too small for its routine leaves it at 0.
void SetProgressMax(ProgressBar& Pb, double max);

enum class Cores { All, One };

/// Calls rows(top, bottom) for parts of the box, which is cut to the surface. The parts hold each row once;
/// on one core they come from top to bottom. A call must write every pixel of its rows inside the box: what
/// the surface showed there is gone already. Moves `Pb` from 0 to its `Max` and back to 0.
void ForRows(Surface& surface, const Box& box, ProgressBar& Pb, Cores cores,
             const std::function<void(int top, int bottom)>& rows);

/// Calls rows(top, bottom) like `ForRows`, but what a call does not write stays as it was. Memory is taken
/// only for the tiles that are written. A part holds whole bands of the bitmap. A call may read and write its
/// own rows, by `WritableRun` or `WriteRow`, and no others. `Pb` starts in its middle: the first half stands
/// for a reading beforehand, which this loop does without.
void ForRowsInPlace(Surface& surface, const Box& box, ProgressBar& Pb,
                    const std::function<void(int top, int bottom)>& rows);

/// Makes `out`, the `count` pixels of row y from x on; all lie in one tile.
using MakePixels = std::function<void(int x, int y, int count, Pixel* out)>;

/// Writes every pixel of the box, which is cut to the surface, run by run.
void ForPixels(Surface& surface, const Box& box, ProgressBar& Pb, const MakePixels& make);

/// Whether the pixels that hold `MaskKeyColour` stay as they are: while `FreeSelActive` is set. A routine
/// reads it once, before its loop.
bool MaskIsUp();

/// Whether a routine heeds the mask.
enum class Mask { Honoured, Ignored };

/// Makes `out` from `pixels`, the `count` pixels that a table has in row y from x on; all lie in one tile.
using MakePixelsOf = std::function<void(int x, int y, int count, const Pixel* pixels, Pixel* out)>;

/// Writes every pixel of the box like `ForPixels`. `Px` is the table of the surface.
void ForPixelsOf(const PixelTable& Px, Surface& work, const Box& box, Mask mask, ProgressBar& Pb,
                 const MakePixelsOf& make);

/// Puts back the pixels that the mask protects. `out` are the `count` new pixels of row y from x on; those
/// whose pixel in the table is `MaskKeyColour` become that again.
void KeepMasked(const PixelTable& Px, int x, int y, int count, Pixel* out);

} // namespace pintalux
